// Writing to the table that a recordset's rows come from.
#include "dataaccess/sqlite/RecordsetState.h"
#include "dataaccess/sqlite/Transaction.h"
#include "dataaccess/sqlite/Values.h"

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

/// The columns of a row as it is held, as `render` writes them.
template <class Render>
std::string ListOfAll(const QueryShape& shape, Render render) {
    std::string list;
    for (const ResultColumn& column : shape.columns)
        list += render(Quoted(column.origin));
    for (const std::string& column : shape.otherColumns)
        list += render(Quoted(column));
    return list;
}

} // namespace

void RecordsetState::RequireEditable() const {
    Connection& engine = Engine();
    if (!m_shape->IsEditable())
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
    RequireRows();
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

/// Returns the number of parameters that it has bound.
int RecordsetState::BindSetValues(sqlite3_stmt* statement) const {
    int parameter = 0;
    for (const auto& value : m_values)
        if (value)
            Bind(statement, ++parameter, *value);
    return parameter;
}

/// That a row is still what was read, to the last bit, whatever the columns' collations.
std::string RecordsetState::RowCondition() const {
    return " WHERE " + m_shape->rowId + " = ?" + ListOfAll(*m_shape, [](const std::string& column) {
               return " AND " + column + " IS ? COLLATE BINARY";
           });
}

/// Runs a statement that ends in the row condition and has `parameter` values before it.
void RecordsetState::WriteRow(sqlite3_stmt* statement, int parameter, int row) {
    sqlite3_bind_int64(statement, ++parameter, m_rows.Id(row));
    for (int column = 0; column < m_shape->Width(); ++column)
        Bind(statement, ++parameter, m_rows.At(row, column), m_rows.Store());
    RequireWritten(Engine().Write(statement, Table()), row);
}

/// Tells why a row was not written to.
void RecordsetState::RequireWritten(int count, int row) {
    if (count > 0)
        return;
    const StatementLease current = RowById(m_rows.Id(row));
    if (Engine().Step(current.Get(), Table(), Activity::Reading))
        Fail(SectionError::ChangedByOther,
             Table() + ": the record was changed by another user since it was read; query it "
                       "again, and repeat the change.");
    Fail(SectionError::NoCurrentRecord,
         Table() + ": the record was deleted meanwhile; query it again.");
}

StatementLease RecordsetState::RowById(std::int64_t id) {
    const std::string columns =
        ListOfAll(*m_shape, [](const std::string& column) { return column + ", "; });
    StatementLease lease = Engine().Own("SELECT " + columns + m_shape->rowId + " FROM " +
                                        Quoted(Table()) + " WHERE " + m_shape->rowId + " = ?");
    sqlite3_bind_int64(lease.Get(), 1, id);
    return lease;
}

/// Appends a written row as it is stored. It is stored where this succeeds, and only then.
void RecordsetState::ReadBackAndCommit(std::int64_t id, Transaction& transaction) {
    {
        const StatementLease row = RowById(id);
        if (!Engine().Step(row.Get(), Table(), Activity::Reading))
            Fail(SectionError::NoCurrentRecord, Table() + ": the record cannot be read back.");
        m_rows.Edit([&row](RowStore& rows) { rows.Append(row.Get(), true); });
    }
    try {
        transaction.Commit();
    } catch (...) {
        m_rows.Edit([](RowStore& rows) { rows.RemoveLast(); });
        throw;
    }
}

void RecordsetState::InsertRow() {
    const auto name = [](const ResultColumn& column) { return Quoted(column.origin); };
    const std::string columns = ListOfSet(*m_shape, m_values, name);
    const std::string parameters =
        ListOfSet(*m_shape, m_values, [](const ResultColumn&) { return std::string("?"); });
    const std::string values =
        columns.empty() ? " DEFAULT VALUES" : " (" + columns + ") VALUES (" + parameters + ")";
    Transaction transaction(Engine(), m_isRead ? Purpose::Writing : Purpose::OneWrite);
    {
        const StatementLease insert = Engine().Own("INSERT INTO " + Quoted(Table()) + values);
        BindSetValues(insert.Get());
        Engine().Write(insert.Get(), Table());
    }
    if (!m_isRead) {
        transaction.Commit();
        m_counted.reset();
        return;
    }
    ReadBackAndCommit(Engine().LastRowId(), transaction);
    const int last = m_rows.Count() - 1;
    if (m_visited == last)
        ++m_visited;
    if (m_position == last) // behind the rows
        ++m_position;
}

void RecordsetState::UpdateRow() {
    const auto assignment = [](const ResultColumn& column) {
        return Quoted(column.origin) + " = ?";
    };
    const std::string assignments = ListOfSet(*m_shape, m_values, assignment);
    if (assignments.empty())
        return;
    std::int64_t id = m_rows.Id(m_position);
    Transaction transaction(Engine());
    {
        const StatementLease update =
            Engine().Own("UPDATE " + Quoted(Table()) + " SET " + assignments + RowCondition());
        WriteRow(update.Get(), BindSetValues(update.Get()), m_position);
    }
    for (std::size_t i = 0; i < m_values.size(); ++i)
        if (m_values[i] && m_shape->columns[i].isRecordId && m_values[i]->vt == VT_R8)
            id = static_cast<std::int64_t>(m_values[i]->dblVal);
    ReadBackAndCommit(id, transaction);
    m_rows.Edit([this](RowStore& rows) { rows.MoveLastTo(m_position); });
}

/// `isAsRead` tells that nobody can have changed the row since it was read.
void RecordsetState::DeleteRow(int row, bool isAsRead) {
    const std::string condition = isAsRead ? " WHERE " + m_shape->rowId + " = ?" : RowCondition();
    const StatementLease statement = Engine().Own("DELETE FROM " + Quoted(Table()) + condition);
    if (!isAsRead) {
        WriteRow(statement.Get(), 0, row);
        return;
    }
    sqlite3_bind_int64(statement.Get(), 1, m_rows.Id(row));
    RequireWritten(Engine().Write(statement.Get(), Table()), row);
}

void RecordsetState::Delete() {
    RequireEditable();
    RequireRows();
    RequireRow();
    m_rows.MakeOwn();
    Transaction transaction(Engine(), Purpose::OneWrite);
    const bool isCurrent = m_stamp && Engine().IsCurrent(*m_stamp);
    DeleteRow(m_position, isCurrent);
    transaction.Commit();
    // Of a table the rest is what would be read now; a condition may ask for other rows by then.
    if (isCurrent && IsOfWholeTable())
        m_stamp = Engine().WithOwnChanges(*m_stamp);
    m_edit = Edit::None;
    m_onGap = true;
}

int RecordsetState::DeleteAll() {
    Transaction transaction(Engine());
    Requery();
    RequireRows();
    RequireEditable();
    const int count = m_rows.Count();
    for (int row = 0; row < count; ++row)
        DeleteRow(row, true);
    RowsInUse none(RowStore(m_shape->Width())); // what fails fails before the rows are gone
    transaction.Commit();
    m_rows = std::move(none);
    m_visited = 0;
    Visit(-1);
    return count;
}

} // namespace dbsection
