#include "dataaccess/sqlite/RecordsetState.h"

#include "dataaccess/CCrack.h"
#include "dataaccess/sqlite/FieldTypes.h"
#include "dataaccess/sqlite/RowCondition.h"
#include "dataaccess/sqlite/Values.h"
#include "platform/Text.h"

#include <algorithm>
#include <utility>

namespace dbsection {
namespace {

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

} // namespace

/// Reads the rows, but leaves those of a whole table for later where they are to be written to,
/// since adding rows needs none of them, or are many, since counting needs none.
void RecordsetState::OpenRows() {
    if (TakeKeptRows(Amount::Few))
        return;
    if (const auto rows =
            IsOfWholeTable() ? Engine().FindLong(m_asked.Statement(), m_editing) : std::nullopt) {
        LeaveRows(rows->shape, rows->stamp);
        return;
    }
    Engine().WithFirstRow(m_asked.Statement(), m_editing, [&](const ReadyQuery& query, bool atRow) {
        const auto& shape = query.lease.Shape();
        if (atRow && shape->isWholeTable) {
            LeaveRows(shape, std::nullopt);
            m_firstId = sqlite3_column_int64(query.lease.Get(), shape->Width());
        } else {
            ReadRows(query, atRow, IsOfWholeTable() ? Amount::Few : Amount::Any);
        }
    });
}

/// Takes the rows that are kept of the file; false where there are none.
bool RecordsetState::TakeKeptRows(Amount amount) {
    auto kept = Engine().Answer(m_asked, m_editing, amount);
    if (!kept)
        return false;
    TakeRows(std::move(kept->shape), std::move(kept->rows), kept->stamp);
    return true;
}

/// Nothing fails here: a failed query leaves the rows that there were.
void RecordsetState::TakeRows(std::shared_ptr<const QueryShape> shape, RowsInUse rows,
                              const std::optional<CSectionDataStamp>& stamp) {
    if (m_shape != shape)
        m_edit = Edit::None; // of columns that may be others now
    m_shape = std::move(shape);
    m_rows = std::move(rows);
    m_stamp = m_rows.Count() > 0 ? stamp : std::nullopt;
    m_isRead = true;
    m_firstId.reset();
    m_onGap = false;
}

/// Leaves the rows, of which there are some, to be read later.
void RecordsetState::LeaveRows(std::shared_ptr<const QueryShape> shape,
                               const std::optional<CSectionDataStamp>& stamp) {
    TakeRows(std::move(shape), RowsInUse(), std::nullopt);
    m_stamp = stamp;
    m_isRead = false;
    m_counted.reset();
}

void RecordsetState::ReadRows() {
    if (TakeKeptRows(Amount::Any))
        return;
    Engine().WithFirstRow(m_asked.Statement(), m_editing, [&](const ReadyQuery& query, bool atRow) {
        ReadRows(query, atRow, Amount::Any);
    });
}

void RecordsetState::ReadRows(const ReadyQuery& query, bool atRow, Amount amount) {
    const auto& shape = query.lease.Shape();
    RowStore rows(shape->Width());
    std::optional<CSectionDataStamp> stamp;
    if (atRow)
        stamp = Engine().Stamp();
    for (; atRow; atRow = Engine().NextRow(query)) {
        if (amount == Amount::Few && rows.Count() == FewRows) {
            LeaveRows(shape, stamp);
            Engine().NoteLong(m_asked.Statement(), m_editing, query);
            return;
        }
        const std::size_t before = rows.TextSize();
        rows.Append(query.lease.Get(), shape->IsEditable());
        Engine().RequireTextsWhole(rows.TextSize() - before);
    }
    TakeRows(shape, RowsInUse(std::move(rows)), stamp);
}

/// Reads the rows where that was left for later. Of those that may be written to the row that was
/// the first is current still, wherever it is; of others the first or the last is.
void RecordsetState::ReadRowsLeft() {
    const auto first = m_firstId;
    const bool isAtFirst = m_position == 0;
    ReadRows();
    if (first)
        Visit(std::max(m_rows.FindId(*first), 0));
    else
        Visit(isAtFirst ? 0 : m_rows.Count() - 1);
}

int RecordsetState::CountRowsLeft() {
    if (!m_counted)
        m_counted = Engine().CountRows(m_shape->columns.front().table);
    return *m_counted;
}

void RecordsetState::Requery() {
    if (!m_stamp || !Engine().IsCurrent(*m_stamp))
        m_isRead || m_firstId ? ReadRows() : OpenRows();
    LeaveRow();
    m_visited = 0;
    Visit(0);
}

const std::optional<CSectionDataStamp>& RecordsetState::Stamp() {
    RequireRows();
    return m_stamp;
}

void RecordsetState::LeaveRow() {
    m_edit = Edit::None;
    if (!m_onGap)
        return;
    m_rows.Edit([this](RowStore& rows) { rows.Remove(m_position); });
    m_onGap = false;
    --m_visited;
}

void RecordsetState::Visit(int position) {
    if (!m_isRead && position == 0) { // of rows that were left there is a first
        m_position = 0;
        m_visited = std::max(m_visited, 1);
        return;
    }
    const int count = Count();
    m_position = count == 0 ? -1 : std::clamp(position, -1, count);
    m_visited = std::max(m_visited, std::min(m_position + 1, count));
}

void RecordsetState::FailWithoutRow() {
    Fail(SectionError::NoCurrentRecord, "There is no current record; move to one first.");
}

int RecordsetState::Position() { return IsAtRow() ? m_position : -1; }

bool RecordsetState::IsBof() const { return m_position < 0; }

bool RecordsetState::IsEof() { return !IsAtRow() && !m_onGap && (m_position >= 0 || Count() == 0); }

int RecordsetState::Visited() const { return m_visited - (m_onGap ? 1 : 0); }

void RecordsetState::MoveToFirst() {
    RequireRowsToEdit();
    LeaveRow();
    Visit(0);
    RequireRow();
}

void RecordsetState::MoveToLast() {
    RequireRowsToEdit();
    LeaveRow();
    Visit(Count() - 1);
    RequireRow();
}

void RecordsetState::MoveBy(int step) {
    RequireRows();
    if (!m_onGap && (step > 0 ? IsEof() : IsBof()))
        Fail(SectionError::NoCurrentRecord, "There is no record beyond the end; move back first.");
    // Behind a gap the next row takes the place of the deleted one.
    const int position = m_position + (m_onGap && step > 0 ? 0 : step);
    LeaveRow();
    Visit(position);
}

void RecordsetState::MoveTo(int position) {
    if (position == 0) { // which needs no rows
        MoveToFirst();
        return;
    }
    RequireRows();
    LeaveRow();
    if (position < 0 || position >= m_rows.Count())
        Fail(SectionError::NoCurrentRecord,
             "There is no record number " + std::to_string(position) + "; move to another.");
    Visit(position);
}

bool RecordsetState::Find(bool relative, int step, std::string_view condition) {
    RequireRows();
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
    if (!IsClosed(condition))
        Fail(SectionError::BadStatement, "\"" + std::string(condition) +
                                             "\": this is not one condition; close what it "
                                             "opens, and nothing else.");
    const auto simple = RowCondition::Parse(condition, *m_shape);
    std::optional<ReadyQuery> query;
    if (!simple)
        query.emplace(ReadyToTest(condition));
    for (int row = first; row >= 0 && row < m_rows.Count(); row += step) {
        if (m_onGap && row == m_position)
            continue;
        auto answer = simple ? simple->Test(m_rows.Store(), &m_rows.At(row, 0))
                             : RowCondition::Answer::AskEngine;
        if (answer == RowCondition::Answer::AskEngine) {
            if (!query)
                query.emplace(ReadyToTest(condition));
            if (Test(*query, row))
                answer = RowCondition::Answer::Yes;
        }
        if (answer == RowCondition::Answer::Yes)
            return row;
    }
    return -1;
}

ReadyQuery RecordsetState::ReadyToTest(std::string_view condition) const {
    return Engine().Query(ConditionStatement(*m_shape, condition), Editing::No,
                          SectionError::UnknownNameInCondition,
                          static_cast<int>(m_shape->columns.size()));
}

/// Whether a row satisfies the condition of a query.
bool RecordsetState::Test(const ReadyQuery& query, int row) const {
    sqlite3_stmt* statement = query.lease.Get();
    const auto columns = static_cast<int>(m_shape->columns.size());
    for (int column = 0; column < columns; ++column)
        Bind(statement, column + 1, m_rows.At(row, column), m_rows.Store());
    const bool isSatisfied = Engine().NextRow(query);
    sqlite3_reset(statement);
    return isSatisfied;
}

COleVariant RecordsetState::Value(int column) {
    RequireColumn(column);
    const auto index = static_cast<std::size_t>(column);
    if (m_edit != Edit::None && m_values[index])
        return *m_values[index];
    if (m_edit == Edit::New)
        return COleVariant::Null();
    RequireRows();
    RequireRow();
    return ToVariant(m_rows.At(m_position, column), m_rows.Store(), m_shape->columns[index]);
}

std::optional<std::string> RecordsetState::ReadText(int column) {
    RequireRows();
    RequireColumn(column);
    const Cell* const cells = StoredRow();
    if (cells != nullptr && cells[column].storage == Cell::Storage::Text)
        return std::string(m_rows.Store().TextOf(cells[column])); // most need no variant
    const COleVariant value = Value(column);
    if (value.vt == VT_NULL) // which CCrack would show as "NULL"
        return std::nullopt;
    return std::string(CCrack::strVARIANT(value).View());
}

std::optional<double> RecordsetState::ReadNumber(int column) {
    RequireRows();
    RequireColumn(column);
    const auto index = static_cast<std::size_t>(column);
    if (const Cell* const cells = StoredRow(); cells != nullptr)
        if (const double* real = RealIn(cells[index], m_shape->columns[index]); real != nullptr)
            return *real;
    const COleVariant value = Value(column);
    if (value.vt == VT_NULL)
        return std::nullopt;
    return AsNumber(value);
}

void RecordsetState::ReadNumbers(int first, std::span<double> numbers) {
    if (numbers.empty())
        return;
    RequireRows();
    RequireColumn(first);
    RequireColumn(first + static_cast<int>(numbers.size()) - 1);
    const Cell* const cells = StoredRow();
    const ResultColumn* const columns = m_shape->columns.data();
    for (auto column = static_cast<std::size_t>(first); double& number : numbers) {
        const double* const real = // most are
            cells != nullptr ? RealIn(cells[column], columns[column]) : nullptr;
        number = real != nullptr ? *real : AsNumber(Value(static_cast<int>(column)));
        ++column;
    }
}

void RecordsetState::FailWithoutColumn(int column) {
    Fail(SectionError::NoSuchItem,
         "There is no column number " + std::to_string(column) + " in the recordset.");
}

} // namespace dbsection
