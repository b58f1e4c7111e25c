// Rolled channels.
#include "geometry/FlangedShape.h"
#include "geometry/ThinWalls.h"

namespace dbsection {
namespace {

/// Warping constant along the middle lines of plates, with the shear center of thin plates and the
/// whole section's moment of inertia (Galambos, Structural Members and Frames, 1968).
double ParallelWarping(const FlangedShape& channel, const Figures& figures) {
    const double major = Value(figures, "IZ");
    const double width = channel.width - channel.web / 2;
    const double height = channel.depth - channel.flange;
    const double flange = width * channel.flange;
    const double shearCenter = flange * width / (2 * flange + height * channel.web / 3);
    return height * height * flange * width * (width - 3 * shearCenter) / 6 +
           shearCenter * shearCenter * major;
}

/// Warping constant from the whole section's area, moments of inertia and centroid (as the British
/// tables have it).
double WholeWarping(const FlangedShape& channel, const Figures& figures) {
    const double height = channel.depth - channel.flange;
    const double lever = Value(figures, "CZ") - channel.web / 2;
    const double area = Value(figures, "AX");
    return height * height / 4 *
           (Value(figures, "IY") -
            area * lever * lever * (height * height * area / (4 * Value(figures, "IZ")) - 1));
}

/// Warping constant of three plates: flanges that begin at the web's face, and the web between
/// their middle lines.
double PlateWarping(const FlangedShape& channel, const Figures& /*figures*/) {
    const double level = (channel.depth - channel.flange) / 2;
    const double middle = channel.web / 2;
    ThinWalls walls({{channel.width, level},
                     {channel.web, level},
                     {middle, level},
                     {middle, -level},
                     {channel.web, -level},
                     {channel.width, -level}});
    walls.Join(0, 1, channel.flange);
    walls.Join(1, 2, 0);
    walls.Join(2, 3, channel.web);
    walls.Join(3, 4, 0);
    walls.Join(4, 5, channel.flange);
    return walls.WarpingConstant();
}

/// The middle lines, those of flanges that slope inclined.
ThinWalls MiddleLines(const FlangedShape& channel, double slope) {
    const double taper = slope * channel.outstand / 2;
    const double atTip = channel.flange - taper;
    const double atWeb = channel.flange + taper + slope * channel.web / 2;
    const double tipLevel = (channel.depth - atTip) / 2;
    const double webLevel = (channel.depth - atWeb) / 2;
    ThinWalls walls({{channel.width, tipLevel},
                     {channel.web / 2, webLevel},
                     {channel.web / 2, -webLevel},
                     {channel.width, -tipLevel}});
    walls.Join(0, 1, atTip, atWeb);
    walls.Join(1, 2, channel.web);
    walls.Join(2, 3, atWeb, atTip);
    return walls;
}

double TaperedWarping(const FlangedShape& channel, const Figures& /*figures*/) {
    return MiddleLines(channel, channel.slope).WarpingConstant();
}

using ChannelWarping = double (*)(const FlangedShape& channel, const Figures& figures);

/// The back of the web lies on the y axis.
template <ChannelWarping Warping, FlangedTorsion Torsion = &FlangedShape::TorsionConstantChannel>
SectionGeometry Channel(const Figures& section, const Figures& parameters) {
    const FlangedShape flanged(section, parameters, 1);
    const auto shape = [&flanged](double radius) {
        Corners upper = flanged.UpperFlange(flanged.depth / 2, flanged.web, radius);
        upper.push_back({{0, flanged.depth / 2}, 0});
        return Mirrored(upper, {1, -1});
    };
    const auto radius = FindFilletRadius(shape, section, parameters, flanged.LargestFillet());
    const Outline outline(shape(radius.value));
    RequireMass(outline, parameters);
    Figures figures = PlaneFigures(outline);
    figures["IX"] = (flanged.*Torsion)(radius.value);
    figures["CZ"] = outline.MinorAxis().centroid;
    figures["CW"] = Warping(flanged, figures);
    const double slope = Warping == ParallelWarping ? 0 : flanged.slope; // as they are published
    return {outline, figures, radius.Assumed(), MiddleLines(flanged, slope).ShearCenter()};
}

constexpr ComputedColumn PlateWarpingColumn = Warping(0.02, "thin plates of even thickness");
constexpr ComputedColumn SlopedWarpingColumn =
    Warping(0.1, "thin plates, tapered or of even thickness");

constexpr auto RolledColumns = PlaneColumns<ByArea>(
    ByArea("CZ"), Torsion(0.08, JunctionFit),
    Warping(0.12, "thin plates of even thickness, and the inertia of the whole section"));
constexpr auto ParallelColumns =
    PlaneColumns(Exact("CZ"), Torsion(0.01, JunctionFit), PlateWarpingColumn);
constexpr auto TaperedColumns = // whose junctions are those of flanges of even thickness
    PlaneColumns(Exact("CZ"), Torsion(0.08, JunctionFit), SlopedWarpingColumn);
constexpr auto SlopedColumns =
    PlaneColumns(Exact("CZ"), Torsion(0.03, JunctionFit), SlopedWarpingColumn);

constexpr std::array Models{
    GeometryModel{"rolled channel", LayoutId::Channel, RolledInputs, RolledParameters,
                  RolledColumns, Channel<ParallelWarping>},
    GeometryModel{"parallel channel", LayoutId::Channel, FlangedInputs, ParallelParameters,
                  ParallelColumns, Channel<WholeWarping>},
    GeometryModel{"parallel channel of plates", LayoutId::Channel, FlangedInputs,
                  ParallelParameters, ParallelColumns, Channel<PlateWarping>},
    GeometryModel{"tapered channel", LayoutId::Channel, FlangedInputs, TaperedParameters,
                  TaperedColumns,
                  Channel<TaperedWarping, &FlangedShape::TorsionConstantNominalChannel>},
    GeometryModel{"sloped channel", LayoutId::Channel, FlangedInputs, TaperedParameters,
                  SlopedColumns,
                  Channel<TaperedWarping, &FlangedShape::TorsionConstantSlopedChannel>},
    GeometryModel{"American channel", LayoutId::Channel, FlangedInputs, TaperedParameters,
                  SlopedColumns,
                  Channel<ParallelWarping, &FlangedShape::TorsionConstantSlopedChannel>},
};

} // namespace

std::span<const GeometryModel> ChannelModels() { return Models; }

} // namespace dbsection
