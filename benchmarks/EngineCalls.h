// The other side of the measures: plain calls of the engine.
#pragma once

#include <sqlcipher/sqlite3.h>
#include <string>

namespace sectionbench {

/// An open file; `keyStatement` is null for a plain one. Throws where it cannot be opened.
class EngineDatabase {
public:
    EngineDatabase(const std::string& path, const char* keyStatement);
    EngineDatabase(const EngineDatabase&) = delete;
    EngineDatabase& operator=(const EngineDatabase&) = delete;
    ~EngineDatabase() { sqlite3_close(m_database); }

    sqlite3* Get() const { return m_database; }

    /// Runs statements. Throws where one fails.
    void Execute(const std::string& sql) const;

private:
    sqlite3* m_database = nullptr;
};

/// A prepared statement. Throws where it cannot be prepared.
class EngineStatement {
public:
    EngineStatement(const EngineDatabase& database, const std::string& sql);
    EngineStatement(const EngineStatement&) = delete;
    EngineStatement& operator=(const EngineStatement&) = delete;
    ~EngineStatement() { sqlite3_finalize(m_statement); }

    sqlite3_stmt* Get() const { return m_statement; }

private:
    sqlite3_stmt* m_statement = nullptr;
};

/// The statement that keys a connection to a protected file with the key derived beforehand, so
/// that opening does not pay for the derivation.
std::string DeriveKeyStatement(const std::string& path, const std::string& password);

} // namespace sectionbench
