#include "dataaccess/CCrack.h"

#include "dataaccess/Guard.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <span>
#include <string>

namespace {

struct NamedCode {
    int code;
    const char* name;
};

constexpr std::array FieldTypes{
    NamedCode{1, "Bool"},   NamedCode{2, "Byte"},         NamedCode{3, "Integer"},
    NamedCode{4, "Long"},   NamedCode{5, "Currency"},     NamedCode{6, "Single"},
    NamedCode{7, "Double"}, NamedCode{8, "Date"},         NamedCode{10, "Text"},
    NamedCode{12, "Memo"},  NamedCode{11, "Long Binary"}, NamedCode{15, "GUID"},
};

constexpr std::array QueryDefTypes{
    NamedCode{0, "Select"},    NamedCode{16, "Crosstab"},        NamedCode{32, "Delete"},
    NamedCode{48, "Update"},   NamedCode{64, "Append"},          NamedCode{80, "MakeTable"},
    NamedCode{96, "DDL"},      NamedCode{112, "SQLPassThrough"}, NamedCode{128, "Set Operation"},
    NamedCode{144, "SPTBulk"}, NamedCode{240, "Action"},
};

constexpr std::array VariantTypes{
    NamedCode{0, "VT_EMPTY"},
    NamedCode{1, "VT_NULL"},
    NamedCode{2, "VT_I2"},
    NamedCode{3, "VT_I4"},
    NamedCode{4, "VT_R4"},
    NamedCode{5, "VT_R8"},
    NamedCode{6, "VT_CY"},
    NamedCode{7, "VT_DATE"},
    NamedCode{8, "VT_BSTR"},
    NamedCode{9, "VT_DISPATCH"},
    NamedCode{10, "VT_ERROR"},
    NamedCode{11, "VT_BOOL"},
    NamedCode{12, "VT_VARIANT"},
    NamedCode{13, "VT_UNKNOWN"},
    NamedCode{16, "VT_I1"},
    NamedCode{17, "VT_UI1"},
    NamedCode{18, "VT_UI2"},
    NamedCode{19, "VT_UI4"},
    NamedCode{20, "VT_I8"},
    NamedCode{21, "VT_UI8"},
    NamedCode{22, "VT_INT"},
    NamedCode{23, "VT_UINT"},
    NamedCode{24, "VT_VOID"},
    NamedCode{25, "VT_HRESULT"},
    NamedCode{26, "VT_PTR"},
    NamedCode{27, "VT_SAFEARRAY"},
    NamedCode{28, "VT_CARRAY"},
    NamedCode{29, "VT_USERDEFINED"},
    NamedCode{30, "VT_LPSTR"},
    NamedCode{31, "VT_LPWSTR"},
    NamedCode{64, "VT_FILETIME"},
    NamedCode{65, "VT_BLOB"},
    NamedCode{66, "VT_STREAM"},
    NamedCode{67, "VT_STORAGE"},
    NamedCode{68, "VT_STREAMED_OBJECT"},
    NamedCode{69, "VT_STORED_OBJECT"},
    NamedCode{70, "VT_BLOB_OBJECT"},
    NamedCode{71, "VT_CF"},
    NamedCode{72, "VT_CLSID"},
};

const char* NameOf(std::span<const NamedCode> names, int code, const char* otherwise) {
    for (const NamedCode& entry : names)
        if (entry.code == code)
            return entry.name;
    return otherwise;
}

/// As printf's "%e" in the C locale.
CString Scientific(double value) {
    std::array<char, 32> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                   std::chars_format::scientific, 6);
    return {buffer.data(), static_cast<int>(end.ptr - buffer.data())};
}

CString CurrencyText(std::int64_t tenThousandths) {
    const auto magnitude = tenThousandths < 0 ? 0 - static_cast<std::uint64_t>(tenThousandths)
                                              : static_cast<std::uint64_t>(tenThousandths);
    std::string fraction = std::to_string(10000 + magnitude % 10000).substr(1);
    fraction.erase(fraction.find_last_not_of('0') + 1);
    return CString((tenThousandths < 0 ? "-" : "") + std::to_string(magnitude / 10000) +
                   (fraction.empty() ? "" : "." + fraction));
}

CString DateText(double days) {
    using namespace std::chrono;
    constexpr double Limit = 3000000; // beyond the years that a date can tell
    if (!(std::abs(days) < Limit))
        return "VT_DATE";
    // The fraction is the time of day, counted forwards before the epoch too.
    const sys_days epoch{year{1899} / December / 30};
    const year_month_day date{epoch + std::chrono::days{static_cast<int>(std::trunc(days))}};
    CString text;
    text.Format("%02u %02u %02d", static_cast<unsigned>(date.month()),
                static_cast<unsigned>(date.day()), std::abs(static_cast<int>(date.year()) % 100));
    return text;
}

/// Text by the full variant type, before the array and reference bits are looked at.
CString PlainText(const COleVariant& value) {
    CString text("Fish");
    switch (value.vt) {
    case VT_EMPTY:
    case VT_NULL:
        return "NULL";
    case VT_I2:
        text.Format("%hd", value.iVal);
        return text;
    case VT_I4:
        text.Format("%d", value.lVal);
        return text;
    case VT_R4:
        return Scientific(static_cast<double>(value.fltVal));
    case VT_R8:
        return Scientific(value.dblVal);
    case VT_CY:
        return CurrencyText(value.cyVal);
    case VT_DATE:
        return DateText(value.date);
    case VT_BSTR:
        return value.strVal;
    case VT_BSTR | VT_BYREF:
        return *value.pbstrVal;
    case VT_BOOL:
        return CCrack::strBOOL(value.boolVal);
    case VT_UI1:
        text.Format("0x%02hX", static_cast<unsigned short>(value.bVal));
        return text;
    default:
        return NameOf(VariantTypes, value.vt, text);
    }
}

} // namespace

const char* CCrack::strFieldType(short code) { return NameOf(FieldTypes, code, "Unknown"); }

const char* CCrack::strQueryDefType(short code) { return NameOf(QueryDefTypes, code, "Unknown"); }

const char* CCrack::strBOOL(int value) { return value != 0 ? "TRUE" : "FALSE"; }

int CCrack::boolVARIANT(const COleVariant& value) {
    return value.vt == VT_BOOL ? value.boolVal : 0;
}

CString CCrack::strVARIANT(const COleVariant& value) {
    return dbsection::Operation("strVARIANT()", [&] {
        CString text = PlainText(value);
        const bool isArray = (value.vt & VT_ARRAY) != 0;
        const bool isReference = (value.vt & VT_BYREF) != 0;
        if ((!isArray && !isReference) || value.vt == (VT_BSTR | VT_BYREF))
            return text;
        if (isArray)
            text = "Array of ";
        if (isReference)
            text += "Pointer to ";
        text += NameOf(VariantTypes, value.vt & ~(VT_ARRAY | VT_BYREF), "");
        return text;
    });
}
