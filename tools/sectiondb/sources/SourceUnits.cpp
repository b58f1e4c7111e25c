#include "sources/SourceUnits.h"

#include <algorithm>
#include <array>
#include <optional>

namespace dbsection {

namespace {

std::optional<UnitDimension> DimensionOf(Quantity quantity) {
    switch (quantity) {
    case Quantity::Length:
        return UnitDimension{1};
    case Quantity::Area:
        return UnitDimension{2};
    case Quantity::Modulus:
        return UnitDimension{3};
    case Quantity::Inertia:
        return UnitDimension{4};
    case Quantity::Warping:
        return UnitDimension{6};
    case Quantity::Stress:
        return UnitDimension{-2, 1};
    case Quantity::WeightPerLength:
        return UnitDimension{-1, 1};
    default:
        return std::nullopt;
    }
}

const char* UnitWithoutDimension(Quantity quantity) {
    return quantity == Quantity::Text ? "TEXT" : quantity == Quantity::Angle ? "DEGREE" : "NUMBER";
}

std::string Describe(const UnitDimension& dimension) {
    if (dimension.force != 0)
        return dimension.length == -1 ? "force / length" : "force / length^2";
    return dimension.length == 1 ? "length" : "length^" + std::to_string(dimension.length);
}

/// A length raised to what the quantity is of lengths: "CM" gives "CM^4" for an inertia.
/// Quantities that are no power of a length: their only unit.
std::string PowerOf(Quantity quantity, const std::string& length) {
    const std::optional<UnitDimension> dimension = DimensionOf(quantity);
    if (!dimension)
        return UnitWithoutDimension(quantity);
    return dimension->length == 1 ? length : length + "^" + std::to_string(dimension->length);
}

constexpr std::array Systems{UnitSystem{"metric", "MM", "CM", "N/MM^2", "KG/M"},
                             UnitSystem{"US", "INCHES", "INCHES", "KIPS/INCHES^2", "POUND/FEET"}};

} // namespace

std::string UnitFault(const std::string& unit, Quantity quantity, UnitNames names) {
    const std::optional<UnitDimension> expected = DimensionOf(quantity);
    if (!expected) {
        const std::string only = UnitWithoutDimension(quantity);
        const bool isPrinted = names == UnitNames::Printed && unit == LabelOf(only);
        return unit == only || isPrinted ? "" : "the unit of this column is " + only;
    }
    const std::optional<UnitDimension> dimension = DimensionOf(std::string_view(unit), names);
    if (!dimension)
        return "not a known unit";
    return *dimension == *expected ? "" : "not a unit of " + Describe(*expected);
}

const UnitSystem* FindUnitSystem(const std::string& name) {
    const auto place = std::ranges::find(Systems, name, &UnitSystem::name);
    return place == Systems.end() ? nullptr : &*place;
}

const UnitSystem* FindUnitSystemOfLength(const std::string& length) {
    const auto place = std::ranges::find(Systems, length, &UnitSystem::length);
    return place == Systems.end() ? nullptr : &*place;
}

std::string UnitOf(Quantity quantity, const UnitSystem& system) {
    switch (quantity) {
    case Quantity::Stress:
        return system.stress;
    case Quantity::WeightPerLength:
        return system.weight;
    default:
        return PowerOf(quantity, quantity == Quantity::Length ? system.length : system.power);
    }
}

} // namespace dbsection
