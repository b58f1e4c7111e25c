#include "records/SectionLayout.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

using enum Quantity;

constexpr LayoutColumn Area_{"AX", Area, "cross-sectional area"};
constexpr LayoutColumn Torsion{"IX", Inertia, "torsion constant"};
constexpr LayoutColumn Major{"IZ", Inertia, "moment of inertia about the major axis"};
constexpr LayoutColumn Minor{"IY", Inertia, "moment of inertia about the minor axis"};
constexpr LayoutColumn WarpingConstant{"CW", Warping, "warping constant"};
constexpr LayoutColumn PlasticMajor{"ZZ", Modulus, "plastic modulus about the major axis"};
constexpr LayoutColumn PlasticMinor{"ZY", Modulus, "plastic modulus about the minor axis"};
constexpr LayoutColumn Depth{"D", Length, "depth"};
constexpr LayoutColumn Width{"B", Length, "width"};
constexpr LayoutColumn FlangeWidth{"BF", Length, "flange width"};
constexpr LayoutColumn FlangeThickness{"TF", Length, "flange thickness"};
constexpr LayoutColumn WebThickness{"TW", Length, "web thickness"};
constexpr LayoutColumn WallThickness{"T", Length, "wall thickness"};
constexpr LayoutColumn Diameter{"D", Length, "diameter"};

constexpr std::array IShapeColumns{Area_,        Depth,        FlangeWidth, FlangeThickness,
                                   WebThickness, Major,        Torsion,     WarpingConstant,
                                   Minor,        PlasticMajor, PlasticMinor};

constexpr std::array ChannelColumns{
    Area_,        Depth,
    FlangeWidth,  FlangeThickness,
    WebThickness, Major,
    Torsion,      WarpingConstant,
    Minor,        PlasticMajor,
    PlasticMinor, LayoutColumn{"CZ", Length, "centroid from the back of the web"}};

constexpr std::array TeeColumns{
    Area_,           Depth,           FlangeWidth,
    FlangeThickness, WebThickness,    Major,
    Torsion,         WarpingConstant, Minor,
    PlasticMajor,    PlasticMinor,    LayoutColumn{"CY", Length, "centroid from the flange face"}};

constexpr LayoutColumn LongerLeg{"D", Length, "longer leg"};
constexpr LayoutColumn ShorterLeg{"B", Length, "shorter leg"};
constexpr LayoutColumn LegThickness{"T", Length, "leg thickness"};
constexpr LayoutColumn AngleMajor{"IZ", Inertia,
                                  "moment of inertia about the axis along the shorter leg"};
constexpr LayoutColumn AngleMinor{"IY", Inertia,
                                  "moment of inertia about the axis along the longer leg"};
constexpr LayoutColumn AlongLongerLeg{"CY", Length, "centroid from the heel along the longer leg"};
constexpr LayoutColumn AlongShorterLeg{"CZ", Length,
                                       "centroid from the heel along the shorter leg"};
constexpr LayoutColumn LeastRadius{"RV", Length, "least radius of gyration"};
constexpr LayoutColumn PrincipalAngle{"ALPHA", Angle, "angle of the principal axes"};

constexpr std::array AngleColumns{LongerLeg,       ShorterLeg,  LegThickness,  Area_,
                                  AngleMajor,      AngleMinor,  Torsion,       AlongLongerLeg,
                                  AlongShorterLeg, LeastRadius, PrincipalAngle};

/// Of a column that tables of layout version 1 lack.
constexpr LayoutColumn Added(LayoutColumn column) {
    column.isAdded = true;
    return column;
}

constexpr std::array DoubleAngleColumns{
    LayoutColumn{"D", Length, "legs along the gap"},
    LayoutColumn{"B", Length, "outstanding legs"},
    LegThickness,
    LayoutColumn{"AX", Area, "cross-sectional area of both angles"},
    LayoutColumn{"IZ", Inertia, "moment of inertia about the axis along the outstanding legs"},
    LayoutColumn{"IY", Inertia, "moment of inertia about the axis along the gap"},
    Torsion,
    LayoutColumn{"CY", Length, "centroid from the back of the outstanding legs"},
    LayoutColumn{"CZ", Length, "centroid of one angle from the back of its leg along the gap"},
    LeastRadius,
    PrincipalAngle,
    Added({"GAP", Length, "gap between the angles, 0 where they touch"})};

constexpr std::array RectangularTubeColumns{Area_,   Depth, Width,        WallThickness, Major,
                                            Torsion, Minor, PlasticMajor, PlasticMinor};

constexpr std::array RoundTubeColumns{LayoutColumn{"OD", Length, "outside diameter"}, WallThickness,
                                      Area_, LayoutColumn{"I", Inertia, "moment of inertia"},
                                      LayoutColumn{"Z", Modulus, "plastic modulus"}};

constexpr std::array RoundBarColumns{Diameter, Area_,
                                     LayoutColumn{"I", Inertia, "moment of inertia"}};

constexpr std::array CableColumns{Diameter, Area_,
                                  LayoutColumn{"W", WeightPerLength, "weight per length"}};

constexpr std::array RectangleColumns{Depth, Width, Area_, Major, Minor, Torsion};

constexpr std::array TimberColumns{
    Depth,
    Width,
    Area_,
    Major,
    Minor,
    Torsion,
    LayoutColumn{"FB", Stress, "bending strength"},
    LayoutColumn{"FT", Stress, "tension strength along the grain"},
    LayoutColumn{"FV", Stress, "shear strength along the grain"},
    LayoutColumn{"FCP", Stress, "compression strength across the grain"},
    LayoutColumn{"FC", Stress, "compression strength along the grain"},
    LayoutColumn{"E", Stress, "modulus of elasticity"}};

constexpr std::array BulbFlatColumns{
    Depth,
    LayoutColumn{"T", Length, "web thickness"},
    LayoutColumn{"C", Length, "bulb width beyond the web"},
    LayoutColumn{"R", Length, "bulb radius"},
    Area_,
    Major,
    LayoutColumn{"CY", Length, "centroid from the edge without bulb"}};

constexpr LayoutColumn BendRadius{"R", Length, "inside bend radius"};
constexpr LayoutColumn LipDepth{"L", Length, "depth of lip, square to what it ends"};
constexpr LayoutColumn FromWeb{"CZ", Length, "centroid from the back of the web"};

constexpr std::array ColdFormedColumns{Area_, Depth,   Width, WallThickness,   BendRadius,
                                       Major, Torsion, Minor, WarpingConstant, FromWeb};

constexpr std::array ColdFormedLippedColumns{Area_,         Depth,           Width,  LipDepth,
                                             WallThickness, BendRadius,      Major,  Torsion,
                                             Minor,         WarpingConstant, FromWeb};

constexpr std::array ColdFormedAngleColumns{
    Area_,   LongerLeg,  ShorterLeg,      WallThickness,   BendRadius,           AngleMajor,
    Torsion, AngleMinor, WarpingConstant, AlongShorterLeg, Added(AlongLongerLeg)};

constexpr std::array ColdFormedAngleLippedColumns{
    Area_,      LongerLeg, ShorterLeg, LipDepth,        WallThickness,   BendRadius,
    AngleMajor, Torsion,   AngleMinor, WarpingConstant, AlongShorterLeg, Added(AlongLongerLeg)};

constexpr std::array HatColumns{
    Area_,
    Depth,
    LayoutColumn{"B", Length, "width of the top, over the webs"},
    WallThickness,
    BendRadius,
    LayoutColumn{"IZ", Inertia, "moment of inertia about the axis along the top"},
    Torsion,
    LayoutColumn{"IY", Inertia, "moment of inertia about the axis of symmetry"},
    WarpingConstant,
    FromWeb,
    Added({"L", Length, "width of each brim beyond its web"}),
    Added({"CY", Length, "centroid from the face of the top"})};

constexpr std::array EaveStrutColumns{
    Area_,         Depth,
    Width,         LipDepth,
    WallThickness, BendRadius,
    Major,         Torsion,
    Minor,         WarpingConstant,
    FromWeb,       Added({"CY", Length, "centroid from the face of the lower flange"})};

constexpr std::array CastellatedColumns{
    LayoutColumn{"RootBeam", Text, "beam that it is cut from"},
    Depth,
    LayoutColumn{"AX", Area, "cross-sectional area through the openings"},
    FlangeWidth,
    FlangeThickness,
    WebThickness,
    Major,
    Minor,
    LayoutColumn{"HO", Length, "height of the openings"},
    LayoutColumn{"S", Length, "spacing of the openings"},
    LayoutColumn{"E", Length, "length of the web post at its narrowest"},
    LayoutColumn{"DT", Length, "depth of the tee over the openings"},
    LayoutColumn{"THETA", Angle, "angle of the cut"}};

constexpr std::array AluminiumAlloyColumns{
    LayoutColumn{"Product", Text, "product form"},
    LayoutColumn{"ThLower", Length, "least thickness"},
    LayoutColumn{"ThHigher", Length, "greatest thickness"},
    LayoutColumn{"Welded", Number, "welded (1) or not (0)"},
    LayoutColumn{"Alclad", Number, "alclad (1) or not (0)"},
    LayoutColumn{"FTU", Stress, "tensile ultimate strength"},
    LayoutColumn{"FTY", Stress, "tensile yield strength"},
    LayoutColumn{"FCY", Stress, "compressive yield strength"},
    LayoutColumn{"FSU", Stress, "shear ultimate strength"},
    LayoutColumn{"E", Stress, "modulus of elasticity"}};

constexpr std::array GeneralColumns{
    Area_,
    Depth,
    Width,
    Major,
    Torsion,
    Minor,
    LayoutColumn{"SZ", Modulus, "elastic modulus about the major axis"},
    LayoutColumn{"SY", Modulus, "elastic modulus about the minor axis"},
    PlasticMajor,
    PlasticMinor,
    LayoutColumn{"AZ", Area, "shear area for the major axis"},
    LayoutColumn{"AY", Area, "shear area for the minor axis"}};

constexpr std::array JoistColumns{LayoutColumn{"SeriesID", Number, "joist series"},
                                  LayoutColumn{"Depth", Length, "depth"},
                                  LayoutColumn{"Weight", WeightPerLength, "weight per length"}};

constexpr std::array JoistGirderColumns{
    LayoutColumn{"Span", Length, "span"},
    LayoutColumn{"NumberOfJoist", Number, "number of joist spaces"},
    LayoutColumn{"Space", Length, "joist spacing"},
    LayoutColumn{"PanelPtLoad", Number, "load at each panel point"},
    LayoutColumn{"Depth", Length, "depth"},
    LayoutColumn{"Weight", WeightPerLength, "weight per length"}};

constexpr std::array Layouts{
    SectionLayout{LayoutId::IShape, "I shape", IShapeColumns},
    SectionLayout{LayoutId::Channel, "channel", ChannelColumns},
    SectionLayout{LayoutId::Tee, "tee", TeeColumns},
    SectionLayout{LayoutId::Angle, "angle", AngleColumns},
    SectionLayout{LayoutId::DoubleAngle, "double angle", DoubleAngleColumns},
    SectionLayout{LayoutId::RectangularTube, "rectangular tube", RectangularTubeColumns},
    SectionLayout{LayoutId::RoundTube, "round tube", RoundTubeColumns},
    SectionLayout{LayoutId::RoundBar, "round bar", RoundBarColumns},
    SectionLayout{LayoutId::Cable, "cable", CableColumns},
    SectionLayout{LayoutId::Rectangle, "rectangle", RectangleColumns},
    SectionLayout{LayoutId::Timber, "timber", TimberColumns},
    SectionLayout{LayoutId::BulbFlat, "bulb flat", BulbFlatColumns},
    SectionLayout{LayoutId::ColdFormedAngle, "cold-formed angle", ColdFormedAngleColumns},
    SectionLayout{LayoutId::ColdFormedAngleLipped, "cold-formed angle with lips",
                  ColdFormedAngleLippedColumns},
    SectionLayout{LayoutId::ColdFormedChannel, "cold-formed channel", ColdFormedColumns},
    SectionLayout{LayoutId::ColdFormedChannelLipped, "cold-formed channel with lips",
                  ColdFormedLippedColumns},
    SectionLayout{LayoutId::ColdFormedZee, "cold-formed zee", ColdFormedColumns},
    SectionLayout{LayoutId::ColdFormedZeeLipped, "cold-formed zee with lips",
                  ColdFormedLippedColumns},
    SectionLayout{LayoutId::Hat, "hat", HatColumns},
    SectionLayout{LayoutId::EaveStrut, "eave strut", EaveStrutColumns},
    SectionLayout{LayoutId::Castellated, "castellated", CastellatedColumns},
    SectionLayout{LayoutId::AluminiumAlloy, "aluminium alloy", AluminiumAlloyColumns},
    SectionLayout{LayoutId::General, "general", GeneralColumns},
    SectionLayout{LayoutId::Joist, "joist", JoistColumns},
    SectionLayout{LayoutId::JoistGirder, "joist girder", JoistGirderColumns},
};

bool IsAngle(LayoutId id) {
    return id == LayoutId::Angle || id == LayoutId::DoubleAngle ||
           id == LayoutId::ColdFormedAngle || id == LayoutId::ColdFormedAngleLipped;
}

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

std::span<const SectionLayout> GetSectionLayouts() { return Layouts; }

const SectionLayout& GetSectionLayout(LayoutId id) { return Layouts[static_cast<std::size_t>(id)]; }

const SectionLayout* FindSectionLayout(const char* name) {
    const auto place = std::ranges::find(Layouts, std::string_view(name), &SectionLayout::name);
    return place == Layouts.end() ? nullptr : &*place;
}

std::vector<int> GetDisplayOrder(LayoutId id) {
    static constexpr std::array First{"AX", "D", "B", "T"};
    const auto columns = GetSectionLayout(id).columns;
    std::vector<int> order;
    for (const std::string_view name : std::span(First).first(IsAngle(id) ? 4 : 1)) {
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
