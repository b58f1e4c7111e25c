// The rows of a table as they are kept.
#pragma once

#include "dataaccess/CCrack.h"
#include "dataaccess/CSectionRecordset.h"
#include "platform/COleVariant.h"

#include <optional>
#include <string>
#include <utility>

namespace sections {

inline std::optional<std::string> textOrNothing(const CSectionRecordset& rows, int column) {
    const COleVariant value = rows.GetFieldValue(column);
    if (value.vt == VT_NULL) // which CCrack would show as "NULL"
        return std::nullopt;
    return std::string(CCrack::strVARIANT(value).View());
}

/// The same, empty where there is none.
inline std::string textAt(const CSectionRecordset& rows, int column) {
    return textOrNothing(rows, column).value_or("");
}

inline double numberAt(const CSectionRecordset& rows, int column) {
    return dbsection::AsNumber(rows.GetFieldValue(column));
}

/// Calls `visit` on the records of a table, each row in turn being the current one.
template <class Visit>
void forEachRow(CSectionDatabase& database, const char* table, Visit visit) {
    CSectionRecordset rows(&database);
    rows.Open(CSectionRecordset::Snapshot, ("Select * From [" + std::string(table) + "]").c_str());
    for (; !rows.IsEOF(); rows.MoveNext())
        visit(std::as_const(rows));
}

} // namespace sections
