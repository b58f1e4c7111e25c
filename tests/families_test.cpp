// The catalogue classes, their families, and the driver that owns them.
#include "CatalogueFixture.h"

#include "catalogues/Catalogues.h"
#include "catalogues/SectionDBDriver.h"

#include <map>
#include <set>
#include <string_view>

using namespace testsupport;

namespace {

template <class Catalogue>
bool Is(SectionDBBase* object) {
    return dynamic_cast<Catalogue*>(object) != nullptr;
}

/// What tells a catalogue from the others: its class, the number of its section types, and one of
/// them.
struct KnownCatalogue {
    WORD index;
    bool (*isOfClass)(SectionDBBase*);
    int typeCount;
    int type;
    const char* table;
};

constexpr KnownCatalogue KnownCatalogues[] = {
    {1, Is<AISCSectionDB>, 18, 24, "HSS Round A1085"},
    {2, Is<AustralianSectionDB>, 11, 10, "Tube"},
    {3, Is<BritishSectionDB>, 8, 4, "JO Shape"},
    {4, Is<CanadianSectionDB>, 12, 5, "WW Shape"},
    {5, Is<ChineseSectionDB>, 7, 7, "H Shape"},
    {6, Is<DutchSectionDB>, 10, 8, "PlateStrip"},
    {7, Is<EuropeanSectionDB>, 20, 1, "IPE Shape"},
    {8, Is<FrenchSectionDB>, 7, 3, "IPN Shape"},
    {9, Is<GermanSectionDB>, 7, 4, "U Channel"},
    {10, Is<IndianSectionDB>, 11, 10, "WPB Shape"},
    {11, Is<JapaneseSectionDB>, 13, 52, "T Shape Old"},
    {12, Is<RussianSectionDB>, 8, 2, "SH Shape"},
    {13, Is<SouthAfricanSectionDB>, 7, 3, "PG Shape"},
    {14, Is<SpanishSectionDB>, 7, 3, "IPN Shape"},
    {15, Is<VenezuelanSectionDB>, 5, 1, "Beam"},
    {16, Is<KoreanSectionDB>, 8, 7, "Pipe"},
    {17, Is<AluminumSectionDB>, 22, 22, "Alloy"},
    {18, Is<USColdFormSectionDB>, 9, 9, "Tube"},
    {19, Is<ISColdFormSectionDB>, 7, 7, "Hat"},
    {20, Is<MexicanSectionDB>, 9, 9, "ORtubeR"},
    {21, Is<AISCSteelJoistSectionDB>, 5, 5, "JoistGirderMaster"},
    {22, Is<AITCTimberSectionDB>, 42, 42, "Yellow Poplar"},
    {23, Is<LysaghtSectionDB>, 2, 6, "Zee with Lips"},
    {24, Is<BSColdFormSectionDB>, 9, 8, "Pipe"},
    {25, Is<CanadianTimberSectionDB>, 5, 5, "Spruce-Pine-Fir"},
    {26, Is<ButlerSectionDB>, 6, 12, "SolidRound"},
    {27, Is<KingspanSectionDB>, 9, 5, "Zee without Lips"},
    {28, Is<RCecoColdFormSectionDB>, 10, 10, "Eave Struts"},
    {29, Is<JapaneseColdformSectionDB>, 3, 13, "BCR 295"},
    {30, Is<AUSColdFormSectionDB>, 3, 3, "CHS"},
    {31, Is<RusColdFormedSectionDB>, 1, 8, "Pipe"},
    {32, Is<STOASChMSectionDB>, 3, 3, "K Shape"},
    {33, Is<JindalSectionDB>, 7, 6, "WPB Shape"},
    {34, Is<EUColdFormSectionDB>, 3, 1, "RHS"},
    {35, Is<TataStructuraSectionDB>, 3, 2, "SHS"},
    {36, Is<BrazilianSectionDB>, 14, 14, "S Shape"},
    {37, Is<APLApolloTubesSectionDB>, 3, 3, "CHS"},
    {1001, Is<UserSectionDB>, 10, 2009, "ISection"},
    {1010, Is<GenericSectionDB>, 10, 20, "General"},
};

TEST(Driver, HandsOutEveryCatalogueUnderItsIndex) {
    SectionDBDriverImpl driver;
    EXPECT_EQ(driver.GetSectionDBObject(1), nullptr);
    EXPECT_EQ(driver.CreateSectionDBObjects(), 1);
    EXPECT_EQ(driver.GetObjectCount(), 39);
    for (const auto& [index, isOfClass, typeCount, type, table] : KnownCatalogues) {
        SCOPED_TRACE(index);
        SectionDBBase* catalogue = driver.GetSectionDBObject(index);
        ASSERT_NE(catalogue, nullptr);
        EXPECT_TRUE(isOfClass(catalogue));
        for (int time = 0; time < 2; ++time) {
            EXPECT_EQ(catalogue->TableNames().GetCount(), typeCount);
            EXPECT_EQ(catalogue->GetTableName(type), table);
            catalogue->InitTableNameMap();
        }
    }
    for (const WORD unknown : std::initializer_list<WORD>{0, 38, 1000, 1002, 1009, 1011, 65535})
        EXPECT_EQ(driver.GetSectionDBObject(unknown), nullptr) << unknown;
}

TEST(Driver, MakesAFreshSetOnlyAfterDeletion) {
    TempFolder folder;
    CatalogueFile file(folder.File("x.db3"));
    SectionDBDriverImpl driver;
    driver.DeleteSectionDBObjects();
    driver.CreateSectionDBObjects();
    SectionDBBase* first = driver.GetSectionDBObject(1);
    first->SetDatabase(file.Database());
    driver.CreateSectionDBObjects();
    EXPECT_EQ(driver.GetObjectCount(), 39);
    EXPECT_EQ(driver.GetSectionDBObject(1), first);
    EXPECT_EQ(first->OpenSectionDatabase(), 1);

    driver.DeleteSectionDBObjects();
    EXPECT_EQ(driver.GetObjectCount(), 0);
    EXPECT_TRUE(file.Database()->IsOpen()); // it was only attached
    driver.CreateSectionDBObjects();
    SectionLibraryState::SetEngineMode(1);
    EXPECT_EQ(driver.GetSectionDBObject(1)->OpenSectionDatabase(), 0);
    SectionLibraryState::SetEngineMode(0);
}

/// The shape type of a layout's sections; 8 of those of no simple shape.
int ShapeOf(LayoutId layout) {
    static const std::map<LayoutId, int> shapes{
        {LayoutId::IShape, 1},
        {LayoutId::Castellated, 1},
        {LayoutId::Channel, 2},
        {LayoutId::ColdFormedChannel, 2},
        {LayoutId::ColdFormedChannelLipped, 2},
        {LayoutId::EaveStrut, 2},
        {LayoutId::Angle, 3},
        {LayoutId::ColdFormedAngle, 3},
        {LayoutId::ColdFormedAngleLipped, 3},
        {LayoutId::DoubleAngle, 4},
        {LayoutId::Tee, 5},
        {LayoutId::RoundTube, 6},
        {LayoutId::RoundBar, 6},
        {LayoutId::RectangularTube, 7},
        {LayoutId::Rectangle, 10},
        {LayoutId::Timber, 10},
    };
    return shapes.contains(layout) ? shapes.at(layout) : 8;
}

TEST(Families, AreToldApartByTypeAndTable) {
    SectionDBDriverImpl driver;
    driver.CreateSectionDBObjects();
    for (const KnownCatalogue& known : KnownCatalogues) {
        SCOPED_TRACE(known.index);
        auto* catalogue = dynamic_cast<CatalogueSectionDB*>(driver.GetSectionDBObject(known.index));
        std::set<std::string> tables;
        for (const SectionFamily& family : catalogue->Families()) {
            tables.insert(family.table);
            EXPECT_EQ(catalogue->GetTableName(family.sectionType), family.table);
            EXPECT_EQ(catalogue->GetShapeType(family.sectionType), family.shapeType);
            const bool isOfUser = std::string_view(family.table) == "ISection";
            EXPECT_EQ(family.shapeType, isOfUser ? 9 : ShapeOf(family.layout)) << family.table;
        }
        // Four types of steel joist share a table.
        EXPECT_EQ(static_cast<int>(tables.size()), known.index == 21 ? 2 : known.typeCount);
        EXPECT_EQ(catalogue->FindFamily("w shape"), nullptr);
        EXPECT_EQ(catalogue->GetTableName(0), "");
        EXPECT_EQ(catalogue->GetShapeType(0), 0);
    }
}

TEST(Families, KeepTheirOrder) {
    std::vector<int> types;
    const AISCSectionDB american;
    for (const SectionFamily& family : american.Families())
        types.push_back(family.sectionType);
    EXPECT_EQ(types, (std::vector{1, 2, 3, 5, 4, 6, 7, 8, 9, 10, 11, 12, 23, 24, 13, 14, 15, 16}));

    EXPECT_EQ(UserSectionDB().GetShapeType(2009), 9); // its own, unlike other I shapes

    const AITCTimberSectionDB timber;
    EXPECT_EQ(timber.GetTableName(1), "Glued Laminated Timber");
    EXPECT_EQ(timber.GetTableName(2), "Aspen");
    for (int species = 3; species <= 42; ++species) // in the order of the alphabet
        EXPECT_LT(timber.GetTableName(species - 1), timber.GetTableName(species));
}

} // namespace
