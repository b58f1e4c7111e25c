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
#include <string_view>
#include <vector>

namespace dbsection {
class Connection;
class DatabaseTransaction;
class KeptNames;
class Workspace;
struct DatabaseReference;
} // namespace dbsection

/// Groups databases for transactions: what is written between BeginTrans and CommitTrans to the
/// databases that were open for writing in the workspace at BeginTrans appears at once, file by
/// file, or not at all. A copy is the same workspace. The databases may outlive it: a transaction
/// that is under way at its end is rolled back.
class DBSECTION_API CSectionWorkspace {
public:
    CSectionWorkspace();
    CSectionWorkspace(const CSectionWorkspace&) = default;
    CSectionWorkspace& operator=(const CSectionWorkspace&) = default;

    /// Databases that are only read are left alone. One transaction at a time.
    void BeginTrans();

    /// Commits every database of the transaction that can be, and then throws the first error.
    ///
    /// What failed for now, as when others read the file (3218), stays in the transaction, for
    /// another try or for Rollback. Lost are the changes of a database that was closed meanwhile
    /// (3420), and those that an error undid (3034); such a database leaves the transaction.
    void CommitTrans();

    void Rollback();

private:
    friend class CSectionDatabase;

    std::shared_ptr<dbsection::Workspace> m_workspace;
};

/// An open file is closed by Close, for all copies, or with the last copy. A process that was
/// forked from the one that opened it must open it again (3420), which it cannot where a
/// transaction was under way or the file was held exclusively (3045).
class DBSECTION_API CSectionDatabase {
public:
    /// With a workspace, it takes part in the workspace's transactions.
    explicit CSectionDatabase(CSectionWorkspace* workspace = nullptr);
    CSectionDatabase(const CSectionDatabase& other);
    CSectionDatabase& operator=(const CSectionDatabase& other);
    ~CSectionDatabase();

    /// Refers to the open file of another database from now on, without keeping it open.
    void ReferTo(const CSectionDatabase& other);

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

    /// The connect text of a password, empty for an empty one. Error 3031 where none can carry it:
    /// of blanks and semicolons, or with both "=" and ";" in it.
    static CString ConnectText(std::string_view password);

    bool IsOpen() const;
    void Close();

    /// The file name as it was given, or empty when nothing was opened; valid until another is.
    const CString& GetName() const { return m_name; }

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

    /// Reads all pages, tables and indexes: what of them is damaged, in the words of the database
    /// engine, at most 100 lines. Empty where nothing is.
    std::vector<CString> FindDamage() const;

private:
    friend class CSectionTableDef;
    friend class CSectionRecordset;
    friend class dbsection::DatabaseTransaction;
    friend class dbsection::KeptNames;

    dbsection::Connection& OpenConnection() const;
    template <class Opener>
    void Begin(const char* path, Opener open);

    std::shared_ptr<dbsection::DatabaseReference> m_reference; ///< never null, and its alone
    CString m_name;
};

/// A stored query, named in a database.
struct DBSECTION_API CSectionQueryDef {
    CSectionDatabase* m_pDatabase = nullptr;
    CString m_strName;
    CString m_strSQL;
};
