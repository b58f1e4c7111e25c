// The rows of a table as they are kept.
#pragma once

#include "dataaccess/CSectionRecordset.h"

#include <string>
#include <string_view>
#include <utility>

namespace sections {

/// The text of a column; empty where there is none.
inline std::string textAt(const CSectionRecordset& rows, int column) {
    return rows.GetFieldText(column).value_or("");
}

/// The number of a column; 0 where there is none.
inline double numberAt(const CSectionRecordset& rows, int column) {
    return rows.GetFieldNumber(column).value_or(0);
}

/// Calls `visit` on the records of a table that satisfy a condition, each row in turn being the
/// current one.
template <class Visit>
void forEachRow(CSectionDatabase& database, const char* table, Visit visit,
                const std::string& condition = "1") {
    CSectionRecordset rows(&database);
    rows.Open(CSectionRecordset::Snapshot,
              ("Select * From [" + std::string(table) + "] Where " + condition).c_str());
    for (; !rows.IsEOF(); rows.MoveNext())
        visit(std::as_const(rows));
}

/// A text as a statement has it.
inline std::string inQuotes(std::string_view text) {
    std::string quoted = "'";
    for (const char c : text)
        quoted.append(c == '\'' ? 2 : 1, c);
    return quoted += '\'';
}

} // namespace sections
