// What the geometry models are made of.
#pragma once

#include "geometry/Geometry.h"

#include <array>

namespace dbsection {

void Require(bool possible, const char* otherwise);

/// A figure that must be there, and one that must be above zero.
double Value(const Figures& figures, std::string_view name);
double Dimension(const Figures& section, std::string_view column);

/// A parameter that not every model of a shape has.
double ValueOr(const Figures& parameters, std::string_view name, double otherwise);

/// The radius of the fillets of a rolled shape.
struct FilletRadius {
    double value;
    bool isAssumed; ///< from the area

    std::optional<double> Assumed() const {
        return isAssumed ? std::optional(value) : std::nullopt;
    }
};

/// The radius that gives the shape an area, from 0 (`sharp`) to the largest (`full`): what fillets
/// and rounded toes add to the area grows with the square of the radius.
FilletRadius RadiusByArea(double area, double sharp, double full, double largest);

/// The parameter "radius", or else the radius that gives the shape its published area. `shape`
/// gives the outline with fillets of a radius, `largest` is what it has room for beside toes as
/// large.
template <class Shape>
FilletRadius FindFilletRadius(const Shape& shape, const Figures& section, const Figures& parameters,
                              double largest) {
    const double given = ValueOr(parameters, "radius", -1);
    if (given >= 0) {
        Require(given <= 2 * largest, "the fillets (radius) do not fit into the section");
        return {given, false};
    }
    return RadiusByArea(Dimension(section, "AX"), Outline(shape(0)).Area(),
                        Outline(shape(largest)).Area(), largest);
}

/// A row without published properties is checked by its weight per length ("mass"); "massWithin" is
/// how far it may be off, as a share of it.
void RequireMass(const Outline& outline, const Figures& parameters);

/// The outline's figures that every layout with plastic moduli has.
Figures PlaneFigures(const Outline& outline);

/// A column that the outline tells, to the last digit.
constexpr ComputedColumn Exact(const char* column) {
    return {column, 0, "the exact property of the outline"};
}

/// The same where the area tells the radius of the fillets.
constexpr ComputedColumn ByArea(const char* column) {
    return {column, 0.01, "the property of the outline, whose fillets follow from its area"};
}

/// The torsion constant. How far it may be off is what solutions of Saint-Venant's problem by
/// finite differences told of published sections, small and large, of every standard that the model
/// fits.
constexpr ComputedColumn Torsion(double within, const char* basis) { return {"IX", within, basis}; }

inline constexpr const char* JunctionFit = "thin rectangles, and El Darwish and Johnston's fit of "
                                           "junctions and ends";

/// The warping constant, which is nowhere known better than by the theory of thin walls: published
/// ones differ as much.
constexpr ComputedColumn Warping(double within, const char* basis) { return {"CW", within, basis}; }

/// The columns that PlaneFigures gives, and others behind them.
template <ComputedColumn (*Worth)(const char*) = Exact, class... Columns>
constexpr std::array<ComputedColumn, 5 + sizeof...(Columns)> PlaneColumns(Columns... others) {
    return {Worth("AX"), Worth("IZ"), Worth("IY"), Worth("ZZ"), Worth("ZY"), others...};
}

/// The models of each subject, in the order in which GetGeometryModels gives them.
std::span<const GeometryModel> IShapeModels();
std::span<const GeometryModel> ChannelModels();
std::span<const GeometryModel> TeeModels();
std::span<const GeometryModel> WeldedModels();
std::span<const GeometryModel> AngleModels();
std::span<const GeometryModel> HollowModels();
std::span<const GeometryModel> SolidModels();
std::span<const GeometryModel> ColdFormedModels();

inline constexpr std::array Subjects{IShapeModels, ChannelModels, TeeModels,   WeldedModels,
                                     AngleModels,  HollowModels,  SolidModels, ColdFormedModels};

// Parameters that models of several subjects have.
inline constexpr GeometryParameter RadiusParameter{"radius", Quantity::Length,
                                                   "radius of the fillets", true};
inline constexpr GeometryParameter ToeParameter{
    "toe", Quantity::Number, "radius of the toes / radius of the fillets, or else 0"};
inline constexpr GeometryParameter MassParameter{
    "mass", Quantity::WeightPerLength,
    "that of steel, by which a row is checked where it is given"};
inline constexpr GeometryParameter MassWithinParameter{
    "massWithin", Quantity::Number, "how far the mass may be off, as a share, or else 0.01"};

} // namespace dbsection
