#include "dataaccess/sqlite/Transaction.h"

#include "dataaccess/CSectionDatabase.h"
#include "dataaccess/sqlite/DatabaseReference.h"

#include <utility>

namespace dbsection {

Transaction::Transaction(Connection& connection, Purpose purpose)
    : m_connection(&connection),
      m_purpose(purpose),
      m_isPart(connection.IsInTransaction()) {
    if (purpose != Purpose::Reading)
        connection.RequireWritable();
    if (HasBounds())
        Run(purpose == Purpose::Reading ? "BEGIN" : "BEGIN IMMEDIATE", "SAVEPOINT part");
    if (IsUndone())
        ++connection.m_transactions;
}

Transaction::~Transaction() {
    if (m_connection == nullptr)
        return;
    if (IsUndone())
        Undo();
    else if (HasBounds()) // whatever the end of reading meets, the next statement meets, too
        sqlite3_exec(m_connection->m_database, "COMMIT", nullptr, nullptr, nullptr);
}

void Transaction::Commit() {
    m_connection->RequireWritable();
    try {
        if (HasBounds())
            Run("COMMIT", "RELEASE part");
    } catch (CSectionException* e) {
        if (!HasFailedToUnlock())
            throw;
        e->Delete();
    }
    if (IsUndone())
        --m_connection->m_transactions;
    m_connection = nullptr;
}

/// The locks come last: the change is in the file by then.
bool Transaction::HasFailedToUnlock() const {
    const int code = sqlite3_extended_errcode(m_connection->m_database);
    return code == SQLITE_IOERR_UNLOCK || code == SQLITE_IOERR_RDLOCK;
}

void Transaction::Run(const char* outermost, const char* part) {
    const StatementLease lease = m_connection->Own(m_isPart ? part : outermost);
    const bool isReading = m_purpose == Purpose::Reading;
    m_connection->Step(lease.Get(), m_connection->Path(),
                       isReading ? Activity::Reading : Activity::Writing);
}

void Transaction::Undo() {
    --m_connection->m_transactions;
    if (!m_isPart) {
        m_connection->ForgetChanges();
        return;
    }
    // Where the engine has undone the whole transaction already there is no such part.
    sqlite3_exec(m_connection->m_database, "ROLLBACK TO part; RELEASE part", nullptr, nullptr,
                 nullptr);
    m_connection->m_kept.Clear();
    ++m_connection->m_ownChanges;
    m_connection->ForgetTables();
}

SessionTransaction::SessionTransaction(std::shared_ptr<Session> session, Purpose purpose)
    : m_session(std::move(session)),
      m_transaction(m_session->Get(), purpose) {}

SessionTransaction::~SessionTransaction() {
    if (!IsUnderWay())
        m_transaction.Leave();
}

void SessionTransaction::Commit() {
    if (!IsUnderWay())
        Fail(SectionError::ObjectClosed,
             m_session->Path() +
                 ": it was closed before the transaction was committed, and what was written to it "
                 "is undone; open it, and write it again.");
    m_transaction.Commit();
}

DatabaseTransaction::DatabaseTransaction(const CSectionDatabase& database, Purpose purpose)
    : m_transaction(WithMemoryErrors([&] {
          return std::make_unique<SessionTransaction>(SessionOf(database.m_reference), purpose);
      })) {}

DatabaseTransaction::~DatabaseTransaction() = default;

bool DatabaseTransaction::IsUnderWay() const { return m_transaction->IsUnderWay(); }

void DatabaseTransaction::Commit() {
    WithMemoryErrors([&] { m_transaction->Commit(); });
}

} // namespace dbsection
