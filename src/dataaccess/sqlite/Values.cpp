#include "dataaccess/sqlite/Values.h"

#include "dataaccess/CCrack.h"
#include "dataaccess/sqlite/EngineError.h"
#include "platform/Text.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace dbsection {
namespace {

using namespace SectionField;

template <class T>
bool Holds(std::int64_t value) {
    return value >= std::numeric_limits<T>::min() && value <= std::numeric_limits<T>::max();
}

COleVariant FromInteger(std::int64_t value, std::int16_t type) {
    switch (type) {
    case Boolean:
        return COleVariant::Bool(value != 0);
    case Byte:
        if (Holds<std::uint8_t>(value))
            return static_cast<std::uint8_t>(value);
        break;
    case Integer:
        if (Holds<std::int16_t>(value))
            return static_cast<std::int16_t>(value);
        break;
    case Currency:
        if (std::abs(static_cast<double>(value)) < 9e14)
            return COleVariant::Currency(value * static_cast<std::int64_t>(CurrencyScale));
        break;
    case Single:
        return static_cast<float>(value);
    case Date:
        return COleVariant::Date(static_cast<double>(value));
    case Double:
        return static_cast<double>(value);
    default:
        break;
    }
    if (Holds<std::int32_t>(value))
        return static_cast<std::int32_t>(value);
    return static_cast<double>(value);
}

COleVariant FromReal(double value, std::int16_t type) {
    switch (type) {
    case Currency:
        if (std::abs(value) < 9e14)
            return COleVariant::Currency(std::llround(value * CurrencyScale));
        return value;
    case Single:
        if (std::abs(value) <= static_cast<double>(std::numeric_limits<float>::max()))
            return static_cast<float>(value);
        return value;
    case Date:
        return COleVariant::Date(value);
    default:
        return value;
    }
}

bool IsNumeric(std::int16_t type) {
    return type != Text && type != Memo && type != Guid && type != LongBinary && type != 0;
}

/// The number that a variant or its text means, or nothing.
std::optional<double> NumberOf(const COleVariant& value) {
    if (value.vt != VT_BSTR)
        return NumberIn(value);
    const std::string_view text = Trim(value.strVal.View());
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error == std::errc() && end == text.data() + text.size())
        return number;
    return std::nullopt;
}

bool Fits(double number, std::int16_t type) {
    const auto isWholeWithin = [number](double low, double high) {
        return number >= low && number <= high && number == std::floor(number);
    };
    switch (type) {
    case Byte:
        return isWholeWithin(0, 255);
    case Integer:
        return isWholeWithin(-32768, 32767);
    case Long:
        return isWholeWithin(-2147483648.0, 2147483647.0);
    case Single:
        return std::abs(number) <= static_cast<double>(std::numeric_limits<float>::max());
    default:
        return std::isfinite(number);
    }
}

void RequireBound(int code) {
    if (code != SQLITE_OK)
        FailFromEngine(code, nullptr, "The value", Activity::Writing);
}

void BindBytes(sqlite3_stmt* statement, int parameter, std::string_view bytes) {
    RequireBound(
        sqlite3_bind_blob64(statement, parameter, bytes.data(), bytes.size(), SQLITE_STATIC));
}

} // namespace

COleVariant ToVariant(const Cell& cell, const RowStore& rows, const ResultColumn& column) {
    switch (cell.storage) {
    case Cell::Storage::Integer:
        return FromInteger(cell.integer, column.type);
    case Cell::Storage::Real:
        return FromReal(cell.real, column.type);
    case Cell::Storage::Text:
        return COleVariant(CString(rows.TextOf(cell)));
    case Cell::Storage::Bytes:
        return COleVariant::Bytes(CString(rows.TextOf(cell)));
    case Cell::Storage::Null:
        break;
    }
    return COleVariant::Null();
}

COleVariant ToStored(const COleVariant& value, const ResultColumn& column,
                     const std::string& table) {
    if (value.vt == VT_EMPTY || value.vt == VT_NULL)
        return COleVariant::Null();
    const bool isText = value.vt == VT_BSTR || value.vt == (VT_ARRAY | VT_UI1);
    const auto number = NumberOf(value);
    if (!IsNumeric(column.type)) {
        if (isText || number)
            return value;
    } else if (number && Fits(*number, column.type)) {
        return *number;
    }
    Fail(SectionError::WrongValueType, table + ", column \"" + column.name + "\": the value " +
                                           std::string(CCrack::strVARIANT(value).View()) +
                                           " is not one that the column can hold; correct it.");
}

void Bind(sqlite3_stmt* statement, int parameter, std::string_view text) {
    RequireBound(sqlite3_bind_text64(statement, parameter, text.data(), text.size(), SQLITE_STATIC,
                                     SQLITE_UTF8));
}

void Bind(sqlite3_stmt* statement, int parameter, double number) {
    RequireBound(sqlite3_bind_double(statement, parameter, number));
}

void Bind(sqlite3_stmt* statement, int parameter, const Cell& cell, const RowStore& rows) {
    switch (cell.storage) {
    case Cell::Storage::Integer:
        RequireBound(sqlite3_bind_int64(statement, parameter, cell.integer));
        return;
    case Cell::Storage::Real:
        Bind(statement, parameter, cell.real);
        return;
    case Cell::Storage::Text:
        Bind(statement, parameter, rows.TextOf(cell));
        return;
    case Cell::Storage::Bytes:
        BindBytes(statement, parameter, rows.TextOf(cell));
        return;
    case Cell::Storage::Null:
        RequireBound(sqlite3_bind_null(statement, parameter));
        return;
    }
}

void Bind(sqlite3_stmt* statement, int parameter, const COleVariant& stored) {
    if (stored.vt == VT_BSTR)
        Bind(statement, parameter, stored.strVal.View());
    else if (stored.vt == (VT_ARRAY | VT_UI1))
        BindBytes(statement, parameter, stored.strVal.View());
    else if (const auto number = NumberOf(stored))
        Bind(statement, parameter, *number);
    else
        RequireBound(sqlite3_bind_null(statement, parameter));
}

} // namespace dbsection
