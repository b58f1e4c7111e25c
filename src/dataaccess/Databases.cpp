#include "dataaccess/DataAccess.h"

#include "dataaccess/Guard.h"
#include "dataaccess/Handles.h"
#include "dataaccess/sqlite/ConnectionPool.h"
#include "dataaccess/sqlite/KeptFiles.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"

using dbsection::FailureRule;
using dbsection::Guarded;
using dbsection::ShowMessageBox;

namespace {

/// Attributes of the file that was last made writable; one word for the whole process.
unsigned savedFileAttributes = 0;

/// The object behind `*db`, closed, or a new one.
CSectionDatabase& ObtainClosed(CSectionDatabase** db, CSectionWorkspace* workspace) {
    if (*db == nullptr)
        *db = new CSectionDatabase(workspace);
    else if ((*db)->IsOpen())
        (*db)->Close();
    return **db;
}

void ChangeReadOnlyMark(const char* fileName, int mode) {
    if (fileName == nullptr)
        return;
    const unsigned attributes = GetFileAttributesA(fileName);
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return;
    if (mode == 1) {
        savedFileAttributes = attributes;
        if ((attributes & FILE_ATTRIBUTE_READONLY) != 0)
            SetFileAttributesA(fileName, FILE_ATTRIBUTE_NORMAL);
    } else if (mode == 0) {
        SetFileAttributesA(fileName, savedFileAttributes);
        savedFileAttributes = 0;
    }
}

/// Whether a row of the table satisfies the condition.
bool HoldsRecord(CSectionDatabase* db, const CString& table, const char* where) {
    RecordsetHandle rows;
    const CString sql = "Select * From [" + table + "]";
    return openRecordset(&db, rows.Address(), sql, CSectionRecordset::Snapshot, 1) == 1 &&
           getRecordCount(rows.Address()) > 0 && IsExistentRecord(rows.Address(), where) == 1;
}

} // namespace

int createDatabase(CSectionDatabase** db, CString fileName, const char* descriptor, int options,
                   CSectionWorkspace* workspace) {
    if (fileName.IsEmpty()) {
        ShowMessageBox("Failed to create database. Filename not provided",
                       "Error - createDatabase()");
        return 0;
    }
    const FailureRule rule{"createDatabase()", "Failed to create database.", -1};
    const int result = Guarded(rule, [&] {
        ObtainClosed(db, workspace).Create(fileName, descriptor, options);
        return 1;
    });
    if (result != 1)
        destroyDatabase(db);
    return result;
}

int openDatabase(CSectionDatabase** db, CString fileName, int reportMissingFile, int exclusive,
                 int readOnly, const char* connect, CSectionWorkspace* workspace) {
    if (fileName.IsEmpty()) {
        ShowMessageBox("Failed to open database. Filename not provided", "Error - openDatabase()");
        return 0;
    }
    FailureRule rule{"openDatabase()", "Failed to open database.", -1};
    if (reportMissingFile == 0)
        rule.silentErrors = {SectionError::FileNotFound};
    int errorNumber = 0;
    bool markSaved = false;
    const auto open = [&] {
        CSectionDatabase& database = ObtainClosed(db, workspace);
        if (readOnly == 0) {
            ChangeReadOnlyMark(fileName, 1);
            markSaved = true;
        }
        database.Open(fileName, exclusive, readOnly, connect);
        return 1;
    };
    const int result = Guarded(rule, open, &errorNumber);
    if (result == 1)
        return 1;
    if (markSaved)
        modifyFileReadOnlyAttribute(fileName, 0); // a file that stays closed keeps its mark
    destroyDatabase(db);
    return errorNumber == SectionError::FileNotFound ? 0 : result;
}

void closeDatabase(CSectionDatabase** db, int destroy) {
    if (*db != nullptr && (*db)->IsOpen())
        Guarded({"closeDatabase()", "Failed to close database."}, [&] {
            const CString name = (*db)->GetName();
            (*db)->Close();
            ChangeReadOnlyMark(name, 0);
            return 1;
        });
    if (destroy == 1)
        destroyDatabase(db);
}

void destroyDatabase(CSectionDatabase** db) {
    if (*db == nullptr)
        return;
    if ((*db)->IsOpen())
        (*db)->Close();
    (*db)->DestroyDB();
    delete *db;
    *db = nullptr;
}

void modifyFileReadOnlyAttribute(const char* fileName, int mode) {
    Guarded({"modifyFileReadOnlyAttribute()", "Failed to change the attributes of the file."}, [&] {
        ChangeReadOnlyMark(fileName, mode);
        return 1;
    });
}

void terminateDAOEngine() {
    dbsection::ConnectionPool::Clear();
    dbsection::KeptFiles::Clear();
}

void SetKeptRowsLimit(std::size_t bytes) { dbsection::KeptFiles::SetLimit(bytes); }

std::size_t GetKeptRowsSize() { return dbsection::KeptFile::TotalSize(); }

CString getTableFromRecord(const char* fileName, const char* where, const char* connect) {
    CString found;
    Guarded({"getTableFromRecord()", "Failed to find the table of a record."}, [&] {
        DatabaseHandle db;
        if (openDatabase(db.Address(), fileName, 1, 0, 0, connect, nullptr) != 1)
            return 0;
        const dbsection::FailureWatch watch;
        for (const CString& table : db->GetUserTableNames())
            if (HoldsRecord(db.Get(), table, where)) {
                if (!watch.HasSeenAny()) // else it may be in a table before
                    found = table;
                return 1;
            }
        return 0;
    });
    return found;
}
