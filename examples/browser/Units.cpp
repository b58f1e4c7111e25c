#include "Units.h"

#include "Text.h"

#include <algorithm>
#include <array>

namespace browser {
namespace {

constexpr unsigned int FirstLength = 1001;
constexpr unsigned int FirstForce = 2001;

// In the order of the library's numbers.
using Names = std::array<const char*, 8>;
constexpr Names LengthNames{"in", "ft", "yd", "mm", "cm", "dm", "m", "km"};
constexpr Names ForceNames{"kip", "lb", "kg", "t", "N", "daN", "kN", "MN"};

/// Units that are not made of lengths and forces, or not visibly so.
struct SpecialUnit {
    const char* name;
    const char* label;
    const char* madeOf = "";
};
constexpr std::array SpecialUnits{SpecialUnit{"NUMBER", ""},
                                  SpecialUnit{"DEG", "deg"},
                                  SpecialUnit{"DEGREE", "deg"},
                                  SpecialUnit{"RADIAN", "rad"},
                                  SpecialUnit{"KSI", "", "KIPS/INCHES^2"},
                                  SpecialUnit{"PSI", "", "POUND/INCHES^2"}};

/// Sets the unit that has this name; false when there is none.
bool ChooseFrom(const Names& names, unsigned int first, const CString& name, unsigned int& unit) {
    const auto place =
        std::ranges::find_if(names, [&](const char* each) { return IsSameName(each, name); });
    if (place == names.end())
        return false;
    unit = first + static_cast<unsigned int>(place - names.begin());
    return true;
}

CString ListOf(const Names& names) {
    CString list;
    for (const char* name : names)
        list += CString(list.IsEmpty() ? "" : ", ") + name;
    return list;
}

bool IsOf(const Names& names, unsigned int first, unsigned int unit) {
    return unit >= first && unit < first + names.size();
}

/// One factor of a compound unit: its unit is exchanged, its exponent stays.
CString FactorLabel(const CString& factor, const Units& units) {
    const int caret = factor.Find('^');
    const CString exponent = caret < 0 ? CString() : factor.Mid(caret);
    const unsigned int unit = UNIT::StringToId(factor);
    if (IsOf(LengthNames, FirstLength, unit))
        return LengthNames.at(units.length - FirstLength) + exponent;
    if (IsOf(ForceNames, FirstForce, unit))
        return ForceNames.at(units.force - FirstForce) + exponent;
    return factor;
}

} // namespace

void ChooseUnit(Units& units, const CString& name) {
    if (!ChooseFrom(LengthNames, FirstLength, name, units.length) &&
        !ChooseFrom(ForceNames, FirstForce, name, units.force))
        throw Refusal(Quoted(name) + " is no unit; lengths are " + ListOf(LengthNames) +
                      "; forces are " + ListOf(ForceNames) + ".");
}

CString NamesOf(const Units& units) {
    return LengthNames.at(units.length - FirstLength) +
           (" and " + CString(ForceNames.at(units.force - FirstForce)));
}

CString LabelOf(const CString& columnUnit, const Units& units) {
    for (const auto& [name, label, madeOf] : SpecialUnits)
        if (IsSameName(name, columnUnit))
            return *madeOf == '\0' ? CString(label) : LabelOf(madeOf, units);
    CString label;
    CString factor;
    for (const char c : columnUnit.View()) {
        if (c != '/' && c != '.') {
            factor += c;
            continue;
        }
        label += FactorLabel(factor, units) + c;
        factor = "";
    }
    return label + FactorLabel(factor, units);
}

} // namespace browser
