// The entry points of the analysis engine on small catalogues.
#include "EngineSupport.h"
#include "QuerySupport.h"

#include "units/UNIT.h"

#include <algorithm>
#include <filesystem>
#include <limits>

using namespace testsupport;

namespace {

constexpr int American = 1;
constexpr int WShape = 1;
constexpr int Rod = 15;
constexpr std::int32_t ColumnD = 3;

class EngineEntryTest : public EngineCallTest {
protected:
    EngineEntryTest() {
        CatalogueFile file(File("AISCSections.db3"));
        file.AddTable(
            "W Shape", LayoutId::IShape,
            {{"W12X26", "W12X26", W12X26.properties}, {"W4", "W4X13", {3.83, 4.16, 4.06, 0.345}}});
        file.AddTable("Rod", LayoutId::RoundBar,
                      {{"A", "RB", {3.0, 7.0, 1.0}},
                       {"B", "RA", {1.0, 0.8, 2.0}},
                       {"C", "SC", {2.0, 3.1, 3.0}}});
        file.AddTable("Castellated NonComp Beam", LayoutId::Castellated,
                      {{"CB", "CB18", {COleVariant("w12x26"), 18.3}}});
        Open(American);
    }

    static List Sorted(const std::vector<std::int32_t>& keys, std::int32_t keyCount,
                       std::int32_t unit = AsStored) {
        return Ask(GETSORTEDSECTIONS, American, Rod, keys.data(), keyCount, unit);
    }
};

TEST_F(EngineEntryTest, ReadsASectionInTheUnitsOfTheEngine) {
    const EngineAnswer stored = Get(American, WShape, "w12x26");
    EXPECT_EQ(stored.count, 1);
    EXPECT_EQ(stored.valueCount, 11);
    EXPECT_EQ(stored.err, 0);
    EXPECT_EQ(stored.values[0], 7.65F);
    EXPECT_EQ(stored.values[10], 8.17F);
    EXPECT_EQ(stored.values[11], -1); // not touched
    for (const std::int32_t unit : {1000, 1009, -1})
        EXPECT_EQ(Get(American, WShape, "W12X26", unit).values, stored.values);
    const EngineAnswer metric = Get(American, WShape, "W12X26", Millimetre);
    EXPECT_NEAR(metric.values[1], 12.2 * 25.4, 1e-3);
    EXPECT_NEAR(metric.values[5] / (204 * 416231.4256), 1, 1e-6);
    for (const std::string& padded :
         {std::string("W12X26   "), std::string("W12X26\0\0 ", 9), std::string("w12X26 \0", 8)})
        EXPECT_EQ(Get(American, WShape, padded).values, stored.values) << padded;
}

TEST_F(EngineEntryTest, FindsNothingForABadName) {
    for (const std::string& name : {std::string(), std::string("   "), std::string("W12"),
                                    std::string(10000, 'W'), std::string("W12X26'")}) {
        const EngineAnswer answer = Get(American, WShape, name, Millimetre);
        EXPECT_EQ(answer.count, 0);
        EXPECT_EQ(answer.values[0], -1);
    }
    EXPECT_EQ(SectionLibraryState::GetExceptionType(), 4);
    SectionLibraryState::SetExceptionType(0);
    EXPECT_EQ(Get(American, 999, "W12X26").count, 0);
    EXPECT_EQ(Get(4711, WShape, "W12X26").count, 0);
    EXPECT_EQ(Get(American, WShape, "W12X26").count, 1);
    EXPECT_EQ(Get(American, 999, "W12X26").count, 0); // nothing of the query before
    EXPECT_TRUE(shownBoxes.empty());                  // in engine mode
}

TEST_F(EngineEntryTest, ReadsNumbersThatAreKeptAsTexts) {
    CatalogueFile(File("KoreanSections.db3"))
        .AddTextTable("Angle", {"RECNO", "Name", "VessaName", "D", "B", "T"},
                      {{"1", "L", "L", " 12.5", "+3", "info"}});
    constexpr int Korean = 16;
    constexpr int Angle = 6;
    Open(Korean);
    const EngineAnswer answer = Get(Korean, Angle, "L");
    EXPECT_EQ(answer.values[0], 12.5F);
    EXPECT_EQ(answer.values[1], 3);
    EXPECT_EQ(answer.values[2], 0);
}

TEST_F(EngineEntryTest, JoinsTwoSectionsInOneValue) {
    const EngineAnswer joined = Get(American, Rod, "rb+ra");
    EXPECT_EQ(joined.count, 1);
    EXPECT_EQ(joined.values[0], 3.0F);
    EXPECT_EQ(joined.values[3], -1); // rods have three values
    for (const char* padded : {"W12x26+w4x13", "w12x26      +W4X13", "W12X26 + w4x13  "}) {
        const EngineAnswer beams = Get(American, WShape, padded, Millimetre);
        EXPECT_EQ(beams.count, 1);
        EXPECT_NEAR(beams.values[0], 4935.474, 1e-3); // 7.65 in^2
        EXPECT_NEAR(beams.values[3], 18.415, 1e-5);   // 0.38 in + 0.345 in
        EXPECT_NEAR(beams.values[4], 5.842, 1e-5);    // 0.23 in
    }
    for (const std::string& alone :
         {std::string("W12X26+nothing"), std::string("W12X26+"), std::string("W12X26\0+W4X13", 13)})
        EXPECT_EQ(Get(American, WShape, alone).values[3], 0.38F);
    const EngineAnswer second = Get(American, WShape, "nothing+W12X26");
    EXPECT_EQ(second.count, 0);
    EXPECT_EQ(second.values, EngineAnswer().values);
}

TEST_F(EngineEntryTest, WalksASlotBothWays) {
    const List list = Sorted({ColumnD, -1, 1, 0}, 2, Millimetre);
    EXPECT_EQ(list.count, 3);
    EXPECT_EQ(list.valueCount, 3);
    EXPECT_EQ(Walk(1), "RB SC RA");
    EXPECT_EQ(Move(GETNEXTSECTION, 1).status, 0); // past the end
    const EngineAnswer last = Move(GETLASTSECTION, 1);
    EXPECT_EQ(last.status, 1);
    EXPECT_EQ(last.name, "RA");
    EXPECT_NEAR(last.values[0], 25.4, 1e-4);
    EXPECT_EQ(last.values[3], -1);
    EXPECT_EQ(Move(GETPREVSECTION, 1).name, "SC");
    EXPECT_EQ(Move(GETPREVSECTION, 1).name, "RB");
    const EngineAnswer before = Move(GETPREVSECTION, 1);
    EXPECT_EQ(before.status, 0);
    EXPECT_EQ(before.name, "");
    EXPECT_EQ(before.values[0], -1);
    for (const std::int32_t slot : {-1, 0, 9, 10, 2147483647})
        EXPECT_EQ(Move(GETFIRSTSECTION, slot).status, 0) << slot;
}

TEST_F(EngineEntryTest, WritesNoFurtherThanANameReaches) {
    Sorted({ColumnD, -1, 1, 0}, 2);
    const std::int32_t slot = 1;
    float values[17];
    std::int32_t status = 0;
    std::int32_t err = 0;
    for (std::int32_t length = 0; length <= 4; ++length) {
        char name[] = "........";
        GETFIRSTSECTION(&slot, name, length, values, &status, &err);
        std::string expected = "........";
        expected.replace(0, static_cast<std::size_t>(std::min(length, 2)), "RB", 0,
                         static_cast<std::size_t>(std::min(length, 2)));
        if (length > 2)
            expected[2] = '\0';
        EXPECT_EQ(std::string(name, 8), expected) << length;
    }
}

TEST_F(EngineEntryTest, TakesSortKeysAsTheyCome) {
    EXPECT_EQ(Sorted({-1, 0}, 1).count, 3);
    EXPECT_EQ(Walk(1), "RB RA SC");
    EXPECT_EQ(Sorted({}, 0).count, 3); // none
    EXPECT_EQ(Sorted({}, -5).count, 3);
    EXPECT_EQ(Sorted({ColumnD, 0}, 1).count, 3); // without an end
    EXPECT_EQ(Walk(1), "RA SC RB");
    EXPECT_EQ(Sorted({99, 0}, 1).count, 0); // no such column
}

TEST_F(EngineEntryTest, ListsByPatternRangeAndName) {
    const std::int32_t keys[] = {ColumnD, -1, 0, 0};
    const auto like = [&](const char* pattern) {
        return Ask(GETLIKESORTEDSECTIONS, American, Rod, keys, 2, pattern, Millimetre).count;
    };
    EXPECT_EQ(like("R"), 2);
    EXPECT_EQ(Walk(2), "RA RB");
    SetStatementObserver(RecordStatement);
    EXPECT_EQ(like("r"), 2); // as the engine gave it
    SetStatementObserver(nullptr);
    EXPECT_TRUE(Holds(openedStatements.at(0), "LIKE 'r%'"));
    float upper = 51;
    float lower = 25;
    const auto inRange = [&](std::int32_t unit) {
        return Ask(GETRANGESORTEDSECTIONS, American, Rod, keys, 2, ColumnD, &upper, &lower, unit);
    };
    const List range = inRange(Millimetre);
    EXPECT_EQ(range.count, 2);
    EXPECT_EQ(range.valueCount, 3);
    EXPECT_NEAR(upper, 51 / 25.4, 1e-6); // in the table's unit now
    EXPECT_EQ(Walk(3), "RA SC");
    upper = 3e38F; // beyond a single in inches, 1 mm being 0.03937 of them and 1 km 39370
    lower = -std::numeric_limits<float>::infinity();
    constexpr std::int32_t Kilometre = 1008;
    EXPECT_EQ(inRange(Kilometre).count, 3);
    EXPECT_EQ(upper, std::numeric_limits<float>::max());
    EXPECT_EQ(lower, -std::numeric_limits<float>::max());
    EXPECT_EQ(SectionDBInterface::IsEngineMode(), 0);
    const auto assign = [&](const std::string& name) {
        return Ask(GETASSIGNSECTIONS, American, Rod, name, Millimetre).count;
    };
    EXPECT_EQ(assign("ra "), 1);
    EXPECT_EQ(assign(""), 1); // of at least the average area
    EXPECT_EQ(Walk(4), "RB");
}

TEST_F(EngineEntryTest, ListsARangeOfOneCatalogueAfterTheOther) {
    constexpr std::int32_t European = 7;
    CatalogueFile(File("EuropeanSections.db3"))
        .AddTable("IPE Shape", LayoutId::IShape, {{"IPE 100", "IPE100", {1.6, 3.94}}});
    const auto inRange = [](std::int32_t catalogue) {
        float upper = 1e6F;
        float lower = 0;
        return Ask(GETRANGESORTEDSECTIONS, catalogue, 1, -1, 1, ColumnD, &upper, &lower, Millimetre)
            .count;
    };
    EXPECT_EQ(inRange(American), 2);
    EXPECT_EQ(inRange(European), 1);
    EXPECT_EQ(Walk(3), "IPE100");
    EXPECT_EQ(inRange(American), 2);
}

// The Canadian catalogue would have its W shapes in a table of the same name.
TEST_F(EngineEntryTest, CountsNothingInPlaceOfACatalogueThatIsMissingOrDamaged) {
    const std::int32_t canadian = 4;
    for (const bool isDamaged : {false, true}) {
        if (isDamaged)
            WriteFile(File("CanadianSections.db3"), std::string(4096, 'x'));
        std::int32_t sections = -7, fields = -7, err = -7;
        GETSECTIONCOUNT(&canadian, &WShape, &sections, &err);
        EXPECT_EQ(sections, 0);
        EXPECT_EQ(err, isDamaged ? 4 : 0);
        Open(American);
        GETFIELDCOUNT(&canadian, &WShape, &fields, &err);
        EXPECT_EQ(fields, 0);
        Open(American);
        float upper = 400;
        float lower = 300;
        const List list = Ask(GETRANGESORTEDSECTIONS, canadian, WShape, -1, 1, ColumnD, &upper,
                              &lower, Millimetre);
        EXPECT_EQ(list.count, 0);
        EXPECT_EQ(list.valueCount, 0);
        EXPECT_EQ(Walk(3), "");
    }
    EXPECT_EQ(shownBoxes, std::vector<Box>{});
}

TEST_F(EngineEntryTest, FindsTheTypeOfASection) {
    EngineAnswer found = FindType(GETSECTIONTYPEFROMVESSANAME, American, -7, "ra  ", Millimetre);
    EXPECT_EQ(found.type, Rod);
    EXPECT_NEAR(found.values[0], 25.4, 1e-4);
    EXPECT_EQ(found.err, 0);
    Enter(GETSECTIONTYPEFROMVESSANAME, American, &found.type, "W4X13", Millimetre, nullptr,
          &found.count, &found.valueCount, &found.err);
    EXPECT_EQ(found.type, WShape);
    EXPECT_EQ(found.count, 0);
    const EngineAnswer none =
        FindType(GETSECTIONTYPEFROMVESSANAME, American, -7, "none", Millimetre);
    EXPECT_EQ(none.type, -7);
    EXPECT_EQ(none.err, -7);
    EXPECT_EQ(none.count, 0);
}

TEST_F(EngineEntryTest, FindsTheRootOfACastellatedBeam) {
    const auto root = [&](const char* name) {
        return FindType(GETCASTELLATEDROOTBEAMSECTION, American, 13, name, AsStored);
    };
    EXPECT_EQ(root("CB18").count, 0); // slot 0 was empty before
    Get(American, Rod, "RA");
    const EngineAnswer beam = root("cb18");
    EXPECT_EQ(beam.type, WShape);
    EXPECT_EQ(beam.count, 1);
    EXPECT_EQ(beam.values[0], 7.65F);
    const EngineAnswer none = root("CB99");
    EXPECT_EQ(none.type, 13);
    EXPECT_EQ(none.count, 0);
}

TEST_F(EngineEntryTest, TellsCountsUnitsAndCustomization) {
    std::int32_t catalogue = American, type = WShape, result = -7, err = -7;
    GETSECTIONCOUNT(&catalogue, &type, &result, &err);
    EXPECT_EQ(result, 2);
    GETFIELDCOUNT(&catalogue, &type, &result, &err);
    EXPECT_EQ(result, 11);
    ISSECTIONDATABASECUSTOMIZED(&catalogue, &result, &err);
    EXPECT_EQ(result, 0);
    WriteFile(File("custom.ini"),
              "[CustomDBFlags]\nAISCSections=1\n[CustomDBNames]\nAISCSections=Mine\n");
    Facade::SetINIFileName(File("custom.ini").c_str());
    ISSECTIONDATABASECUSTOMIZED(&catalogue, &result, &err);
    EXPECT_EQ(result, 1);
    Facade::SetINIFileName(File("none.ini").c_str());
    std::int32_t value = 1, unit = Millimetre, id = -7;
    float factor = 0;
    GETUNITFORFIELDANDCONVFACT(&catalogue, &type, &value, &unit, &id, &factor, &err);
    EXPECT_EQ(id, Inch);
    EXPECT_NEAR(factor, 25.4, 1e-5);
    UNIT::UpdateFieldUnit(gblSectionDatabase, "W Shape", 4, "POUND/FEET");
    GETUNITFORFIELDANDCONVFACT(&catalogue, &type, &value, &unit, &id, &factor, &err);
    EXPECT_FLOAT_EQ(factor, 0.001F / 304.8F) << "forces in kips";
    for (const std::int32_t none : {99, -4, INT32_MAX, INT32_MIN}) {
        EXPECT_TRUE(IsRefused([&] {
            GETUNITFORFIELDANDCONVFACT(&catalogue, &type, &none, &unit, &id, &factor, &err);
        })) << "value "
            << none << ", which the table does not have";
    }
}

TEST_F(EngineEntryTest, TellsTheCallerOfAShortListOfUnits) {
    UNIT::DeleteFieldUnits(gblSectionDatabase, "Rod");
    CStringArray units;
    for (const char* unit : {"Rod", "NUMBER", "TEXT", "TEXT", "INCHES"})
        units.Add(unit);
    UNIT::WriteFieldUnits(gblSectionDatabase, &units);
    EXPECT_EQ(Get(American, Rod, "RA").values[1], 0.8F); // unconverted, none is asked for
    EXPECT_TRUE(IsRefused([] { Get(American, Rod, "RA", Millimetre); }));
    EXPECT_EQ(Get(American, WShape, "W12X26", Millimetre).count, 1); // the state is whole
}

TEST_F(EngineEntryTest, LivesWithoutUnitsAndWithoutTheFile) {
    UNIT::DeleteFieldUnits(gblSectionDatabase, "Rod");
    EXPECT_EQ(Get(American, Rod, "RA", Millimetre).values[0], 1.0F);
    std::filesystem::remove(File("AISCSections.db3"));
    EXPECT_EQ(Get(American, Rod, "RA").count, 0);
    EXPECT_EQ(Sorted({-1, 0}, 1).count, 0);
    EXPECT_EQ(Walk(1), "");
    MakeCatalogue(File("AISCSections.db3"), 1);
    EXPECT_EQ(Open(American), 0);
    EXPECT_EQ(Get(American, WShape, "w12x26").count, 1);
}

TEST_F(EngineEntryTest, KeepsItsModeAndSettings) {
    EXPECT_EQ(SectionDBInterface::IsEngineMode(), 1);
    std::int32_t err = -7;
    CLOSESECTIONDATABASE(&err);
    EXPECT_EQ(SectionDBInterface::IsEngineMode(), 0);
    EXPECT_EQ(gblSectionDatabase, nullptr);
    CLOSESECTIONDATABASE(&err); // once more
    TERMINATEDAOSESSION();
    TERMINATEDAOSESSION();
    SETPROFILEDBFOLDER("/somewhere  ", 12);
    EXPECT_EQ(Facade::GetProfileDBFolder(), "/somewhere\\");
    SETUSERTABLEFILENAME("u.db3 ", 6);
    EXPECT_EQ(Facade::GetGenericTableFileName(), "u.db3");
    SETINIFILENAME("Custom.Ini", 10);
    EXPECT_EQ(Facade::m_szIniFileName, "Custom.Ini");
    SETDBIFILENAME("x.dbi", 5);
    EXPECT_EQ(Facade::m_szDBIFileName, "");
}

} // namespace
