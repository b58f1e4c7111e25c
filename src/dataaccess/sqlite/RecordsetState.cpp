#include "dataaccess/sqlite/RecordsetState.h"

#include "dataaccess/sqlite/FieldTypes.h"
#include "dataaccess/sqlite/Values.h"
#include "platform/Text.h"

#include <algorithm>
#include <utility>

namespace dbsection {
namespace {

/// Columns of the set as `render` writes them, separated by commas.
template <class Render>
std::string ListOfSet(const QueryShape& shape,
                      const std::vector<std::optional<COleVariant>>& values, Render render) {
    std::string list;
    for (std::size_t i = 0; i < values.size(); ++i)
        if (values[i])
            list += (list.empty() ? "" : ", ") + render(shape.columns[i]);
    return list;
}

/// A statement that evaluates a condition over the values of one row, which are its parameters.
std::string ConditionStatement(const QueryShape& shape, std::string_view condition) {
    std::string columns;
    for (const ResultColumn& column : shape.columns) {
        const std::string_view cast = CastOf(column.type);
        columns += columns.empty() ? "" : ", ";
        columns += cast.empty() ? "?" : "CAST(? AS " + std::string(cast) + ")";
        columns += " AS " + Quoted(column.name);
    }
    return "SELECT 1 FROM (SELECT " + columns + ") WHERE (" + std::string(condition) + "\n)";
}

bool SameColumns(sqlite3_stmt* statement, const QueryShape& shape) {
    const int count = static_cast<int>(shape.columns.size());
    if (sqlite3_column_count(statement) != count + (shape.hasRowId ? 1 : 0))
        return false;
    for (int i = 0; i < count; ++i)
        if (shape.columns[static_cast<std::size_t>(i)].name != sqlite3_column_name(statement, i))
            return false;
    return true;
}

} // namespace

RecordsetState::RecordsetState(std::shared_ptr<Session> session, std::string sql, Editing editing)
    : m_session(std::move(session)),
      m_sql(std::move(sql)),
      m_editing(editing) {
    Requery();
}

void RecordsetState::Requery() {
    if (!m_stamp || *m_stamp != Engine().Stamp())
        if (!Fetch()) {
            Engine().ForgetStatements();
            if (!Fetch())
                Fail(SectionError::InUse, Engine().Path() +
                                              ": another program keeps changing the table; open "
                                              "it again.");
        }
    LeaveRow();
    m_visited = 0;
    Visit(0);
}

/// False when the table has other columns than when the statement was made ready.
bool RecordsetState::Fetch() {
    const ReadyQuery query = Engine().Query(m_sql, m_editing, SectionError::UnknownNameInStatement);
    sqlite3_stmt* statement = query.lease.Get();
    const std::string& path = Engine().Path();
    bool atRow = Engine().Step(statement, path, Activity::Reading);
    const auto& shape = query.lease.Shape();
    if (!SameColumns(statement, *shape))
        return false;
    RowStore rows(static_cast<int>(shape->columns.size()));
    std::optional<CSectionDataStamp> stamp;
    if (atRow)
        stamp = Engine().Stamp();
    for (; atRow; atRow = Engine().Step(statement, path, Activity::Reading))
        rows.Append(statement, shape->hasRowId);
    // From here on nothing fails: a failed query leaves the rows that there were.
    LeaveRow();
    m_shape = shape;
    m_rows = std::move(rows);
    m_stamp = stamp;
    return true;
}

void RecordsetState::LeaveRow() {
    m_edit = Edit::None;
    if (!m_onGap)
        return;
    m_rows.Remove(m_position);
    m_onGap = false;
    --m_visited;
}

void RecordsetState::Visit(int position) {
    m_position = m_rows.Count() == 0 ? -1 : std::clamp(position, -1, m_rows.Count());
    m_visited = std::max(m_visited, std::min(m_position + 1, m_rows.Count()));
}

void RecordsetState::RequireRow() const {
    if (!IsAtRow())
        Fail(SectionError::NoCurrentRecord, "There is no current record; move to one first.");
}

void RecordsetState::MoveToFirst() {
    LeaveRow();
    Visit(0);
    RequireRow();
}

void RecordsetState::MoveToLast() {
    LeaveRow();
    Visit(m_rows.Count() - 1);
    RequireRow();
}

void RecordsetState::MoveBy(int step) {
    if (!m_onGap && (step > 0 ? IsEof() : IsBof()))
        Fail(SectionError::NoCurrentRecord, "There is no record beyond the end; move back first.");
    // Behind a gap the next row takes the place of the deleted one.
    const int position = m_position + (m_onGap && step > 0 ? 0 : step);
    LeaveRow();
    Visit(position);
}

void RecordsetState::MoveTo(int position) {
    LeaveRow();
    if (position < 0 || position >= m_rows.Count())
        Fail(SectionError::NoCurrentRecord,
             "There is no record number " + std::to_string(position) + "; move to another.");
    Visit(position);
}

bool RecordsetState::Find(bool relative, int step, std::string_view condition) {
    int first = step > 0 ? 0 : m_rows.Count() - 1;
    if (relative)
        first = IsAtRow() || m_onGap ? m_position + step : -1;
    const int found = FindFrom(first, step, condition);
    if (found < 0)
        return false;
    MoveTo(m_onGap && found > m_position ? found - 1 : found);
    return true;
}

/// The first row that satisfies the condition, tried in steps, or -1.
int RecordsetState::FindFrom(int first, int step, std::string_view condition) {
    const auto columns = static_cast<int>(m_shape->columns.size());
    const ReadyQuery query = Engine().Query(ConditionStatement(*m_shape, condition), Editing::No,
                                            SectionError::UnknownNameInCondition, columns);
    sqlite3_stmt* statement = query.lease.Get();
    for (int row = first; row >= 0 && row < m_rows.Count(); row += step) {
        if (m_onGap && row == m_position)
            continue;
        for (int column = 0; column < columns; ++column)
            Bind(statement, column + 1, m_rows.At(row, column), m_rows);
        if (Engine().Step(statement, Engine().Path(), Activity::Reading))
            return row;
        sqlite3_reset(statement);
    }
    return -1;
}

COleVariant RecordsetState::Value(int column) const {
    RequireColumn(column);
    const auto index = static_cast<std::size_t>(column);
    if (m_edit != Edit::None && m_values[index])
        return *m_values[index];
    if (m_edit == Edit::New)
        return COleVariant::Null();
    RequireRow();
    return ToVariant(m_rows.At(m_position, column), m_rows, m_shape->columns[index]);
}

double RecordsetState::Number(int column) const {
    RequireColumn(column);
    if (m_edit == Edit::None && IsAtRow()) { // most are reals, and need no variant
        const Cell& cell = m_rows.At(m_position, column);
        if (cell.storage == Cell::Storage::Real &&
            m_shape->columns[static_cast<std::size_t>(column)].type == SectionField::Double)
            return cell.real;
    }
    return AsNumber(Value(column));
}

void RecordsetState::RequireColumn(int column) const {
    if (column < 0 || static_cast<std::size_t>(column) >= m_shape->columns.size())
        Fail(SectionError::NoSuchItem,
             "There is no column number " + std::to_string(column) + " in the recordset.");
}

void RecordsetState::RequireEditable() const {
    Connection& engine = Engine();
    if (Table().empty())
        Fail(SectionError::ReadOnly,
             "The recordset cannot be edited; open one table as a dynaset.");
    engine.RequireWritable();
}

void RecordsetState::BeginNew() {
    RequireEditable();
    m_values.assign(m_shape->columns.size(), std::nullopt);
    m_edit = Edit::New;
}

void RecordsetState::BeginEdit() {
    RequireEditable();
    RequireRow();
    m_values.assign(m_shape->columns.size(), std::nullopt);
    m_edit = Edit::Current;
}

void RecordsetState::Set(int column, const COleVariant& value) {
    if (m_edit == Edit::None)
        Fail(SectionError::UpdateWithoutEdit,
             "A value was set without AddNew or Edit; call one of them first.");
    RequireColumn(column);
    const auto index = static_cast<std::size_t>(column);
    m_values[index] = ToStored(value, m_shape->columns[index], Table());
}

void RecordsetState::SetAllNull() { m_values.assign(m_shape->columns.size(), COleVariant::Null()); }

void RecordsetState::Update() {
    if (m_edit == Edit::None)
        Fail(SectionError::UpdateWithoutEdit,
             "Update was called without AddNew or Edit; call one of them first.");
    RequireEditable();
    if (m_edit == Edit::New)
        InsertRow();
    else
        UpdateRow();
    m_edit = Edit::None;
}

void RecordsetState::BindSetValues(sqlite3_stmt* statement) const {
    int parameter = 0;
    for (const auto& value : m_values)
        if (value)
            Bind(statement, ++parameter, *value);
}

StatementLease RecordsetState::RowById(std::int64_t id) {
    std::string columns;
    for (const ResultColumn& column : m_shape->columns)
        columns += Quoted(column.origin) + ", ";
    StatementLease lease = Engine().Own("SELECT " + columns + "_rowid_ FROM " + Quoted(Table()) +
                                        " WHERE _rowid_ = ?");
    sqlite3_bind_int64(lease.Get(), 1, id);
    return lease;
}

void RecordsetState::InsertRow() {
    const auto name = [](const ResultColumn& column) { return Quoted(column.origin); };
    const std::string columns = ListOfSet(*m_shape, m_values, name);
    const std::string parameters =
        ListOfSet(*m_shape, m_values, [](const ResultColumn&) { return std::string("?"); });
    const std::string values =
        columns.empty() ? " DEFAULT VALUES" : " (" + columns + ") VALUES (" + parameters + ")";
    {
        const StatementLease insert = Engine().Own("INSERT INTO " + Quoted(Table()) + values);
        BindSetValues(insert.Get());
        Engine().Write(insert.Get(), Table());
    }
    const bool allVisited = m_visited == m_rows.Count();
    const bool atEnd = m_position == m_rows.Count();
    const StatementLease row = RowById(Engine().LastRowId());
    if (Engine().Step(row.Get(), Table(), Activity::Reading))
        m_rows.Append(row.Get(), true);
    if (allVisited)
        m_visited = m_rows.Count();
    if (atEnd)
        m_position = m_rows.Count(); // the current row, or none, stays
}

void RecordsetState::UpdateRow() {
    const auto assignment = [](const ResultColumn& column) {
        return Quoted(column.origin) + " = ?";
    };
    const std::string assignments = ListOfSet(*m_shape, m_values, assignment);
    if (assignments.empty())
        return;
    std::int64_t id = m_rows.Id(m_position);
    {
        const StatementLease update = Engine().Own("UPDATE " + Quoted(Table()) + " SET " +
                                                   assignments + " WHERE _rowid_ = ?");
        BindSetValues(update.Get());
        sqlite3_bind_int64(update.Get(), sqlite3_bind_parameter_count(update.Get()), id);
        if (Engine().Write(update.Get(), Table()) == 0)
            Fail(SectionError::NoCurrentRecord,
                 Table() + ": the record was deleted meanwhile; query it again.");
    }
    for (std::size_t i = 0; i < m_values.size(); ++i)
        if (m_values[i] && m_shape->columns[i].isRecordId && m_values[i]->vt == VT_R8)
            id = static_cast<std::int64_t>(m_values[i]->dblVal);
    const StatementLease row = RowById(id);
    if (Engine().Step(row.Get(), Table(), Activity::Reading))
        m_rows.Replace(m_position, row.Get());
    m_rows.SetId(m_position, id);
}

void RecordsetState::Delete() {
    RequireEditable();
    RequireRow();
    const StatementLease statement =
        Engine().Own("DELETE FROM " + Quoted(Table()) + " WHERE _rowid_ = ?");
    sqlite3_bind_int64(statement.Get(), 1, m_rows.Id(m_position));
    if (Engine().Write(statement.Get(), Table()) == 0)
        Fail(SectionError::NoCurrentRecord,
             Table() + ": the record was deleted meanwhile; query it again.");
    m_edit = Edit::None;
    m_onGap = true;
}

} // namespace dbsection
