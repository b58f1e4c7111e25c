// Rolled tees.
#include "geometry/FlangedShape.h"

#include <cmath>

namespace dbsection {
namespace {

/// The warping constant of a flange about its middle: a rectangle, or as thick at its tips as a
/// tapered one is there.
double FlangeWarping(const FlangedShape& flanged) {
    const double root = flanged.flange + flanged.taper;
    const double change = -2 * flanged.taper;
    const double cubes = std::pow(root, 3) / 3 + 3 * root * root * change / 4 +
                         3 * root * change * change / 5 + std::pow(change, 3) / 6;
    return std::pow(flanged.width, 3) * cubes / 48;
}

/// The flange's outer face lies at the depth. Warping constant of a flange and a web that meet
/// (AISC Design Guide 9, 2003, for rectangles).
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
    figures["IX"] = flanged.TorsionConstantSlopedI(radius.value);
    figures["CW"] = FlangeWarping(flanged) +
                    std::pow((flanged.depth - flanged.flange / 2) * flanged.web, 3) / 36;
    figures["CY"] = flanged.depth - outline.MajorAxis().centroid;
    return {outline, figures, radius.Assumed(), Point{0, flanged.depth - flanged.flange / 2}};
}

constexpr ComputedColumn TeeTorsion = Torsion(0.05, JunctionFit);
constexpr ComputedColumn TeeWarping = Warping(0.1, "a flange and a web that meet");

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
