// Hollow sections.
#include "geometry/ModelParts.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace dbsection {
namespace {

using std::numbers::pi;

/// A rectangular hollow section. The radii of its corners are given as they are, or as multiples of
/// the wall thickness.
struct HollowShape {
    double depth;
    double width;
    double wall;
    double outside;
    double inside;

    HollowShape(const Figures& section, const Figures& parameters)
        : depth(Dimension(section, "D")),
          width(Dimension(section, "B")),
          wall(Dimension(section, "T")),
          outside(Radius(parameters, "outside", "outsideRadius", wall)),
          inside(Radius(parameters, "inside", "insideRadius", wall)) {
        Require(2 * std::max(outside, wall) < std::min(depth, width),
                "the corners (T) do not fit into the width (B) and depth (D)");
    }

    static double Radius(const Figures& parameters, const char* share, const char* radius,
                         double wall) {
        const auto given = parameters.find(radius);
        return given == parameters.end() ? Value(parameters, share) * wall : given->second;
    }

    // Length of the middle of the wall, and the area that it encloses.
    double Length() const { return 2 * (width + depth - 2 * wall) - (4 - pi) * (outside + inside); }
    double Enclosed() const {
        return (width - wall) * (depth - wall) - (4 - pi) * std::pow((outside + inside) / 2, 2);
    }
};

/// Torsion constant by Bredt's formula, IX = 4 Ap^2 T / p.
SectionGeometry RectangularTube(const Figures& section, const Figures& parameters) {
    const HollowShape tube(section, parameters);
    Outline outline(RectangleCorners(tube.width, tube.depth, tube.outside));
    outline.Cut(
        RectangleCorners(tube.width - 2 * tube.wall, tube.depth - 2 * tube.wall, tube.inside));
    RequireMass(outline, parameters);
    Figures figures = PlaneFigures(outline);
    figures["IX"] = 4 * std::pow(tube.Enclosed(), 2) * tube.wall / tube.Length();
    return {outline, figures, std::nullopt, Point{}};
}

/// The same with the torsion constant of EN 10210-2 and EN 10219-2, which count the wall itself,
/// too: p T^3 / 3 more.
SectionGeometry EuropeanTube(const Figures& section, const Figures& parameters) {
    const HollowShape tube(section, parameters);
    SectionGeometry geometry = RectangularTube(section, parameters);
    geometry.figures["IX"] += tube.Length() * std::pow(tube.wall, 3) / 3;
    return geometry;
}

/// The same where the area tells the corners, whose inside radius is that outside less the wall.
SectionGeometry TubeByArea(const Figures& section, const Figures& parameters) {
    const double wall = Dimension(section, "T");
    const double depth = Dimension(section, "D");
    const double width = Dimension(section, "B");
    const double largest = std::min(depth, width) / 2;
    Require(wall < largest, "the walls (T) fill the whole width (B) or depth (D)");
    const double square = depth * width - (depth - 2 * wall) * (width - 2 * wall);
    const double lost = std::max(0.0, square - Dimension(section, "AX")) / (4 - pi);
    const double radius = lost < wall * wall ? std::sqrt(lost) : (lost + wall * wall) / (2 * wall);
    Figures radii = parameters;
    radii["outsideRadius"] = std::min(radius, std::nextafter(largest, 0));
    radii["insideRadius"] = std::max(radii["outsideRadius"] - wall, 0.0);
    SectionGeometry geometry = RectangularTube(section, radii);
    geometry.assumedRadius = radii["outsideRadius"];
    return geometry;
}

Corners Circle(double diameter) { return RectangleCorners(diameter, diameter, diameter / 2); }

SectionGeometry RoundTube(const Figures& section, const Figures& parameters) {
    const double outside = Dimension(section, "OD");
    const double inside = outside - 2 * Dimension(section, "T");
    Require(inside > 0, "the wall (T) fills the whole diameter (OD)");
    Outline outline(Circle(outside));
    outline.Cut(Circle(inside));
    RequireMass(outline, parameters);
    return {outline,
            {{"AX", pi / 4 * (std::pow(outside, 2) - std::pow(inside, 2))},
             {"I", pi / 64 * (std::pow(outside, 4) - std::pow(inside, 4))},
             {"Z", (std::pow(outside, 3) - std::pow(inside, 3)) / 6}},
            std::nullopt,
            Point{}};
}

constexpr std::array RectangularInputs{"D", "B", "T"};
constexpr std::array AreaInputs{"AX", "D", "B", "T"};
constexpr std::array RoundInputs{"OD", "T"};
constexpr std::array CornerParameters{
    GeometryParameter{"outside", Quantity::Number, "outside radius of the corners / wall", true},
    GeometryParameter{"inside", Quantity::Number, "inside radius of the corners / wall", true},
    MassParameter, MassWithinParameter};
constexpr std::array MassParameters{MassParameter, MassWithinParameter};
constexpr std::array RadiusParameters{
    GeometryParameter{"outsideRadius", Quantity::Length, "of the corners", true},
    GeometryParameter{"insideRadius", Quantity::Length, "of the corners", true}};

constexpr auto RectangularColumns =
    PlaneColumns(Torsion(0.1, "Bredt's formula, without the wall's own torsion"));
constexpr auto EuropeanColumns =
    PlaneColumns(Torsion(0.05, "Bredt's formula and the wall's own torsion"));
constexpr auto ByAreaColumns =
    PlaneColumns<ByArea>(Torsion(0.1, "Bredt's formula, without the wall's own torsion"));
constexpr std::array RoundColumns{Exact("AX"), Exact("I"), Exact("Z")};

constexpr std::array Models{
    GeometryModel{"rectangular tube", LayoutId::RectangularTube, RectangularInputs,
                  CornerParameters, RectangularColumns, RectangularTube},
    GeometryModel{"European tube", LayoutId::RectangularTube, RectangularInputs, CornerParameters,
                  EuropeanColumns, EuropeanTube},
    GeometryModel{"rectangular tube by radii", LayoutId::RectangularTube, RectangularInputs,
                  RadiusParameters, RectangularColumns, RectangularTube},
    GeometryModel{"European tube by radii", LayoutId::RectangularTube, RectangularInputs,
                  RadiusParameters, EuropeanColumns, EuropeanTube},
    GeometryModel{"rectangular tube by area", LayoutId::RectangularTube, AreaInputs, MassParameters,
                  ByAreaColumns, TubeByArea},
    GeometryModel{"round tube", LayoutId::RoundTube, RoundInputs, MassParameters, RoundColumns,
                  RoundTube},
};

} // namespace

std::span<const GeometryModel> HollowModels() { return Models; }

} // namespace dbsection
