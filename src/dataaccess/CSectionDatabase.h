// A database file: opening, creating, and the list of its tables.
//
//     CSectionDatabase database;
//     database.Open("AISCSections.db3", /*exclusive=*/0, /*readOnly=*/1, ";PWD=secret");
//
// Failures throw CSectionException*. A copy refers to the same open file.
#pragma once

#include "dataaccess/CSectionTableDef.h"
#include "platform/CString.h"
#include "platform/Export.h"

#include <memory>
#include <vector>

namespace dbsection {
class Connection;
class Session;
} // namespace dbsection

/// Groups databases for transactions: what is written between BeginTrans and CommitTrans to the
/// databases that were open in the workspace at BeginTrans appears at once, file by file, or not at
/// all.
class DBSECTION_API CSectionWorkspace {
public:
    void BeginTrans();
    void CommitTrans();
    void Rollback();

private:
    friend class CSectionDatabase;

    std::vector<std::weak_ptr<dbsection::Session>> m_sessions;
    std::vector<std::shared_ptr<dbsection::Session>> m_inTransaction;
};

class DBSECTION_API CSectionDatabase {
public:
    explicit CSectionDatabase(CSectionWorkspace* workspace = nullptr) : m_workspace(workspace) {}

    /// Creates a database file; an existing one is left alone and is an error. `descriptor` may
    /// carry the password of the new file (";PWD=secret"); blanks and semicolons alone are none.
    /// Journals that an earlier file of that name left are removed. `options` is accepted and not
    /// used.
    void Create(const char* path, const char* descriptor = nullptr, int options = 0);

    /// Opens a file. `connect` carries the password as ";PWD=secret", or is the password itself. An
    /// empty one on a protected file means the password in the environment variable
    /// SECTIONDB_PASSWORD. A file without password opens whatever is given. An exclusive database
    /// keeps all others out; where the file may not be written, those who want to write.
    ///
    /// The pages of a plain file of up to 128 MiB are checked before it is used, once for each of
    /// its versions: damage is error 3049 then. Those of a protected file are checked as they are
    /// read.
    void Open(const char* path, int exclusive = 0, int readOnly = 0, const char* connect = "");

    bool IsOpen() const;
    void Close();

    /// The file name as it was given, or empty when nothing was opened.
    CString GetName() const { return m_name; }

    /// Releases what the engine holds for this object.
    void DestroyDB();

    /// The number of tables, system and hidden ones included.
    short GetTableDefCount() const;
    void GetTableDefInfo(int index, CSectionTableDefInfo& info,
                         unsigned long level = PrimaryInformation) const;
    void GetTableDefInfo(const char* name, CSectionTableDefInfo& info,
                         unsigned long level = PrimaryInformation) const;
    void DeleteTableDef(const char* name);

    /// The names of the user tables, neither system tables nor hidden ones, in table order: in one
    /// look at the file.
    std::vector<CString> GetUserTableNames() const;

private:
    friend class CSectionTableDef;
    friend class CSectionRecordset;

    dbsection::Connection& OpenConnection() const;
    template <class Opener>
    void Begin(const char* path, Opener open);

    CSectionWorkspace* m_workspace;
    std::shared_ptr<dbsection::Session> m_session;
    CString m_name;
};

/// A stored query, named in a database.
struct DBSECTION_API CSectionQueryDef {
    CSectionDatabase* m_pDatabase = nullptr;
    CString m_strName;
    CString m_strSQL;
};
