// Prepared statements of the database engine.
#pragma once

#include "dataaccess/CSectionFieldInfo.h"
#include "dataaccess/sqlite/EngineEnd.h"

#include <cstdint>
#include <list>
#include <memory>
#include <sqlcipher/sqlite3.h>
#include <string>
#include <vector>

namespace dbsection {

struct StatementDeleter {
    void operator()(sqlite3_stmt* statement) const {
        if (!HasEngineEnded())
            sqlite3_finalize(statement);
    }
};
using StatementPtr = std::unique_ptr<sqlite3_stmt, StatementDeleter>;

/// The text of a column of the row that a statement is at; empty for null.
inline std::string TextAt(sqlite3_stmt* row, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
    return text == nullptr ? "" : text;
}

/// A result column of a reading statement.
struct ResultColumn {
    std::string name;
    std::int16_t type = 0; ///< field type code, 0 for an expression
    std::int32_t size = 0;
    std::string table; ///< table and column that it comes from, empty for an expression
    std::string origin;
    bool required = false;
    bool isRecordId = false;
    bool isPlainText = false; ///< a column of texts that compare byte by byte
};

/// What a reading statement delivers: its columns, and behind them, where rows can be written to,
/// the table's other columns and the row's identifier.
struct QueryShape {
    std::vector<ResultColumn> columns;
    std::string editableTable; ///< the one table that rows can be written to, or empty
    std::vector<std::string> otherColumns;
    std::string rowId;         ///< what the identifier is called in statements
    bool isWholeTable = false; ///< all rows of the editable table, in no order that was asked for
    std::int64_t tablesVersion = 0; ///< the tables that the statement was made ready for

    bool IsEditable() const { return !editableTable.empty(); }

    /// The number of values of a row, the identifier apart.
    int Width() const { return static_cast<int>(columns.size() + otherColumns.size()); }
};

/// A statement kept ready for the next use of the same text.
struct KeptStatement {
    std::string key;
    StatementPtr statement;
    std::shared_ptr<const QueryShape> shape;
    bool inUse = false;
};

/// The use of a kept statement; it is ready for the next use when the lease ends.
class StatementLease {
public:
    explicit StatementLease(KeptStatement& kept) : m_kept(&kept) { kept.inUse = true; }
    StatementLease(StatementLease&& other) noexcept : m_kept(other.m_kept) {
        other.m_kept = nullptr;
    }
    StatementLease(const StatementLease&) = delete;
    StatementLease& operator=(const StatementLease&) = delete;
    StatementLease& operator=(StatementLease&&) = delete;
    ~StatementLease() {
        if (m_kept == nullptr)
            return;
        sqlite3_reset(Get());
        sqlite3_clear_bindings(Get());
        m_kept->inUse = false;
    }

    sqlite3_stmt* Get() const { return m_kept->statement.get(); }
    const std::shared_ptr<const QueryShape>& Shape() const { return m_kept->shape; }

private:
    KeptStatement* m_kept;
};

/// The statements that a connection keeps ready, the last used first.
class StatementStore {
public:
    /// The free statement of that key, or null.
    KeptStatement* Find(const std::string& key);
    KeptStatement& Keep(KeptStatement statement);
    void Clear() { m_statements.clear(); }

    /// Whether none is in use.
    bool IsFree() const;

private:
    std::list<KeptStatement> m_statements;
};

} // namespace dbsection
