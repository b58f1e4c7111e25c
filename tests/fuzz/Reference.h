// The database engine itself, the reference of what the library says of a file.
#pragma once

#include "Fuzz.h"

#include <optional>
#include <sqlcipher/sqlite3.h>

namespace fuzz {

class Reference {
public:
    explicit Reference(const std::string& path) {
        Require(sqlite3_open_v2(path.c_str(), &m_database, SQLITE_OPEN_READONLY, nullptr) ==
                    SQLITE_OK,
                "the reference opens the file");
        constexpr int Steps = 1000;
        sqlite3_progress_handler(m_database, Steps, &Reference::CountSteps, this);
    }
    Reference(const Reference&) = delete;
    Reference& operator=(const Reference&) = delete;
    ~Reference() { sqlite3_close(m_database); }

    /// The number of rows of one statement; nothing where it is none, or too much work.
    std::optional<long> CountRows(const std::string& sql) {
        sqlite3_stmt* statement = nullptr;
        const char* rest = nullptr;
        m_steps = 0;
        std::optional<long> count;
        if (sqlite3_prepare_v2(m_database, sql.c_str(), -1, &statement, &rest) == SQLITE_OK &&
            statement != nullptr) {
            long rows = 0;
            int code = SQLITE_ROW;
            while ((code = sqlite3_step(statement)) == SQLITE_ROW)
                ++rows;
            if (code == SQLITE_DONE)
                count = rows;
        }
        sqlite3_finalize(statement);
        return count;
    }

    /// Changes whenever another connection has written to the file.
    long Version() { return Number("PRAGMA data_version"); }

private:
    long Number(const char* sql) {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(m_database, sql, -1, &statement, nullptr);
        sqlite3_step(statement);
        const long number = sqlite3_column_int64(statement, 0);
        sqlite3_finalize(statement);
        return number;
    }

    static int CountSteps(void* self) {
        constexpr int Most = 1000;
        return ++static_cast<Reference*>(self)->m_steps > Most ? 1 : 0;
    }

    sqlite3* m_database = nullptr;
    int m_steps = 0;
};

} // namespace fuzz
