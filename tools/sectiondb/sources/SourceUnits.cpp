#include "sources/SourceUnits.h"

#include "units/UNIT.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <string_view>

namespace dbsection {

namespace {

constexpr unsigned int Millimetre = 1004;
constexpr unsigned int Newton = 2005;

struct Dimension {
    int force = 0;
    int length = 0;

    bool operator==(const Dimension&) const = default;
};

std::optional<Dimension> DimensionOf(Quantity quantity) {
    switch (quantity) {
    case Quantity::Length:
        return Dimension{0, 1};
    case Quantity::Area:
        return Dimension{0, 2};
    case Quantity::Modulus:
        return Dimension{0, 3};
    case Quantity::Inertia:
        return Dimension{0, 4};
    case Quantity::Warping:
        return Dimension{0, 6};
    case Quantity::Stress:
        return Dimension{1, -2};
    case Quantity::WeightPerLength:
        return Dimension{1, -1};
    default:
        return std::nullopt;
    }
}

/// The dimension of one factor such as "INCHES^2", or null.
std::optional<Dimension> DimensionOfFactor(std::string_view factor) {
    const std::size_t caret = factor.find('^');
    int power = 1;
    if (caret != std::string_view::npos) {
        const char* const end = factor.data() + factor.size();
        const auto [rest, fault] = std::from_chars(factor.data() + caret + 1, end, power);
        if (fault != std::errc() || rest != end || power < 1)
            return std::nullopt;
    }
    const unsigned int id = UNIT::StringToId(std::string(factor.substr(0, caret)).c_str());
    if (id == 0)
        return std::nullopt;
    return id < 2000 ? Dimension{0, power} : Dimension{power, 0};
}

/// The dimension of factors joined by "/" and ".", or null.
std::optional<Dimension> DimensionOf(std::string_view unit) {
    if (unit == "KSI" || unit == "PSI")
        return Dimension{1, -2};
    Dimension whole;
    for (int sign = 1; true;) {
        const std::size_t end = unit.find_first_of("/.");
        const std::optional<Dimension> factor = DimensionOfFactor(unit.substr(0, end));
        if (!factor)
            return std::nullopt;
        whole.force += sign * factor->force;
        whole.length += sign * factor->length;
        if (end == std::string_view::npos)
            return whole;
        sign = unit[end] == '/' ? -1 : 1;
        unit.remove_prefix(end + 1);
    }
}

const char* UnitWithoutDimension(Quantity quantity) {
    return quantity == Quantity::Text ? "TEXT" : quantity == Quantity::Angle ? "DEGREE" : "NUMBER";
}

std::string Describe(const Dimension& dimension) {
    if (dimension.force != 0)
        return dimension.length == -1 ? "force / length" : "force / length^2";
    return dimension.length == 1 ? "length" : "length^" + std::to_string(dimension.length);
}

} // namespace

std::string UnitFault(const std::string& unit, Quantity quantity) {
    const std::optional<Dimension> expected = DimensionOf(quantity);
    if (!expected) {
        const std::string only = UnitWithoutDimension(quantity);
        return unit == only ? "" : "the unit of this column is " + only;
    }
    const std::optional<Dimension> dimension = DimensionOf(unit);
    if (!dimension)
        return "not a known unit";
    return *dimension == *expected ? "" : "not a unit of " + Describe(*expected);
}

double UnitFactor(const std::string& unit) {
    return UNIT::ConvertUnitTo(1.0, unit.c_str(), Newton, Millimetre);
}

std::string UnitOf(Quantity quantity, const std::string& length) {
    const std::optional<Dimension> dimension = DimensionOf(quantity);
    if (!dimension)
        return UnitWithoutDimension(quantity);
    return dimension->length == 1 ? length : length + "^" + std::to_string(dimension->length);
}

const UnitSystem* FindUnitSystem(const std::string& name) {
    static constexpr std::array Systems{
        UnitSystem{"metric", "MM", "CM", "N/MM^2", "KG/M"},
        UnitSystem{"US", "INCHES", "INCHES", "KIPS/INCHES^2", "POUND/FEET"}};
    const auto place = std::ranges::find(Systems, name, &UnitSystem::name);
    return place == Systems.end() ? nullptr : &*place;
}

std::string UnitOf(Quantity quantity, const UnitSystem& system) {
    switch (quantity) {
    case Quantity::Stress:
        return system.stress;
    case Quantity::WeightPerLength:
        return system.weight;
    default:
        return UnitOf(quantity, quantity == Quantity::Length ? system.length : system.power);
    }
}

bool IsPowerOfLength(Quantity quantity) {
    const std::optional<Dimension> dimension = DimensionOf(quantity);
    return dimension && dimension->force == 0;
}

} // namespace dbsection
