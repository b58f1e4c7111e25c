// Texts of a row as they are kept.
#pragma once

#include "dataaccess/CCrack.h"
#include "dataaccess/CSectionRecordset.h"

#include <optional>
#include <string>

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

} // namespace sections
