// The façade for graphical front ends.
//
//     SectionDBInterface::SetProfileDBFolder("/usr/share/sections/");
//     SectionDBInterface::SetSectionDBPassword(";PWD=secret");
//     int shapes = SectionDBInterface::GetSectionCount(1, 1); // W shapes of the American catalogue
//     SectionDBInterface::ExitSectionDBInterface();
//
// A catalogue index names a catalogue: 1 to 37, 1001 the user tables, 1010 the generic shapes
// (records/CatalogueList.h); 0 is "Untitled", which has no file. A section type is the
// catalogue's own number of a shape family.
//
// All members are static: the state is that of the process, and one thread at a time is inside. A
// call from another one meanwhile is refused: a message box says so, in engine mode too, the
// failure value is returned, and nothing else happens; the kind of the last exception stays. A
// message box may call the library on its own thread. FreeSectionData may be called on any thread;
// the members that only set or give an int are not checked.
//
// A call that fails returns 0, null, an empty text, or what it names. Where memory runs out in it,
// it fails as a whole, tells so once (kind 1), and leaves the library usable: the next call has
// what this one could not make, but for a catalogue's object, which UnInitSectionDBInterface and
// InitSectionDBInterface bring back. Nothing is thrown but the invalid-argument error
// (CInvalidArgException*), and that only by SaveUserSelectedSections and the queries on an empty
// selection, by GetSectionStructProperty where the table keeps units for some of its columns only,
// and by the sorted GetSectionNameList of a table without columns.
#pragma once

#include "catalogues/SectionDBDriver.h"
#include "dataaccess/LibraryState.h"
#include "platform/CString.h"
#include "platform/Collections.h"
#include "platform/Export.h"
#include "records/CatalogueList.h"
#include "records/CatalogueRecords.h"

#include <vector>

class CSectionDatabase;

/// The library-wide database handle, null when closed. It belongs to the library.
extern DBSECTION_API CSectionDatabase* gblSectionDatabase;

class DBSECTION_API SectionDBInterface : public SectionLibraryState {
public:
    // Lifecycle.

    /// Fills the enumeration maps and creates the catalogue objects, once.
    static void InitSectionDBInterface();

    /// Releases the catalogue objects.
    static void UnInitSectionDBInterface();

    /// Releases everything, the library-wide database included.
    static void ExitSectionDBInterface();

    /// Closes the library-wide database; its object goes too when `flag` is 1.
    static void CloseGblSectionDBObject(int flag);

    // Settings, kept for the process.

    // Three marks for the programs of a host to agree on, all 1 at first. The library keeps them
    // and does not act on them: it writes settings and deletes rows whatever they are.

    /// The number of the host's system of units.
    static void SetBaseUnitNo(int number) { m_nBaseUnitNo = number; }
    static int GetBaseUnitNo() { return m_nBaseUnitNo; }

    /// Whether the host may write the settings file.
    static void SetClearToWriteIniFile(int flag) { m_bClearToWriteIniFile = flag; }
    static int IsClearToWriteIniFile() { return m_bClearToWriteIniFile; }

    /// Whether the host lets its users delete sections.
    static void AllowSectionDelete(int allow) { m_bAllowDeleteSection = allow; }
    static int IsDeleteSectionAllowed() { return m_bAllowDeleteSection; }

    /// Connect text passed on every open of a catalogue's database: ";PWD=secret", or the bare
    /// password.
    static void SetSectionDBPassword(const char* connect);

    static void SetDBIFileName(const char* path);
    static void SetINIFileName(const char* path);
    static void SetGenericTableFileName(const char* path);

    /// Sets the file of generic shapes (index 1010), as SetGenericTableFileName does, and so do
    /// hosts count on it. The file of user tables (index 1001) is set by m_szUserTableFileName.
    static void SetUserTableFileName(const char* path);
    static CString GetUserTableFileName();
    static CString GetGenericTableFileName();

    /// Sets the folder of the catalogue files; a trailing backslash is added where it is missing.
    static void SetProfileDBFolder(CString folder);
    static CString GetProfileDBFolder();

    // Paths.

    /// The folder of the catalogue files, by default that of the host's environment.
    static CString GetDatabaseDirectoryName();
    static CString GetDBIFileName();
    static CString GetINIFileName();
    static CString GetDatabaseUpdateLogFileName();

    /// The path of the existing database file of a catalogue, or empty. Empty, too, where the
    /// settings file cannot be read, or the folder not be searched: a file error (kind 2).
    static CString GetDatabaseFileName(int index);

    /// Whether the settings file redirects a catalogue to another file, and to which file stem. One
    /// that cannot be read is a file error (kind 2) and gives 0.
    static int IsCustomized(CString fileStem, CString& customName);
    static int IsCustomized(int index);

    // Opening and counting.

    /// Opens a catalogue's database into `*ppDb`, or keeps the one that is open for this index.
    /// Returns 1, or 0 when the index has no file or it cannot be opened.
    static int OpenSectionDatabase(int index, CSectionDatabase** ppDb);
    static void CloseSectionDatabase(CSectionDatabase** ppDb);

    /// The library-wide database, opened on the catalogue; null when that fails. The pointer is
    /// good until the next call that takes a catalogue index, or closes: each may open another
    /// file, and destroy the object. Pass it on at once, and ask for it anew.
    static CSectionDatabase* GetDatabasePtr(int index);

    // Transactions of the library-wide database: what is added and changed between beginning and
    // committing is stored at once or not at all, also where the program is killed, and many
    // additions take the time of one. Closing the database undoes it; an addition that is refused
    // undoes itself alone. `m_bStartTransaction` has nothing to do with it.

    /// Opens a catalogue's database and begins a transaction on it. Until it ends the library-wide
    /// database stays on this catalogue: calls that need another one fail. Returns 1, or 0 where
    /// one is under way, another program writes, or the file cannot be written.
    static int BeginTransaction(int index);

    /// Ends the transaction. CommitTransaction returns 1, or 0 where nothing was stored.
    static int CommitTransaction();
    static int RollbackTransaction();

    /// The number of sections, and of property columns, of a section type; 0 when anything is
    /// missing. The forms with a database count in one that the caller opened.
    static int GetSectionCount(int index, int sectionType);
    static int GetSectionCount(int index, int sectionType, CSectionDatabase** ppDb);
    static int GetSectionFieldCount(int index, int sectionType);
    static int GetSectionFieldCount(int index, int sectionType, CSectionDatabase** ppDb);

    /// Reads what a database file says of itself: the first five columns of its table "DBInfo",
    /// which a built catalogue calls Title (`info0`, e.g. "American"), Standard (`info1`), Source
    /// (`info2`), LayoutVersion (`info3`) and SourceHash (`info4`, of the text sources, empty for a
    /// user's own file). Mind the order of the arguments. Returns 1 when the record was read.
    /// Read-only marks stay as they are. No connect text is passed: a protected file opens by the
    /// password in the environment (CSectionDatabase::Open).
    static int GetDBInfo(CString fileName, CString& info2, CString& info0, CString& info3,
                         CString& info1, CString& info4);

    /// Writes the table-index file: a section per catalogue, a key per table, each "0". Failures
    /// are file errors (kind 2).
    static void InitialiseDBIFile();

    // Catalogue tables.

    /// Fill the maps from symbolic names to catalogue indices and section types, once.
    static void InitialiseCountryEnumMap();
    static void InitialiseSectionTypeEnumMap();

    /// Fills both maps and creates the catalogue objects that are missing.
    static void InitialiseAllMaps();

    /// Look a symbolic name up by the identity of the stored text, which no caller's text has: the
    /// result is 0.
    static int GetCountryEnumVal(CString& key);
    static int GetSectionTypeEnumVal(CString& key);

    /// The display name of a catalogue. `index` must be 0 to 37; it is not checked.
    static CString GetCountryName(int index);

    /// The catalogue of a display name, by letter case too; LastCatalogueIndex + 1 when there is
    /// none.
    static int GetCountryID(CString name);

    /// The table that holds a section type, or empty.
    static CString GetTableFromSectionType(int index, int sectionType);

    /// The section type of a table; that of the catalogue's last table when it has none of that
    /// name, -1 when it cannot be opened.
    static int GetSectionTypeFromTable(int index, CString tableName);

    /// The shape type of a section type (ShapeType::Code), or 0.
    static int GetShapeTypeFromSection(int index, int sectionType);

    /// A new list, the caller's, of the catalogue's section tables in the database's order; null
    /// when the catalogue cannot be opened.
    static CStringList* GetSectionTypeList(int index);

    // Names. The public name is the one that the standard prints, the VessaName that of the
    // analysis program; the latter is matched without regard to letter case. In a catalogue the
    // first table with a match counts, once for each of its matching rows. Results are appended:
    // the arrays are never emptied. A name with a quote is not supported: it is reported as a
    // failed query (kind 4), and nothing is found.

    /// Search the catalogues 1 to 37 in order. Return 1 when both arrays hold something, and 0 at
    /// once at the first catalogue that cannot be opened; what was found before stays.
    static int GetCountryAndSectionTypeFromVessaName(const char* name, CUIntArray& catalogues,
                                                     CUIntArray& sectionTypes);
    static int GetCountryAndSectionTypeFromPublicName(const char* name, CUIntArray& catalogues,
                                                      CUIntArray& sectionTypes);

    /// Search one catalogue. Return 1 when `sectionTypes` holds something in the end.
    static int GetSectionTypeFromVessaName(int index, const char* name, CUIntArray& sectionTypes);
    static int GetSectionTypeFromPublicName(int index, const char* name, CUIntArray& sectionTypes);

    /// The same, with the other name of the section: that of the first matching row, repeated for
    /// each further one.
    static int GetSectionTypeAndVessaNameFromPublicName(int index, const char* publicName,
                                                        CUIntArray& sectionTypes,
                                                        CStringArray& vessaNames);
    static int GetSectionTypeAndVessaNameFromPublicName(int index, const char* publicName,
                                                        CUIntArray& sectionTypes,
                                                        std::vector<CString>& vessaNames);
    static int GetSectionTypeAndPublicNameFromVessaName(int index, const char* vessaName,
                                                        CUIntArray& sectionTypes,
                                                        CStringArray& publicNames);
    static int GetSectionTypeAndPublicNameFromVessaName(int index, const char* vessaName,
                                                        CUIntArray& sectionTypes,
                                                        std::vector<CString>& publicNames);

    /// The table that holds a section, by its VessaName in upper case. Returns 1 when found.
    static int GetTableNameFromSection(int index, const char* name, CString& tableName);

    // The user's selections: record numbers by section type, kept in the table-index file.

    static constexpr DWORD EverySection = 0;       ///< as the first number of a selection
    static constexpr DWORD NoSection = 0xFFFFFFFF; ///< likewise

    /// Writes the selection into the first elements of an array, which grows as needed and keeps
    /// what it holds beyond them. A selection that is not stored is EverySection. Where the file
    /// cannot be read, that is a file error (kind 2), GetLastProfileError() tells its number, and
    /// the first element is NoSection, as after any failure: no section is offered, nor should that
    /// be saved.
    static void GetUserSelectedSections(int index, int sectionType, CDWordArray& selection);

    /// Stores a selection, at once or not at all, and builds the table-index file when there is
    /// none. A section type without a table is not stored. What cannot be written is a file error
    /// (kind 2), and GetLastProfileError() tells its number: after five seconds, when another
    /// process keeps writing in the folder. An empty array throws the invalid-argument error
    /// (CInvalidArgException*).
    static void SaveUserSelectedSections(int index, int sectionType, CDWordArray& selection);

    /// Whether a section is selected: 1 or 0; 0, too, where the file cannot be read (kind 2).
    static int IsSectionInProject(int index, int sectionType, int recordNumber);

    /// A new list, the caller's, of the VessaNames of the selected sections by record number; null
    /// when there are none, or the file cannot be read (kind 2).
    static CStringList* GetUserSelectedSectionNameList(int index, int sectionType);

    // Lists and display data. Lists, arrays and records are new and the caller's; null, or 0, means
    // that the catalogue cannot be opened, and a list of an unknown section type is empty. Display
    // values are at most 16, the area first (angles: area, both legs, thickness), with lengths in
    // the length unit `unit1` (1001 to 1008) and forces in the force unit `unit2` (2001 to 2008).

    /// The VessaNames, or the public names, of a section type; by record number when `sorted` is
    /// not 0. `ids` receives the record numbers in list order, 0 for one beyond 32 bits.
    static CStringList* GetSectionNameList(int index, int type, int sorted);
    static CStringList* GetSectionNameList(int index, int type, CUIntArray* ids, int sorted);
    static CStringList* GetSectionPublicNameList(int index, int type, int sorted);
    static CStringList* GetSectionPublicNameList(int index, int type, CUIntArray* ids, int sorted);

    /// The same into a vector, which is emptied first.
    static void GetSectionNameList(int index, int type, CUIntArray* ids, std::vector<CString>& out,
                                   int sorted);
    static void GetSectionPublicNameList(int index, int type, CUIntArray* ids,
                                         std::vector<CString>& out, int sorted);

    /// The VessaNames sorted by the given columns in ascending order.
    static CStringList* GetSortedSectionNameList(int index, int type, CStringArray* sortFields,
                                                 int flag);

    /// The names, or the units, of all columns of a section type, the three of bookkeeping
    /// included.
    static CStringArray* GetSectionFieldNameArray(int index, int type);
    static CStringArray* GetSectionFieldUnitsArray(int index, int type);

    /// The names and display values of all sections of a type; there must be room for all of them
    /// in `values`. `unitText` is not used.
    static void GetAllSectionDataForGUI(int index, int type, CStringArray* names,
                                        float (*values)[16], const char* unitText,
                                        unsigned int unit1, unsigned int unit2);

    /// The name and display values of a section by its record number. Returns 1 when found.
    static int GetSectionDataForGUI(int index, int type, int recordNo, CString* name, float* values,
                                    const char* unitText, unsigned int unit1, unsigned int unit2);

    /// The shape type and display values of a section by its VessaName. Returns 1, and 0 also for a
    /// section that the user's selection leaves out; its values are written all the same.
    static int GetSectionDataForGUI(int index, const char* name, int* shapeType, float* values,
                                    const char* unitText, unsigned int unit1, unsigned int unit2);

    /// The shape type and the stored values of a section of the American catalogue, whatever the
    /// user's selection; 0 for other catalogues. The units are not used.
    static int GetSectionDataForGUI_NoDbi(int index, const char* name, int* shapeType,
                                          float* values, const char* unitText, unsigned int unit1,
                                          unsigned int unit2);

    /// The same with the section type and the record number in place of the shape type.
    /// `*sectionType` must be set: its table is the working table of the call.
    static int GetSectionDataForGUIAllValues(int index, const char* name, int* sectionType,
                                             int* recordNo, float* values, unsigned int unit1,
                                             unsigned int unit2);

    /// The angle of the principal axes of an angle section in degrees, 45 for equal legs; lips are
    /// left out. 0 for other shapes. Returns 1 when the section was found.
    static int GetSectionPrincipalAngle(int index, CString name, double* angle);

    /// The row of a section (a SectionRecord of its layout), or its property summary (a
    /// SECTIONINFO), and its section type; null when it cannot be read. Either is to be released
    /// with FreeSectionData, or cast to `SectionRecord*` first: the pointer is made from one.
    static void* GetSectionData(int index, const char* name, int& type, const char* unitText);
    static void* GetSectionStructProperty(int index, const char* name, int& type,
                                          unsigned int unit1, unsigned int unit2,
                                          const char* unitText);

    /// Deletes a record of GetSectionData or GetSectionStructProperty; null is allowed.
    static void FreeSectionData(void* record);

    // Queries. Each opens a recordset into `*rs`, which the caller walks and closes; one that is
    // open there is closed first. A closed database is told with a message. Where nothing can be
    // asked (an unknown section type, a series that a function does not serve) `*rs` stays as it
    // was. Names and patterns are inserted as they are: one with a quote is reported as a failed
    // query (kind 4), which leaves no recordset.

    /// The selected sections of a type. `keys` are pairs of a column number and a direction (0
    /// ascending, 1 descending) and end with a pair whose column is -1.
    static void GetSortedSectionRecords(int catalogue, int type, int const (*keys)[2],
                                        CSectionDatabase** db, CSectionRecordset** rs);

    /// The same of those whose VessaName begins with `pattern`.
    static void GetLikeSortedSectionRecords(int catalogue, int type, int const (*keys)[2],
                                            const char* pattern, CSectionDatabase** db,
                                            CSectionRecordset** rs);

    /// The same of those whose value in a column lies between two bounds, in the table's unit.
    static void GetRangeSortedSectionRecords(int catalogue, int type, int const (*keys)[2],
                                             int column, float upper, float lower,
                                             CSectionDatabase** db, CSectionRecordset** rs);

    /// A selected section by its VessaName, whatever its case; a joist by its exact designation.
    static void GetSectionRecord(int catalogue, int type, const char* name, CSectionDatabase** db,
                                 CSectionRecordset** rs);

    /// A selected section by its VessaName. Where the name is null, unknown or ambiguous: the
    /// selected sections of at least the average area, the smallest first.
    static void GetAssignSectionRecords(int catalogue, int type, const char* name,
                                        CSectionDatabase** db, CSectionRecordset** rs);

    // Queries of the steel joist catalogue. The series are 1 K, 2 KCS, 3 LH, 4 DLH, 5 joist
    // girders; spans, depths, loads and weights are in the units of the catalogue. Column 2 of the
    // result is the name, the numbers follow; a girder's name is its number.

    /// The K joists that carry both loads over the tabulated span, or over any when `span` is not
    /// above 0; the lightest first.
    static void GetOWSteelJoistKSeries(int catalogue, int series, float span, float totalLoad,
                                       float liveLoad, CSectionDatabase** db,
                                       CSectionRecordset** rs);

    /// The KCS joists that have the moment and the shear capacity; the lightest first.
    static void GetOWSteelJoistKCSSeries(int catalogue, int series, float moment, float shear,
                                         CSectionDatabase** db, CSectionRecordset** rs);

    /// Which loads are tabulated for the long-span joists of a depth and span: 1 safe loads, 2
    /// total and live loads, 0 none.
    static void FindLongSpanJoistLoadType(int catalogue, int series, float span, float depth,
                                          int* loadType, CSectionDatabase** db);

    /// The long-span joists that carry the load over the span; the shallowest first. With load type
    /// 1 `load1` is the safe load and the depth must match, with 2 `load1` and `load2` are the
    /// total and the live load and the depth is the least.
    static void GetLongSpanJoistSeries(int catalogue, int series, int loadType, float span,
                                       float depth, float load1, float load2, CSectionDatabase** db,
                                       CSectionRecordset** rs);

    /// The joist girders of the next tabulated span and panel load up, and of the next depth down;
    /// any number of joists, or depth, when it is not above 0.
    static void GetJoistGirders(int catalogue, int series, float span, int numberOfJoist,
                                float panelLoad, float depth, CSectionDatabase** db,
                                CSectionRecordset** rs);

    /// A joist by its exact designation.
    static void GetSteelJoist(int catalogue, int series, const char* designation,
                              CSectionDatabase** db, CSectionRecordset** rs);

    /// A girder by its designation, such as "40S48G8N12.0K".
    static void GetJoistGirder(int catalogue, int series, const char* designation,
                               CSectionDatabase** db, CSectionRecordset** rs);

    // Castellated beams and aluminium.

    /// Fill the record of a castellated beam of the American catalogue by its VessaName; it stays
    /// as it was when there is none. They work on the library-wide database.
    static void GetCastellatedNonCompBeamData(int catalogue, int type, const char* name,
                                              AISCSECTION::AM_CastellatedNonCompBeam& record);
    static void GetCastellatedCompBeamData(int catalogue, int type, const char* name,
                                           AISCSECTION::AM_CastellatedCompBeam& record);

    /// The strengths of an alloy by its VessaName for a product (0 all, 1 extrusions, 2 drawn tube,
    /// 3 pipe), alclad or not, welded or not, and a thickness, both ends of its range included.
    static void GetAluminiumMaterialProperty(int catalogue, int type, const char* name,
                                             unsigned product, unsigned alclad, unsigned welded,
                                             float thickness, CSectionDatabase** db,
                                             CSectionRecordset** rs);

    static int m_bInit;
    static int m_nCountry; ///< catalogue index of the database opened last
    static int m_nBaseUnitNo;
    static int m_bClearToWriteIniFile;
    static int m_bAllowDeleteSection;
    static int m_bStartTransaction;
    static CString m_szDBIFileName;
    static CString m_szIniFileName;
    static CString m_szUserTableFileName;
    static CString m_szGenericTableFileName;
    static CString m_szSectionDBFolder;
    static SectionDBDriverImpl m_SectionDBDrv;
    static CMap<const char*, const char*, int, int> m_mapCountryEnums;
    static CMap<const char*, const char*, int, int> m_mapSectionTypeEnums;

    /// File stems and display names of the catalogues, by catalogue index. Callers match on the
    /// display names: they stay letter for letter.
    static const char* const m_saSectionFile[LastCatalogueIndex + 1];
    static const char* const m_saCountryName[LastCatalogueIndex + 1];

private:
    /// The catalogue object of an index with a database attached; null when either is missing.
    static SectionDBBase* AttachedCatalogue(int index, CSectionDatabase* db);

    /// The same on the library-wide database, opened on the catalogue; the second form sets the
    /// object's working table, too, to that of a section type.
    static SectionDBBase* OpenCatalogue(int index);
    static SectionDBBase* OpenCatalogue(int index, int workingType);

    /// Creates the table-index file where there is none, and writes it anew on request. False when
    /// that fails, which is reported.
    static bool MakeTableIndex(bool resetsExisting);
};
