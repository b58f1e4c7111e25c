#include "units/UNIT.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

const double UNIT::LengthConversionArray[8][8] = {
    {1.0, 0.083333333, 0.027777778, 25.4, 2.54, 0.254, 0.0254, 2.54e-05},
    {12.0, 1.0, 0.333333333, 304.8, 30.48, 3.048, 0.3048, 0.0003048},
    {36.0, 3.0, 1.0, 914.4, 91.44, 9.144, 0.9144, 0.0009144},
    {0.03937008, 0.00328084, 0.001093613, 1.0, 0.1, 0.01, 0.001, 1e-06},
    {0.3937008, 0.032808399, 0.010936133, 10.0, 1.0, 0.1, 0.01, 1e-05},
    {3.937008, 0.32808399, 0.10936133, 100.0, 10.0, 1.0, 0.1, 0.0001},
    {39.37008, 3.280839895, 1.093613298, 1000.0, 100.0, 10.0, 1.0, 0.001},
    {39370.08, 3280.839895, 1093.613298, 1000000.0, 100000.0, 10000.0, 1000.0, 1.0},
};

const double UNIT::ForceConversionArray[8][8] = {
    {1.0, 1000.0, 453.5922922, 0.453592292, 4448.222468, 444.8222468, 4.448222468, 0.004448222},
    {0.001, 1.0, 0.453592292, 0.000453592, 4.448222468, 0.444822247, 0.004448222, 4.44822e-06},
    {0.002204623, 2.204623, 1.0, 0.001, 9.80665, 0.980665, 0.00980665, 9.80665e-06},
    {2.204623, 2204.623, 1000.0, 1.0, 9806.65, 980.665, 9.80665, 0.00980665},
    {0.000224809, 0.224808924, 0.101971621, 0.000101972, 1.0, 0.1, 0.001, 1e-06},
    {0.002248089, 2.248089237, 1.019716213, 0.001019716, 10.0, 1.0, 0.01, 1e-05},
    {0.224808924, 224.8089237, 101.9716213, 0.101971621, 1000.0, 100.0, 1.0, 0.001},
    {224.8089237, 224808.9237, 101971.6213, 101.9716213, 1000000.0, 100000.0, 1000.0, 1.0},
};

namespace {

constexpr unsigned int FirstLength = 1001;
constexpr unsigned int FirstForce = 2001;
constexpr unsigned int UnitsOfAKind = 8;

struct UnitName {
    std::string_view name;
    unsigned int id;
};

constexpr std::array UnitNames{
    UnitName{"INCHES", 1001}, UnitName{"IN", 1001},    UnitName{"FEET", 1002},
    UnitName{"FT", 1002},     UnitName{"YARD", 1003},  UnitName{"YD", 1003},
    UnitName{"MMS", 1004},    UnitName{"MM", 1004},    UnitName{"CM", 1005},
    UnitName{"DME", 1006},    UnitName{"DM", 1006},    UnitName{"METER", 1007},
    UnitName{"M", 1007},      UnitName{"KM", 1008},    UnitName{"KIP", 2001},
    UnitName{"KIPS", 2001},   UnitName{"POUND", 2002}, UnitName{"LB", 2002},
    UnitName{"KG", 2003},     UnitName{"MTON", 2004},  UnitName{"TON", 2004},
    UnitName{"T", 2004},      UnitName{"MT", 2004},    UnitName{"NEWTON", 2005},
    UnitName{"N", 2005},      UnitName{"DNS", 2006},   UnitName{"KNS", 2007},
    UnitName{"MNS", 2008},
};

/// Texts that are not converted, in the spellings that count.
constexpr std::array<std::string_view, 12> Unconverted{"NUMBER", "number", "Number", "DEG",
                                                       "deg",    "Deg",    "DEGREE", "degree",
                                                       "Degree", "RADIAN", "radian", "Radian"};

bool IsOneOf(std::string_view text, std::string_view upper, std::string_view lower,
             std::string_view mixed) {
    return text == upper || text == lower || text == mixed;
}

unsigned int IdOf(std::string_view unit) {
    const std::string_view name = unit.substr(0, unit.find('^'));
    const auto matches = [name](const UnitName& entry) {
        return dbsection::EqualNoCase(entry.name, name);
    };
    const auto place = std::ranges::find_if(UnitNames, matches);
    return place == UnitNames.end() ? 0 : place->id;
}

double ExponentOf(std::string_view unit) {
    const std::size_t caret = unit.find('^');
    return caret == std::string_view::npos
               ? 1.0
               : dbsection::LeadingNumber<double>(unit.substr(caret + 1));
}

bool IsOfKind(unsigned int id, unsigned int first) {
    return id >= first && id < first + UnitsOfAKind;
}

double Power(double factor, double exponent) {
    return exponent == 1.0 ? factor : std::pow(factor, exponent);
}

double Factor(const double (&table)[UnitsOfAKind][UnitsOfAKind], unsigned int first,
              unsigned int from, unsigned int to, double exponent) {
    if (!IsOfKind(from, first) || !IsOfKind(to, first))
        return 1.0;
    return Power(table[from - first][to - first], exponent);
}

/// The conversion factor of one unit name with its exponent.
double FactorOf(std::string_view unit, unsigned int forceUnit, unsigned int lengthUnit) {
    const unsigned int id = IdOf(unit);
    if (IsOfKind(id, FirstLength))
        return UNIT::LengthConvertTo(1.0, id, lengthUnit, ExponentOf(unit));
    if (IsOfKind(id, FirstForce))
        return UNIT::ForceConvertTo(1.0, id, forceUnit, ExponentOf(unit));
    return 1.0;
}

double CompoundFactor(std::string_view unit, unsigned int forceUnit, unsigned int lengthUnit) {
    double factor = 1.0;
    char separator = '.';
    while (true) {
        const std::size_t end = std::min(unit.find_first_of("/."), unit.size());
        const double part = FactorOf(unit.substr(0, end), forceUnit, lengthUnit);
        factor = separator == '/' ? factor / part : factor * part;
        if (end == unit.size())
            return factor;
        separator = unit[end];
        unit.remove_prefix(end + 1);
    }
}

} // namespace

unsigned int UNIT::StringToId(const CString& name) { return IdOf(name.View()); }

double UNIT::GetExponent(const CString& unit) { return ExponentOf(unit.View()); }

double UNIT::LengthConvertTo(const double& value, unsigned int from, unsigned int to,
                             double exponent) {
    return value * Factor(LengthConversionArray, FirstLength, from, to, exponent);
}

double UNIT::ForceConvertTo(const double& value, unsigned int from, unsigned int to,
                            double exponent) {
    return value * Factor(ForceConversionArray, FirstForce, from, to, exponent);
}

double UNIT::ConvertUnitTo(const double& value, const CString& unit, unsigned int forceUnit,
                           unsigned int lengthUnit) {
    std::string_view text = unit.View();
    if (std::ranges::find(Unconverted, text) != Unconverted.end())
        return value;
    if (IsOneOf(text, "TEXT", "text", "Text"))
        return 0.0;
    if (IsOneOf(text, "KSI", "ksi", "Ksi"))
        text = "KIPS/INCHES^2";
    else if (IsOneOf(text, "PSI", "psi", "Psi"))
        text = "POUND/INCHES^2";
    return CompoundFactor(text, forceUnit, lengthUnit) * value;
}
