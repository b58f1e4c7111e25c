// The entry points of the analysis engine for joists, girders and alloys, all of which are made up.
#include "EngineSupport.h"
#include "JoistFixture.h"

using namespace testsupport;

namespace {

constexpr std::int32_t Catalogue = 21;
constexpr std::int32_t KSeries = 1;
constexpr std::int32_t KcsSeries = 2;
constexpr std::int32_t LHSeries = 3;
constexpr std::int32_t DLHSeries = 4;
constexpr std::int32_t Girders = 5;

class EngineJoistTest : public EngineCallTest {
protected:
    EngineJoistTest() {
        MakeJoistCatalogue(File("AISCSteelJoists.db3"));
        Open(Catalogue);
    }

    static List KJoists(float span, float total, float live) {
        return Ask(GETKSERIESSTEELJOISTS, Catalogue, KSeries, span, total, live, Millimetre);
    }
    static List LongSpan(decltype(GETLHSERIESSTEELJOISTS) query, std::int32_t series,
                         std::int32_t loadType, float span, float depth, float load1, float load2) {
        return Ask(query, Catalogue, series, loadType, span, depth, load1, load2, Millimetre);
    }
    static List JoistGirders(float span, float load) {
        return Ask(GETJOISTGIRDERS, Catalogue, Girders, span, 0, load, 0.0F, Millimetre);
    }
    static EngineAnswer One(decltype(GETSTEELJOIST) query, std::int32_t series,
                            const std::string& name) {
        return Find(query, Catalogue, series, name, Millimetre);
    }
};

TEST_F(EngineJoistTest, ListsEachKindInItsSlotAsStored) {
    EXPECT_EQ(KJoists(20, 250, 150).count, 2);
    EXPECT_EQ(Walk(5), "k-light k-heavy");
    EXPECT_EQ(Move(GETFIRSTSECTION, 5).values[0], 10); // inches, whatever is asked for
    EXPECT_EQ(Ask(GETKCSSERIESSTEELJOISTS, Catalogue, KcsSeries, 500.0F, 4000.0F, Millimetre).count,
              1);
    EXPECT_EQ(Walk(6), "KCS");
    EXPECT_EQ(LongSpan(GETLHSERIESSTEELJOISTS, LHSeries, 2, 22, 19, 900, 500).count, 1);
    EXPECT_EQ(Walk(7), "lh-24");
    EXPECT_EQ(LongSpan(GETDLHSERIESSTEELJOISTS, DLHSeries, 2, 22, 19, 900, 500).count, 1);
    EXPECT_EQ(Walk(7), "dlh"); // both share the slot
    EXPECT_EQ(JoistGirders(20, 4).count, 2);
    EXPECT_EQ(Walk(8), "30S24G5N4.5K 30S28G5N4.5K");
    EXPECT_EQ(Walk(5), "k-light k-heavy");

    std::int32_t slot = 5;
    std::int32_t err = -7;
    CLOSESECTIONRECORDSET(&slot, &err);
    EXPECT_EQ(Move(GETFIRSTSECTION, 5).status, 0);
    KJoists(20, 250, 150);
    EXPECT_EQ(Move(GETFIRSTSECTION, 5).values[0], 0); // a closed slot's factors stay 0
}

TEST_F(EngineJoistTest, FindsOneByDesignation) {
    EngineAnswer joist = One(GETSTEELJOIST, KcsSeries, "kcs ");
    EXPECT_EQ(joist.values[1], 9);
    EXPECT_EQ(joist.count, 0); // that of slot 7
    LongSpan(GETLHSERIESSTEELJOISTS, LHSeries, 2, 22, 19, 900, 500);
    EXPECT_EQ(One(GETSTEELJOIST, KcsSeries, "no such joist").count, 1);
    for (const char* girder : {"30S24G5N4.5K", " 30S 24g 5N +4.5k "}) {
        const EngineAnswer answer = One(GETJOISTGIRDER, Girders, girder);
        EXPECT_EQ(answer.count, 1) << girder;
        EXPECT_EQ(answer.values[0], 30);
        EXPECT_EQ(answer.values[4], 24);
    }
    std::int32_t loadType = -7;
    std::int32_t err = -7;
    Enter(FINDLHSERIESLOADTYPE, Catalogue, LHSeries, 30.0F, 20.0F, &loadType, &err);
    EXPECT_EQ(loadType, 1);
    Enter(FINDDLHSERIESLOADTYPE, Catalogue, DLHSeries, 30.0F, 20.0F, &loadType, &err);
    EXPECT_EQ(loadType, 0);
}

TEST_F(EngineJoistTest, NamesJoistsOfAllSeriesByDesignationInTheListsOfATable) {
    const std::int32_t keys[] = {-1, 0};
    const auto sorted = [&](std::int32_t series) {
        return Ask(GETSORTEDSECTIONS, Catalogue, series, keys, 1, AsStored).count;
    };
    EXPECT_EQ(sorted(KSeries), 6);
    EXPECT_EQ(Walk(1), "k-light k-heavy KCS lh-20 lh-24 dlh");
    EXPECT_EQ(sorted(Girders), 3);
    EXPECT_EQ(Walk(1), "30S24G5N 30S28G5N 36S28G6N"); // their loads stand elsewhere
    Ask(GETLIKESORTEDSECTIONS, Catalogue, LHSeries, keys, 1, "lh", AsStored);
    EXPECT_EQ(Walk(2), "lh-20 lh-24");
}

TEST_F(EngineJoistTest, AGirderOfTheCursorLeavesTheSingleSectionUnconverted) {
    constexpr std::int32_t American = 1;
    {
        CatalogueFile file(File("AISCSections.db3"));
        file.AddTable("W Shape", LayoutId::IShape, {W12X26});
        AddJoistTables(file);
    }
    Open(American);
    Get(American, 1, "W12X26", Millimetre);
    EXPECT_NEAR(Move(GETFIRSTSECTION, 0).values[1], 309.88, 1e-3);
    EXPECT_EQ(JoistGirders(20, 4).valueCount, 8);
    EXPECT_EQ(Move(GETFIRSTSECTION, 8).values[0], 30);
    const EngineAnswer beam = Move(GETFIRSTSECTION, 0);
    EXPECT_EQ(beam.values[1], 12.2F);                           // of the columns 0 to 7
    EXPECT_NEAR(beam.values[5] / (204 * 416231.4256), 1, 1e-6); // column 8
}

TEST_F(EngineJoistTest, ReadsTheStrengthsOfAnAlloy) {
    CatalogueFile(File("AluminumSections.db3"))
        .AddTable("Alloy", LayoutId::AluminiumAlloy,
                  {{"6061",
                    "6061",
                    {COleVariant("Pipe"), 0.0, 1.0, 0.0, 0.0, 38.0, 35.0, 35.0, 24.0, 10100.0}}});
    Open(17);
    constexpr std::int32_t Pipe = 3, No = 0, Kilonewton = 2007;
    const EngineAnswer alloy = Find(GETALUMINIUMMATERIALPROPERTY, 17, 22, "6061", Pipe, No, No,
                                    0.5F, Millimetre, Kilonewton);
    EXPECT_EQ(alloy.count, 1);
    EXPECT_EQ(alloy.valueCount, 10);
    EXPECT_NEAR(alloy.values[1], 25.4, 1e-4); // the greatest thickness
    EXPECT_NEAR(alloy.values[4], 38 * 4.448222 / (25.4 * 25.4), 1e-5);
    EXPECT_EQ(alloy.values[9], -1);
}

} // namespace
