// An open database as its copies and recordsets share it.
#pragma once

#include "dataaccess/sqlite/Connection.h"
#include "dataaccess/sqlite/ConnectionPool.h"

#include <memory>
#include <string>

namespace dbsection {

/// Open from Begin until one of those who share it closes it, and closed for all of them from then
/// on.
class Session {
public:
    explicit Session(std::string path) : m_path(std::move(path)) {}
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session() { Close(); }

    const std::string& Path() const { return m_path; }

    void Begin(ConnectionPtr connection) noexcept { m_connection = std::move(connection); }

    /// Not so in a process that was forked from the one that opened it.
    bool IsOpen() const { return m_connection != nullptr && m_connection->IsOurs(); }

    /// Throws where the session is not open.
    Connection& Get() const {
        if (!IsOpen())
            Fail(SectionError::ObjectClosed,
                 m_path + (m_connection == nullptr ? ": the database was closed; open it again."
                                                   : ": the database was opened by another "
                                                     "process; open it again."));
        return *m_connection;
    }

    void Close() noexcept {
        if (m_connection != nullptr)
            ConnectionPool::Rest(std::move(m_connection));
    }

private:
    std::string m_path;
    ConnectionPtr m_connection;
};

/// Keeps a session open: it is closed with its last keeper, whoever else still refers to it.
class SessionKeeper {
public:
    explicit SessionKeeper(std::shared_ptr<Session> session) : m_session(std::move(session)) {}
    SessionKeeper(const SessionKeeper&) = delete;
    SessionKeeper& operator=(const SessionKeeper&) = delete;
    ~SessionKeeper() { m_session->Close(); }

private:
    std::shared_ptr<Session> m_session;
};

} // namespace dbsection
