// Rolled tees.
#include "geometry/FlangedShape.h"

#include <cmath>

namespace dbsection {
namespace {

/// The flange's outer face lies at the depth. Warping constant of two rectangles that meet
/// (AISC Design Guide 9, 2003).
SectionGeometry Tee(const Figures& section, const Figures& parameters) {
    const FlangedShape flanged(section, parameters, 2, 1);
    const auto shape = [&flanged](double radius) {
        Corners right = flanged.UpperFlange(flanged.depth, flanged.web / 2, radius);
        right.insert(right.begin(), {{flanged.web / 2, 0}, 0});
        return Mirrored(right, {-1, 1});
    };
    const auto radius = FindFilletRadius(shape, section, parameters, flanged.LargestFillet());
    const Outline outline(shape(radius.value));
    RequireMass(outline, parameters);
    Figures figures = PlaneFigures(outline);
    figures["IX"] = flanged.TorsionConstantI(radius.value);
    figures["CW"] = std::pow(flanged.width * flanged.flange, 3) / 144 +
                    std::pow((flanged.depth - flanged.flange / 2) * flanged.web, 3) / 36;
    figures["CY"] = flanged.depth - outline.MajorAxis().centroid;
    return {outline, figures, radius.Assumed(), Point{0, flanged.depth - flanged.flange / 2}};
}

constexpr ComputedColumn TeeTorsion = Torsion(0.05, JunctionFit);
constexpr ComputedColumn TeeWarping = Warping(0.1, "two rectangles that meet");

constexpr auto RolledColumns = PlaneColumns<ByArea>(ByArea("CY"), TeeTorsion, TeeWarping);
constexpr auto GivenColumns = PlaneColumns(Exact("CY"), TeeTorsion, TeeWarping);

constexpr std::array Models{
    GeometryModel{"rolled tee", LayoutId::Tee, RolledInputs, RolledParameters, RolledColumns, Tee},
    GeometryModel{"parallel tee", LayoutId::Tee, FlangedInputs, ParallelParameters, GivenColumns,
                  Tee},
    GeometryModel{"tapered tee", LayoutId::Tee, FlangedInputs, TaperedParameters, GivenColumns,
                  Tee},
};

} // namespace

std::span<const GeometryModel> TeeModels() { return Models; }

} // namespace dbsection
