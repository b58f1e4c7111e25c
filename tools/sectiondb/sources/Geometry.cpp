#include "sources/Geometry.h"

#include "sources/GeometryOutline.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

namespace dbsection {

namespace {

using Corners = std::vector<Corner>;
using std::numbers::pi;

void Require(bool possible, const char* otherwise) {
    if (!possible)
        throw GeometryError(otherwise);
}

double Value(const Figures& figures, std::string_view name) { return figures.find(name)->second; }

/// A parameter that not every model of a shape has.
double ValueOr(const Figures& parameters, std::string_view name, double otherwise) {
    const auto place = parameters.find(name);
    return place == parameters.end() ? otherwise : place->second;
}

/// Adds the corners' mirror images, in the order that closes the outline.
Corners Mirrored(Corners corners, Point factor) {
    for (std::size_t i = corners.size(); i-- > 0;) {
        const auto [at, radius] = corners[i];
        corners.push_back({{at.z * factor.z, at.y * factor.y}, radius});
    }
    return corners;
}

Corners Rectangle(double width, double depth, double radius) {
    const Corners right{{{width / 2, -depth / 2}, radius}, {{width / 2, depth / 2}, radius}};
    return Mirrored(right, {-1, 1});
}

/// Radius of the fillets of a rolled shape: the parameter "radius", or the one that gives the shape
/// its published area, from 0 to the largest that the shape has room for. `shape` gives the outline
/// with fillets of a radius; what fillets and rounded toes add to the area grows with the square of
/// the radius.
template <class Shape>
double FilletRadius(const Shape& shape, const Figures& section, const Figures& parameters,
                    double largest) {
    const double given = ValueOr(parameters, "radius", -1);
    if (given >= 0) {
        Require(given <= 2 * largest, "the fillets (radius) do not fit between web and flanges");
        return given;
    }
    const double sharp = Outline(shape(0)).Area();
    const double gain = Outline(shape(largest)).Area() - sharp;
    return largest * std::sqrt(std::clamp((Value(section, "AX") - sharp) / gain, 0.0, 1.0));
}

/// Dimensions of I shapes and channels. The thickness TF of a tapered flange is measured at
/// "place", a distance from the tip, or midway between web and tip; its toe is rounded with a fixed
/// share of the fillet's radius.
struct FlangedShape {
    double depth;
    double width;
    double flange; ///< thickness midway between web and tip
    double web;
    double outstand;
    double slope;
    double taper; ///< what the flange is thicker at the web, and thinner at the tip
    double toe;   ///< radius of the toes / radius of the fillets

    FlangedShape(const Figures& section, const Figures& parameters, int sides)
        : depth(Value(section, "D")),
          width(Value(section, "BF")),
          flange(Value(section, "TF")),
          web(Value(section, "TW")),
          outstand((width - web) / sides),
          slope(ValueOr(parameters, "slope", 0)),
          taper(slope * outstand / 2),
          toe(ValueOr(parameters, "toe", 0)) {
        flange -= slope * (ValueOr(parameters, "place", outstand / 2) - outstand / 2);
        Require(outstand > 0, "the web (TW) is not thinner than the flange is wide (BF)");
        Require(taper < flange, "the flange (TF) is too thin for its slope");
        Require(2 * (flange + taper) < depth, "the flanges (TF) fill the whole depth (D)");
    }

    /// Fillet and toe share the outstand, and two fillets the height of the web.
    double LargestFillet() const { return std::min(outstand, depth / 2 - flange - taper) / 2; }

    /// From the web along the underside of the upper flange to its outer edge.
    Corners UpperFlange(double webFace, double radius) const {
        const double tip = webFace + outstand;
        return {{{webFace, depth / 2 - flange - taper}, radius},
                {{tip, depth / 2 - flange + taper}, radius * toe},
                {{tip, depth / 2}, 0}};
    }

    /// Torsion constant: tapered outstands, web, and the part of each flange at the web, as thick
    /// as `junction`; then what the two junctions add and the ends of the outstands take away (El
    /// Darwish and Johnston, Torsion of Structural Shapes, 1965). `circle` is the diameter of the
    /// largest circle in the junction.
    double TorsionConstant(double junction, double alpha, double circle) const {
        const double outstands = 2 * (width - web) * flange * (flange * flange + taper * taper);
        const double atWeb = 2 * web * std::pow(junction, 3);
        const double between = (depth - 2 * junction) * std::pow(web, 3);
        return (outstands + atWeb + between) / 3 + 2 * alpha * std::pow(circle, 4) -
               0.42 * std::pow(flange - taper, 4);
    }
};

/// Torsion constant of an I shape; its junctions are as thick as the flange at the web.
double TorsionConstantI(const FlangedShape& shape, double radius) {
    const double junction = shape.flange + shape.taper;
    const double w = shape.web / junction;
    const double r = radius / junction;
    const double alpha = -0.042 + 0.2204 * w + 0.1355 * r - 0.0865 * w * r - 0.0725 * w * w;
    const double center =
        junction + radius * (std::hypot(1, shape.slope) - shape.slope); // of the fillet
    const double circle =
        (std::pow(shape.web / 2 + radius, 2) + center * center - radius * radius) /
        (center + radius);
    return shape.TorsionConstant(junction, alpha, circle);
}

/// Torsion constant of a channel; published figures follow from junctions of the mean thickness.
double TorsionConstantChannel(const FlangedShape& shape, double radius) {
    const double w = shape.web / shape.flange;
    const double r = radius / shape.flange;
    const double alpha = -0.0908 + 0.2621 * w + 0.1231 * r - 0.0752 * w * r - 0.0945 * w * w;
    const double circle =
        2 * (3 * radius + shape.web + shape.flange -
             std::sqrt(2 * (2 * radius + shape.web) * (2 * radius + shape.flange)));
    return shape.TorsionConstant(shape.flange, alpha, circle);
}

/// I shapes, rolled: warping constant from the flanges' distance, CW = IY (D - TF)^2 / 4.
Figures IShape(const Figures& section, const Figures& parameters) {
    const FlangedShape flanged(section, parameters, 2);
    const auto shape = [&flanged](double radius) {
        return Mirrored(Mirrored(flanged.UpperFlange(flanged.web / 2, radius), {-1, 1}), {1, -1});
    };
    const double radius = FilletRadius(shape, section, parameters, flanged.LargestFillet());
    const Outline outline(shape(radius));
    const AxisProperties major = outline.MajorAxis();
    const AxisProperties minor = outline.MinorAxis();
    const double between = flanged.depth - flanged.flange;
    return {{"AX", outline.Area()},
            {"IZ", major.inertia},
            {"IX", TorsionConstantI(flanged, radius)},
            {"CW", minor.inertia * between * between / 4},
            {"IY", minor.inertia},
            {"ZZ", major.plasticModulus},
            {"ZY", minor.plasticModulus}};
}

/// Warping constant of a channel of thin plates along the middle lines (Galambos, Structural
/// Members and Frames, 1968).
double ChannelWarping(const FlangedShape& channel, double major) {
    const double width = channel.width - channel.web / 2;
    const double height = channel.depth - channel.flange;
    const double flange = width * channel.flange;
    const double shearCenter = flange * width / (2 * flange + height * channel.web / 3);
    return height * height * flange * width * (width - 3 * shearCenter) / 6 +
           shearCenter * shearCenter * major;
}

/// Channels, rolled.
Figures Channel(const Figures& section, const Figures& parameters) {
    const FlangedShape flanged(section, parameters, 1);
    const auto shape = [&flanged](double radius) {
        Corners upper = flanged.UpperFlange(flanged.web, radius);
        upper.push_back({{0, flanged.depth / 2}, 0});
        return Mirrored(upper, {1, -1});
    };
    const double radius = FilletRadius(shape, section, parameters, flanged.LargestFillet());
    const Outline outline(shape(radius));
    const AxisProperties major = outline.MajorAxis();
    const AxisProperties minor = outline.MinorAxis();
    return {{"AX", outline.Area()},
            {"IZ", major.inertia},
            {"IX", TorsionConstantChannel(flanged, radius)},
            {"CW", ChannelWarping(flanged, major.inertia)},
            {"IY", minor.inertia},
            {"ZZ", major.plasticModulus},
            {"ZY", minor.plasticModulus},
            {"CZ", minor.centroid}};
}

/// Torsion constant of an angle: two thin rectangles, their junction and two ends (El Darwish and
/// Johnston).
double AngleTorsion(double legs, double thickness, double radius) {
    const double circle =
        2 * (3 * radius + 2 * thickness - std::numbers::sqrt2 * (2 * radius + thickness));
    const double alpha = 0.0768 + 0.0479 * radius / thickness;
    return (legs - thickness) * std::pow(thickness, 3) / 3 + alpha * std::pow(circle, 4) -
           0.21 * std::pow(thickness, 4);
}

/// Angles, rolled. The leg D lies along y, the leg B along z, the heel at the origin.
Figures Angle(const Figures& section, const Figures& parameters) {
    const double depth = Value(section, "D");
    const double width = Value(section, "B");
    const double thickness = Value(section, "T");
    Require(depth >= width, "D is not the longer leg");
    Require(thickness < width, "the legs (T) are as thick as the shorter one is long (B)");
    const auto shape = [&](double radius) {
        const double toe = radius * Value(parameters, "toe");
        return Corners{{{0, 0}, 0},
                       {{width, 0}, 0},
                       {{width, thickness}, toe},
                       {{thickness, thickness}, radius},
                       {{thickness, depth}, toe},
                       {{0, depth}, 0}};
    };
    const double radius =
        FilletRadius(shape, section, parameters, std::min(2 * thickness, (width - thickness) / 2));
    const Outline outline(shape(radius));
    const AxisProperties major = outline.MajorAxis();
    const AxisProperties minor = outline.MinorAxis();
    const double product = outline.ProductOfInertia();
    const double mean = (major.inertia + minor.inertia) / 2;
    const double difference = (major.inertia - minor.inertia) / 2;
    const double least = mean - std::hypot(difference, product);
    return {{"AX", outline.Area()},
            {"IZ", major.inertia},
            {"IY", minor.inertia},
            {"IX", AngleTorsion(depth + width, thickness, radius)},
            {"CY", major.centroid},
            {"CZ", minor.centroid},
            {"RV", std::sqrt(least / outline.Area())},
            {"ALPHA", std::atan2(-product, difference) / 2 * 180 / pi}};
}

/// A rectangular hollow section whose corners' radii are multiples of the wall thickness.
struct HollowShape {
    double depth;
    double width;
    double wall;
    double outside;
    double inside;

    HollowShape(const Figures& section, const Figures& parameters)
        : depth(Value(section, "D")),
          width(Value(section, "B")),
          wall(Value(section, "T")),
          outside(Value(parameters, "outside") * wall),
          inside(Value(parameters, "inside") * wall) {
        Require(2 * std::max(outside, wall) < std::min(depth, width),
                "the corners (T) do not fit into the width (B) and depth (D)");
    }

    // Length of the middle of the wall, and the area that it encloses.
    double Length() const { return 2 * (width + depth - 2 * wall) - (4 - pi) * (outside + inside); }
    double Enclosed() const {
        return (width - wall) * (depth - wall) - (4 - pi) * std::pow((outside + inside) / 2, 2);
    }
};

/// Torsion constant by Bredt's formula, IX = 4 Ap^2 T / p.
Figures RectangularTube(const Figures& section, const Figures& parameters) {
    const HollowShape tube(section, parameters);
    Outline outline(Rectangle(tube.width, tube.depth, tube.outside));
    outline.Cut(Rectangle(tube.width - 2 * tube.wall, tube.depth - 2 * tube.wall, tube.inside));
    const AxisProperties major = outline.MajorAxis();
    const AxisProperties minor = outline.MinorAxis();
    return {{"AX", outline.Area()},
            {"IZ", major.inertia},
            {"IX", 4 * std::pow(tube.Enclosed(), 2) * tube.wall / tube.Length()},
            {"IY", minor.inertia},
            {"ZZ", major.plasticModulus},
            {"ZY", minor.plasticModulus}};
}

/// The same with the torsion constant of EN 10210-2 and EN 10219-2, which count the wall itself,
/// too: p T^3 / 3 more.
Figures EuropeanTube(const Figures& section, const Figures& parameters) {
    const HollowShape tube(section, parameters);
    Figures figures = RectangularTube(section, parameters);
    figures["IX"] += tube.Length() * std::pow(tube.wall, 3) / 3;
    return figures;
}

Figures RoundTube(const Figures& section, const Figures&) {
    const double outside = Value(section, "OD");
    const double inside = outside - 2 * Value(section, "T");
    Require(inside > 0, "the wall (T) fills the whole diameter (OD)");
    return {{"AX", pi / 4 * (std::pow(outside, 2) - std::pow(inside, 2))},
            {"I", pi / 64 * (std::pow(outside, 4) - std::pow(inside, 4))},
            {"Z", (std::pow(outside, 3) - std::pow(inside, 3)) / 6}};
}

// Where the radius of the fillets is not known, the area tells it.
constexpr std::array RolledInputs{"AX", "D", "BF", "TF", "TW"};
constexpr std::array RolledAngleInputs{"AX", "D", "B", "T"};
constexpr std::array FlangedInputs{"D", "BF", "TF", "TW"};
constexpr std::array AngleInputs{"D", "B", "T"};
constexpr std::array RectangularTubeInputs{"D", "B", "T"};
constexpr std::array RoundTubeInputs{"OD", "T"};

constexpr GeometryParameter Radius{"radius", Quantity::Length}; // of the fillets
constexpr GeometryParameter Slope{"slope", Quantity::Number};   // of the flanges' inner side
constexpr GeometryParameter Toe{"toe", Quantity::Number};       // radius of the toes / fillets
constexpr GeometryParameter Place{"place", Quantity::Length}; // where TF is measured, from the tip

constexpr std::array RolledParameters{Slope, Toe};
constexpr std::array RolledAngleParameters{Toe};
constexpr std::array ParallelParameters{Radius};
constexpr std::array TaperedParameters{Radius, Toe, Slope, Place};
constexpr std::array AngleParameters{Radius, Toe};
constexpr std::array CornerParameters{GeometryParameter{"outside", Quantity::Number},
                                      GeometryParameter{"inside", Quantity::Number}};

constexpr std::array Models{
    GeometryModel{"rolled I", LayoutId::IShape, RolledInputs, RolledParameters, IShape},
    GeometryModel{"parallel I", LayoutId::IShape, FlangedInputs, ParallelParameters, IShape},
    GeometryModel{"tapered I", LayoutId::IShape, FlangedInputs, TaperedParameters, IShape},
    GeometryModel{"rolled channel", LayoutId::Channel, RolledInputs, RolledParameters, Channel},
    GeometryModel{"parallel channel", LayoutId::Channel, FlangedInputs, ParallelParameters,
                  Channel},
    GeometryModel{"tapered channel", LayoutId::Channel, FlangedInputs, TaperedParameters, Channel},
    GeometryModel{"rolled angle", LayoutId::Angle, RolledAngleInputs, RolledAngleParameters, Angle},
    GeometryModel{"angle", LayoutId::Angle, AngleInputs, AngleParameters, Angle},
    GeometryModel{"rectangular tube", LayoutId::RectangularTube, RectangularTubeInputs,
                  CornerParameters, RectangularTube},
    GeometryModel{"European tube", LayoutId::RectangularTube, RectangularTubeInputs,
                  CornerParameters, EuropeanTube},
    GeometryModel{"round tube", LayoutId::RoundTube, RoundTubeInputs, {}, RoundTube},
};

} // namespace

const GeometryModel* FindGeometryModel(std::string_view name) {
    const auto place = std::ranges::find(Models, name, &GeometryModel::name);
    return place == Models.end() ? nullptr : &*place;
}

} // namespace dbsection
