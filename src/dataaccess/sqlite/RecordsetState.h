// What a recordset holds while it is open: its rows, the current row, and the edit buffer.
#pragma once

#include "dataaccess/sqlite/AskedRows.h"
#include "dataaccess/sqlite/RowsInUse.h"
#include "dataaccess/sqlite/Session.h"
#include "platform/COleVariant.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dbsection {

class Transaction;

/// The rows are read when it is made, but for those of a whole table that can be written to or has
/// many: these when they are first asked for.
class RecordsetState {
public:
    /// `asked`: a statement, or the rows of a name.
    template <class Asked>
    RecordsetState(std::shared_ptr<Session> session, Asked&& asked, Editing editing)
        : m_session(std::move(session)),
          m_asked(std::forward<Asked>(asked)),
          m_editing(editing) {
        OpenRows();
        Visit(0);
    }
    RecordsetState(const RecordsetState&) = delete;
    RecordsetState& operator=(const RecordsetState&) = delete;

    bool IsOpen() const { return m_session->IsOpen(); }
    const QueryShape& Shape() const { return *m_shape; }

    void Requery();
    const std::optional<CSectionDataStamp>& Stamp();

    // The current row. Position -1 is before the first row, Count() behind the last.
    int Position();
    bool IsBof() const;
    bool IsEof();
    int Visited() const;
    void MoveToFirst();
    void MoveToLast();
    void MoveBy(int step);
    void MoveTo(int position);

    /// Moves to the next row that satisfies the condition, in steps of 1 or -1, from the current
    /// row (`relative`) or from the end of the rows. False, and nothing moved, when there is none.
    bool Find(bool relative, int step, std::string_view condition);

    COleVariant Value(int column);
    /// The value of a column as a text; nothing of a null.
    std::optional<std::string> ReadText(int column);
    /// The same as a number.
    std::optional<double> ReadNumber(int column);
    /// The values of consecutive columns as numbers.
    void ReadNumbers(int first, std::span<double> numbers);

    void BeginNew();
    void BeginEdit();
    void Set(int column, const COleVariant& value);
    void SetAllNull();
    void Update();
    void Delete();

    /// Deletes all rows, or none, and returns their number.
    int DeleteAll();

private:
    enum class Edit : std::uint8_t { None, New, Current };

    Connection& Engine() const { return m_session->Get(); }
    const std::string& Table() const { return m_shape->editableTable; }

    /// Whether the statement asks for all rows and columns of one table, in no order.
    bool IsOfWholeTable() const {
        const auto& question = m_asked.Question();
        return question && question->rows == TableQuestion::Rows::All;
    }

    void OpenRows();
    bool TakeKeptRows(Amount amount);
    void TakeRows(std::shared_ptr<const QueryShape> shape, RowsInUse rows,
                  const std::optional<CSectionDataStamp>& stamp);
    void LeaveRows(std::shared_ptr<const QueryShape> shape,
                   const std::optional<CSectionDataStamp>& stamp);
    void ReadRows();
    void ReadRows(const ReadyQuery& query, bool atRow, Amount amount);
    void ReadRowsLeft();
    int CountRowsLeft();

    // Asked for every value: short enough to be part of their callers.
    void RequireRows() {
        if (!m_isRead)
            ReadRowsLeft();
    }
    void RequireRowsToEdit() {
        if (m_firstId)
            ReadRowsLeft();
    }
    int Count() { return m_isRead ? m_rows.Count() : CountRowsLeft(); }
    bool IsAtRow() {
        const bool isFirstLeft = !m_isRead && m_position == 0;
        return isFirstLeft || (!m_onGap && m_position >= 0 && m_position < Count());
    }
    void RequireRow() {
        if (!IsAtRow())
            FailWithoutRow();
    }
    void RequireColumn(int column) const {
        if (column < 0 || static_cast<std::size_t>(column) >= m_shape->columns.size())
            FailWithoutColumn(column);
    }
    /// The stored values of the current row; null while it is edited, or where there is none.
    const Cell* StoredRow() {
        return m_edit == Edit::None && IsAtRow() ? &m_rows.At(m_position, 0) : nullptr;
    }
    /// A number that needs no variant, or null.
    static const double* RealIn(const Cell& cell, const ResultColumn& column) {
        const bool isReal =
            cell.storage == Cell::Storage::Real && column.type == SectionField::Double;
        return isReal ? &cell.real : nullptr;
    }
    [[noreturn]] static void FailWithoutRow();
    [[noreturn]] static void FailWithoutColumn(int column);

    int FindFrom(int first, int step, std::string_view condition);
    ReadyQuery ReadyToTest(std::string_view condition) const;
    bool Test(const ReadyQuery& query, int row) const;
    void LeaveRow();
    void Visit(int position);

    void RequireEditable() const;
    void InsertRow();
    void UpdateRow();
    void DeleteRow(int row, bool isAsRead);
    int BindSetValues(sqlite3_stmt* statement) const;
    std::string RowCondition() const;
    void WriteRow(sqlite3_stmt* statement, int parameter, int row);
    void RequireWritten(int count, int row);
    StatementLease RowById(std::int64_t id);
    void ReadBackAndCommit(std::int64_t id, Transaction& transaction);

    std::shared_ptr<Session> m_session;
    const AskedRows m_asked;
    const Editing m_editing;
    std::shared_ptr<const QueryShape> m_shape;
    RowsInUse m_rows;
    std::optional<CSectionDataStamp> m_stamp;
    bool m_isRead = false;
    std::optional<int> m_counted;          ///< rows that were left to be read later
    std::optional<std::int64_t> m_firstId; ///< of the row that was the first when they were left
    int m_position = -1;
    int m_visited = 0;
    bool m_onGap = false; ///< the current row was deleted and not yet left
    Edit m_edit = Edit::None;
    std::vector<std::optional<COleVariant>> m_values; ///< set in the edit buffer
};

} // namespace dbsection
