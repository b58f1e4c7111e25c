// Rolled angles, single and in pairs.
#include "geometry/ModelParts.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace dbsection {
namespace {

/// Two thin rectangles, their junction and their ends (El Darwish and Johnston, Torsion of
/// Structural Shapes, 1965): of the ends some standards count the toes alone (2), others the heel,
/// too (3); others take the rectangles alone (0).
double AngleTorsion(double legs, double thickness, double radius, double ends) {
    const double legsAlone = (legs - thickness) * std::pow(thickness, 3) / 3;
    if (ends == 0)
        return legsAlone;
    const double circle =
        2 * (3 * radius + 2 * thickness - std::numbers::sqrt2 * (2 * radius + thickness));
    const double alpha = 0.0768 + 0.0479 * radius / thickness;
    return legsAlone + alpha * std::pow(circle, 4) - 0.105 * ends * std::pow(thickness, 4);
}

/// An angle as the leg D lies along y, the leg B along z, and the heel at the origin.
struct AngleShape {
    double depth;
    double width;
    double thickness;
    FilletRadius radius;

    /// `count`: of the angles that share the area.
    AngleShape(const Figures& section, const Figures& parameters, int count = 1)
        : depth(Dimension(section, "D")),
          width(Dimension(section, "B")),
          thickness(Dimension(section, "T")),
          m_parameters(parameters) {
        const double shorter = std::min(depth, width);
        Require(thickness < shorter, "the legs (T) are as thick as the shorter one is long (B)");
        const auto shape = [this](double fillet) { return WithFillet(fillet); };
        Figures single = section;
        if (const auto area = single.find("AX"); area != single.end())
            area->second /= count;
        radius = FindFilletRadius(shape, single, parameters,
                                  std::min(2 * thickness, (shorter - thickness) / 2));
    }

    Corners Shape() const { return WithFillet(radius.value); }

    /// Legs without fillet and toes.
    Corners Square() const { return At(0, 0); }

    /// Of their middle lines, through which the shear stresses of both pass.
    Point MeetingOfLegs() const { return {thickness / 2, thickness / 2}; }

    double TorsionConstant() const {
        return AngleTorsion(depth + width, thickness, radius.value,
                            ValueOr(m_parameters, "ends", 2));
    }

private:
    Corners WithFillet(double fillet) const {
        const double share = ValueOr(m_parameters, "toe", 0);
        return At(fillet, ValueOr(m_parameters, "toeRadius", fillet * share));
    }

    Corners At(double fillet, double toe) const {
        return {{{0, 0}, 0},
                {{width, 0}, 0},
                {{width, thickness}, toe},
                {{thickness, thickness}, fillet},
                {{thickness, depth}, toe},
                {{0, depth}, 0}};
    }

    const Figures& m_parameters;
};

SectionGeometry Angle(const Figures& section, const Figures& parameters) {
    const AngleShape angle(section, parameters);
    Require(angle.depth >= angle.width, "D is not the longer leg");
    const Outline outline(angle.Shape());
    const AxisProperties major = outline.MajorAxis();
    const AxisProperties minor = outline.MinorAxis();
    const bool isSquare = ValueOr(parameters, "productCorners", 1) == 0;
    const double product = (isSquare ? Outline(angle.Square()) : outline).ProductOfInertia();
    const double mean = (major.inertia + minor.inertia) / 2;
    const double difference = (major.inertia - minor.inertia) / 2;
    const double least = mean - std::hypot(difference, product);
    return {outline,
            {{"AX", outline.Area()},
             {"IZ", major.inertia},
             {"IY", minor.inertia},
             {"IX", angle.TorsionConstant()},
             {"CY", major.centroid},
             {"CZ", minor.centroid},
             {"RV", std::sqrt(least / outline.Area())},
             {"ALPHA", PrincipalAngle(major.inertia, minor.inertia, product)}},
            angle.radius.Assumed(),
            angle.MeetingOfLegs()};
}

/// Two angles whose legs D face each other across the gap, the outstanding legs below. The axes of
/// symmetry are the principal ones. Files of layout version 1 do not tell the gap (GAP): the angles
/// are drawn as if they touched, and what depends on it is not known.
SectionGeometry DoubleAngle(const Figures& section, const Figures& parameters) {
    const AngleShape angle(section, parameters, 2);
    const double gap = ValueOr(section, "GAP", 0);
    Require(gap >= 0, "the gap (GAP) is negative");
    Corners right = angle.Shape();
    const double offset = Outline(right).MinorAxis().centroid;
    for (Corner& corner : right)
        corner.at.z += gap / 2;
    Corners left(right.rbegin(), right.rend());
    for (Corner& corner : left)
        corner.at.z = -corner.at.z;
    Outline outline(right);
    outline.Add(left);
    const AxisProperties major = outline.MajorAxis();
    const double minor = outline.MinorAxis().inertia;
    Figures figures{
        {"AX", outline.Area()}, {"IZ", major.inertia}, {"IX", 2 * angle.TorsionConstant()},
        {"CY", major.centroid}, {"CZ", offset},        {"ALPHA", 0}};
    if (section.contains("GAP")) {
        figures["IY"] = minor;
        figures["RV"] = std::sqrt(std::min(major.inertia, minor) / outline.Area());
    }
    return {outline, figures, angle.radius.Assumed(), Point{0, angle.thickness / 2}};
}

constexpr std::array RolledInputs{"AX", "D", "B", "T"};
constexpr std::array Inputs{"D", "B", "T"};
// Where neither ends nor junction count, up to 0.15 of the torsion constant are missing.
constexpr GeometryParameter Ends{"ends", Quantity::Number,
                                 "ends that the torsion constant knows of (0, 2 or 3), or else 2"};
constexpr GeometryParameter ProductCorners{
    "productCorners", Quantity::Number,
    "0: least radius and principal axes follow from legs without fillet and toes"};
constexpr std::array RolledParameters{ToeParameter, Ends, ProductCorners};
constexpr std::array Parameters{RadiusParameter, ToeParameter, Ends, ProductCorners};
constexpr std::array RadiiParameters{
    RadiusParameter, GeometryParameter{"toeRadius", Quantity::Length, "of the toes", true}, Ends,
    ProductCorners};
constexpr std::array RolledDoubleParameters{ToeParameter, Ends};
constexpr std::array DoubleParameters{RadiusParameter, ToeParameter, Ends};

template <ComputedColumn (*Worth)(const char*)>
constexpr std::array Columns{Worth("AX"), Worth("IZ"), Worth("IY"), Torsion(0.05, JunctionFit),
                             Worth("CY"), Worth("CZ"), Worth("RV"), Worth("ALPHA")};

constexpr std::array Models{
    GeometryModel{"rolled angle", LayoutId::Angle, RolledInputs, RolledParameters, Columns<ByArea>,
                  Angle},
    GeometryModel{"angle", LayoutId::Angle, Inputs, Parameters, Columns<Exact>, Angle},
    GeometryModel{"angle by radii", LayoutId::Angle, Inputs, RadiiParameters, Columns<Exact>,
                  Angle},
    GeometryModel{"rolled double angle", LayoutId::DoubleAngle, RolledInputs,
                  RolledDoubleParameters, Columns<ByArea>, DoubleAngle},
    GeometryModel{"double angle", LayoutId::DoubleAngle, Inputs, DoubleParameters, Columns<Exact>,
                  DoubleAngle},
};

} // namespace

std::span<const GeometryModel> AngleModels() { return Models; }

} // namespace dbsection
