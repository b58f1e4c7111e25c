// A typed value: what a database column holds.
//
//     COleVariant area(7.65);
//     if (area.vt == VT_R8) use(area.dblVal);
//
// `vt` tells which member holds the value; texts are in `strVal`. A variant owns its text; a
// by-reference variant (VT_BYREF) only refers to the caller's object.
#pragma once

#include "platform/CString.h"
#include "platform/Text.h"

#include <cstdint>
#include <optional>
#include <utility>

#ifndef __AFX_H__

using VARTYPE = std::uint16_t;

inline constexpr VARTYPE VT_EMPTY = 0;
inline constexpr VARTYPE VT_NULL = 1;
inline constexpr VARTYPE VT_I2 = 2;
inline constexpr VARTYPE VT_I4 = 3;
inline constexpr VARTYPE VT_R4 = 4;
inline constexpr VARTYPE VT_R8 = 5;
inline constexpr VARTYPE VT_CY = 6;
inline constexpr VARTYPE VT_DATE = 7;
inline constexpr VARTYPE VT_BSTR = 8;
inline constexpr VARTYPE VT_BOOL = 11;
inline constexpr VARTYPE VT_UI1 = 17;
inline constexpr VARTYPE VT_ARRAY = 0x2000;
inline constexpr VARTYPE VT_BYREF = 0x4000;

class COleVariant {
public:
    COleVariant() : dblVal(0) {}
    COleVariant(std::int16_t value) : vt(VT_I2), iVal(value) {}
    COleVariant(std::int32_t value) : vt(VT_I4), lVal(value) {}
    COleVariant(float value) : vt(VT_R4), fltVal(value) {}
    COleVariant(double value) : vt(VT_R8), dblVal(value) {}
    COleVariant(std::uint8_t value) : vt(VT_UI1), bVal(value) {}
    explicit COleVariant(const char* text) : vt(VT_BSTR), dblVal(0), strVal(text) {}
    explicit COleVariant(CString text) : vt(VT_BSTR), dblVal(0), strVal(std::move(text)) {}

    static COleVariant Null() { return Tagged(VT_NULL); }

    /// A truth value: -1 for true, 0 for false.
    static COleVariant Bool(bool value) {
        COleVariant variant = Tagged(VT_BOOL);
        variant.boolVal = value ? -1 : 0;
        return variant;
    }

    /// An amount in ten-thousandths.
    static COleVariant Currency(std::int64_t tenThousandths) {
        COleVariant variant = Tagged(VT_CY);
        variant.cyVal = tenThousandths;
        return variant;
    }

    /// Days since 1899-12-30, fractions being the time of day.
    static COleVariant Date(double days) {
        COleVariant variant = Tagged(VT_DATE);
        variant.date = days;
        return variant;
    }

    /// Bytes, kept in `strVal`.
    static COleVariant Bytes(CString bytes) {
        COleVariant variant = Tagged(VT_ARRAY | VT_UI1);
        variant.strVal = std::move(bytes);
        return variant;
    }

    /// A reference to a text that must outlive the variant.
    static COleVariant Reference(const CString& text) {
        COleVariant variant = Tagged(VT_BYREF | VT_BSTR);
        variant.pbstrVal = &text;
        return variant;
    }

    VARTYPE vt = VT_EMPTY;
    union {
        std::int16_t iVal;
        std::int32_t lVal;
        float fltVal;
        double dblVal;
        std::int16_t boolVal;
        std::uint8_t bVal;
        std::int64_t cyVal;
        double date;
        const CString* pbstrVal;
    };
    CString strVal;

private:
    static COleVariant Tagged(VARTYPE type) {
        COleVariant variant;
        variant.vt = type;
        return variant;
    }
};

#endif

namespace dbsection {

/// How many of a currency's units of storage make one.
inline constexpr double CurrencyScale = 10000;

/// The number that a variant holds; nothing for texts, bytes, references and nulls.
inline std::optional<double> NumberIn(const COleVariant& value) {
    switch (value.vt) {
    case VT_I2:
        return value.iVal;
    case VT_I4:
        return value.lVal;
    case VT_R4:
        return static_cast<double>(value.fltVal);
    case VT_R8:
        return value.dblVal;
    case VT_CY:
        return static_cast<double>(value.cyVal) / CurrencyScale;
    case VT_DATE:
        return value.date;
    case VT_BOOL:
        return value.boolVal;
    case VT_UI1:
        return value.bVal;
    default:
        return std::nullopt;
    }
}

/// The number that a variant holds, or that its text begins with; 0 without one.
inline double AsNumber(const COleVariant& value) {
    return NumberIn(value).value_or(LeadingNumber<double>(value.strVal.View()));
}

} // namespace dbsection
