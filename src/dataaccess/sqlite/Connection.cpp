#include "dataaccess/sqlite/Connection.h"

#include "dataaccess/sqlite/EngineEnd.h"
#include "dataaccess/sqlite/WholeFiles.h"
#include "platform/CallState.h"
#include "platform/Text.h"

#include <new>

namespace dbsection {

void ConnectionCloser::operator()(Connection* connection) const noexcept {
    if (connection->IsOurs())
        delete connection;
}

Connection::LivingConnections& Connection::Living() {
    static auto& living = *new LivingConnections; // databases of the host may live longest
    return living;
}

Connection::Connection(std::string path) : m_path(std::move(path)) {
    LivingConnections& living = Living();
    const std::lock_guard lock(living.guard);
    living.all.push_back(this);
}

Connection::~Connection() {
    {
        LivingConnections& living = Living();
        const std::lock_guard lock(living.guard);
        living.all.remove(this);
    }
    m_kept.Clear();
    if (!HasEngineEnded())
        sqlite3_close(m_database);
}

bool Connection::MayRest() const {
    return IsOurs() && m_origin && m_transactions == 0 && !IsInTransaction() && m_kept.IsFree() &&
           Origin::Find(m_origin->path, m_origin->readOnly) == m_origin;
}

void Connection::TrimCache() {
    constexpr int Most = 512 * 1024;
    int used = 0;
    int highest = 0;
    sqlite3_db_status(m_database, SQLITE_DBSTATUS_CACHE_USED, &used, &highest, 0);
    if (used > Most)
        sqlite3_db_release_memory(m_database);
}

bool Connection::IsReadOnly() const {
    return m_readOnly || sqlite3_db_readonly(m_database, "main") == 1;
}

void Connection::RequireWritable() const {
    if (IsReadOnly())
        Fail(SectionError::ReadOnly,
             m_path + ": it was opened for reading only; open it for writing, and give the file "
                      "and its folder write permission.");
    if (m_transactions > 0 && !IsInTransaction())
        Fail(SectionError::NoTransaction,
             m_path + ": an earlier failure has undone the transaction; roll it back, and begin "
                      "another one.");
}

void Connection::ForgetChanges() {
    sqlite3_exec(m_database, "ROLLBACK", nullptr, nullptr, nullptr);
    m_kept.Clear();
    ++m_ownChanges;
    ForgetTables();
}

/// To be called when the engine has failed.
void Connection::ForgetUndoneChanges() {
    if (m_transactions == 0 || IsInTransaction())
        return;
    ++m_ownChanges;
    ForgetTables();
}

StatementLease Connection::Own(const std::string& sql) {
    m_work.Renew();
    if (KeptStatement* kept = m_kept.Find(sql))
        return StatementLease(*kept);
    StatementPtr statement = Prepare(sql);
    if (!statement)
        FailFromStatement(m_lastPrepareCode, m_lastPrepareError, sql, m_path,
                          SectionError::UnknownNameInStatement);
    return StatementLease(m_kept.Keep({sql, std::move(statement), nullptr, false}));
}

/// Short of memory in the midst of its work, the engine's cipher frees some twice, or writes a page
/// that nobody can read.
void Connection::RequireCipherMemory() const {
    constexpr std::size_t Needed = std::size_t{64} << 10; // several times what it takes
    if (m_key)
        ::operator delete(::operator new(Needed));
}

/// A file stays whole where it changes by this connection alone.
void Connection::BeginChange() {
    RequireCipherMemory();
    if (m_keptFile)
        KeptFiles::Drop(m_keptFile->Version());
    m_keptFile.reset();
    if (!IsInTransaction() && m_wholeVersion && m_wholeVersion != FileVersion::Find(m_path.c_str()))
        m_wholeVersion.reset();
}

void Connection::EndChange() {
    if (IsInTransaction() || !m_wholeVersion)
        return;
    const auto changed = FileVersion::Find(m_path.c_str());
    if (!changed || !changed->IsOfSameFile(*m_wholeVersion))
        return;
    WholeFiles::Add(*changed);
    m_wholeVersion = changed;
}

/// Of a damaged page SQLCipher 4 says that there is no memory.
int Connection::Diagnosed(int code) const {
    constexpr int Needed = 64 << 10; // several times what it takes
    if ((code & 0xFF) != SQLITE_NOMEM || !m_key || !m_key->isEngineFourth)
        return code;
    void* const memory = sqlite3_malloc(Needed);
    sqlite3_free(memory);
    return memory == nullptr ? code : SQLITE_CORRUPT;
}

void Connection::Execute(const std::string& sql, Activity activity) {
    if (activity == Activity::Writing)
        BeginChange();
    m_work.Renew();
    ForgetLooks();
    const int code = Diagnosed(sqlite3_exec(m_database, sql.c_str(), nullptr, nullptr, nullptr));
    if (code != SQLITE_OK) {
        ForgetUndoneChanges();
        FailFromEngine(code, m_database, m_path, activity);
    }
    if (activity == Activity::Writing)
        EndChange();
}

bool Connection::Step(sqlite3_stmt* statement, const std::string& subject, Activity activity) {
    if (activity == Activity::Writing)
        BeginChange();
    ForgetLooks();
    const int code = Diagnosed(sqlite3_step(statement));
    const char* message = code == SQLITE_ERROR ? sqlite3_errmsg(m_database) : "";
    const bool isAtRow = CheckStep(code, message, statement, subject, activity);
    if (activity == Activity::Writing)
        EndChange();
    return isAtRow;
}

bool Connection::CheckStep(int code, const std::string& message, sqlite3_stmt* statement,
                           const std::string& subject, Activity activity) {
    if (code != SQLITE_ROW && code != SQLITE_DONE)
        ForgetUndoneChanges();
    if (code == SQLITE_ERROR) // as when another program has dropped the table
        FailFromStatement(code, message, sqlite3_sql(statement), subject,
                          SectionError::UnknownNameInStatement);
    if (code != SQLITE_ROW && code != SQLITE_DONE)
        FailFromEngine(code, m_database, subject, activity);
    if (code == SQLITE_ROW)
        m_work.Renew();
    return code == SQLITE_ROW;
}

void Connection::RequireTextsWhole(std::size_t size) {
    constexpr std::size_t Long = 256; // shorter ones stand in the page of their row
    if (!m_key || size < Long)
        return;
    const StatementLease lease = Own("SELECT 1 FROM sqlite_master");
    const int code = sqlite3_step(lease.Get());
    if (code != SQLITE_ROW)
        FailFromEngine(code == SQLITE_ERROR ? SQLITE_CORRUPT : code, nullptr, m_path,
                       Activity::Reading);
}

int Connection::Write(sqlite3_stmt* statement, const std::string& subject) {
    Step(statement, subject, Activity::Writing);
    ++m_ownChanges;
    return sqlite3_changes(m_database);
}

std::int64_t Connection::PragmaValue(const std::string& sql) {
    const StatementLease lease = Own(sql);
    Step(lease.Get(), m_path, Activity::Reading);
    return sqlite3_column_int64(lease.Get(), 0);
}

CSectionDataStamp Connection::Stamp() {
    return {m_serial, m_ownChanges, PragmaValue("PRAGMA data_version")};
}

} // namespace dbsection
