// Transactions of a connection.
#pragma once

#include "dataaccess/DatabaseTransaction.h"
#include "dataaccess/sqlite/Session.h"

#include <memory>

namespace dbsection {

/// A DatabaseTransaction of a connection, which must outlive it or be left.
class Transaction {
public:
    explicit Transaction(Connection& connection, Purpose purpose = Purpose::Writing);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// Where it throws it can be tried again, unless the engine has undone the transaction.
    void Commit();

    /// Leaves the connection alone from now on: it is closed.
    void Leave() { m_connection = nullptr; }

private:
    /// Whether statements begin and end it: within another transaction only what writes has some.
    bool HasBounds() const { return !m_isPart || m_purpose == Purpose::Writing; }
    bool IsUndone() const { return HasBounds() && m_purpose != Purpose::Reading; }

    bool HasFailedToUnlock() const;
    void Run(const char* outermost, const char* part);
    void Undo();

    Connection* m_connection; ///< null when it is over
    Purpose m_purpose;
    bool m_isPart;
};

/// A transaction of a session, which may be closed meanwhile.
class SessionTransaction {
public:
    SessionTransaction(std::shared_ptr<Session> session, Purpose purpose);
    ~SessionTransaction();
    SessionTransaction(const SessionTransaction&) = delete;
    SessionTransaction& operator=(const SessionTransaction&) = delete;

    /// False once the session was closed, which has undone it.
    bool IsUnderWay() const { return m_session->IsOpen(); }

    /// Whether there is something to commit: a failure of the engine can undo it, too.
    bool CanBeCommitted() const { return IsUnderWay() && m_session->Get().IsInTransaction(); }

    void Commit();

private:
    std::shared_ptr<Session> m_session;
    Transaction m_transaction;
};

} // namespace dbsection
