// What a recordset holds while it is open: its rows, the current row, and the edit buffer.
#pragma once

#include "dataaccess/sqlite/RowStore.h"
#include "dataaccess/sqlite/Session.h"
#include "platform/COleVariant.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dbsection {

class RecordsetState {
public:
    RecordsetState(std::shared_ptr<Session> session, std::string sql, Editing editing);

    bool IsOpen() const { return m_session->IsOpen(); }
    const QueryShape& Shape() const { return *m_shape; }

    void Requery();
    const std::optional<CSectionDataStamp>& Stamp() const { return m_stamp; }

    // The current row. Position -1 is before the first row, Count() behind the last.
    int Position() const { return IsAtRow() ? m_position : -1; }
    bool IsBof() const { return m_position < 0 || m_rows.Count() == 0; }
    bool IsEof() const { return m_position >= m_rows.Count() || m_rows.Count() == 0; }
    int Visited() const { return m_visited - (m_onGap ? 1 : 0); }
    void MoveToFirst();
    void MoveToLast();
    void MoveBy(int step);
    void MoveTo(int position);

    /// Moves to the next row that satisfies the condition, in steps of 1 or -1, from the current
    /// row
    /// (`relative`) or from the end of the rows. False, and nothing moved, when there is none.
    bool Find(bool relative, int step, std::string_view condition);

    COleVariant Value(int column) const;
    double Number(int column) const;

    void BeginNew();
    void BeginEdit();
    void Set(int column, const COleVariant& value);
    void SetAllNull();
    void Update();
    void Delete();

private:
    enum class Edit : std::uint8_t { None, New, Current };

    bool IsAtRow() const { return !m_onGap && m_position >= 0 && m_position < m_rows.Count(); }
    Connection& Engine() const { return m_session->Get(); }
    bool Fetch();
    int FindFrom(int first, int step, std::string_view condition);
    void RequireRow() const;
    void RequireEditable() const;
    void RequireColumn(int column) const;
    void LeaveRow();
    void Visit(int position);
    void InsertRow();
    void UpdateRow();
    void BindSetValues(sqlite3_stmt* statement) const;
    StatementLease RowById(std::int64_t id);
    const std::string& Table() const { return m_shape->editableTable; }

    std::shared_ptr<Session> m_session;
    std::string m_sql;
    Editing m_editing;
    std::shared_ptr<const QueryShape> m_shape;
    RowStore m_rows;
    std::optional<CSectionDataStamp> m_stamp;
    int m_position = -1;
    int m_visited = 0;
    bool m_onGap = false; ///< the current row was deleted and not yet left
    Edit m_edit = Edit::None;
    std::vector<std::optional<COleVariant>> m_values; ///< set in the edit buffer
};

} // namespace dbsection
