#include "records/Symbols.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>

namespace dbsection {
namespace {

/// Of a property in ANSI/AISC 360 and its manual, and in EN 1993 and EN 10365.
struct PropertySymbols {
    std::string_view column;
    std::string_view aisc;
    std::string_view eurocode;
};

constexpr std::array Table{
    PropertySymbols{"AX", "A", "A"},
    PropertySymbols{"AY", "As,y", "As,z"}, // not Av, which resists shear forces
    PropertySymbols{"AZ", "As,x", "As,y"},
    PropertySymbols{"EY", "yo", "zo"},
    PropertySymbols{"EZ", "xo", "yo"},
    PropertySymbols{"D", "d", "h"},
    PropertySymbols{"OD", "OD", "d"},
    PropertySymbols{"B", "b", "b"},
    PropertySymbols{"BF", "bf", "b"},
    PropertySymbols{"T", "t", "t"},
    PropertySymbols{"TF", "tf", "tf"},
    PropertySymbols{"TW", "tw", "tw"},
    PropertySymbols{"L", "D", "c"},
    PropertySymbols{"I", "I", "I"},
    PropertySymbols{"IZ", "Ix", "Iy"},
    PropertySymbols{"IY", "Iy", "Iz"},
    PropertySymbols{"IX", "J", "IT"},
    PropertySymbols{"CW", "Cw", "Iw"},
    PropertySymbols{"Z", "Z", "Wpl"},
    PropertySymbols{"ZZ", "Zx", "Wpl,y"},
    PropertySymbols{"ZY", "Zy", "Wpl,z"},
    PropertySymbols{"SZ", "Sx", "Wel,y"},
    PropertySymbols{"SY", "Sy", "Wel,z"},
    PropertySymbols{"RZ", "rx", "iy"},
    PropertySymbols{"RY", "ry", "iz"},
    PropertySymbols{"RV", "rz", "iv"},
    PropertySymbols{"CY", "y", "zs"},
    PropertySymbols{"CZ", "x", "ys"},
    PropertySymbols{"ALPHA", "alpha", "alpha"},
    PropertySymbols{"W", "W", "G"},
    PropertySymbols{"Weight", "W", "G"},
    PropertySymbols{"Perimeter", "PB", "u"},
    PropertySymbols{"Surface", "Surface", "AL"},
    PropertySymbols{"SurfacePerMass", "SurfacePerMass", "AG"},
    PropertySymbols{"A/V", "A/V", "Am/V"},
    PropertySymbols{"A/V-box", "A/V box", "[Am/V]b"},
    PropertySymbols{"BF/2TF", "bf/2tf", "b/2tf"},
    PropertySymbols{"H/TW", "h/tw", "c/tw"},
    PropertySymbols{"D/TW", "d/tw", "h/tw"},
    PropertySymbols{"B/T", "b/t", "(b-3t)/t"},
    PropertySymbols{"H/T", "h/t", "(h-3t)/t"},
    PropertySymbols{"D/T", "D/t", "d/t"},
};

struct SymbolsName {
    std::string_view name;
    const char* axes;
};

constexpr std::array Names{
    SymbolsName{"program", "X along the member, Z the major axis, Y the minor axis"},
    SymbolsName{"aisc", "z along the member, x the major axis, y the minor axis"},
    SymbolsName{"eurocode", "x along the member, y the major axis, z the minor axis"},
};

} // namespace

std::optional<Symbols> SymbolsOf(std::string_view name) {
    const auto place = std::ranges::find_if(
        Names, [name](const SymbolsName& each) { return EqualNoCase(each.name, name); });
    if (place == Names.end())
        return std::nullopt;
    return static_cast<Symbols>(place - Names.begin());
}

std::string_view SymbolOf(std::string_view column, Symbols symbols) {
    const auto place = std::ranges::find_if(
        Table, [column](const PropertySymbols& each) { return EqualNoCase(each.column, column); });
    if (symbols == Symbols::Program || place == Table.end())
        return column;
    return symbols == Symbols::Aisc ? place->aisc : place->eurocode;
}

const char* AxesOf(Symbols symbols) { return Names[static_cast<std::size_t>(symbols)].axes; }

} // namespace dbsection
