// What follows from a section besides the columns of its table.
#include "platform/Text.h"
#include "records/DerivedProperties.h"
#include "sections/Catalogue.h"
#include "sections/CatalogueData.h"
#include "sections/Error.h"
#include "units/UnitText.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace sections {
namespace {

using dbsection::DerivedProperties;
using dbsection::Outline;

/// A property in mm and N; 0, or an Error, where it does not follow.
using Rule = double (*)(const Section& section, const DerivedProperties& properties);

template <double DerivedProperties::*Member>
double property(const Section& /*section*/, const DerivedProperties& properties) {
    return properties.*Member;
}

template <double (*OfOutline)(const Outline& outline)>
double ofOutline(const Section& section, const DerivedProperties& /*properties*/) {
    return OfOutline(section.agreedShape().outline);
}

double centroidHeight(const Outline& outline) {
    return outline.MajorAxis().centroid - outline.GetExtent().low.y;
}

double centroidOffset(const Outline& outline) {
    return outline.MinorAxis().centroid - outline.GetExtent().low.z;
}

double perimeter(const Outline& outline) { return outline.OuterPerimeter(); }

double sectionFactor(const Outline& outline) { return outline.OuterPerimeter() / outline.Area(); }

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

double weight(const Section& section, const DerivedProperties& /*properties*/) {
    return section.weight().in(units::N / units::mm);
}

double principalAngle(const Section& section, const DerivedProperties& /*properties*/) {
    return section.principalAngle();
}

double flangeSlenderness(const Section& section, const DerivedProperties& /*properties*/) {
    return section.width().in(units::mm) / (2 * section.flangeThickness().in(units::mm));
}

double webSlenderness(const Section& section, const DerivedProperties& properties) {
    return ofOutline<straightWeb>(section, properties) / section.webThickness().in(units::mm);
}

double wallSlenderness(const Section& section, const DerivedProperties& /*properties*/) {
    return section.depth().in(units::mm) / section.thickness().in(units::mm);
}

/// In what a property is told.
enum class Told : std::uint8_t {
    Length,
    PowerLength,
    Modulus,
    Weight,
    Surface,
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
};

bool ofAny(LayoutId layout) {
    return layout != LayoutId::Joist && layout != LayoutId::JoistGirder &&
           layout != LayoutId::AluminiumAlloy;
}
bool ofFlanges(LayoutId layout) { return layout == LayoutId::IShape || layout == LayoutId::Tee; }
bool ofWebs(LayoutId layout) { return layout == LayoutId::IShape || layout == LayoutId::Channel; }
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
    DerivedRule{"ALPHA", "angle of the principal axes", Told::Angle, principalAngle, ofAny},
    DerivedRule{"Perimeter", "perimeter, without that of holes", Told::Length, ofOutline<perimeter>,
                ofAny, true},
    DerivedRule{"Surface", "outer surface per length", Told::Surface, ofOutline<perimeter>, ofAny,
                true},
    DerivedRule{"A/V", "section factor: outer surface per volume", Told::Factor,
                ofOutline<sectionFactor>, ofAny, true},
    DerivedRule{"BF/2TF", "slenderness of the flanges", Told::Number, flangeSlenderness, ofFlanges,
                true},
    DerivedRule{"H/TW", "slenderness of the web between its fillets", Told::Number, webSlenderness,
                ofWebs, true},
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
        case Told::Modulus:
            return m_power + "^3";
        case Told::Weight:
            return m_isMetric ? "KG/METER" : "POUND/FEET";
        case Told::Surface:
            return large + "^2/" + large;
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
    try {
        const double figure = rule->figure(*this, deriveProperties());
        const bool isAngle = rule->told == Told::Angle;
        if (!std::isfinite(figure) || (figure == 0 && !isAngle))
            return std::nullopt;
        const std::string unit = units.of(rule->told);
        const bool isPlain = isAngle || rule->told == Told::Number;
        return Quantity(isPlain ? figure : figure / dbsection::SizeOf(unit), unit);
    } catch (const Error&) { // its columns do not tell it
        return std::nullopt;
    }
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
