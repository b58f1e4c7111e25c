// Sorted and filtered queries: the statements, and what they find.
#include "QuerySupport.h"

#include <cmath>

using namespace testsupport;

namespace {

constexpr int American = 1;
constexpr int AmericanColdFormed = 18;
constexpr int Rod = 15;
constexpr int ColumnD = 3;
constexpr int ColumnAX = 4;

using Key = int[2];
constexpr Key Unsorted[] = {{-1, 0}};
constexpr Key ByArea[] = {{ColumnAX, 0}, {-1, 0}};

class SectionQueryTest : public QueryTest {
protected:
    SectionQueryTest() {
        CatalogueFile file(File("AISCSections.db3"));
        file.AddTable("Rod", LayoutId::RoundBar,
                      {{"R1", "R10", {1.0, 8.0}},
                       {"R2", "R11", {2.0, 2.0}},
                       {"R3", "R2", {2.0, 5.0}},
                       {"R4", "Twin", {4.0, 1.0}},
                       {"R5", "TWIN", {5.0, 4.0}}});
        Facade::SetDBIFileName(File("tables.dbi").c_str());
        Facade::GetDatabasePtr(American);
    }

    void Select(std::initializer_list<int> rows, int catalogue = American, int type = Rod) {
        CDWordArray selection;
        for (const int row : rows)
            selection.Add(static_cast<DWORD>(row));
        Facade::SaveUserSelectedSections(catalogue, type, selection);
        Facade::GetDatabasePtr(catalogue);
    }

    Result Sorted(const Key* keys) {
        return Run(Facade::GetSortedSectionRecords, American, Rod, keys);
    }
    Result Like(const char* pattern, const Key* keys = Unsorted) {
        return Run(Facade::GetLikeSortedSectionRecords, American, Rod, keys, pattern);
    }
    Result Range(float upper, float lower, const Key* keys = Unsorted) {
        return Run(Facade::GetRangeSortedSectionRecords, American, Rod, keys, ColumnAX, upper,
                   lower);
    }
    Result Named(const char* name) { return Run(Facade::GetSectionRecord, American, Rod, name); }
    Result Assigned(const char* name, int catalogue = American, int type = Rod) {
        return Run(Facade::GetAssignSectionRecords, catalogue, type, name);
    }
};

TEST_F(SectionQueryTest, SortsBySeveralColumns) {
    constexpr Key byBoth[] = {{ColumnD, 1}, {ColumnAX, 0}, {-1, 7}};
    EXPECT_EQ(Sorted(Unsorted), (Result{{"4 Select * From [Rod]"}, "R10 R11 R2 Twin TWIN"}));
    EXPECT_EQ(Sorted(ByArea),
              (Result{{"4 Select * From [Rod] ORDER BY [AX] ASC"}, "Twin R11 TWIN R2 R10"}));
    EXPECT_EQ(Sorted(byBoth), (Result{{"4 Select * From [Rod] ORDER BY [D] DESC, [AX] ASC"},
                                      "TWIN Twin R11 R2 R10"}));
    // A direction that is none leaves its comma out; of the last key it is a blank that goes.
    constexpr Key aimless[] = {{ColumnAX, 2}, {-1, 0}};
    EXPECT_EQ(Sorted(aimless),
              (Result{{"4 Select * From [Rod] ORDER BY [AX]"}, "Twin R11 TWIN R2 R10"}));
    constexpr Key broken[] = {{ColumnAX, 2}, {ColumnD, 0}, {-1, 0}};
    EXPECT_EQ(Sorted(broken), (Result{{"4 Select * From [Rod] ORDER BY [AX]  [D] ASC"}, "none"}));
}

TEST_F(SectionQueryTest, FiltersByPatternRangeAndName) {
    EXPECT_EQ(Like("R1", ByArea),
              (Result{{"4 Select * From [Rod] WHERE [VessaName] LIKE 'R1%' ORDER BY [AX] ASC"},
                      "R11 R10"}));
    EXPECT_EQ(Like("").names, "R10 R11 R2 Twin TWIN");
    EXPECT_EQ(
        Range(5, 2, ByArea),
        (Result{
            {"4 Select * From [Rod] WHERE [AX] >= 2.000000 AND [AX] <= 5.000000 ORDER BY [AX] ASC"},
            "R11 TWIN R2"}));
    EXPECT_EQ(Range(2, 5).names, "");
    EXPECT_EQ(Range(3e38F, -3e38F).names, "R10 R11 R2 Twin TWIN");
    EXPECT_EQ(Range(std::nanf(""), 2).names, "none");
    EXPECT_EQ(Named("r10"),
              (Result{{"4 Select * From [Rod] WHERE UPPER([VessaName]) = UPPER('r10')"}, "R10"}));
    EXPECT_EQ(Named("twin").names, "Twin TWIN");
    EXPECT_EQ(Named("it's").names, "none");
    EXPECT_EQ(Named(std::string(10000, 'R').c_str()).names, "");
}

TEST_F(SectionQueryTest, HonoursTheSelection) {
    Select({1, 3, 5});
    EXPECT_EQ(Sorted(ByArea),
              (Result{{"4 Select * From [Rod] WHERE [RECNO] IN(1,3,5) ORDER BY [AX] ASC"},
                      "TWIN R2 R10"}));
    EXPECT_EQ(Like("R1").statements[0],
              "4 Select * From [Rod] WHERE [VessaName] LIKE 'R1%' AND [RECNO] IN(1,3,5)");
    EXPECT_EQ(Range(5, 2).names, "R2 TWIN");
    EXPECT_EQ(Named("twin"), (Result{{"4 Select * From [Rod] WHERE UPPER([VessaName]) = "
                                      "UPPER('twin') AND [RECNO] IN(1,3,5)"},
                                     "TWIN"}));
    Select({-1});
    EXPECT_EQ(Sorted(Unsorted), (Result{{"4 Select * From [Rod] WHERE [RECNO] IN(0)"}, ""}));
    EXPECT_EQ(Like("R").names + Range(9, 0).names + Named("r10").names, "");
}

TEST_F(SectionQueryTest, AssignsANamedSectionOrThoseOfTheAverageArea) {
    EXPECT_EQ(Assigned("r2"),
              (Result{{"2 Select * From [Rod] WHERE UPPER([VessaName]) = UPPER('r2')"}, "R2"}));
    const std::string statistics = "2 Select MAX(AX), MIN(AX), AVG(AX) From [Rod] WHERE ";
    const std::string atLeast = "[AX] >= 4.000000 ORDER BY [AX] ASC";
    const Result average{{statistics, "2 Select * From [Rod] WHERE " + atLeast}, "TWIN R2 R10"};
    EXPECT_EQ(Assigned(nullptr), average);
    EXPECT_EQ(Assigned("twin").names, average.names); // there are two
    EXPECT_EQ(Assigned("unknown").names, average.names);
    EXPECT_EQ(Assigned("x' OR [AX] < '2").names, average.names);
    Select({1, 2});
    EXPECT_EQ(Assigned("R2"),
              (Result{{"2 Select * From [Rod] WHERE UPPER([VessaName]) = UPPER('R2') AND [RECNO] "
                       "IN(1,2)",
                       statistics + "[RECNO] IN(1,2)",
                       "2 Select * From [Rod] WHERE [RECNO] IN(1,2) AND [AX] >= 5.000000 ORDER BY "
                       "[AX] ASC"},
                      "R10"}));

    CatalogueFile(File("USColdFormedSections.db3"))
        .AddPlainTable(
            "Hat",
            {{"RECNO", SectionField::Long}, "Name", "VessaName", {"Area", SectionField::Double}},
            {{1, COleVariant("A"), COleVariant("A"), 1.0},
             {2, COleVariant("B"), COleVariant("B"), 3.0}});
    Facade::GetDatabasePtr(AmericanColdFormed);
    EXPECT_EQ(Assigned("X", AmericanColdFormed, 7).names, "B");
    EXPECT_EQ(openedStatements.back(),
              "2 Select * From [Hat] WHERE [Area] >= 2.000000 ORDER BY [Area] ASC");
    CatalogueFile(File("RusColdFormedSections.db3")).AddTable("Pipe", LayoutId::RoundTube);
    Facade::GetDatabasePtr(31);
    EXPECT_EQ(Assigned("X", 31, 8).names, "none");
}

TEST_F(SectionQueryTest, LeavesTheRecordsetWhereNothingCanBeAsked) {
    RecordsetHandle rows;
    Facade::GetSectionRecord(American, Rod, "R2", &gblSectionDatabase, rows.Address());
    const CSectionRecordset* before = rows.Get();
    Facade::GetSectionRecord(American, 999, "R2", &gblSectionDatabase, rows.Address());
    Facade::GetSortedSectionRecords(American, 1, Unsorted, &gblSectionDatabase, rows.Address());
    EXPECT_EQ(rows.Get(), before);
    EXPECT_TRUE(shownBoxes.empty());
    closeDatabase(&gblSectionDatabase, 0);
    Facade::GetAssignSectionRecords(American, Rod, "R2", &gblSectionDatabase, rows.Address());
    EXPECT_EQ(rows.Get(), before);
    ASSERT_EQ(shownBoxes.size(), 1u);
    EXPECT_EQ(shownBoxes[0].text, "Error: Database not open");
}

} // namespace
