// I shapes of three plates.
#include "geometry/ModelParts.h"
#include "geometry/ThinWalls.h"

#include <cmath>

namespace dbsection {
namespace {

/// An upper and a lower flange plate on a web plate, joined by fillet welds of a leg.
struct ThreePlates {
    struct Plate {
        double width;
        double thickness;
    };

    double depth;
    double web;
    Plate upper;
    Plate lower;
    double weld;
    bool clearWeb; ///< the torsion constant counts the web between the flanges, not their middles

    ThreePlates(const Figures& section, const Figures& parameters)
        : depth(Dimension(section, "D")),
          web(Dimension(section, "TW")),
          upper{Dimension(section, "BF"), Dimension(section, "TF")},
          lower{ValueOr(parameters, "BF2", upper.width),
                ValueOr(parameters, "TF2", upper.thickness)},
          weld(ValueOr(parameters, "weld", 0)),
          clearWeb(ValueOr(parameters, "clearWeb", 0) != 0) {
        Require(web < std::min(upper.width, lower.width),
                "the web (TW) is not thinner than the flange is wide (BF)");
        Require(upper.thickness + lower.thickness < depth,
                "the flanges (TF) fill the whole depth (D)");
        Require(2 * weld + web <= std::min(upper.width, lower.width) &&
                    2 * weld <= depth - upper.thickness - lower.thickness,
                "the welds (weld) do not fit between web and flanges");
    }

    Corners Shape() const {
        const double top = depth / 2 - upper.thickness;
        const double bottom = -depth / 2 + lower.thickness;
        const double face = web / 2;
        Corners right{{{lower.width / 2, -depth / 2}}, {{lower.width / 2, bottom}}};
        // A weld cuts the corner between web and flange off.
        for (const double level : {bottom, top}) {
            const double side = level == bottom ? weld : -weld;
            Corners corner{{{face + weld, level}}, {{face, level + side}}};
            if (weld == 0)
                corner.pop_back();
            if (level == top)
                std::swap(corner.front(), corner.back());
            right.insert(right.end(), corner.begin(), corner.end());
        }
        right.push_back({{upper.width / 2, top}});
        right.push_back({{upper.width / 2, depth / 2}});
        return Mirrored(right, {-1, 1});
    }

    /// Thin rectangles; what the welds add is left out.
    double TorsionConstant() const {
        const double flanges = upper.thickness + lower.thickness;
        const double between = depth - (clearWeb ? flanges : flanges / 2);
        return (upper.width * std::pow(upper.thickness, 3) +
                lower.width * std::pow(lower.thickness, 3) + between * std::pow(web, 3)) /
               3;
    }

    // From the flanges' moments of inertia and their distance.

    double WarpingConstant() const {
        const double a = InertiaOf(upper);
        const double b = InertiaOf(lower);
        return a * b / (a + b) * BetweenFlanges() * BetweenFlanges();
    }
    Point ShearCenter() const {
        const double share = InertiaOf(upper) / (InertiaOf(upper) + InertiaOf(lower));
        return {0, (lower.thickness - depth) / 2 + BetweenFlanges() * share};
    }

private:
    static double InertiaOf(const Plate& flange) {
        return std::pow(flange.width, 3) * flange.thickness / 12;
    }
    double BetweenFlanges() const { return depth - (upper.thickness + lower.thickness) / 2; }
};

SectionGeometry WeldedI(const Figures& section, const Figures& parameters) {
    const ThreePlates plates(section, parameters);
    const Outline outline(plates.Shape());
    RequireMass(outline, parameters);
    Figures figures = PlaneFigures(outline);
    figures["IX"] = plates.TorsionConstant();
    figures["CW"] = plates.WarpingConstant();
    return {outline, figures, std::nullopt, plates.ShearCenter()};
}

constexpr std::array Inputs{"D", "BF", "TF", "TW"};

constexpr GeometryParameter Weld{"weld", Quantity::Length, "leg of the welds, or else 0"};
constexpr GeometryParameter ClearWeb{
    "clearWeb", Quantity::Number,
    "1: the torsion constant counts the web between the flanges, or else to their middles"};
constexpr std::array WeldParameters{Weld, ClearWeb, MassParameter};
constexpr std::array UnequalParameters{
    GeometryParameter{"BF2", Quantity::Length, "width of the lower flange", true},
    GeometryParameter{"TF2", Quantity::Length, "thickness of the lower flange", true}, Weld,
    ClearWeb};

constexpr auto Columns = PlaneColumns(Torsion(0.05, "thin rectangles, without welds"),
                                      Warping(0.02, "flanges that turn as a whole"));

constexpr std::array Models{
    GeometryModel{"welded I", LayoutId::IShape, Inputs, WeldParameters, Columns, WeldedI},
    GeometryModel{"unequal I", LayoutId::IShape, Inputs, UnequalParameters, Columns, WeldedI},
};

} // namespace

std::span<const GeometryModel> WeldedModels() { return Models; }

} // namespace dbsection
