// Unit texts such as "KIPS/INCHES^2": what they are made of, what they mean, how they are printed.
//
//     DimensionOf("KIPS/INCHES^2") == UnitDimension{.length = -2, .force = 1}
//     SizeOf("INCHES^2") == 645.16 // in mm^2
//     LabelOf("KIPS/INCHES^2", {UnitId::Millimetre, UnitId::Newton}) == "N/mm^2"
//
// A text is a chain of factors, taken from left to right, joined by "/" (divided) and "."
// (multiplied); a factor is the name of a unit, of any letter case, with its exponent behind "^"
// where that is not 1. "KSI" and "PSI" stand for what they abbreviate, among printed names "MPa"
// and "GPa", too.
#pragma once

#include "platform/Export.h"
#include "units/UnitId.h"

#include <optional>
#include <string>
#include <string_view>

namespace dbsection {

/// Which names of units a text is made of.
enum class UnitNames {
    Kept,    ///< those of catalogues, e.g. "KNS"
    Printed, ///< labels, too, e.g. "kN"
};

/// The identifier of a unit by its name (an exponent is cut off), or 0.
DBSECTION_API unsigned int UnitIdOf(std::string_view name, UnitNames names = UnitNames::Kept);

/// How a unit is printed, e.g. "in"; empty for what is no unit.
DBSECTION_API std::string_view UnitLabel(unsigned int id);

/// The number behind the first "^", 1.0 without one.
DBSECTION_API double UnitExponent(std::string_view factor);

struct UnitFactor {
    std::string_view text; ///< with its exponent
    unsigned int id;       ///< 0: an unknown name
    double exponent;
    bool isDivisor;
};

/// The factors of a unit text, at least one:
///     for (UnitFactors factors(unit); const auto factor = factors.Next();)
class DBSECTION_API UnitFactors {
public:
    explicit UnitFactors(std::string_view unit, UnitNames names = UnitNames::Kept);

    /// The next factor, which refers to the text or to a constant; nothing behind the last one.
    std::optional<UnitFactor> Next();

private:
    std::optional<std::string_view> m_rest;
    UnitNames m_names;
    bool m_isDivisor = false;
};

/// Powers of a length and of a force.
struct UnitDimension {
    int length = 0;
    int force = 0;
    bool operator==(const UnitDimension&) const = default;
};

/// What the unit measures; nothing where the name of a factor is unknown, or its exponent is not
/// written as a whole number above zero.
DBSECTION_API std::optional<UnitDimension> DimensionOf(std::string_view unit,
                                                       UnitNames names = UnitNames::Kept);

/// The size of a unit in powers of mm and N, by the units' definitions (inch 25.4 mm, pound-force
/// 4.4482216152605 N); an unknown factor counts as 1. UNIT::ConvertUnitTo has rounded factors.
DBSECTION_API double SizeOf(std::string_view unit, UnitNames names = UnitNames::Kept);

/// Target units of a conversion; 0 keeps those that a text has.
struct UnitChoice {
    unsigned int length = 0;
    unsigned int force = 0;
};

/// How a unit text reads after a conversion. Plain numbers and texts have no label, angles are in
/// "deg" or "rad", and an unknown factor stays as it is.
DBSECTION_API std::string LabelOf(std::string_view unit, const UnitChoice& choice = {});

} // namespace dbsection
