// What the data-access layer tells about a column.
#pragma once

#include "platform/CString.h"
#include "platform/Export.h"

#include <cstdint>

/// Field type codes.
namespace SectionField {
enum Type : std::int16_t {
    Boolean = 1,
    Byte = 2,
    Integer = 3, ///< 16 bits
    Long = 4,    ///< 32 bits
    Currency = 5,
    Single = 6,
    Double = 7,
    Date = 8,
    Text = 10,
    LongBinary = 11,
    Memo = 12,
    Guid = 15,
};

/// Attribute bit of the column that identifies the record; the engine numbers new rows itself.
inline constexpr std::int32_t AutoIncrement = 0x10;
} // namespace SectionField

struct DBSECTION_API CSectionFieldInfo {
    CString m_strName;
    std::int16_t m_nType = 0;
    std::int32_t m_lSize = 0; ///< bytes, or characters of a text
    std::int32_t m_lAttributes = 0;
    std::int16_t m_nOrdinalPosition = 0;
    std::int32_t m_bRequired = 0;
    std::int32_t m_bAllowZeroLength = 1;
    std::int32_t m_lCollatingOrder = 0;
    CString m_strForeignName;
    CString m_strSourceField;
    CString m_strSourceTable;
    CString m_strValidationRule;
    CString m_strValidationText;
    CString m_strDefaultValue;
};
