// How much work a statement may take for a row.
#pragma once

#include <cstdint>
#include <sqlcipher/sqlite3.h>

namespace dbsection {

/// Ends a statement that runs on and on without delivering a row; it then fails with
/// SQLITE_INTERRUPT.
///
/// The bound grows with the file: to go through all rows of a table, or to sort them, is always
/// allowed. It comes to about a second for a usual catalogue, to some for one of a million rows.
class WorkBound {
public:
    WorkBound() = default;
    WorkBound(const WorkBound&) = delete;
    WorkBound& operator=(const WorkBound&) = delete;

    /// Applies it to a connection, which it must outlive.
    void Install(sqlite3* database);

    /// Allows the work for another row.
    void Renew() { m_done = 0; }

private:
    static int CountWork(void* self);

    sqlite3* m_database = nullptr;
    std::int64_t m_done = 0; ///< instructions of the engine's machine
};

} // namespace dbsection
