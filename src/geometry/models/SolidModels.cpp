// Bars: rectangles, rounds, and bulb flats.
#include "geometry/ModelParts.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace dbsection {
namespace {

using std::numbers::pi;

/// Torsion constant of a rectangle: Saint-Venant's series (Timoshenko and Goodier, Theory of
/// Elasticity, 1970, article 109).
double RectangleTorsion(double width, double depth) {
    const double a = std::max(width, depth);
    const double b = std::min(width, depth);
    double sum = 0;
    for (int n = 1; n < 40; n += 2)
        sum += std::tanh(n * pi * a / (2 * b)) / std::pow(n, 5);
    return a * std::pow(b, 3) / 3 * (1 - 192 * b / (std::pow(pi, 5) * a) * sum);
}

SectionGeometry Rectangle(const Figures& section, const Figures&) {
    const double depth = Dimension(section, "D");
    const double width = Dimension(section, "B");
    const Outline outline(RectangleCorners(width, depth));
    return {outline,
            {{"AX", width * depth},
             {"IZ", width * std::pow(depth, 3) / 12},
             {"IY", depth * std::pow(width, 3) / 12},
             {"IX", RectangleTorsion(width, depth)}},
            std::nullopt,
            Point{}};
}

/// A piece of lumber, whose nominal depth and width in inches tell the dressed ones: half an inch
/// less, from 8 in. on three quarters.
SectionGeometry DressedLumber(const Figures& section, const Figures& parameters) {
    constexpr double Inch = 25.4;
    const auto matches = [&](const char* column, const char* parameter) {
        const double nominal = Value(parameters, parameter);
        const double dressed = nominal - (nominal < 7 ? 0.5 : 0.75);
        return std::abs(Dimension(section, column) - dressed * Inch) < 0.01;
    };
    Require(matches("D", "nominalDepth"), "the depth (D) is not that of the nominal one");
    Require(matches("B", "nominalWidth"), "the width (B) is not that of the nominal one");
    return Rectangle(section, parameters);
}

SectionGeometry RoundBar(const Figures& section, const Figures&) {
    const double diameter = Dimension(section, "D");
    const Outline outline(RectangleCorners(diameter, diameter, diameter / 2));
    return {outline,
            {{"AX", pi / 4 * diameter * diameter}, {"I", pi / 64 * std::pow(diameter, 4)}},
            std::nullopt,
            Point{}};
}

/// A flat with a bulb on one side of its upper edge (EN 10067). The bulb's lower side rises from
/// the web at 30 degrees, and meets the upper edge in an arc; the same radius rounds it off at the
/// web.
SectionGeometry BulbFlat(const Figures& section, const Figures&) {
    constexpr double Rise = pi / 6;
    const double depth = Dimension(section, "D");
    const double web = Dimension(section, "T");
    const double bulb = Dimension(section, "C");
    const double radius = Dimension(section, "R");
    const double apex = web + bulb - radius + radius / std::tan(Rise / 2);
    const double atWeb = depth - (apex - web) * std::tan(Rise);
    Require(radius < bulb, "the bulb (C) is narrower than its radius (R)");
    Require(atWeb > radius, "the bulb (C) does not fit into the depth (D)");
    const Outline outline(Corners{{{0, 0}, 0},
                                  {{web, 0}, 0},
                                  {{web, atWeb}, radius},
                                  {{apex, depth}, radius},
                                  {{0, depth}, 0}});
    const AxisProperties major = outline.MajorAxis();
    return {outline, {{"AX", outline.Area()}, {"IZ", major.inertia}, {"CY", major.centroid}}};
}

constexpr std::array RectangleInputs{"D", "B"};
constexpr std::array NominalParameters{
    GeometryParameter{"nominalDepth", Quantity::Number, "in inches", true},
    GeometryParameter{"nominalWidth", Quantity::Number, "in inches", true}};
constexpr std::array RoundInputs{"D"};
constexpr std::array BulbInputs{"D", "T", "C", "R"};

constexpr std::array RectangleColumns{Exact("AX"), Exact("IZ"), Exact("IY"), Exact("IX")};
constexpr std::array RoundColumns{Exact("AX"), Exact("I")};
constexpr std::array BulbColumns{Exact("AX"), Exact("IZ"), Exact("CY")};

constexpr std::array Models{
    GeometryModel{
        "rectangle", LayoutId::Rectangle, RectangleInputs, {}, RectangleColumns, Rectangle},
    GeometryModel{"timber", LayoutId::Timber, RectangleInputs, {}, RectangleColumns, Rectangle},
    GeometryModel{"dressed lumber", LayoutId::Timber, RectangleInputs, NominalParameters,
                  RectangleColumns, DressedLumber},
    GeometryModel{"round bar", LayoutId::RoundBar, RoundInputs, {}, RoundColumns, RoundBar},
    GeometryModel{"bulb flat", LayoutId::BulbFlat, BulbInputs, {}, BulbColumns, BulbFlat},
};

} // namespace

std::span<const GeometryModel> SolidModels() { return Models; }

} // namespace dbsection
