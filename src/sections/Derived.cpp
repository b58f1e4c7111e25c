// What follows from a section besides the columns of its table.
#include "geometry/Fibres.h"
#include "platform/Text.h"
#include "records/DerivedProperties.h"
#include "sections/Catalogue.h"
#include "sections/CatalogueData.h"
#include "sections/Error.h"
#include "units/UnitText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace sections {
namespace {

using dbsection::DerivedProperties;
using dbsection::Outline;
using dbsection::SectionGeometry;

/// What rules go by. The shape is made once, and when a rule asks for it.
class Facts {
public:
    Facts(const Section& itsSection, const DerivedProperties& itsProperties)
        : section(itsSection),
          properties(itsProperties) {}

    const Section& section;
    const DerivedProperties properties;

    /// Throws Error where the figures do not tell it.
    const Outline& outline() {
        if (!m_shape)
            m_shape = section.shape();
        return m_shape->outline;
    }

    /// The same where its area is the row's; otherwise throws Error.
    const SectionGeometry& agreedShape() {
        if (!m_agreedShape)
            m_agreedShape = section.agreedShape();
        return *m_agreedShape;
    }

private:
    std::optional<SectionGeometry> m_shape;
    std::optional<SectionGeometry> m_agreedShape;
};

/// A property in mm and N; 0, or an Error, where it does not follow.
using Rule = double (*)(Facts& facts);

template <double DerivedProperties::*Member>
double property(Facts& facts) {
    return facts.properties.*Member;
}

template <double (*OfOutline)(const Outline& outline)>
double ofOutline(Facts& facts) {
    return OfOutline(facts.agreedShape().outline);
}

double centroidHeight(const Outline& outline) {
    return outline.MajorAxis().centroid - outline.GetExtent().low.y;
}

double centroidOffset(const Outline& outline) {
    return outline.MinorAxis().centroid - outline.GetExtent().low.z;
}

/// Walls that are thinner than their area tells have the same outside.
double perimeter(Facts& facts) { return facts.outline().OuterPerimeter(); }

double areaOf(Facts& facts) { return facts.section.area().in(units::mm * units::mm); }

double weight(Facts& facts) { return facts.section.weight().in(units::N / units::mm); }

double surfacePerMass(Facts& facts) { return perimeter(facts) / weight(facts); }

double sectionFactor(Facts& facts) { return perimeter(facts) / areaOf(facts); }

double boxSectionFactor(Facts& facts) {
    const auto [low, high] = facts.outline().GetExtent();
    return 2 * (high.z - low.z + high.y - low.y) / areaOf(facts);
}

/// Whether the axes are principal ones, without which bending goes with shear along both.
bool hasPrincipalAxes(const Outline& outline) {
    constexpr double Rounding = 1e-6;
    return std::abs(outline.ProductOfInertia()) < Rounding * outline.MajorAxis().inertia;
}

template <double dbsection::ShearAreas::*Along>
double shearArea(const Outline& outline) {
    return hasPrincipalAxes(outline) ? dbsection::ShearAreasOf(outline).*Along : 0;
}

/// From the centroid; Nothing where the model does not know it.
template <double dbsection::Point::*Along>
double shearCenter(Facts& facts) {
    constexpr double Rounding = 1e-9;
    const auto& [outline, figures, radius, center] = facts.agreedShape();
    if (!center)
        return std::numeric_limits<double>::quiet_NaN();
    const dbsection::Point centroid{outline.MinorAxis().centroid, outline.MajorAxis().centroid};
    const double distance = (*center).*Along - centroid.*Along;
    return std::abs(distance) < Rounding * outline.OuterPerimeter() ? 0 : distance;
}

/// The length of the web between its fillets: of the upright edges within the width the longest.
double straightWeb(const Outline& outline) {
    const dbsection::Extent extent = outline.GetExtent();
    const double nearly = 1e-6 * (extent.high.z - extent.low.z);
    double longest = 0;
    for (const Outline::Loop& loop : outline.Loops())
        for (std::size_t i = 0; i < loop.size(); ++i) {
            const dbsection::Point from = loop[i].at;
            const dbsection::Point to = loop[(i + 1) % loop.size()].at;
            const bool isWithin = from.z > extent.low.z + nearly && from.z < extent.high.z - nearly;
            if (loop[i].bulge == 0 && std::abs(from.z - to.z) < nearly && isWithin)
                longest = std::max(longest, std::abs(from.y - to.y));
        }
    return longest;
}

double principalAngle(Facts& facts) { return facts.section.principalAngle(); }

double flangeSlenderness(Facts& facts) {
    return facts.section.width().in(units::mm) /
           (2 * facts.section.flangeThickness().in(units::mm));
}

double webSlenderness(Facts& facts) {
    return ofOutline<straightWeb>(facts) / facts.section.webThickness().in(units::mm);
}

double stemSlenderness(Facts& facts) {
    return facts.section.depth().in(units::mm) / facts.section.webThickness().in(units::mm);
}

double wallSlenderness(Facts& facts) {
    return facts.section.depth().in(units::mm) / facts.section.thickness().in(units::mm);
}

/// Where standards do not know the radius, each corner takes one and a half walls off the side.
template <Length (Section::*Side)() const>
double flatSlenderness(Facts& facts) {
    constexpr double Corners = 3;
    const double thickness = facts.section.thickness().in(units::mm);
    return std::max(0.0, (facts.section.*Side)().in(units::mm) / thickness - Corners);
}

/// In what a property is told.
enum class Told : std::uint8_t {
    Length,
    PowerLength,
    PowerArea,
    Modulus,
    Weight,
    Surface,
    SurfacePerMass,
    Factor,
    Angle,
    Number
};

struct DerivedRule {
    const char* name;
    const char* meaning;
    Told told;
    Rule figure;
    bool (*isOf)(LayoutId layout);
    bool isDetail = false;
    bool mayBeZero = false;
};

bool ofAny(LayoutId layout) {
    return layout != LayoutId::Joist && layout != LayoutId::JoistGirder &&
           layout != LayoutId::AluminiumAlloy;
}
bool ofFlanges(LayoutId layout) { return layout == LayoutId::IShape || layout == LayoutId::Tee; }
bool ofWebs(LayoutId layout) { return layout == LayoutId::IShape || layout == LayoutId::Channel; }
bool ofTees(LayoutId layout) { return layout == LayoutId::Tee; }
bool ofRectangularTubes(LayoutId layout) { return layout == LayoutId::RectangularTube; }
bool ofRoundTubes(LayoutId layout) { return layout == LayoutId::RoundTube; }

constexpr std::array Rules{
    DerivedRule{"Weight", "weight per length, that of the area where none is published",
                Told::Weight, weight, ofAny},
    DerivedRule{"SZ", "elastic modulus about the major axis, at the extreme fibre", Told::Modulus,
                property<&DerivedProperties::majorModulus>, ofAny},
    DerivedRule{"SY", "elastic modulus about the minor axis, at the extreme fibre", Told::Modulus,
                property<&DerivedProperties::minorModulus>, ofAny},
    DerivedRule{"RZ", "radius of gyration about the major axis", Told::PowerLength,
                property<&DerivedProperties::majorRadius>, ofAny},
    DerivedRule{"RY", "radius of gyration about the minor axis", Told::PowerLength,
                property<&DerivedProperties::minorRadius>, ofAny},
    DerivedRule{"CY", "centroid from the lower face", Told::Length, ofOutline<centroidHeight>,
                ofAny},
    DerivedRule{"CZ", "centroid from the left face", Told::Length, ofOutline<centroidOffset>,
                ofAny},
    DerivedRule{"ALPHA", "angle of the principal axes", Told::Angle, principalAngle, ofAny, false,
                true},
    DerivedRule{"Perimeter", "perimeter, without that of holes", Told::Length, perimeter, ofAny,
                true},
    DerivedRule{"Surface", "outer surface per length", Told::Surface, perimeter, ofAny, true},
    DerivedRule{"SurfacePerMass", "outer surface per mass", Told::SurfacePerMass, surfacePerMass,
                ofAny, true},
    DerivedRule{"A/V", "section factor: outer surface per volume", Told::Factor, sectionFactor,
                ofAny, true},
    DerivedRule{"A/V-box", "section factor of the box around the section", Told::Factor,
                boxSectionFactor, ofAny, true},
    DerivedRule{"AY", "area that deforms in shear along the minor axis, by strain energy",
                Told::PowerArea, ofOutline<shearArea<&dbsection::ShearAreas::alongY>>, ofAny, true},
    DerivedRule{"AZ", "area that deforms in shear along the major axis, by strain energy",
                Told::PowerArea, ofOutline<shearArea<&dbsection::ShearAreas::alongZ>>, ofAny, true},
    DerivedRule{"EY", "shear center from the centroid, upwards", Told::Length,
                shearCenter<&dbsection::Point::y>, ofAny, true, true},
    DerivedRule{"EZ", "shear center from the centroid, to the right", Told::Length,
                shearCenter<&dbsection::Point::z>, ofAny, true, true},
    DerivedRule{"BF/2TF", "slenderness of the flanges", Told::Number, flangeSlenderness, ofFlanges,
                true},
    DerivedRule{"H/TW", "slenderness of the web between its fillets", Told::Number, webSlenderness,
                ofWebs, true},
    DerivedRule{"D/TW", "slenderness of the stem", Told::Number, stemSlenderness, ofTees, true},
    DerivedRule{"B/T", "slenderness of the flat of the width", Told::Number,
                flatSlenderness<&Section::width>, ofRectangularTubes, true},
    DerivedRule{"H/T", "slenderness of the flat of the depth", Told::Number,
                flatSlenderness<&Section::depth>, ofRectangularTubes, true},
    DerivedRule{"D/T", "slenderness of the wall", Told::Number, wallSlenderness, ofRoundTubes,
                true},
};

/// The units of a family, as its columns have them.
class FamilyUnits {
public:
    explicit FamilyUnits(const FamilyData& family)
        : m_length(lengthIn(family, "D", "OD")),
          m_power(lengthIn(family, "AX", "IZ")),
          m_isMetric(std::ranges::any_of(
              std::array{"MM", "MMS", "CM", "DM", "DME", "M", "METER"},
              [this](const char* unit) { return dbsection::EqualNoCase(unit, m_length); })) {}

    /// Whether the family has any.
    bool areKnown() const { return !m_length.empty() && !m_power.empty(); }

    std::string of(Told told) const {
        const std::string large = m_isMetric ? "METER" : "FEET";
        switch (told) {
        case Told::Length:
            return m_length;
        case Told::PowerLength:
            return m_power;
        case Told::PowerArea:
            return m_power + "^2";
        case Told::Modulus:
            return m_power + "^3";
        case Told::Weight:
            return m_isMetric ? "KG/METER" : "POUND/FEET";
        case Told::Surface:
            return large + "^2/" + large;
        case Told::SurfacePerMass:
            return large + (m_isMetric ? "^2/TON" : "^2/KIP");
        case Told::Factor:
            return large + "^2/" + large + "^3";
        case Told::Angle:
            return "DEGREE";
        case Told::Number:
            break;
        }
        return "NUMBER";
    }

private:
    /// The name of the unit of length of the first of two columns; empty where it has none.
    static std::string lengthIn(const FamilyData& family, const char* column,
                                const char* otherwise) {
        const FamilyColumn* data = family.find(column);
        if (data == nullptr)
            data = family.find(otherwise);
        if (data == nullptr || data->size == 0)
            return {};
        return data->column.unit.substr(0, data->column.unit.find('^'));
    }

    std::string m_length;
    std::string m_power;
    bool m_isMetric;
};

::Quantity quantityOf(Told told) {
    switch (told) {
    case Told::Length:
    case Told::PowerLength:
    case Told::Surface:
        return ::Quantity::Length;
    case Told::PowerArea:
        return ::Quantity::Area;
    case Told::Modulus:
        return ::Quantity::Modulus;
    case Told::Weight:
        return ::Quantity::WeightPerLength;
    case Told::Angle:
        return ::Quantity::Angle;
    default:
        return ::Quantity::Number;
    }
}

/// Whether the rule adds to what the family's table has.
bool adds(const DerivedRule& rule, const FamilyData& family) {
    return rule.isOf(family.family->layout) && family.find(rule.name) == nullptr;
}

/// The rule of that name that adds to the family's table, or null.
const DerivedRule* findRule(std::string_view name, const FamilyData& family) {
    const auto rule = std::ranges::find_if(
        Rules, [name](const DerivedRule& each) { return dbsection::EqualNoCase(each.name, name); });
    return rule == Rules.end() || !adds(*rule, family) ? nullptr : &*rule;
}

/// Nothing where it does not follow.
std::optional<Quantity> figureBy(const DerivedRule& rule, Facts& facts, const FamilyUnits& units) {
    try {
        const double figure = rule.figure(facts);
        if (!std::isfinite(figure) || (figure == 0 && !rule.mayBeZero))
            return std::nullopt;
        const std::string unit = units.of(rule.told);
        const bool isPlain = rule.told == Told::Angle || rule.told == Told::Number;
        return Quantity(isPlain ? figure : figure / dbsection::SizeOf(unit), unit);
    } catch (const Error&) { // its columns do not tell it
        return std::nullopt;
    }
}

} // namespace

std::vector<DerivedColumn> Family::derivedColumns() const {
    std::vector<DerivedColumn> columns;
    const FamilyUnits units(*m_family);
    for (const DerivedRule& rule : Rules)
        if (units.areKnown() && adds(rule, *m_family))
            columns.push_back(
                {{rule.name, units.of(rule.told), quantityOf(rule.told), rule.meaning},
                 rule.isDetail});
    return columns;
}

std::optional<Quantity> Section::findDerived(std::string_view name) const {
    const DerivedRule* const rule = findRule(name, *m_family);
    const FamilyUnits units(*m_family);
    if (rule == nullptr || !units.areKnown())
        return std::nullopt;
    Facts facts(*this, deriveProperties());
    return figureBy(*rule, facts, units);
}

std::vector<std::optional<Quantity>> Section::allDerived() const {
    std::vector<std::optional<Quantity>> figures;
    const FamilyUnits units(*m_family);
    Facts facts(*this, deriveProperties());
    for (const DerivedRule& rule : Rules)
        if (units.areKnown() && adds(rule, *m_family))
            figures.push_back(figureBy(rule, facts, units));
    return figures;
}

FigureSource Section::derivedSource(std::string_view name) const {
    const DerivedRule* const rule = findRule(name, *m_family);
    if (rule == nullptr)
        return FigureSource::Unknown;
    if (rule->told == Told::Weight && parameters().contains("mass"))
        return FigureSource::Published;
    const bool isKept = rule->told == Told::Weight && m_family->find("W") != nullptr;
    return isKept ? source("W") : FigureSource::Computed;
}

} // namespace sections
