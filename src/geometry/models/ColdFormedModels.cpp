// Cold-formed sections: strips bent to an inside radius.
#include "geometry/ModelParts.h"
#include "geometry/ThinWalls.h"

#include <cmath>

namespace dbsection {
namespace {

using MiddleLine = std::vector<Point>;

/// What cold-formed shapes are told by. Dimensions are outside ones: a lip's depth reaches from the
/// flange's outer face to the lip's end.
struct Strip {
    double depth;
    double width;
    double lip; ///< 0: none
    double thickness;
    double radius; ///< of the bends, inside

    explicit Strip(const Figures& section)
        : depth(Dimension(section, "D")),
          width(Dimension(section, "B")),
          lip(ValueOr(section, "L", 0)),
          thickness(Dimension(section, "T")),
          radius(Value(section, "R")) {
        Require(lip >= 0 && radius >= 0, "the lips (L) or the bends (R) are below zero");
    }

    double Half() const { return thickness / 2; }
    double BendRadius() const { return radius + Half(); } ///< of the middle line
    bool HasLips() const { return lip > 0; }
};

double Length(Point from, Point to) { return std::hypot(to.z - from.z, to.y - from.y); }

/// How far the bend at an inner point of a middle line reaches along its legs.
double BendLength(const MiddleLine& line, std::size_t i, double bendRadius) {
    const Point in{line[i].z - line[i - 1].z, line[i].y - line[i - 1].y};
    const Point out{line[i + 1].z - line[i].z, line[i + 1].y - line[i].y};
    const double turn =
        std::atan2(std::abs(in.z * out.y - in.y * out.z), in.z * out.z + in.y * out.y);
    return bendRadius * std::tan(turn / 2);
}

void RequireRoomForBends(const MiddleLine& line, double bendRadius) {
    constexpr double Rounding = 1e-9;
    double before = 0;
    for (std::size_t i = 1; i < line.size(); ++i) {
        const double after = i + 1 < line.size() ? BendLength(line, i, bendRadius) : 0;
        Require(before + after <= Length(line[i - 1], line[i]) * (1 + Rounding),
                "the bends (R) do not fit into the dimensions");
        before = after;
    }
}

/// The back of the web lies on the y axis.
MiddleLine Channel(const Strip& strip) {
    Require(2 * strip.lip <= strip.depth, "the lips (L) meet");
    const double tip = strip.width - (strip.HasLips() ? strip.Half() : 0);
    const double level = strip.depth / 2 - strip.Half();
    MiddleLine line{{tip, level}, {strip.Half(), level}, {strip.Half(), -level}, {tip, -level}};
    if (strip.HasLips()) {
        line.insert(line.begin(), {tip, strip.depth / 2 - strip.lip});
        line.push_back({tip, strip.lip - strip.depth / 2});
    }
    return line;
}

/// The left face of the web lies on the y axis; the upper flange points to the right.
MiddleLine Zee(const Strip& strip) {
    Require(strip.lip <= strip.depth, "the lips (L) reach beyond the web (D)");
    const double middle = strip.Half();
    const double outstand = strip.width - strip.Half() - (strip.HasLips() ? strip.Half() : 0);
    const double level = strip.depth / 2 - strip.Half();
    MiddleLine line{
        {middle + outstand, level}, {middle, level}, {middle, -level}, {middle - outstand, -level}};
    if (strip.HasLips()) {
        line.insert(line.begin(), {middle + outstand, strip.depth / 2 - strip.lip});
        line.push_back({middle - outstand, strip.lip - strip.depth / 2});
    }
    return line;
}

/// The leg D lies along y, the leg B along z, the heel at the origin; lips point inwards.
MiddleLine Angle(const Strip& strip) {
    Require(strip.depth >= strip.width, "D is not the longer leg");
    Require(2 * strip.lip <= strip.depth, "the lips (L) meet");
    const double inset = strip.HasLips() ? strip.Half() : 0;
    const double right = strip.width - inset;
    const double top = strip.depth - inset;
    MiddleLine line{{right, strip.Half()}, {strip.Half(), strip.Half()}, {strip.Half(), top}};
    if (strip.HasLips()) {
        line.insert(line.begin(), {right, strip.lip});
        line.push_back({strip.lip, top});
    }
    return line;
}

/// The outside of a web lies on the y axis, the face of the top at the depth, the brims on the z
/// axis.
MiddleLine Hat(const Strip& strip) {
    const double left = strip.Half();
    const double right = strip.width - strip.Half();
    const double top = strip.depth - strip.Half();
    const double brim = strip.Half();
    return {{strip.width + strip.lip, brim},
            {right, brim},
            {right, top},
            {left, top},
            {left, brim},
            {-strip.lip, brim}};
}

/// The back of the web lies on the y axis, the face of the lower flange on the z axis. The upper
/// flange rises from the web with a slope; widths are along the flanges, lips square to them.
MiddleLine EaveStrut(const Strip& strip, const Figures& parameters) {
    Require(2 * strip.lip <= strip.depth, "the lips (L) meet");
    const double slope = ValueOr(parameters, "slope", 0);
    const double upperWidth = ValueOr(parameters, "upperWidth", strip.width);
    const double upperLip = ValueOr(parameters, "upperLip", strip.lip);
    const double half = strip.Half();
    const Point along{1 / std::hypot(1, slope), slope / std::hypot(1, slope)};
    // from the corner at the web's back: along the upper flange, and square to it downwards
    const auto upper = [&](double run, double down) {
        return Point{along.z * run + along.y * down, strip.depth + along.y * run - along.z * down};
    };
    const double tip = strip.width - half;
    return {upper(upperWidth - half, upperLip),
            upper(upperWidth - half, half),
            {half, strip.depth + (slope - std::hypot(1, slope)) * half},
            {half, half},
            {tip, half},
            {tip, strip.lip}};
}

/// The properties of a strip. Some standards print the warping constant of square corners.
SectionGeometry OfMiddleLine(const MiddleLine& line, const Strip& strip,
                             const Figures& parameters) {
    RequireRoomForBends(line, strip.BendRadius());
    const Outline outline(BentStrip(line, strip.thickness, strip.radius));
    const ThinWalls walls = ThinWalls::Strip(line, strip.thickness, strip.BendRadius());
    const double warpingRadius = strip.BendRadius() * ValueOr(parameters, "warpingCorners", 1);
    const AxisProperties major = outline.MajorAxis();
    const AxisProperties minor = outline.MinorAxis();
    return {outline,
            {{"AX", outline.Area()},
             {"IZ", major.inertia},
             {"IY", minor.inertia},
             {"IX", walls.TorsionConstant()},
             {"CW", ThinWalls::Strip(line, strip.thickness, warpingRadius).WarpingConstant()},
             {"CZ", minor.centroid},
             {"CY", major.centroid}},
            std::nullopt,
            walls.ShearCenter()};
}

template <MiddleLine (*Line)(const Strip&)>
SectionGeometry WithCentroid(const Figures& section, const Figures& parameters) {
    const Strip strip(section);
    return OfMiddleLine(Line(strip), strip, parameters);
}

/// A shape that lies with its centroid on the z axis.
template <MiddleLine (*Line)(const Strip&)>
SectionGeometry Level(const Figures& section, const Figures& parameters) {
    SectionGeometry geometry = WithCentroid<Line>(section, parameters);
    geometry.figures.erase("CY");
    return geometry;
}

/// Legs that meet warp little but across their thickness, as two rectangles do (AISC Design Guide
/// 9, 2003).
SectionGeometry PlainAngle(const Figures& section, const Figures& parameters) {
    const Strip strip(section);
    SectionGeometry geometry = OfMiddleLine(Angle(strip), strip, parameters);
    for (const double leg : {strip.depth, strip.width})
        geometry.figures.at("CW") += std::pow((leg - strip.Half()) * strip.thickness, 3) / 36;
    return geometry;
}

SectionGeometry HatFromTop(const Figures& section, const Figures& parameters) {
    SectionGeometry geometry = WithCentroid<Hat>(section, parameters);
    double& centroid = geometry.figures.at("CY");
    centroid = Dimension(section, "D") - centroid;
    return geometry;
}

SectionGeometry EaveStrutOf(const Figures& section, const Figures& parameters) {
    const Strip strip(section);
    return OfMiddleLine(EaveStrut(strip, parameters), strip, parameters);
}

constexpr std::array PlainInputs{"D", "B", "T", "R"};
constexpr std::array LippedInputs{"D", "B", "L", "T", "R"};

constexpr GeometryParameter WarpingCorners{
    "warpingCorners", Quantity::Number,
    "share of the bends' radius that the warping constant knows of, or else 1"};
constexpr std::array Parameters{WarpingCorners};
constexpr std::array EaveStrutParameters{
    GeometryParameter{"slope", Quantity::Number, "rise of the upper flange / run, or else 0"},
    GeometryParameter{"upperWidth", Quantity::Length, "of the upper flange, or else B"},
    GeometryParameter{"upperLip", Quantity::Length, "depth of the upper lip, or else L"},
    WarpingCorners};

constexpr std::array Columns{Exact("AX"),
                             Exact("IZ"),
                             Exact("IY"),
                             Torsion(0.02, "a thin wall along the middle line"),
                             Warping(0.02, "a thin wall along the middle line"),
                             Exact("CZ"),
                             Exact("CY")};
constexpr std::span LevelColumns = std::span(Columns).first<Columns.size() - 1>();

constexpr std::array Models{
    GeometryModel{"bent angle", LayoutId::ColdFormedAngle, PlainInputs, Parameters, Columns,
                  PlainAngle},
    GeometryModel{"lipped angle", LayoutId::ColdFormedAngleLipped, LippedInputs, Parameters,
                  Columns, WithCentroid<Angle>},
    GeometryModel{"bent channel", LayoutId::ColdFormedChannel, PlainInputs, Parameters,
                  LevelColumns, Level<Channel>},
    GeometryModel{"lipped channel", LayoutId::ColdFormedChannelLipped, LippedInputs, Parameters,
                  LevelColumns, Level<Channel>},
    GeometryModel{"bent zee", LayoutId::ColdFormedZee, PlainInputs, Parameters, LevelColumns,
                  Level<Zee>},
    GeometryModel{"lipped zee", LayoutId::ColdFormedZeeLipped, LippedInputs, Parameters,
                  LevelColumns, Level<Zee>},
    GeometryModel{"hat", LayoutId::Hat, LippedInputs, Parameters, Columns, HatFromTop},
    GeometryModel{"eave strut", LayoutId::EaveStrut, LippedInputs, EaveStrutParameters, Columns,
                  EaveStrutOf},
};

} // namespace

std::span<const GeometryModel> ColdFormedModels() { return Models; }

} // namespace dbsection
