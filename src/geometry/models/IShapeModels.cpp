// Rolled I shapes, and the castellated beams that are cut from them.
#include "geometry/FlangedShape.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace dbsection {
namespace {

/// Warping constant from the flanges' distance, CW = I (D - TF)^2 / 4. I is the flanges' moment of
/// inertia and a share ("rest") of that of web and fillets: EN 10365 counts the flanges alone.
template <FlangedTorsion Torsion>
SectionGeometry IShape(const Figures& section, const Figures& parameters) {
    const FlangedShape flanged(section, parameters, 2);
    const auto shape = [&flanged](double radius) {
        return Mirrored(
            Mirrored(flanged.UpperFlange(flanged.depth / 2, flanged.web / 2, radius), {-1, 1}),
            {1, -1});
    };
    const auto radius = FindFilletRadius(shape, section, parameters, flanged.LargestFillet());
    const Outline outline(shape(radius.value));
    RequireMass(outline, parameters);
    Figures figures = PlaneFigures(outline);
    const double between = flanged.depth - flanged.flange;
    figures["IX"] = (flanged.*Torsion)(radius.value);
    const double flanges = flanged.flange * std::pow(flanged.width, 3) / 6;
    const double inertia = flanges + ValueOr(parameters, "rest", 1) * (figures["IY"] - flanges);
    figures["CW"] = inertia * between * between / 4;
    return {outline, figures, radius.Assumed(), Point{}};
}

/// The tee over an opening, and its image below. The corners of the openings are sharp: they are
/// six-cornered, and as long at their upper and lower edge (E) as the web posts between them.
SectionGeometry Castellated(const Figures& section, const Figures& parameters) {
    const FlangedShape flanged(section, parameters, 2);
    const double opening = Dimension(section, "HO");
    const double post = Dimension(section, "E");
    const double cut = Value(section, "THETA") * std::numbers::pi / 180;
    const double radius = ValueOr(parameters, "radius", 0);
    const double tee = (flanged.depth - opening) / 2;
    Require(cut > 0 && cut <= std::numbers::pi / 2, "the angle of the cut (THETA) is impossible");
    Require(radius <= flanged.outstand, "the fillets (radius) do not fit under the flange (BF)");
    Require(flanged.flange + radius < tee,
            "the openings (HO) leave no web under the flange and its fillets");
    Corners right = flanged.UpperFlange(flanged.depth / 2, flanged.web / 2, radius);
    right.insert(right.begin(), {{flanged.web / 2, opening / 2}, 0});
    Corners upper = Mirrored(right, {-1, 1});
    Outline outline(upper);
    for (Corner& corner : upper)
        corner.at = {-corner.at.z, -corner.at.y};
    outline.Add(upper);
    return {outline,
            {{"AX", outline.Area()},
             {"IZ", outline.MajorAxis().inertia},
             {"IY", outline.MinorAxis().inertia},
             {"DT", tee},
             {"S", 2 * post + opening / std::tan(cut)}},
            std::nullopt,
            Point{}};
}

constexpr GeometryParameter Rest{"rest", Quantity::Number,
                                 "share of web and fillets in the warping constant, or else 1"};
constexpr std::array ParallelIParameters{RadiusParameter, Rest};

constexpr std::array CastellatedInputs{"D", "BF", "TF", "TW", "HO", "E", "THETA"};
constexpr std::array CastellatedParameters{
    GeometryParameter{"radius", Quantity::Length, "radius of the fillets, or else 0"}};

constexpr ComputedColumn FlangeWarping = Warping(0.02, "flanges that turn as a whole");
// The fit is made for fillets no larger than the flange is thick, where it is within 0.02.
constexpr ComputedColumn ParallelTorsion = Torsion(0.11, JunctionFit);

constexpr auto RolledColumns = PlaneColumns<ByArea>(ParallelTorsion, FlangeWarping);
constexpr auto ParallelColumns = PlaneColumns(ParallelTorsion, FlangeWarping);
constexpr auto TaperedColumns = PlaneColumns(Torsion(0.07, JunctionFit), FlangeWarping);
constexpr auto SlopedColumns = PlaneColumns(Torsion(0.05, JunctionFit), FlangeWarping);
constexpr std::array CastellatedColumns{Exact("AX"), Exact("IZ"), Exact("IY"), Exact("DT"),
                                        Exact("S")};

constexpr std::array Models{
    GeometryModel{"rolled I", LayoutId::IShape, RolledInputs, RolledParameters, RolledColumns,
                  IShape<&FlangedShape::TorsionConstantI>},
    GeometryModel{"parallel I", LayoutId::IShape, FlangedInputs, ParallelIParameters,
                  ParallelColumns, IShape<&FlangedShape::TorsionConstantI>},
    GeometryModel{"tapered I", LayoutId::IShape, FlangedInputs, TaperedParameters, TaperedColumns,
                  IShape<&FlangedShape::TorsionConstantI>},
    GeometryModel{"sloped I", LayoutId::IShape, FlangedInputs, TaperedParameters, SlopedColumns,
                  IShape<&FlangedShape::TorsionConstantSlopedI>},
    GeometryModel{"castellated", LayoutId::Castellated, CastellatedInputs, CastellatedParameters,
                  CastellatedColumns, Castellated},
};

} // namespace

std::span<const GeometryModel> IShapeModels() { return Models; }

} // namespace dbsection
