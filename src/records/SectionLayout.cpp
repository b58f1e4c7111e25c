#include "records/SectionLayout.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace {

/// What a column tells.
struct Property {
    Quantity quantity;
    const char* meaning;
    bool mayBeZero = false;
};

using enum Quantity;

constexpr Property CrossSection{Area, "cross-sectional area"};
constexpr Property CrossSectionOfBoth{Area, "cross-sectional area of both angles"};
constexpr Property CrossSectionAtOpenings{Area, "cross-sectional area through the openings"};
constexpr Property MajorShearArea{Area, "shear area for the major axis"};
constexpr Property MinorShearArea{Area, "shear area for the minor axis"};

constexpr Property Depth{Length, "depth"};
constexpr Property Width{Length, "width"};
constexpr Property Diameter{Length, "diameter"};
constexpr Property OutsideDiameter{Length, "outside diameter"};
constexpr Property WallThickness{Length, "wall thickness"};
constexpr Property FlangeWidth{Length, "flange width"};
constexpr Property FlangeThickness{Length, "flange thickness"};
constexpr Property WebThickness{Length, "web thickness"};
constexpr Property LongerLeg{Length, "longer leg"};
constexpr Property ShorterLeg{Length, "shorter leg"};
constexpr Property LegThickness{Length, "leg thickness"};
constexpr Property LegsAlongGap{Length, "legs along the gap"};
constexpr Property OutstandingLegs{Length, "outstanding legs"};
constexpr Property GapWidth{Length, "gap between the angles, 0 where they touch", true};
constexpr Property BulbWidth{Length, "bulb width beyond the web"};
constexpr Property BulbRadius{Length, "bulb radius"};
constexpr Property BendRadius{Length, "inside bend radius"};
constexpr Property LipDepth{Length, "depth of lip, square to what it ends"};
constexpr Property TopWidth{Length, "width of the top, over the webs"};
constexpr Property BrimWidth{Length, "width of each brim beyond its web"};
constexpr Property OpeningHeight{Length, "height of the openings"};
constexpr Property OpeningSpacing{Length, "spacing of the openings"};
constexpr Property WebPost{Length, "length of the web post at its narrowest"};
constexpr Property TeeDepth{Length, "depth of the tee over the openings"};
constexpr Property CutAngle{Angle, "angle of the cut"};

constexpr Property CentroidFromWeb{Length, "centroid from the back of the web"};
constexpr Property CentroidFromFlange{Length, "centroid from the flange face"};
constexpr Property CentroidFromLowerFlange{Length, "centroid from the face of the lower flange"};
constexpr Property CentroidFromTop{Length, "centroid from the face of the top"};
constexpr Property CentroidFromBareEdge{Length, "centroid from the edge without bulb"};
constexpr Property CentroidAlongLongerLeg{Length, "centroid from the heel along the longer leg"};
constexpr Property CentroidAlongShorterLeg{Length, "centroid from the heel along the shorter leg"};
constexpr Property CentroidFromOutstandingLegs{Length,
                                               "centroid from the back of the outstanding legs"};
constexpr Property CentroidOfOneFromGapLeg{
    Length, "centroid of one angle from the back of its leg along the gap"};

constexpr Property MajorInertia{Inertia, "moment of inertia about the major axis"};
constexpr Property MinorInertia{Inertia, "moment of inertia about the minor axis"};
constexpr Property InertiaOfRound{Inertia, "moment of inertia"};
constexpr Property InertiaAlongShorterLeg{Inertia,
                                          "moment of inertia about the axis along the shorter leg"};
constexpr Property InertiaAlongLongerLeg{Inertia,
                                         "moment of inertia about the axis along the longer leg"};
constexpr Property InertiaAlongOutstandingLegs{
    Inertia, "moment of inertia about the axis along the outstanding legs"};
constexpr Property InertiaAlongGap{Inertia, "moment of inertia about the axis along the gap"};
constexpr Property InertiaAlongTop{Inertia, "moment of inertia about the axis along the top"};
constexpr Property InertiaAboutSymmetry{Inertia, "moment of inertia about the axis of symmetry"};
constexpr Property LeastRadius{Length, "least radius of gyration"};
constexpr Property PrincipalAngle{Angle, "angle of the principal axes"};
constexpr Property TorsionConstant{Inertia, "torsion constant"};
constexpr Property WarpingConstant{Warping, "warping constant", true};
constexpr Property MajorElasticModulus{Modulus, "elastic modulus about the major axis"};
constexpr Property MinorElasticModulus{Modulus, "elastic modulus about the minor axis"};
constexpr Property MajorPlasticModulus{Modulus, "plastic modulus about the major axis"};
constexpr Property MinorPlasticModulus{Modulus, "plastic modulus about the minor axis"};
constexpr Property PlasticModulusOfRound{Modulus, "plastic modulus"};
constexpr Property Weight{WeightPerLength, "weight per length"};

constexpr Property BendingStrength{Stress, "bending strength"};
constexpr Property TensionAlongGrain{Stress, "tension strength along the grain"};
constexpr Property ShearAlongGrain{Stress, "shear strength along the grain"};
constexpr Property CompressionAcrossGrain{Stress, "compression strength across the grain"};
constexpr Property CompressionAlongGrain{Stress, "compression strength along the grain"};
constexpr Property ModulusOfElasticity{Stress, "modulus of elasticity"};
constexpr Property TensileUltimate{Stress, "tensile ultimate strength"};
constexpr Property TensileYield{Stress, "tensile yield strength"};
constexpr Property CompressiveYield{Stress, "compressive yield strength"};
constexpr Property ShearUltimate{Stress, "shear ultimate strength"};

constexpr Property RootBeam{Text, "beam that it is cut from"};
constexpr Property ProductForm{Text, "product form"};
constexpr Property LeastThickness{Length, "least thickness, 0 where there is none", true};
constexpr Property GreatestThickness{Length, "greatest thickness"};
constexpr Property IsWelded{Number, "welded (1) or not (0)"};
constexpr Property IsAlclad{Number, "alclad (1) or not (0)"};

constexpr Property JoistSeries{Number, "joist series"};
constexpr Property Span{Length, "span"};
constexpr Property JoistSpaces{Number, "number of joist spaces"};
constexpr Property JoistSpacing{Length, "joist spacing"};
constexpr Property PanelPointLoad{Number, "load at each panel point"};

constexpr LayoutColumn Column(const char* name, const Property& property, bool isAdded = false) {
    return {name, property.quantity, property.meaning, isAdded, property.mayBeZero};
}

#define SECTION_LAYOUT(id, name, shape) constexpr std::array id##Columns {
#define SECTION_NUMBER(column, property) Column(#column, property),
#define SECTION_TEXT(column, property) Column(#column, property),
#define SECTION_ADDED(column, property) Column(#column, property, true),
#define END_SECTION_LAYOUT(id)                                                                     \
    }                                                                                              \
    ;
#include "records/Layouts.def"

constexpr std::array Layouts{
#define SECTION_LAYOUT(id, name, shape)                                                            \
    SectionLayout{LayoutId::id, name, ShapeType::shape, id##Columns},
#include "records/Layouts.def"
};

/// Layouts are found by their place; display values have room for 16 columns; added columns move no
/// other.
constexpr bool AreConsistent() {
    constexpr std::size_t MostColumns = 16;
    std::size_t place = 0;
    return std::ranges::all_of(Layouts, [&](const SectionLayout& layout) {
        return static_cast<std::size_t>(layout.id) == place++ &&
               layout.columns.size() <= MostColumns &&
               std::ranges::is_sorted(layout.columns, {}, &LayoutColumn::isAdded);
    });
}
static_assert(AreConsistent());

} // namespace

bool LayoutColumn::Allows(double figure) const {
    const bool isAny = quantity == Quantity::Number || quantity == Quantity::Angle;
    return std::isfinite(figure) && (isAny || figure > 0 || (mayBeZero && figure == 0));
}

std::span<const SectionLayout> GetSectionLayouts() { return Layouts; }

const SectionLayout& GetSectionLayout(LayoutId id) { return Layouts[static_cast<std::size_t>(id)]; }

const SectionLayout* FindSectionLayout(const char* name) {
    const auto place = std::ranges::find(Layouts, std::string_view(name), &SectionLayout::name);
    return place == Layouts.end() ? nullptr : &*place;
}

std::vector<int> GetDisplayOrder(LayoutId id) {
    static constexpr std::array First{"AX", "D", "B", "T"};
    const SectionLayout& layout = GetSectionLayout(id);
    const auto& columns = layout.columns;
    const bool isAngle = layout.shape == ShapeType::Angle || layout.shape == ShapeType::DoubleAngle;
    std::vector<int> order;
    for (const std::string_view name : std::span(First).first(isAngle ? 4 : 1)) {
        const auto place = std::ranges::find(columns, name, &LayoutColumn::name);
        if (place != columns.end())
            order.push_back(static_cast<int>(place - columns.begin()));
    }
    for (int i = 0; i < std::ssize(columns); ++i)
        if (columns[static_cast<std::size_t>(i)].quantity != Quantity::Text &&
            std::ranges::find(order, i) == order.end())
            order.push_back(i);
    return order;
}
