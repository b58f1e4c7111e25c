// The data-access functions: databases, tables, fields and recordsets behind pointer variables.
//
//     CSectionDatabase* db = nullptr;
//     CSectionRecordset* rows = nullptr;
//     if (openDatabase(&db, path, 1, 0, 1, ";PWD=secret", nullptr) == 1 &&
//         openRecordset(&db, &rows, "Select * From [W Shape]", 4, 1) == 1) { ... }
//     closeRecordset(&rows);
//     closeDatabase(&db, 1);
//
// The functions create the object behind the caller's pointer variable and delete it again; the
// variable is null when nothing is open. Results are 1 for success and 0 for a refused or failed
// request; opening and creating give -1 when the database failed. Nothing is thrown: a failure is
// handed to the exception handlers (ExceptionHandlers.h), and a missing argument is shown in a
// message box at once.
#pragma once

#include "dataaccess/CSectionDatabase.h"
#include "dataaccess/CSectionRecordset.h"
#include "dataaccess/CSectionTableDef.h"
#include "platform/CString.h"
#include "platform/Export.h"

#include <cstddef>

/// Creates a database file. `descriptor` may carry its password (";PWD=secret").
DBSECTION_API int createDatabase(CSectionDatabase** db, CString fileName, const char* descriptor,
                                 int options, CSectionWorkspace* workspace);

/// Opens a database file; an open one in `*db` is closed first. `exclusive` keeps all others out,
/// `readOnly` refuses changes, `connect` carries the password (";PWD=secret", or the bare
/// password), and with a `workspace`, which may be null, the database takes part in its
/// transactions. A file marked read-only is made writable while it is open for writing. A missing
/// file gives 0, silently unless `reportMissingFile` is set; every other failure gives -1.
DBSECTION_API int openDatabase(CSectionDatabase** db, CString fileName, int reportMissingFile,
                               int exclusive, int readOnly, const char* connect,
                               CSectionWorkspace* workspace);

/// Closes the file and gives it back the attributes that it had when it was opened. The object goes
/// too when `destroy` is 1. The engine's connection is kept without any lock, so that opening the
/// unchanged file again is quick.
DBSECTION_API void closeDatabase(CSectionDatabase** db, int destroy);

DBSECTION_API void destroyDatabase(CSectionDatabase** db);

/// Mode 1 remembers the attributes of a file and takes its read-only mark away; mode 0 writes the
/// remembered attributes to the file and forgets them. One set of attributes is remembered for the
/// whole process.
DBSECTION_API void modifyFileReadOnlyAttribute(const char* fileName, int mode);

/// Ends the connections that closeDatabase has kept, and forgets the rows that are kept.
DBSECTION_API void terminateDAOEngine();

/// Rows that were read are kept in memory while their file is what it was, which one look at the
/// file tells: a change by any program is seen by the next call. This is the most that they may
/// take, in bytes; what was not used for longest gives way. 32 MiB unless the host says otherwise,
/// which forgets what there is; 0 keeps none.
DBSECTION_API void SetKeptRowsLimit(std::size_t bytes);

/// What the kept rows take, in bytes.
DBSECTION_API std::size_t GetKeptRowsSize();

/// Begins a table, which is part of the database after appendTableDef.
DBSECTION_API int createNewTableDef(CSectionDatabase* db, CSectionTableDef** table, CString name);
DBSECTION_API int openTableDef(CSectionDatabase* db, CSectionTableDef** table, CString name);
DBSECTION_API int appendTableDef(CSectionDatabase* db, CSectionTableDef* table);
DBSECTION_API void closeTableDef(CSectionTableDef** table);
DBSECTION_API int deleteTable(CSectionDatabase* db, CString name);
DBSECTION_API int IsExistentTable(CSectionDatabase* db, CString name);

/// Describes the table at `index`; 0 past the last one, silently unless `reportErrors` is set.
DBSECTION_API int getTableInfo(CSectionDatabase* db, CSectionTableDefInfo* info, int index,
                               int reportErrors);

/// The number of user tables: neither system tables nor hidden ones.
DBSECTION_API int getTableCount(CSectionDatabase** db);

/// The first user table of a file that holds a row satisfying the SQL condition `where`, or empty.
DBSECTION_API CString getTableFromRecord(const char* fileName, const char* where,
                                         const char* connect);

DBSECTION_API int createNewField(CSectionTableDef* table, CSectionFieldInfo* field);
DBSECTION_API int deleteField(CSectionTableDef* table, CString name);
DBSECTION_API int IsExistentField(CSectionTableDef* table, CString name);
DBSECTION_API int getFieldInfo(CSectionTableDef* table, CSectionFieldInfo* field, int index,
                               int reportErrors);
DBSECTION_API int getFieldCount(CSectionTableDef* table);
DBSECTION_API int getFieldCount(CSectionRecordset** rs);

/// Told each statement that openRecordset is asked to open, before it is opened.
using StatementObserver = void (*)(const char* sql, int openType);

/// Installs an observer, for a host's log, and returns the one before it; null for none.
DBSECTION_API StatementObserver SetStatementObserver(StatementObserver observer);

/// Opens a reading statement (openType: 1 table, 2 dynaset, 4 snapshot); a recordset in `*rs` is
/// closed first. `options` is accepted and not used.
DBSECTION_API int openRecordset(CSectionDatabase** db, CSectionRecordset** rs, const char* sql,
                                int openType, int options);
DBSECTION_API void closeRecordset(CSectionRecordset** rs);

/// The full number of rows, 0 when no row is current. The current row stays.
DBSECTION_API int getRecordCount(CSectionRecordset** rs);

/// Makes the row current that satisfies the SQL condition, by a find mode of CSectionRecordset.
DBSECTION_API int setRecordsetTo(CSectionRecordset** rs, CString criteria, long findType);
DBSECTION_API int setRecordsetToFirst(CSectionRecordset** rs);
DBSECTION_API int setRecordsetToLast(CSectionRecordset** rs);
DBSECTION_API int setRecordsetToNext(CSectionRecordset** rs);
DBSECTION_API int setRecordsetToPrevious(CSectionRecordset** rs);

/// Whether a row satisfies the SQL condition. The current row stays.
DBSECTION_API int IsExistentRecord(CSectionRecordset** rs, CString where);

/// Deletes the row that satisfies the SQL condition, or the current row where it is empty.
DBSECTION_API int deleteRecord(CSectionRecordset** rs, CString where);

/// Deletes every row and returns how many were deleted.
DBSECTION_API int deleteAllRecords(CSectionRecordset** rs);
