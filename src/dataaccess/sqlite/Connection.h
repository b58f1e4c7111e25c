// An open database file of the engine: keys, safety settings, statements, and the list of tables.
#pragma once

#include "dataaccess/CSectionException.h"
#include "dataaccess/CSectionRecordset.h"
#include "dataaccess/CSectionTableDef.h"
#include "dataaccess/NameSearch.h"
#include "dataaccess/sqlite/AskedRows.h"
#include "dataaccess/sqlite/EngineError.h"
#include "dataaccess/sqlite/FileKey.h"
#include "dataaccess/sqlite/KeptFiles.h"
#include "dataaccess/sqlite/RowsInUse.h"
#include "dataaccess/sqlite/SqlText.h"
#include "dataaccess/sqlite/Statement.h"
#include "dataaccess/sqlite/WorkBound.h"
#include "platform/FileVersion.h"
#include "platform/ProcessMark.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace dbsection {

/// Whether the rows of a query are to be written to.
enum class Editing { No, IfPossible };

/// A reading statement ready to run, and what was lifted from it, whose texts are bound to it and
/// must outlive the run.
struct ReadyQuery {
    StatementLease lease;
    std::vector<LiftedLiteral> parameters;
};

/// How many rows are read at once of a whole table.
enum class Amount { Few, Any };
inline constexpr int FewRows = 1024;

/// Rows that were read before, and are what a statement would read now.
struct KeptAnswer {
    std::shared_ptr<const QueryShape> shape;
    RowsInUse rows;
    CSectionDataStamp stamp;
};

/// The same of rows that are too many to be kept.
struct LongAnswer {
    std::shared_ptr<const QueryShape> shape;
    CSectionDataStamp stamp;
};

/// What is opened, how, and by whom.
struct Origin {
    std::string path;
    bool readOnly;
    FileVersion version;
    FileUser user;
    bool operator==(const Origin&) const = default;

    /// Asks the system; nothing where the file cannot be reached, and errno then says why.
    static std::optional<Origin> Find(const std::string& path, bool readOnly);
};

class Connection;

/// Closes a connection. One that another process opened is left as it is: closing it here would
/// undo what that process is writing.
struct ConnectionCloser {
    void operator()(Connection* connection) const noexcept;
};
using ConnectionPtr = std::unique_ptr<Connection, ConnectionCloser>;

/// An open file of the engine.
class Connection {
public:
    struct Access {
        bool exclusive = false;
        bool readOnly = false;
    };

    /// A new connection, or one that rested (ConnectionPool).
    static ConnectionPtr Open(const std::string& path, std::string_view password, Access access);

    /// Creates the file, protected unless the password is empty; one that exists is an error.
    static ConnectionPtr Create(const std::string& path, std::string_view password);

    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Whether this process opened it. One that was forked from that process must not use it.
    bool IsOurs() const { return m_opener.IsOfThisProcess(); }

    /// Whether nothing of its use lasts, and its file is what it was when it was opened.
    bool MayRest() const;

    /// Gives back memory that is more than reading a few tables takes.
    void TrimCache();

    /// Whether it could be the result of opening a file with that origin and password.
    bool CanServe(const Origin& origin, std::string_view password) const;

    /// Whether its file has since become another.
    bool IsOutdatedBy(const Origin& origin) const;

    bool IsReadOnly() const;
    const std::string& Path() const { return m_path; }

    /// A statement of the library's own, kept ready.
    StatementLease Own(const std::string& sql);

    /// Runs statements of the library's own.
    void Execute(const std::string& sql, Activity activity);

    /// Steps a statement: true at a row, false at the end. The work between two rows is bound.
    bool Step(sqlite3_stmt* statement, const std::string& subject, Activity activity);

    /// To be called at a row whose texts have that many bytes. Of a protected file the engine gives
    /// zeros for the end of a long text whose page is damaged, and tells that with the next page.
    void RequireTextsWhole(std::size_t size);

    /// A statement of a caller: it must read tables, and nothing may follow it. Its first
    /// `ownParameters` parameters are left to be bound.
    ReadyQuery Query(std::string_view sql, Editing editing, SectionError::Number unknownName,
                     int ownParameters = 0);

    /// Runs a statement up to its first row, made ready anew where the tables have changed, and
    /// calls `use` with whether there is one.
    void WithFirstRow(const std::string& sql, Editing editing,
                      const std::function<void(const ReadyQuery&, bool atRow)>& use);

    /// Steps to the next row of a query: true at a row, false at the end.
    bool NextRow(const ReadyQuery& query);

    /// The answer to a statement of a caller from what is kept of the file, which takes one look at
    /// it; nothing where the engine must be asked. Rows that were asked for again are kept.
    std::optional<KeptAnswer> Answer(const AskedRows& asked, Editing editing, Amount amount);

    /// What a statement delivers that was noted, in this version of the file, to have more than few
    /// rows. It is noted while it is at one of them.
    std::optional<LongAnswer> FindLong(const std::string& sql, Editing editing);
    void NoteLong(const std::string& sql, Editing editing, const ReadyQuery& query);

    /// The tables that have rows of a name, in table order, from what is kept of the file; nothing
    /// where that does not tell. All tables are read to be kept where that is worth it.
    std::optional<std::vector<NameRows>> FindRows(const QuestionFor& questionFor);

    /// The same of one question for all tables; none is read.
    std::optional<std::vector<NameRows>> FindKeptRows(const NameQuestion& question);

    /// Whether what was read in that state is what would be read now.
    bool IsCurrent(const CSectionDataStamp& stamp);

    /// The stamp of a state of which this connection alone has made another one since.
    CSectionDataStamp WithOwnChanges(CSectionDataStamp stamp) const {
        stamp.ownChanges = m_ownChanges;
        return stamp;
    }

    /// Makes every statement ready anew when it is used next.
    void ForgetStatements() { m_kept.Clear(); }

    /// The rows changed by a written statement; the data stamp changes with it.
    int Write(sqlite3_stmt* statement, const std::string& subject);

    /// Runs a change of the tables as one transaction and forgets what was known of them.
    void ChangeSchema(const std::string& sql);

    /// Costs little while a reading statement is under way, else a lock of the file.
    CSectionDataStamp Stamp();

    /// Tables in the order of their creation. The list is read again when another program changed
    /// it.
    const std::vector<std::string>& Tables();

    /// The table's name as it was created, or nothing; letter case is ignored.
    std::optional<std::string> FindTable(std::string_view name);

    /// The same; a table that there is not is error 3265.
    std::string RequireTable(std::string_view name);

    /// The columns of a table of the list.
    FieldList Fields(const std::string& table);

    /// Read once in a version of the file.
    std::int32_t CountRows(const std::string& table);

    std::int64_t LastRowId() const { return sqlite3_last_insert_rowid(m_database); }

    /// Throws where nothing can be written.
    void RequireWritable() const;

    bool IsInTransaction() const { return sqlite3_get_autocommit(m_database) == 0; }

    /// Undoes a transaction.
    void ForgetChanges();

private:
    friend ConnectionCloser;
    friend class Transaction;

    static std::int64_t NextSerial() {
        static std::atomic<std::int64_t> last = 0;
        return ++last;
    }

    explicit Connection(std::string path);
    ~Connection();

    /// All that live in this process, those that it inherited included.
    struct LivingConnections {
        std::mutex guard;
        std::list<Connection*> all;
    };
    static LivingConnections& Living();

    static ConnectionPtr OpenAnew(const std::string& path, std::string_view password,
                                  Access access);

    static int Authorize(void* self, int action, const char* first, const char* second,
                         const char* database, const char* viewOrTrigger);

    void RequireNoInheritedLock() const;
    void OpenFile();
    void OpenFileAgain();
    void LimitTrust();
    void Key(std::string_view password);
    bool KeyProtectedFile(std::span<const unsigned char> firstPage, std::string_view password);
    void UseKey(const FileSalt& salt, std::string_view secret, FileForm form);
    int TryToRead();
    void CheckReadable(bool isProtected);
    void LockExclusively();
    void RequireWhole();
    bool CheckPages();
    bool HasWriteAheadLog();

    /// Nothing where the tables have changed since the statement was made ready; it is then to be
    /// forgotten.
    std::optional<bool> FirstRow(const ReadyQuery& query);

    KeptFile* Kept();
    KeptFile* KeptWhileReading();
    std::optional<KeptAnswer> AnswerFromTable(KeptFile& file, const TableQuestion& question,
                                              Editing editing, Amount amount);
    std::shared_ptr<const KeptTable> KeepTable(KeptFile& file, const std::string& name,
                                               Amount amount);
    std::shared_ptr<const KeptFile::Tables> KeepAllTables(KeptFile& file);
    std::optional<KeptResult> ReadToKeep(const KeptFile& file, const std::string& sql,
                                         Editing editing, Amount amount);
    std::shared_ptr<const RowStore> ReadAll(const ReadyQuery& query, bool atRow, Amount amount);
    bool CanBeKept();

    void RequireCipherMemory() const;
    void BeginChange();
    void EndChange();
    void ForgetUndoneChanges();
    int Diagnosed(int code) const;
    bool CheckStep(int code, const std::string& message, sqlite3_stmt* statement,
                   const std::string& subject, Activity activity);

    StatementPtr Prepare(const std::string& sql);
    KeptStatement* FindOrPrepare(const std::string& sql, Editing editing);
    std::optional<KeptStatement> PrepareQuery(const std::string& sql, Editing editing);
    std::optional<KeptStatement> PrepareReading(const std::string& sql);
    std::optional<KeptStatement> PrepareEditable(const std::string& sql, const QueryShape& shape);
    QueryShape ShapeOf(sqlite3_stmt* statement) const;
    double NumberOf(const std::string& literal);
    bool IsTable(std::string_view name) const;
    void ReadTables(std::int64_t version);
    void ForgetTables();
    std::int64_t PragmaValue(const std::string& sql);
    std::int64_t SchemaVersion() { return PragmaValue("PRAGMA schema_version"); }

    struct KeyUse {
        FileSalt salt;
        FileForm form;
        bool isEngineFourth; ///< SQLCipher 4, whatever the form of the file
        KeyNumber number;
    };

    const ProcessMark m_opener;
    std::string m_path;
    std::optional<Origin> m_origin;            ///< none: must not rest
    std::optional<KeyUse> m_key;               ///< none: the file is not protected
    std::optional<FileVersion> m_file;         ///< as it was opened; none: nothing of it is kept
    std::shared_ptr<KeptFile> m_keptFile;      ///< what is kept of it, of its last known version
    std::optional<FileVersion> m_wholeVersion; ///< in which nothing of a plain file is damaged
    sqlite3* m_database = nullptr;
    WorkBound m_work;
    bool m_readOnly = false;
    bool m_exclusive = false;
    bool m_callersStatement = false; ///< the authorizer then allows reading only
    bool m_authorized = false;       ///< it was asked: a statement was made ready, maybe anew
    std::string m_lastPrepareError;
    int m_lastPrepareCode = SQLITE_OK;
    StatementStore m_kept;
    const std::int64_t m_serial = NextSerial(); ///< no two of a process have the same
    std::int64_t m_ownChanges = 0;
    int m_transactions = 0; ///< that were begun to write, one within the other
    std::vector<std::string> m_tables;
    std::vector<std::string> m_notRun; ///< views and virtual tables
    std::int64_t m_tablesVersion = -1;
    std::int64_t m_tablesFile = 0; ///< number of the kept file that has these tables, 0 is none
    std::map<std::string, FieldList, std::less<>> m_fields;
};

} // namespace dbsection
