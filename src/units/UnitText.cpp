#include "units/UnitText.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace dbsection {
namespace {

using namespace UnitId;

struct UnitName {
    std::string_view name;
    unsigned int id;
};

constexpr std::array KeptNames{
    UnitName{"INCHES", Inch},    UnitName{"IN", Inch},        UnitName{"FEET", Foot},
    UnitName{"FT", Foot},        UnitName{"YARD", Yard},      UnitName{"YD", Yard},
    UnitName{"MMS", Millimetre}, UnitName{"MM", Millimetre},  UnitName{"CM", Centimetre},
    UnitName{"DME", Decimetre},  UnitName{"DM", Decimetre},   UnitName{"METER", Metre},
    UnitName{"M", Metre},        UnitName{"KM", Kilometre},   UnitName{"KIP", Kip},
    UnitName{"KIPS", Kip},       UnitName{"POUND", Pound},    UnitName{"LB", Pound},
    UnitName{"KG", Kilogram},    UnitName{"MTON", MetricTon}, UnitName{"TON", MetricTon},
    UnitName{"T", MetricTon},    UnitName{"MT", MetricTon},   UnitName{"NEWTON", Newton},
    UnitName{"N", Newton},       UnitName{"DNS", Decanewton}, UnitName{"KNS", Kilonewton},
    UnitName{"MNS", Meganewton},
};

struct Unit {
    unsigned int id;
    std::string_view label;
    double size; ///< in mm or N
};

constexpr std::array Units{
    Unit{Inch, "in", 25.4},
    Unit{Foot, "ft", 304.8},
    Unit{Yard, "yd", 914.4},
    Unit{Millimetre, "mm", 1},
    Unit{Centimetre, "cm", 10},
    Unit{Decimetre, "dm", 100},
    Unit{Metre, "m", 1000},
    Unit{Kilometre, "km", 1e6},
    Unit{Kip, "kip", 4448.2216152605},
    Unit{Pound, "lb", 4.4482216152605},
    Unit{Kilogram, "kg", 9.80665},
    Unit{MetricTon, "t", 9806.65},
    Unit{Newton, "N", 1},
    Unit{Decanewton, "daN", 10},
    Unit{Kilonewton, "kN", 1000},
    Unit{Meganewton, "MN", 1e6},
};

const Unit* FindUnit(unsigned int id) {
    const auto place = std::ranges::find(Units, id, &Unit::id);
    return place == Units.end() ? nullptr : &*place;
}

/// The identifier of the entry that has the name, or 0.
template <class Entries, class Name>
unsigned int IdIn(const Entries& entries, Name nameOf, std::string_view wanted) {
    const auto isWanted = [wanted](std::string_view name) { return EqualNoCase(name, wanted); };
    const auto place = std::ranges::find_if(entries, isWanted, nameOf);
    return place == entries.end() ? 0 : place->id;
}

/// A name of a whole unit text.
struct Abbreviation {
    std::string_view name;
    std::string_view unit;
    UnitNames names;
};

constexpr std::array Abbreviations{
    Abbreviation{"KSI", "KIPS/INCHES^2", UnitNames::Kept},
    Abbreviation{"Ksi", "KIPS/INCHES^2", UnitNames::Kept},
    Abbreviation{"ksi", "KIPS/INCHES^2", UnitNames::Kept},
    Abbreviation{"PSI", "POUND/INCHES^2", UnitNames::Kept},
    Abbreviation{"Psi", "POUND/INCHES^2", UnitNames::Kept},
    Abbreviation{"psi", "POUND/INCHES^2", UnitNames::Kept},
    Abbreviation{"MPa", "NEWTON/MMS^2", UnitNames::Printed},
    Abbreviation{"GPa", "KNS/MMS^2", UnitNames::Printed},
};

std::string_view SpelledOut(std::string_view unit, UnitNames names) {
    const auto place = std::ranges::find_if(Abbreviations, [&](const Abbreviation& candidate) {
        return names == UnitNames::Printed
                   ? EqualNoCase(candidate.name, unit)
                   : candidate.name == unit && candidate.names == UnitNames::Kept;
    });
    return place == Abbreviations.end() ? unit : place->unit;
}

/// The exponent of a factor where it is a whole number above zero, else 0.
int WholeExponent(std::string_view factor) {
    const std::size_t caret = factor.find('^');
    if (caret == std::string_view::npos)
        return 1;
    const std::string_view digits = factor.substr(caret + 1);
    return std::ranges::all_of(digits, IsDigit) && digits.size() <= 2 ? LeadingNumber<int>(digits)
                                                                      : 0;
}

std::string_view NameIn(std::string_view factor) { return factor.substr(0, factor.find('^')); }

/// The label of a unit, or of that which was chosen in its place.
std::string_view ChosenLabel(unsigned int id, const UnitChoice& choice) {
    const unsigned int chosen = IsLength(id) ? choice.length : choice.force;
    return UnitLabel(chosen == 0 ? id : chosen);
}

} // namespace

unsigned int UnitIdOf(std::string_view name, UnitNames names) {
    name = NameIn(name);
    const unsigned int kept = IdIn(KeptNames, &UnitName::name, name);
    return kept == 0 && names == UnitNames::Printed ? IdIn(Units, &Unit::label, name) : kept;
}

std::string_view UnitLabel(unsigned int id) {
    const Unit* unit = FindUnit(id);
    return unit == nullptr ? std::string_view() : unit->label;
}

double UnitExponent(std::string_view factor) {
    const std::size_t caret = factor.find('^');
    return caret == std::string_view::npos ? 1.0 : LeadingNumber<double>(factor.substr(caret + 1));
}

UnitFactors::UnitFactors(std::string_view unit, UnitNames names)
    : m_rest(SpelledOut(unit, names)),
      m_names(names) {}

std::optional<UnitFactor> UnitFactors::Next() {
    if (!m_rest)
        return std::nullopt;
    const std::size_t end = std::min(m_rest->find_first_of("/."), m_rest->size());
    const std::string_view text = m_rest->substr(0, end);
    const UnitFactor factor{text, UnitIdOf(text, m_names), UnitExponent(text), m_isDivisor};
    if (end < m_rest->size()) {
        m_isDivisor = (*m_rest)[end] == '/';
        m_rest->remove_prefix(end + 1);
    } else {
        m_rest.reset();
    }
    return factor;
}

std::optional<UnitDimension> DimensionOf(std::string_view unit, UnitNames names) {
    UnitDimension dimension;
    for (UnitFactors factors(unit, names); const auto factor = factors.Next();) {
        const int exponent = WholeExponent(factor->text);
        if (factor->id == 0 || exponent == 0)
            return std::nullopt;
        (IsLength(factor->id) ? dimension.length : dimension.force) +=
            factor->isDivisor ? -exponent : exponent;
    }
    return dimension;
}

double SizeOf(std::string_view unit, UnitNames names) {
    double size = 1;
    for (UnitFactors factors(unit, names); const auto factor = factors.Next();) {
        const Unit* known = FindUnit(factor->id);
        const double part = known == nullptr ? 1 : std::pow(known->size, factor->exponent);
        size = factor->isDivisor ? size / part : size * part;
    }
    return size;
}

std::string LabelOf(std::string_view unit, const UnitChoice& choice) {
    struct Special {
        std::string_view unit, label;
    };
    constexpr std::array Specials{Special{"", ""},       Special{"NUMBER", ""},
                                  Special{"TEXT", ""},   Special{"DEGREE", "deg"},
                                  Special{"DEG", "deg"}, Special{"RADIAN", "rad"}};
    for (const Special& special : Specials)
        if (EqualNoCase(special.unit, unit))
            return std::string(special.label);
    std::string label;
    for (UnitFactors factors(unit); const auto factor = factors.Next();) {
        const std::string_view name = NameIn(factor->text);
        label += factor->isDivisor ? '/' : '.';
        label += factor->id == 0 ? name : ChosenLabel(factor->id, choice);
        label += factor->text.substr(name.size());
    }
    return label.substr(1);
}

} // namespace dbsection
