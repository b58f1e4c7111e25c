// Unit texts: the factor is that of a plain reading of the text with exact definitions.
#include "Fuzz.h"

#include "units/UNIT.h"

#include <array>
#include <cmath>
#include <map>

namespace {

struct Unit {
    char kind;   ///< 'l' length, 'f' force
    double size; ///< in metres, or in newtons
};

constexpr double Inch = 0.0254;
constexpr double Kilogram = 9.80665;
constexpr double Pound = 0.45359237 * Kilogram;

const std::map<std::string, Unit>& Units() {
    static const std::map<std::string, Unit> units{
        {"INCHES", {'l', Inch}},
        {"IN", {'l', Inch}},
        {"FEET", {'l', 12 * Inch}},
        {"FT", {'l', 12 * Inch}},
        {"YARD", {'l', 36 * Inch}},
        {"YD", {'l', 36 * Inch}},
        {"MMS", {'l', 1e-3}},
        {"MM", {'l', 1e-3}},
        {"CM", {'l', 1e-2}},
        {"DME", {'l', 1e-1}},
        {"DM", {'l', 1e-1}},
        {"METER", {'l', 1}},
        {"M", {'l', 1}},
        {"KM", {'l', 1e3}},
        {"KIP", {'f', 1e3 * Pound}},
        {"KIPS", {'f', 1e3 * Pound}},
        {"POUND", {'f', Pound}},
        {"LB", {'f', Pound}},
        {"KG", {'f', Kilogram}},
        {"MTON", {'f', 1e3 * Kilogram}},
        {"TON", {'f', 1e3 * Kilogram}},
        {"T", {'f', 1e3 * Kilogram}},
        {"MT", {'f', 1e3 * Kilogram}},
        {"NEWTON", {'f', 1}},
        {"N", {'f', 1}},
        {"DNS", {'f', 10}},
        {"KNS", {'f', 1e3}},
        {"MNS", {'f', 1e6}},
    };
    return units;
}

constexpr std::array LengthSizes{Inch, 12 * Inch, 36 * Inch, 1e-3, 1e-2, 1e-1, 1.0, 1e3};
constexpr std::array ForceSizes{1e3 * Pound, Pound, Kilogram, 1e3 * Kilogram, 1.0, 10.0, 1e3, 1e6};

struct Factor {
    double value = 1;
    double powers = 0; ///< how often a rounded table entry is multiplied
};

Factor FactorOf(const std::string& text, double force, double length) {
    const std::size_t caret = text.find('^');
    const auto unit = Units().find(fuzz::Upper(text.substr(0, caret)));
    if (unit == Units().end())
        return {};
    const double exponent =
        caret == std::string::npos ? 1 : std::strtod(text.c_str() + caret + 1, nullptr);
    return {std::pow(unit->second.size / (unit->second.kind == 'l' ? length : force), exponent),
            std::abs(exponent)};
}

Factor Reference(std::string text, double force, double length) {
    for (const char* plain : {"NUMBER", "number", "Number", "DEG", "deg", "Deg", "DEGREE", "degree",
                              "Degree", "RADIAN", "radian", "Radian"})
        if (text == plain)
            return {};
    if (text == "TEXT" || text == "text" || text == "Text")
        return {0, 0};
    if (text == "KSI" || text == "ksi" || text == "Ksi")
        text = "KIPS/INCHES^2";
    if (text == "PSI" || text == "psi" || text == "Psi")
        text = "POUND/INCHES^2";
    Factor whole;
    char separator = '.';
    for (std::size_t begin = 0;;) {
        const std::size_t end = std::min(text.find_first_of("/.", begin), text.size());
        const Factor part = FactorOf(text.substr(begin, end - begin), force, length);
        whole.value = separator == '/' ? whole.value / part.value : whole.value * part.value;
        whole.powers += part.powers;
        if (end == text.size())
            return whole;
        separator = text[end];
        begin = end + 1;
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2)
        return 0;
    const unsigned length = data[0] % 8;
    const unsigned force = data[1] % 8;
    const std::string text(fuzz::AsText(data + 2, size - 2));
    // Exponents in hexadecimal, of infinity, or cut by a separator, are read in too many ways.
    if (text.find_first_not_of("ABCDEFGIKLMNOPRSTUXYabcdefgiklmnoprstuxy0123456789^/.-") !=
            std::string::npos ||
        text.find("^N") != std::string::npos || text.find("^n") != std::string::npos ||
        text.find("^I") != std::string::npos || text.find("^i") != std::string::npos ||
        text.find_first_of("xX") != std::string::npos)
        return 0;
    const double converted = UNIT::ConvertUnitTo(1.0, CString(text), 2001 + force, 1001 + length);
    const Factor expected = Reference(text, ForceSizes[force], LengthSizes[length]);
    constexpr double MostPowers = 100;
    constexpr double Rounding = 5e-6; // of the smallest entry of the conversion tables
    if (expected.powers > MostPowers || !std::isnormal(expected.value))
        return 0;
    fuzz::Require(std::abs(converted / expected.value - 1) <=
                      std::exp(Rounding * (expected.powers + 1)) - 1,
                  "the factor of " + text + " is " + std::to_string(expected.value) + ", not " +
                      std::to_string(converted));
    return 0;
}
