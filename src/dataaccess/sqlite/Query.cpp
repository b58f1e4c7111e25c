// The statements of callers: what they may do, and how they are made ready.
#include "dataaccess/sqlite/Connection.h"
#include "dataaccess/sqlite/FieldTypes.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>

namespace dbsection {
namespace {

/// Functions that a caller's statement may use: they compute from their arguments alone.
constexpr std::array<std::string_view, 26> AllowedFunctions{
    "abs",    "avg",      "coalesce", "count", "date", "glob",   "ifnull",  "instr", "length",
    "like",   "lower",    "ltrim",    "max",   "min",  "nullif", "replace", "round", "rtrim",
    "substr", "strftime", "sum",      "total", "trim", "typeof", "unicode", "upper"};

std::string TextOrEmpty(const char* text) { return text == nullptr ? "" : text; }

/// The other name of the record identifier, or empty.
std::string OtherRecordId(std::string_view column) {
    if (EqualNoCase(column, "ID"))
        return "RECNO";
    return EqualNoCase(column, "RECNO") ? "ID" : "";
}

/// Sets a flag for the length of a scope.
class ScopedFlag {
public:
    explicit ScopedFlag(bool& flag) : m_flag(flag) { m_flag = true; }
    ScopedFlag(const ScopedFlag&) = delete;
    ScopedFlag& operator=(const ScopedFlag&) = delete;
    ~ScopedFlag() { m_flag = false; }

private:
    bool& m_flag;
};

} // namespace

int Connection::Authorize(void* self, int action, const char* /*first*/, const char* second,
                          const char* /*database*/, const char* viewOrTrigger) {
    if (!static_cast<Connection*>(self)->m_callersStatement)
        return SQLITE_OK;
    switch (action) {
    case SQLITE_SELECT:
    case SQLITE_READ:
        return viewOrTrigger == nullptr ? SQLITE_OK : SQLITE_DENY;
    case SQLITE_FUNCTION: {
        const auto isCalled = [second](std::string_view name) { return EqualNoCase(name, second); };
        return std::ranges::any_of(AllowedFunctions, isCalled) ? SQLITE_OK : SQLITE_DENY;
    }
    default:
        return SQLITE_DENY;
    }
}

/// Null when the engine refuses; m_lastPrepareCode and m_lastPrepareError then tell why.
StatementPtr Connection::Prepare(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    const char* tail = nullptr;
    m_lastPrepareCode = sqlite3_prepare_v2(m_database, sql.c_str(), static_cast<int>(sql.size()),
                                           &statement, &tail);
    StatementPtr owned(statement);
    if (m_lastPrepareCode != SQLITE_OK) {
        m_lastPrepareError = sqlite3_errmsg(m_database);
        return nullptr;
    }
    if (owned && IsNothing(tail))
        return owned;
    m_lastPrepareCode = SQLITE_ERROR;
    m_lastPrepareError = owned ? "another statement follows the first" : "there is no statement";
    return nullptr;
}

std::optional<KeptStatement> Connection::PrepareQuery(const std::string& sql, Editing editing) {
    const ScopedFlag readingOnly(m_callersStatement);
    const auto prepared = [&](const std::string& text,
                              bool hasRowId) -> std::optional<KeptStatement> {
        StatementPtr statement = Prepare(text);
        if (!statement)
            return std::nullopt;
        auto shape = ShapeOf(statement.get(), hasRowId);
        return KeptStatement{{}, std::move(statement), std::move(shape), false};
    };
    std::optional<KeptStatement> kept;
    if (editing == Editing::IfPossible)
        if (const auto withRowId = WithRowId(sql))
            kept = prepared(*withRowId, true);
    if (!kept || kept->shape->editableTable.empty())
        kept = prepared(sql, false);
    return kept;
}

KeptStatement& Connection::KeptQuery(const std::string& sql, Editing editing,
                                     SectionError::Number unknownName) {
    const std::string key = (editing == Editing::No ? "read " : "edit ") + sql;
    if (KeptStatement* kept = m_kept.Find(key))
        return *kept;
    if (!IsReading(sql))
        FailFromStatement(SQLITE_ERROR, "this does not read tables", sql, m_path, unknownName);
    const std::string text = WithoutDanglingWhere(sql);
    auto query = PrepareQuery(text, editing);
    if (!query) {
        const std::string column = UnknownColumn(m_lastPrepareError);
        const std::string other = OtherRecordId(column);
        const std::string message = m_lastPrepareError;
        if (!other.empty())
            query = PrepareQuery(WithIdentifier(text, column, other), editing);
        if (!query)
            FailFromStatement(m_lastPrepareCode, message, sql, m_path, unknownName);
    }
    query->key = key;
    return m_kept.Keep(std::move(*query));
}

ReadyQuery Connection::Query(std::string_view sql, Editing editing,
                             SectionError::Number unknownName, int ownParameters) {
    m_work.Renew();
    LiftedSql lifted = LiftLiterals(sql);
    ReadyQuery ready{StatementLease(KeptQuery(lifted.text, editing, unknownName)),
                     std::move(lifted.parameters)};
    sqlite3_stmt* statement = ready.lease.Get();
    const auto count = static_cast<int>(ready.parameters.size());
    if (sqlite3_bind_parameter_count(statement) != ownParameters + count)
        FailFromStatement(SQLITE_ERROR, "it contains parameters", std::string(sql), m_path,
                          unknownName);
    for (int i = 0; i < count; ++i) {
        const std::string& text = ready.parameters[static_cast<std::size_t>(i)];
        sqlite3_bind_text(statement, ownParameters + i + 1, text.data(),
                          static_cast<int>(text.size()), SQLITE_STATIC);
    }
    return ready;
}

std::shared_ptr<const QueryShape> Connection::ShapeOf(sqlite3_stmt* statement,
                                                      bool hasRowId) const {
    auto shape = std::make_shared<QueryShape>();
    shape->hasRowId = hasRowId;
    const int count = sqlite3_column_count(statement) - (hasRowId ? 1 : 0);
    bool oneTable = hasRowId && count > 0;
    for (int i = 0; i < count; ++i) {
        ResultColumn column;
        column.name = TextOrEmpty(sqlite3_column_name(statement, i));
        const std::string declared = TextOrEmpty(sqlite3_column_decltype(statement, i));
        column.type = FieldTypeOf(declared);
        column.size = FieldSizeOf(declared);
        column.table = TextOrEmpty(sqlite3_column_table_name(statement, i));
        column.origin = TextOrEmpty(sqlite3_column_origin_name(statement, i));
        if (!column.table.empty()) {
            int required = 0;
            int primaryKey = 0;
            sqlite3_table_column_metadata(m_database, nullptr, column.table.c_str(),
                                          column.origin.c_str(), nullptr, nullptr, &required,
                                          &primaryKey, nullptr);
            column.required = required != 0;
            column.isRecordId = primaryKey != 0 && EqualNoCase(declared, "INTEGER");
        }
        oneTable = oneTable && !column.table.empty() &&
                   (shape->columns.empty() || column.table == shape->columns.front().table);
        shape->columns.push_back(std::move(column));
    }
    if (oneTable)
        shape->editableTable = shape->columns.front().table;
    return shape;
}

} // namespace dbsection
