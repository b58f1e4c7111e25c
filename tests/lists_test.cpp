// Section lists and records of the façade, and the angle of the principal axes.
#include "FacadeSupport.h"

#include "interface/PrincipalAngle.h"
#include "units/UNIT.h"

#include <cmath>
#include <memory>
#include <utility>

using namespace testsupport;

namespace {

using Texts = std::vector<CString>;

/// The content of a list or array that is the caller's now.
template <class Container>
Texts Take(Container* container) {
    const std::unique_ptr<Container> owned(container);
    if (!owned)
        return {"null"};
    return {owned->begin(), owned->end()};
}

class ListsTest : public FacadeTest {
protected:
    ListsTest() {
        CatalogueFile file(File("AISCSections.db3"));
        file.AddTable("Cable", LayoutId::Cable,
                      {{"P1", "B", {2.0}}, {"P2", "A", {1.0}}, {"P3", "C", {1.0}}});
        file.AddTable("W Shape", LayoutId::IShape, {W12X26});
    }
    static constexpr int Cable = 16;
    static constexpr int Pipe = 10; // has no table in the file
};

TEST_F(ListsTest, ListsNames) {
    CUIntArray ids;
    EXPECT_EQ(Take(Facade::GetSectionNameList(1, Cable, 1)), (Texts{"B", "A", "C"}));
    EXPECT_EQ(Take(Facade::GetSectionNameList(1, Cable, &ids, 0)), (Texts{"B", "A", "C"}));
    EXPECT_EQ(std::vector(ids.begin(), ids.end()), (std::vector<unsigned int>{1, 2, 3}));
    EXPECT_EQ(Take(Facade::GetSectionPublicNameList(1, Cable, 1)), (Texts{"P1", "P2", "P3"}));
    EXPECT_EQ(Take(Facade::GetSectionPublicNameList(1, Cable, &ids, 1)), (Texts{"P1", "P2", "P3"}));
    CStringArray fields;
    fields.Add("D");
    fields.Add("VessaName");
    EXPECT_EQ(Take(Facade::GetSortedSectionNameList(1, Cable, &fields, 0)), (Texts{"A", "C", "B"}));

    Texts out{"before"};
    Facade::GetSectionNameList(1, Cable, &ids, out, 0);
    EXPECT_EQ(out, (Texts{"B", "A", "C"}));
    Facade::GetSectionPublicNameList(1, Cable, nullptr, out, 1);
    EXPECT_EQ(out, (Texts{"P1", "P2", "P3"}));
    Facade::GetSectionPublicNameList(2, Cable, nullptr, out, 1);
    EXPECT_EQ(out, Texts{});
}

TEST_F(ListsTest, ListsColumnsAndTheirUnits) {
    EXPECT_EQ(Take(Facade::GetSectionFieldNameArray(1, Cable)),
              (Texts{"RECNO", "Name", "VessaName", "D", "AX", "W"}));
    Texts units = Take(Facade::GetSectionFieldUnitsArray(1, Cable));
    units.resize(5);
    EXPECT_EQ(units, (Texts{"NUMBER", "TEXT", "TEXT", "INCHES", "INCHES^2"}));
}

TEST_F(ListsTest, NothingFoundIsEmptyAndNoCatalogueIsNull) {
    for (const int type : {Pipe, 17}) {
        EXPECT_EQ(Take(Facade::GetSectionNameList(1, type, 0)), Texts{});
        EXPECT_EQ(Take(Facade::GetSortedSectionNameList(1, type, nullptr, 0)), Texts{});
        EXPECT_EQ(Take(Facade::GetSectionFieldNameArray(1, type)), Texts{});
        EXPECT_EQ(Take(Facade::GetSectionFieldUnitsArray(1, type)), Texts{});
    }
    int type = 7;
    EXPECT_EQ(Facade::GetSectionData(1, "nothing", type, ""), nullptr);
    EXPECT_EQ(Facade::GetSectionStructProperty(1, "nothing", type, 1001, 2001, ""), nullptr);
    for (const int index : {0, 2, 38, 1001, 1010}) {
        EXPECT_EQ(Take(Facade::GetSectionNameList(index, 1, 0)), Texts{"null"});
        EXPECT_EQ(Take(Facade::GetSectionFieldNameArray(index, 1)), Texts{"null"});
        EXPECT_EQ(Facade::GetSectionData(index, "W12X26", type, ""), nullptr);
        EXPECT_EQ(Facade::GetSectionStructProperty(index, "W12X26", type, 1001, 2001, ""), nullptr);
        double angle = 1;
        EXPECT_EQ(Facade::GetSectionPrincipalAngle(index, "W12X26", &angle), 0);
        EXPECT_EQ(angle, 0.0);
        int shape = 7;
        float value = 7;
        EXPECT_EQ(Facade::GetSectionDataForGUI(index, "W12X26", &shape, &value, "", 1001, 2001), 0);
        EXPECT_EQ(Facade::GetSectionDataForGUI_NoDbi(index, "W12X26", &shape, &value, "", 0, 0), 0);
        EXPECT_EQ(shape, 7);
        EXPECT_EQ(value, 7);
    }
    EXPECT_EQ(type, 7);
    EXPECT_EQ(shownBoxes, std::vector<Box>{});
}

TEST_F(ListsTest, RecordsAreTheCallers) {
    int type = 0;
    void* row = Facade::GetSectionData(1, "w12x26", type, "");
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(type, 1);
    EXPECT_EQ(static_cast<SectionRecord*>(row)->Number(4), 12.2);
    void* summary = Facade::GetSectionStructProperty(1, "w12x26", type, 1004, 2007, "");
    ASSERT_NE(summary, nullptr);
    const auto* info = dynamic_cast<SECTIONINFO*>(static_cast<SectionRecord*>(summary));
    ASSERT_NE(info, nullptr);
    EXPECT_EQ(info->PublicName, "W12X26");
    EXPECT_NEAR(info->Area, 7.65 * 25.4 * 25.4, 0.5);
    Facade::ExitSectionDBInterface(); // the records do not depend on the library's state
    for (void* record : {row, summary, static_cast<void*>(nullptr)})
        Facade::FreeSectionData(record);
}

TEST_F(ListsTest, AMissingUnitLeavesItsValuesUnconverted) {
    const auto displayed = [] {
        std::vector<float> values(16);
        int shapeType = 0;
        Facade::GetSectionDataForGUI(1, "W12X26", &shapeType, values.data(), "", 1004, 2007);
        CString name;
        float byRecord[16] = {};
        Facade::GetSectionDataForGUI(1, 1, 1, &name, byRecord, "", 1004, 2007);
        CStringArray names;
        float all[1][16] = {};
        Facade::GetAllSectionDataForGUI(1, 1, &names, all, "", 1004, 2007);
        EXPECT_TRUE(std::ranges::equal(values, byRecord) && std::ranges::equal(values, all[0]));
        double angle = 7;
        EXPECT_EQ(Facade::GetSectionPrincipalAngle(1, "W12X26", &angle), 1);
        EXPECT_EQ(angle, 0);
        return std::vector(values.begin(), values.begin() + 3); // area, depth, width
    };
    UNIT::DeleteFieldUnits(Facade::GetDatabasePtr(1), "W Shape");
    EXPECT_EQ(displayed(), (std::vector{7.65F, 12.2F, 6.49F}));
    CStringArray units;
    for (const char* unit : {"W Shape", "NUMBER", "TEXT", "TEXT", "INCHES^2", "INCHES"})
        units.Add(unit);
    UNIT::WriteFieldUnits(Facade::GetDatabasePtr(1), &units);
    EXPECT_EQ(displayed(), (std::vector{4935.474F, 309.88F, 6.49F}));
}

TEST_F(ListsTest, AnAngleWithLipsIsDisplayedByItsLegsAndThickness) {
    constexpr int ColdFormed = 24;
    CatalogueFile(File("BSColdFormedSections.db3"))
        .AddTable("Angle with Lips", LayoutId::ColdFormedAngleLipped,
                  {{"L", "L80X40X15X2", {284.0, 80.0, 40.0, 15.0, 2.0, 3.0}}});
    int shapeType = 0;
    float values[16] = {};
    EXPECT_EQ(
        Facade::GetSectionDataForGUI(ColdFormed, "L80X40X15X2", &shapeType, values, "", 1001, 2001),
        1);
    EXPECT_EQ(shapeType, 3);
    EXPECT_EQ(std::vector(values, values + 6), (std::vector{284.F, 80.F, 40.F, 2.F, 15.F, 3.F}));
    double angle = 0;
    EXPECT_EQ(Facade::GetSectionPrincipalAngle(ColdFormed, "L80X40X15X2", &angle), 1);
    EXPECT_NEAR(angle, 15.49, 0.005); // that of the legs; with the lips it is 15.68
}

TEST_F(ListsTest, ASpeciesOfTimberIsWithheldByItsOwnSelection) {
    {
        CatalogueFile file(File("AITCTimberSections.db3"));
        for (const char* table : {"Aspen", "Redwood"})
            file.AddTable(table, LayoutId::Timber, {{"2 x 4", table, {3.5, 1.5, 5.25}}});
    }
    Facade::SetDBIFileName(File("tables.dbi").c_str());
    constexpr int Timber = 22;
    const auto displayed = [&](const char* selections) {
        WriteFile(File("tables.dbi"), std::string("[AITCTimberSections]\n") + selections);
        float values[16] = {};
        int shapeType = 0;
        std::string species;
        for (const char* name : {"Aspen", "Redwood"})
            if (Facade::GetSectionDataForGUI(Timber, name, &shapeType, values, "", 1001, 2001) == 1)
                species += name;
        EXPECT_EQ(shapeType, 10);
        return species;
    };
    EXPECT_EQ(displayed("Aspen=0\nRedwood=-1\n"), "Aspen");
    EXPECT_EQ(displayed("Aspen=-1\nRedwood=1\n"), "Redwood");
    int type = 0;
    void* record = Facade::GetSectionData(Timber, "Redwood", type, "");
    EXPECT_EQ(type, 2); // as whose rows all species are read
    Facade::FreeSectionData(record);
}

TEST_F(ListsTest, ASectionThatIsNotSelectedIsWithheld) {
    Facade::SetDBIFileName(File("tables.dbi").c_str());
    const auto displayed = [&](const char* selected) {
        WriteFile(File("tables.dbi"), std::string("[AISCSections]\nW Shape=") + selected + "\n");
        float values[16] = {};
        int shapeType = 0;
        const int result =
            Facade::GetSectionDataForGUI(1, "w12x26", &shapeType, values, "", 1001, 2001);
        EXPECT_EQ(values[0], 7.65F); // written all the same
        EXPECT_EQ(std::exchange(shapeType, 0), 1);
        EXPECT_EQ(Facade::GetSectionDataForGUI_NoDbi(1, "w12x26", &shapeType, values, "", 0, 0), 1);
        EXPECT_EQ(shapeType, 1);
        return result;
    };
    EXPECT_EQ(displayed("0"), 1);
    EXPECT_EQ(displayed("1,7"), 1); // it is the first row
    EXPECT_EQ(displayed("2,7"), 0);
    EXPECT_EQ(displayed("-1"), 0);
}

TEST(PrincipalAngle, AgreesWithPublishedAngles) {
    struct Case {
        const char* name;
        dbsection::AngleSection angle;
        double publishedTangent;
    };
    for (const Case& c : {Case{"L203x152x25", {8370, 203, 152, 25.4}, 0.541},
                          {"L203x102x25", {7100, 203, 102, 25.4}, 0.249},
                          {"L127x89x7.9", {1650, 127, 88.9, 7.94}, 0.489},
                          {"L178x102x16", {4200, 178, 102, 15.9}, 0.331},
                          {"200 x 150 x 18", {60.1, 20, 15, 1.8}, 0.549},
                          {"150 x 75 x 15", {31.7, 15, 7.5, 1.5}, 0.253},
                          {"L4X3-1/2X3/8", {2.68, 4, 3.5, 0.375}, 0.755}}) {
        const double published = std::atan(c.publishedTangent) * 180 / 3.14159265358979;
        EXPECT_NEAR(dbsection::PrincipalAngle(c.angle), published, 0.5) << c.name;
        const auto [area, depth, width, thickness] = c.angle;
        EXPECT_NEAR(dbsection::PrincipalAngle({area, width, depth, thickness}), -published, 0.5)
            << c.name;
    }
    // Equal legs, also where they differ by less than is printed.
    EXPECT_EQ(static_cast<float>(dbsection::PrincipalAngle({9670, 203, 203, 25.4})), 45.0F);
    EXPECT_EQ(static_cast<float>(dbsection::PrincipalAngle({15, 8.00005, 8, 1})), 45.0F);
}

} // namespace
