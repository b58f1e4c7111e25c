// An open database as its copies and recordsets share it.
#pragma once

#include "dataaccess/sqlite/Connection.h"
#include "dataaccess/sqlite/ConnectionPool.h"

#include <memory>
#include <string>

namespace dbsection {

/// Open until one of those who share it closes it, and closed for all of them from then on.
class Session {
public:
    explicit Session(std::unique_ptr<Connection> connection)
        : m_path(connection->Path()),
          m_connection(std::move(connection)) {}
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session() { Close(); }

    bool IsOpen() const { return m_connection != nullptr; }

    /// Throws where the session was closed.
    Connection& Get() const {
        if (!IsOpen())
            Fail(SectionError::ObjectClosed, m_path + ": the database was closed; open it again.");
        return *m_connection;
    }

    void Close() noexcept {
        if (IsOpen())
            ConnectionPool::Rest(std::move(m_connection));
    }

private:
    std::string m_path;
    std::unique_ptr<Connection> m_connection;
};

} // namespace dbsection
