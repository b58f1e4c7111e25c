// The statements of callers: what they may do, and how they are made ready.
#include "dataaccess/sqlite/Connection.h"
#include "dataaccess/sqlite/FieldTypes.h"
#include "dataaccess/sqlite/TableDefinition.h"
#include "dataaccess/sqlite/Values.h"
#include "platform/CallState.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <utility>

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

int Connection::Authorize(void* self, int action, const char* first, const char* second,
                          const char* /*database*/, const char* viewOrTrigger) {
    auto& connection = *static_cast<Connection*>(self);
    if (!connection.m_callersStatement)
        return SQLITE_OK;
    connection.m_authorized = true;
    switch (action) {
    case SQLITE_SELECT:
        return viewOrTrigger == nullptr ? SQLITE_OK : SQLITE_DENY;
    case SQLITE_READ: // no view, no virtual table, and no function in the place of a table
        return viewOrTrigger == nullptr &&
                       (connection.IsTable(first) || EqualNoCase(first, "sqlite_master"))
                   ? SQLITE_OK
                   : SQLITE_DENY;
    case SQLITE_FUNCTION: {
        const auto isCalled = [second](std::string_view name) { return EqualNoCase(name, second); };
        return std::ranges::any_of(AllowedFunctions, isCalled) ? SQLITE_OK : SQLITE_DENY;
    }
    default:
        return SQLITE_DENY;
    }
}

/// Null when the engine refuses the text; m_lastPrepareCode and m_lastPrepareError then tell why.
StatementPtr Connection::Prepare(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    const char* tail = nullptr;
    m_lastPrepareCode = Diagnosed(sqlite3_prepare_v2(
        m_database, sql.c_str(), static_cast<int>(sql.size()), &statement, &tail));
    StatementPtr owned(statement);
    if (m_lastPrepareCode == SQLITE_ERROR || m_lastPrepareCode == SQLITE_AUTH) {
        m_lastPrepareError = sqlite3_errmsg(m_database);
        return nullptr;
    }
    if (m_lastPrepareCode != SQLITE_OK)
        FailFromEngine(m_lastPrepareCode, m_database, m_path, Activity::Reading);
    if (owned && IsNothing(tail))
        return owned;
    m_lastPrepareCode = SQLITE_ERROR;
    m_lastPrepareError = owned ? "another statement follows the first" : "there is no statement";
    return nullptr;
}

std::optional<KeptStatement> Connection::PrepareReading(const std::string& sql) {
    const ScopedFlag readingOnly(m_callersStatement);
    StatementPtr statement = Prepare(sql);
    if (!statement)
        return std::nullopt;
    auto shape = std::make_shared<const QueryShape>(ShapeOf(statement.get()));
    return KeptStatement{{}, std::move(statement), std::move(shape), false};
}

/// The statement with the rest of the table's columns and the row's identifier, where it reads rows
/// of one table that can be written to; else nothing.
std::optional<KeptStatement> Connection::PrepareEditable(const std::string& sql,
                                                         const QueryShape& shape) {
    const auto select = FindTableSelect(sql);
    const std::string table = shape.columns.front().table;
    const auto isOfTable = [&](const ResultColumn& column) { return column.table == table; };
    if (!select || table.empty() || !std::ranges::all_of(shape.columns, isOfTable))
        return std::nullopt;
    const FieldList fields = Fields(table);
    const auto rowId = RowIdName(*fields);
    if (!rowId)
        return std::nullopt;

    QueryShape editable = shape;
    editable.editableTable = table;
    editable.rowId = *rowId;
    editable.isWholeTable = select->isWhole;
    std::string more;
    for (const CSectionFieldInfo& field : *fields) {
        const std::string name(field.m_strName.View());
        if (std::ranges::count(shape.columns, name, &ResultColumn::origin) > 0)
            continue;
        editable.otherColumns.push_back(name);
        more += ", " + Quoted(name);
    }
    auto kept = PrepareReading(sql.substr(0, select->from) + more + ", " + *rowId + " " +
                               sql.substr(select->from));
    if (!kept) // a view, a table without such an identifier
        return std::nullopt;
    // The identifier comes under the name of the column that it is, if any.
    const ResultColumn& identifier = kept->shape->columns.back();
    for (ResultColumn& column : editable.columns)
        column.isRecordId = column.isRecordId && EqualNoCase(column.origin, identifier.origin);
    kept->shape = std::make_shared<const QueryShape>(std::move(editable));
    return kept;
}

/// Nothing when the engine refuses the text, or it reads what is not run.
std::optional<KeptStatement> Connection::PrepareQuery(const std::string& sql, Editing editing) {
    Tables(); // what may be read
    const auto isMentioned = [&](const std::string& name) { return Mentions(sql, name); };
    if (const auto view = std::ranges::find_if(m_notRun, isMentioned); view != m_notRun.end()) {
        m_lastPrepareCode = SQLITE_ERROR;
        m_lastPrepareError = "\"" + *view + "\" is a view or a virtual table, which is not run";
        return std::nullopt;
    }
    auto kept = PrepareReading(sql);
    if (kept && editing == Editing::IfPossible)
        if (auto editable = PrepareEditable(sql, *kept->shape))
            return editable;
    return kept;
}

/// Null when the engine refuses the text.
KeptStatement* Connection::FindOrPrepare(const std::string& sql, Editing editing) {
    const std::string key = (editing == Editing::No ? "read " : "edit ") + sql;
    if (KeptStatement* kept = m_kept.Find(key))
        return kept;
    const std::string text = WithoutDanglingWhere(sql);
    auto prepared = PrepareQuery(text, editing);
    const std::string refusal = m_lastPrepareError;
    const std::string column = prepared ? "" : UnknownColumn(refusal);
    if (const std::string other = OtherRecordId(column); !other.empty())
        prepared = PrepareQuery(WithIdentifier(text, column, other), editing);
    if (!prepared) {
        m_lastPrepareError = refusal;
        return nullptr;
    }
    prepared->key = key;
    return &m_kept.Keep(std::move(*prepared));
}

ReadyQuery Connection::Query(std::string_view sql, Editing editing,
                             SectionError::Number unknownName, int ownParameters) {
    m_work.Renew();
    const auto refuse = [&](int code, const std::string& reason) {
        FailFromStatement(code, reason, std::string(sql), m_path, unknownName);
    };
    CallersSql ready = MakeReady(sql, Literals::Lift);
    if (!IsReading(sql))
        refuse(SQLITE_ERROR, "this does not read tables");
    if (ready.parameters != ownParameters)
        refuse(SQLITE_ERROR, "it contains parameters");
    KeptStatement* kept = FindOrPrepare(ready.text, editing);
    if (kept == nullptr && !ready.literals.empty()) { // one may be a name, or they are too many
        ready = MakeReady(sql, Literals::Keep);
        kept = FindOrPrepare(ready.text, editing);
    }
    if (kept == nullptr)
        refuse(m_lastPrepareCode, m_lastPrepareError);
    ReadyQuery query{StatementLease(*kept), std::move(ready.literals)};
    int parameter = ownParameters;
    for (const LiftedLiteral& literal : query.parameters)
        if (literal.isNumber)
            Bind(query.lease.Get(), ++parameter, NumberOf(literal.text));
        else
            Bind(query.lease.Get(), ++parameter, literal.text);
    return query;
}

/// What the engine takes the literal for; its last digit need not be that of others.
double Connection::NumberOf(const std::string& literal) {
    const StatementLease number = Own("SELECT CAST(? AS REAL)");
    Bind(number.Get(), 1, literal);
    Step(number.Get(), m_path, Activity::Reading);
    return sqlite3_column_double(number.Get(), 0);
}

std::optional<bool> Connection::FirstRow(const ReadyQuery& query) {
    sqlite3_stmt* statement = query.lease.Get();
    ForgetLooks(); // what is kept must not be older than what was read
    const int code = [&] {
        const ScopedFlag readingOnly(m_callersStatement);
        m_authorized = false;
        return Diagnosed(sqlite3_step(statement));
    }();
    const std::string message = code == SQLITE_ERROR ? sqlite3_errmsg(m_database) : "";
    if (m_authorized && SchemaVersion() != query.lease.Shape()->tablesVersion)
        return std::nullopt;
    return CheckStep(code, message, statement, m_path, Activity::Reading);
}

void Connection::WithFirstRow(const std::string& sql, Editing editing,
                              const std::function<void(const ReadyQuery&, bool)>& use) {
    constexpr int Attempts = 2;
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        {
            const ReadyQuery query = Query(sql, editing, SectionError::UnknownNameInStatement);
            if (const auto atRow = FirstRow(query)) {
                use(query, *atRow);
                return;
            }
        }
        ForgetStatements();
    }
    Fail(SectionError::InUse,
         m_path + ": another program keeps changing the tables; open it again.");
}

bool Connection::NextRow(const ReadyQuery& query) {
    const ScopedFlag readingOnly(m_callersStatement);
    return Step(query.lease.Get(), m_path, Activity::Reading);
}

QueryShape Connection::ShapeOf(sqlite3_stmt* statement) const {
    QueryShape shape;
    shape.tablesVersion = m_tablesVersion;
    const int count = sqlite3_column_count(statement);
    for (int i = 0; i < count; ++i) {
        ResultColumn column;
        column.name = TextOrEmpty(sqlite3_column_name(statement, i));
        const std::string declared = TextOrEmpty(sqlite3_column_decltype(statement, i));
        column.type = FieldTypeOf(declared);
        column.size = FieldSizeOf(declared);
        column.table = TextOrEmpty(sqlite3_column_table_name(statement, i));
        column.origin = TextOrEmpty(sqlite3_column_origin_name(statement, i));
        if (!column.table.empty()) {
            const char* collation = nullptr;
            int required = 0;
            int primaryKey = 0;
            sqlite3_table_column_metadata(m_database, nullptr, column.table.c_str(),
                                          column.origin.c_str(), nullptr, &collation, &required,
                                          &primaryKey, nullptr);
            column.required = required != 0;
            column.isPlainText =
                HasTextAffinity(declared) && EqualNoCase(TextOrEmpty(collation), "BINARY");
            column.isRecordId = primaryKey != 0 && EqualNoCase(declared, "INTEGER");
        }
        shape.columns.push_back(std::move(column));
    }
    return shape;
}

} // namespace dbsection
