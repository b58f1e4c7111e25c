/* The entry points of the analysis engine: a flat C interface, called from Fortran.
 *
 * Every argument is passed by reference, but for the length of a text, which follows it by value.
 * Integers have 32 bits, reals are single. In the comments each argument is "in", "out" or "inout".
 *
 *     int32_t catalogue = 1, type = 1, unit = 1004, count, values_count, err;
 *     float values[17];
 *     OPENSECTIONDATABASE(&catalogue, &err);
 *     GETSECTION(&catalogue, &type, "W12X26", 6, &unit, values, &count, &values_count, &err);
 *     CLOSESECTIONDATABASE(&err);
 *
 * Texts that come in end at a NUL or in blanks, which do not count; sections are named in any
 * letter case. Values are the columns of a section's row from column 3 on (counted from 0), 17 at
 * most, lengths converted to the unit `unit`: 1001 inch, 1002 foot, 1003 yard, 1004 mm, 1005 cm,
 * 1006 dm, 1007 m, 1008 km; forces to kips. Any other code leaves them as stored. `err` is the kind
 * of the last failure: 0 none, 1 memory, 2 file, 3 resource, 4 data access, 5 component, 6 archive.
 * A failed call gives no rows and no values: counts and status are 0.
 *
 * A strength that no standard publishes is handed over as 0.
 *
 * Where a table keeps no units, its values come as stored; where its units cannot be read, none
 * come. A list of units that is too short throws the invalid-argument error (CInvalidArgException*
 * of C++) in the calls that convert values, and in GETUNITFORFIELDANDCONVFACT for a value that it
 * does not reach; nothing else throws.
 *
 * A query leaves its rows in a slot of its own, named with it, where the cursor reads them. There
 * is one set of slots and one open database for the process; calls come from one thread at a time.
 * A call from a second thread while one is inside is refused: a message box says so, `err` is 7 for
 * this call, and nothing else is done.
 */
#pragma once

#include "platform/Export.h"

#include <stdint.h> /* NOLINT(modernize-deprecated-headers): it is C, too */

#ifdef __cplusplus
extern "C" {
#endif

/* Settings. The first sets the file of generic shapes, which is that of index 1010 and not of the
 * user tables (1001): so do engines count on it. Then the catalogues' folder, and the settings
 * file. */

DBSECTION_API void SETUSERTABLEFILENAME(const char* name /* in */, int32_t name_length);
DBSECTION_API void SETPROFILEDBFOLDER(const char* folder /* in */, int32_t folder_length);
DBSECTION_API void SETINIFILENAME(const char* file /* in */, int32_t file_length);

/* Does nothing. */
DBSECTION_API void SETDBIFILENAME(const char* file /* in */, int32_t file_length);

/* Lifetime. */

/* Opens a catalogue and empties all slots. */
DBSECTION_API void OPENSECTIONDATABASE(const int32_t* catalogue /* in */, int32_t* err /* out */);

/* Closes the database and all slots. */
DBSECTION_API void CLOSESECTIONDATABASE(int32_t* err /* out */);

/* Closes one slot, 0 to 9. */
DBSECTION_API void CLOSESECTIONRECORDSET(const int32_t* slot /* in */, int32_t* err /* out */);

/* Whether the settings redirect a catalogue to another file: 1 or 0. */
DBSECTION_API void ISSECTIONDATABASECUSTOMIZED(const int32_t* catalogue /* in */,
                                               int32_t* result /* out */, int32_t* err /* out */);

/* To be called once, at the end of the run. */
DBSECTION_API void TERMINATEDAOSESSION(void);

/* The number of sections, and of values of each, of a section type; 0 when the catalogue cannot be
 * opened. */
DBSECTION_API void GETSECTIONCOUNT(const int32_t* catalogue /* in */, const int32_t* type /* in */,
                                   int32_t* count /* out */, int32_t* err /* out */);
DBSECTION_API void GETFIELDCOUNT(const int32_t* catalogue /* in */, const int32_t* type /* in */,
                                 int32_t* field_count /* out */, int32_t* err /* out */);

/* The cursor. `status` is 0 when there is no such row: name and values then stay as they are. The
 * name is written up to its length, with a NUL behind it where there is room; values(17). */

DBSECTION_API void GETFIRSTSECTION(const int32_t* slot /* in */, char* name /* out */,
                                   int32_t name_length, float* values /* out */,
                                   int32_t* status /* out */, int32_t* err /* out */);
DBSECTION_API void GETNEXTSECTION(const int32_t* slot /* in */, char* name /* out */,
                                  int32_t name_length, float* values /* out */,
                                  int32_t* status /* out */, int32_t* err /* out */);
DBSECTION_API void GETPREVSECTION(const int32_t* slot /* in */, char* name /* out */,
                                  int32_t name_length, float* values /* out */,
                                  int32_t* status /* out */, int32_t* err /* out */);
DBSECTION_API void GETLASTSECTION(const int32_t* slot /* in */, char* name /* out */,
                                  int32_t name_length, float* values /* out */,
                                  int32_t* status /* out */, int32_t* err /* out */);

/* Single sections, into slot 0. `count` is the number of rows of that name, `value_count` that of
 * values; values(17) are written when there is a row. */

/* A section, or two joined by "+", with or without blanks beside it: the values are those of the
 * first, but for the fourth, which is the sum of both. */
DBSECTION_API void GETSECTION(const int32_t* catalogue /* in */, const int32_t* type /* in */,
                              const char* name /* in */, int32_t name_length,
                              const int32_t* unit /* in */, float* values /* out */,
                              int32_t* count /* out */, int32_t* value_count /* out */,
                              int32_t* err /* out */);

/* The section type that holds a section; with `values` not null, its values too. `type` is written
 * only when it is found; `err` is left alone when there is no such section. */
DBSECTION_API void GETSECTIONTYPEFROMVESSANAME(
    const int32_t* catalogue /* in */, int32_t* type /* out */, const char* name /* in */,
    int32_t name_length, const int32_t* unit /* in */, float* values /* out, or null */,
    int32_t* count /* out */, int32_t* value_count /* out */, int32_t* err /* out */);

/* The beam that a castellated beam is cut from; `type` becomes its section type. */
DBSECTION_API void GETCASTELLATEDROOTBEAMSECTION(
    const int32_t* catalogue /* in */, int32_t* type /* inout */, const char* name /* in */,
    int32_t name_length, const int32_t* unit /* in */, float* values /* out */,
    int32_t* count /* out */, int32_t* value_count /* out */, int32_t* err /* out */);

/* A steel joist, or a joist girder, by its designation; values as stored. The `count` of a joist is
 * that of slot 7. */
DBSECTION_API void GETSTEELJOIST(const int32_t* catalogue /* in */, const int32_t* type /* in */,
                                 const char* name /* in */, int32_t name_length,
                                 const int32_t* unit /* ignored */, float* values /* out */,
                                 int32_t* count /* out */, int32_t* value_count /* out */,
                                 int32_t* err /* out */);
DBSECTION_API void GETJOISTGIRDER(const int32_t* catalogue /* in */, const int32_t* type /* in */,
                                  const char* name /* in */, int32_t name_length,
                                  const int32_t* unit /* ignored */, float* values /* out */,
                                  int32_t* count /* out */, int32_t* value_count /* out */,
                                  int32_t* err /* out */);

/* The strengths of an aluminium alloy for a product (0 all, 1 extrusions, 2 drawn tube, 3 pipe) and
 * a thickness. The values begin at column 4, one less than `value_count`; forces are converted to
 * `source_unit`. */
DBSECTION_API void GETALUMINIUMMATERIALPROPERTY(
    const int32_t* catalogue /* in */, const int32_t* type /* in */, const char* name /* in */,
    int32_t name_length, const int32_t* product /* in */, const int32_t* alclad /* in */,
    const int32_t* welded /* in */, const float* thickness /* in */, const int32_t* unit /* in */,
    const int32_t* source_unit /* in */, float* values /* out */, int32_t* count /* out */,
    int32_t* value_count /* out */, int32_t* err /* out */);

/* Lists. `keys(key_count, 2)` are columns to sort by and their directions (0 ascending, 1
 * descending), stored column by column; a column of -1 ends them. */

/* Slot 1: all sections of a type. */
DBSECTION_API void GETSORTEDSECTIONS(const int32_t* catalogue /* in */,
                                     const int32_t* type /* in */, const int32_t* keys /* in */,
                                     const int32_t* key_count /* in */,
                                     const int32_t* unit /* in */, int32_t* count /* out */,
                                     int32_t* value_count /* out */, int32_t* err /* out */);

/* Slot 2: those whose name begins with a pattern. */
DBSECTION_API void GETLIKESORTEDSECTIONS(const int32_t* catalogue /* in */,
                                         const int32_t* type /* in */, const int32_t* keys /* in */,
                                         const int32_t* key_count /* in */,
                                         const char* pattern /* in */, int32_t pattern_length,
                                         const int32_t* unit /* in */, int32_t* count /* out */,
                                         int32_t* value_count /* out */, int32_t* err /* out */);

/* Slot 3: those whose value in a column, counted from 0, lies between two bounds in the unit
 * `unit`. The bounds are left in the unit of the table. */
DBSECTION_API void GETRANGESORTEDSECTIONS(
    const int32_t* catalogue /* in */, const int32_t* type /* in */, const int32_t* keys /* in */,
    const int32_t* key_count /* in */, const int32_t* column /* in */, float* upper /* inout */,
    float* lower /* inout */, const int32_t* unit /* in */, int32_t* count /* out */,
    int32_t* value_count /* out */, int32_t* err /* out */);

/* Slot 4: the section of a name, or those of at least the average area. */
DBSECTION_API void GETASSIGNSECTIONS(const int32_t* catalogue /* in */,
                                     const int32_t* type /* in */, const char* name /* in */,
                                     int32_t name_length, const int32_t* unit /* in */,
                                     int32_t* count /* out */, int32_t* value_count /* out */,
                                     int32_t* err /* out */);

/* Joists, in the units of the catalogue. */

/* Slot 5. */
DBSECTION_API void GETKSERIESSTEELJOISTS(const int32_t* catalogue /* in */,
                                         const int32_t* type /* in */, const float* span /* in */,
                                         const float* total_load /* in */,
                                         const float* live_load /* in */,
                                         const int32_t* unit /* ignored */,
                                         int32_t* count /* out */, int32_t* value_count /* out */,
                                         int32_t* err /* out */);

/* Slot 6. */
DBSECTION_API void
GETKCSSERIESSTEELJOISTS(const int32_t* catalogue /* in */, const int32_t* type /* in */,
                        const float* moment /* in */, const float* shear /* in */,
                        const int32_t* unit /* ignored */, int32_t* count /* out */,
                        int32_t* value_count /* out */, int32_t* err /* out */);

/* Which loads are tabulated for a span and a depth: 1 safe loads, 2 total and live loads, 0 none.
 */
DBSECTION_API void FINDLHSERIESLOADTYPE(const int32_t* catalogue /* in */,
                                        const int32_t* type /* in */, const float* span /* in */,
                                        const float* depth /* in */, int32_t* load_type /* out */,
                                        int32_t* err /* out */);
DBSECTION_API void FINDDLHSERIESLOADTYPE(const int32_t* catalogue /* in */,
                                         const int32_t* type /* in */, const float* span /* in */,
                                         const float* depth /* in */, int32_t* load_type /* out */,
                                         int32_t* err /* out */);

/* Slot 7, of both. */
DBSECTION_API void GETLHSERIESSTEELJOISTS(
    const int32_t* catalogue /* in */, const int32_t* type /* in */,
    const int32_t* load_type /* in */, const float* span /* in */, const float* depth /* in */,
    const float* load1 /* in */, const float* load2 /* in */, const int32_t* unit /* ignored */,
    int32_t* count /* out */, int32_t* value_count /* out */, int32_t* err /* out */);
DBSECTION_API void GETDLHSERIESSTEELJOISTS(
    const int32_t* catalogue /* in */, const int32_t* type /* in */,
    const int32_t* load_type /* in */, const float* span /* in */, const float* depth /* in */,
    const float* load1 /* in */, const float* load2 /* in */, const int32_t* unit /* ignored */,
    int32_t* count /* out */, int32_t* value_count /* out */, int32_t* err /* out */);

/* Slot 8. */
DBSECTION_API void GETJOISTGIRDERS(const int32_t* catalogue /* in */, const int32_t* type /* in */,
                                   const float* span /* in */, const int32_t* joists /* in */,
                                   const float* panel_load /* in */, const float* depth /* in */,
                                   const int32_t* unit /* ignored */, int32_t* count /* out */,
                                   int32_t* value_count /* out */, int32_t* err /* out */);

/* The unit of a value, counted from 0, as an identifier, and the factor that converts it to the
 * unit `unit`. */
DBSECTION_API void GETUNITFORFIELDANDCONVFACT(const int32_t* catalogue /* in */,
                                              const int32_t* type /* in */,
                                              const int32_t* value_index /* in */,
                                              const int32_t* unit /* in */,
                                              int32_t* unit_id /* out */, float* factor /* out */,
                                              int32_t* err /* out */);

/* What there is besides. No call above resets the kind of the last failure: who wants to know it of
 * each call resets it before. */

/* The password of the protected catalogues that are opened from now on. One that holds both "=" and
 * ";", or blanks alone, is refused; err 4. */
DBSECTION_API void SETSECTIONPASSWORD(const char* password /* in */, int32_t password_length,
                                      int32_t* err /* out */);

/* The file of the user tables, index 1001. */
DBSECTION_API void SETUSERSECTIONFILENAME(const char* file /* in */, int32_t file_length);

/* The number of the open catalogue, 0 where none is: after OPENSECTIONDATABASE another number than
 * was asked for tells that the catalogue has no file or cannot be opened. */
DBSECTION_API void GETOPENCATALOGUE(int32_t* catalogue /* out */, int32_t* err /* out */);

/* The number of values that the cursor hands over of each row of a slot, 17 at most. */
DBSECTION_API void GETSLOTVALUECOUNT(const int32_t* slot /* in */, int32_t* value_count /* out */,
                                     int32_t* err /* out */);

/* The name of a value, counted from 0, as its table has it, e.g. "IZ"; and how the unit is printed
 * in which it is handed over for the unit `unit`, e.g. "mm^4": nothing for numbers, texts and where
 * the table keeps none. `status` is 0 where there is no such value, and the text then stays as it
 * is. Texts are written as those of the cursor. They open the catalogue. */
DBSECTION_API void GETVALUENAME(const int32_t* catalogue /* in */, const int32_t* type /* in */,
                                const int32_t* value_index /* in */, char* name /* out */,
                                int32_t name_length, int32_t* status /* out */,
                                int32_t* err /* out */);
DBSECTION_API void GETVALUEUNIT(const int32_t* catalogue /* in */, const int32_t* type /* in */,
                                const int32_t* value_index /* in */, const int32_t* unit /* in */,
                                char* label /* out */, int32_t label_length,
                                int32_t* status /* out */, int32_t* err /* out */);

/* The kind of the last failure, without doing anything; and forgetting it, with its message. */
DBSECTION_API void GETSECTIONSTATUS(int32_t* err /* out */);
DBSECTION_API void RESETSECTIONSTATUS(int32_t* err /* out */);

/* What failed last and why, written as the texts of the cursor; `full_length` is the length of the
 * whole text, 0 where nothing failed since it was forgotten. */
DBSECTION_API void GETSECTIONMESSAGE(char* text /* out */, int32_t text_length,
                                     int32_t* full_length /* out */, int32_t* err /* out */);

#ifdef __cplusplus
}
#endif
