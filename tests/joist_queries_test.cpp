// Queries of steel joists: the statements, and what they find.
#include "JoistFixture.h"
#include "QuerySupport.h"

using namespace testsupport;

namespace {

constexpr int Catalogue = 21;

constexpr const char* Select = "4 SELECT [OWJoistMaster].[JoistID], [OWJoistMaster].[Designation], "
                               "[OWJoistMaster].[Designation], [OWJoistMaster].[Depth], "
                               "[OWJoistMaster].[Weight]";

constexpr const char* SelectGirders =
    "4 SELECT [JoistGirderMaster].[JoistID], [JoistGirderMaster].[JoistID], "
    "[JoistGirderMaster].[JoistID], [JoistGirderMaster].[Span], "
    "[JoistGirderMaster].[NumberOfJoist], [JoistGirderMaster].[Space], "
    "[JoistGirderLoad].[PanelPtLoad], [JoistGirderMaster].[Depth], [JoistGirderLoad].[Weight], "
    "[JoistGirderLoad].[TitleID], [JoistGirderLoad].[ColorID] FROM [JoistGirderMaster], "
    "[JoistGirderLoad] WHERE [JoistGirderMaster].[JoistID] = [JoistGirderLoad].[JoistID] ";

class JoistQueryTest : public QueryTest {
protected:
    JoistQueryTest() {
        MakeJoistCatalogue(File("AISCSteelJoists.db3"));
        Facade::GetDatabasePtr(Catalogue);
    }

    Result K(float span, float total, float live, int series = 1) {
        return Run(Facade::GetOWSteelJoistKSeries, Catalogue, series, span, total, live);
    }
    Result LongSpan(int loadType, float span, float depth, float load1, float load2,
                    int series = 3) {
        return Run(Facade::GetLongSpanJoistSeries, Catalogue, series, loadType, span, depth, load1,
                   load2);
    }
    Result Girders(float span, int joists, float load, float depth, int series = 5) {
        return Run(Facade::GetJoistGirders, Catalogue, series, span, joists, load, depth);
    }
    Result Girder(const char* designation) {
        return Run(Facade::GetJoistGirder, Catalogue, 5, designation);
    }
    int LoadType(float span, float depth, int series = 3) {
        int type = -9;
        openedStatements.clear();
        Facade::FindLongSpanJoistLoadType(Catalogue, series, span, depth, &type,
                                          &gblSectionDatabase);
        return type;
    }
};

TEST_F(JoistQueryTest, FindsJoistsOfTheKSeries) {
    const std::string from =
        std::string(Select) +
        ", [OWJoistLoad].[Span], [OWJoistLoad].[TotalLoad], [OWJoistLoad].[LiveLoad], "
        "[OWJoistLoad].[TitleID], [OWJoistLoad].[ColorID] FROM [OWJoistMaster], [OWJoistLoad] "
        "WHERE [OWJoistMaster].[JoistID] = [OWJoistLoad].[JoistID] AND [OWJoistMaster].[SeriesID] "
        "= 1 AND [OWJoistLoad].[TotalLoad] >= 250.0 AND [OWJoistLoad].[LiveLoad] >= 150.0 ";
    const std::string order = "ORDER BY [OWJoistMaster].[Weight], [OWJoistMaster].[Depth], "
                              "[OWJoistLoad].[TotalLoad], [OWJoistLoad].[LiveLoad] ASC";
    EXPECT_EQ(K(0, 250, 150), (Result{{from + order}, "k-light k-light k-heavy k-heavy"}));
    EXPECT_EQ(K(20.5F, 250, 150),
              (Result{{from +
                       "AND [OWJoistLoad].[Span] BETWEEN (SELECT MIN([OWJoistLoad].[Span]) FROM "
                       "[OWJoistLoad] WHERE [OWJoistLoad].[Span] >= 20.500000) AND (SELECT "
                       "MAX([OWJoistLoad].[Span]) FROM [OWJoistLoad] WHERE [OWJoistLoad].[Span] "
                       "<= 20.500000) " +
                       order},
                      ""})); // between two tabulated spans
    EXPECT_EQ(K(22, 250, 150).names, "k-light k-heavy");
    EXPECT_EQ(K(22, 250.2F, 150).names, "k-heavy");
    EXPECT_EQ(K(22, 250, 150, 2), (Result{{}, "none"}));
}

TEST_F(JoistQueryTest, FindsJoistsOfTheKcsSeries) {
    const auto kcs = [&](float moment, float shear, int series) {
        return Run(Facade::GetOWSteelJoistKCSSeries, Catalogue, series, moment, shear);
    };
    EXPECT_EQ(
        kcs(500.5F, 4000, 2),
        (Result{{std::string(Select) +
                 ", [OWKCSJoistLoad].[MomentCapacity], [OWKCSJoistLoad].[ShearCapacity], "
                 "[OWKCSJoistLoad].[GrossMI], [OWKCSJoistLoad].[BridgTableSectNO], "
                 "[OWKCSJoistLoad].[TitleID] FROM [OWJoistMaster], [OWKCSJoistLoad] WHERE "
                 "[OWJoistMaster].[JoistID] = [OWKCSJoistLoad].[JoistID] AND "
                 "[OWJoistMaster].[SeriesID] = 2 AND [OWKCSJoistLoad].[MomentCapacity] >= 500.5 "
                 "AND [OWKCSJoistLoad].[ShearCapacity] >= 4000.0 ORDER BY "
                 "[OWJoistMaster].[Weight], [OWJoistMaster].[Depth], "
                 "[OWKCSJoistLoad].[MomentCapacity], [OWKCSJoistLoad].[ShearCapacity] ASC"},
                "KCS"}));
    EXPECT_EQ(kcs(500.6F, 4000, 2).names, "");
    EXPECT_EQ(kcs(1, 1, 1), (Result{{}, "none"}));
}

TEST_F(JoistQueryTest, FindsTheKindOfLoadsOfLongSpanJoists) {
    const std::string joists = "4 SELECT [OWJoistMaster].[JoistID], [OWJoistMaster].[Designation], "
                               "[OWJoistMaster].[Depth], [OWJoistMaster].[Weight], ";
    const std::string safe =
        joists +
        "[OWJoistSafeLoad].[Span] FROM [OWJoistMaster], [OWJoistSafeLoad] WHERE "
        "[OWJoistMaster].[JoistID] = [OWJoistSafeLoad].[JoistID] AND [OWJoistMaster].[SeriesID] = "
        "3 AND [OWJoistMaster].[Depth] = 24.0 AND [OWJoistSafeLoad].[Span] BETWEEN (SELECT "
        "MIN([OWJoistSafeLoad].[Span]) FROM [OWJoistSafeLoad] where [OWJoistSafeLoad].[Span] >= "
        "22.0) AND (SELECT MAX([OWJoistSafeLoad].[Span]) FROM [OWJoistSafeLoad] WHERE "
        "[OWJoistSafeLoad].[Span] <= 22.0) ";
    const std::string other =
        joists +
        "[OWJoistLoad].[Span] FROM [OWJoistMaster], [OWJoistLoad] WHERE [OWJoistMaster].[JoistID] "
        "= [OWJoistLoad].[JoistID] AND [OWJoistMaster].[SeriesID] = 3 AND [OWJoistMaster].[Depth] "
        "= 24.0 AND [OWJoistLoad].[Span] BETWEEN (SELECT MIN([OWJoistLoad].[Span]) FROM "
        "[OWJoistLoad] WHERE [OWJoistLoad].[Span] >= 22.0) AND (SELECT MAX([OWJoistLoad].[Span]) "
        "FROM [OWJoistLoad] WHERE [OWJoistLoad].[Span] <= 22.0) ";
    EXPECT_EQ(LoadType(22, 24), 2);
    EXPECT_EQ(openedStatements, (std::vector{safe, other}));
    EXPECT_EQ(LoadType(30, 20), 1);
    EXPECT_EQ(openedStatements.size(), 1U);
    EXPECT_EQ(LoadType(30, 21), 0);
    EXPECT_EQ(LoadType(30, 20, 1), -9); // a series that it does not serve
}

TEST_F(JoistQueryTest, FindsLongSpanJoists) {
    EXPECT_EQ(
        LongSpan(1, 30, 20, 8000, 0),
        (Result{{std::string(Select) +
                 ", [OWJoistSafeLoad].[Span], [OWJoistSafeLoad].[SafeLoad], "
                 "[OWJoistSafeLoad].[TitleID], [OWJoistSafeLoad].[ColorID] FROM [OWJoistMaster], "
                 "[OWJoistSafeLoad] WHERE [OWJoistMaster].[JoistID] = [OWJoistSafeLoad].[JoistID] "
                 "AND [OWJoistMaster].[SeriesID] = 3 AND [OWJoistMaster].[Depth] = 20.0 AND "
                 "[OWJoistSafeLoad].[SafeLoad] >= 8000.0 AND [OWJoistSafeLoad].[Span] BETWEEN "
                 "(SELECT MIN([OWJoistSafeLoad].[Span]) FROM [OWJoistSafeLoad] where "
                 "[OWJoistSafeLoad].[Span] >= 30.0) AND (SELECT MAX([OWJoistSafeLoad].[Span]) FROM "
                 "[OWJoistSafeLoad] WHERE [OWJoistSafeLoad].[Span] <= 30.0) ORDER BY "
                 "[OWJoistMaster].[Depth], [OWJoistMaster].[Weight], [OWJoistSafeLoad].[SafeLoad] "
                 "ASC"},
                "lh-20"}));
    EXPECT_EQ(LongSpan(1, 30, 19, 8000, 0).names, ""); // the depth must match
    EXPECT_EQ(
        LongSpan(2, 22, 19, 900, 500),
        (Result{{std::string(Select) +
                 ", [OWJoistLoad].[Span], [OWJoistLoad].[TotalLoad], [OWJoistLoad].[LiveLoad], "
                 "[OWJoistLoad].[TitleID], [OWJoistLoad].[ColorID] FROM [OWJoistMaster], "
                 "[OWJoistLoad] WHERE [OWJoistMaster].[JoistID] = [OWJoistLoad].[JoistID] AND "
                 "[OWJoistMaster].[SeriesID] = 3 AND [OWJoistMaster].[Depth] >= 19.0 AND "
                 "[OWJoistLoad].[TotalLoad] >= 900.0 AND [OWJoistLoad].[LiveLoad] >= 500.0 AND "
                 "[OWJoistLoad].[Span] BETWEEN (SELECT MIN([OWJoistLoad].[Span]) FROM "
                 "[OWJoistLoad] WHERE [OWJoistLoad].[Span] >= 22.0) AND (SELECT "
                 "MAX([OWJoistLoad].[Span]) FROM [OWJoistLoad] WHERE [OWJoistLoad].[Span] <= 22.0) "
                 "ORDER BY [OWJoistMaster].[Depth], [OWJoistMaster].[Weight], "
                 "[OWJoistLoad].[TotalLoad], [OWJoistLoad].[LiveLoad] ASC"},
                "lh-24"}));
    EXPECT_EQ(LongSpan(2, 22, 19, 900, 500, 4).names, "dlh");
    EXPECT_EQ(LongSpan(3, 22, 19, 900, 500), (Result{{}, "none"}));
    EXPECT_EQ(LongSpan(1, 30, 20, 8000, 0, 5), (Result{{}, "none"}));
}

TEST_F(JoistQueryTest, FindsGirders) {
    const std::string span =
        "AND [JoistGirderMaster].[Span]=(SELECT MIN([JoistGirderMaster].[Span]) FROM "
        "[JoistGirderMaster]  WHERE [JoistGirderMaster].[Span] >= 29.500000) ";
    const std::string load =
        "AND [JoistGirderLoad].[PanelPtLoad] = (SELECT MIN([JoistGirderLoad].[PanelPtLoad]) FROM "
        "[JoistGirderLoad] WHERE [JoistGirderLoad].[PanelPtLoad] >= 4.0) ";
    const std::string order =
        "ORDER BY [JoistGirderMaster].[Span], "
        "[JoistGirderMaster].[NumberOfJoist], [JoistGirderMaster].[Depth] ASC";
    EXPECT_EQ(Girders(29.5F, 0, 4, 0), (Result{{SelectGirders + span + load + order}, "20 21"}));
    EXPECT_EQ(
        Girders(29.5F, 5, 4, 27),
        (Result{{SelectGirders + span + "AND [JoistGirderMaster].[NumberOfJoist] = 5 " + load +
                 "AND [JoistGirderMaster].[Depth]=(SELECT MAX([JoistGirderMaster].[Depth]) FROM "
                 "[JoistGirderMaster]  WHERE [JoistGirderMaster].[Depth] <= 27.0) " +
                 order},
                "20"}));
    EXPECT_EQ(Girders(37, 0, 4, 0).names, "");
    EXPECT_EQ(Girders(29.5F, 0, 6.1F, 0).names, "");
    EXPECT_EQ(Girders(29.5F, 0, 4, 0, 1), (Result{{}, "none"}));
}

TEST_F(JoistQueryTest, FindsOneByDesignation) {
    const auto joist = [&](const char* designation, int series) {
        return Run(Facade::GetSteelJoist, Catalogue, series, designation);
    };
    EXPECT_EQ(joist("lh-20", 3),
              (Result{{std::string(Select) + " FROM [OWJoistMaster] WHERE "
                                             "[OWJoistMaster].[Designation] = 'lh-20'"},
                      "lh-20"}));
    EXPECT_EQ(joist("LH-20", 3).names, ""); // exactly
    EXPECT_EQ(joist("lh-20", 5), (Result{{}, "none"}));
    EXPECT_EQ(
        Run(Facade::GetSectionRecord, Catalogue, 3, "lh-20").statements,
        std::vector<std::string>{"4 Select * From [OWJoistMaster] WHERE [Designation] = 'lh-20'"});
    EXPECT_EQ(Girder("30s24g5n6k"),
              (Result{{std::string(SelectGirders) +
                       " AND [JoistGirderMaster].[Span] = 30 AND [JoistGirderMaster].[Depth] = 24 "
                       "AND [JoistGirderMaster].[NumberOfJoist] = 5 AND "
                       "[JoistGirderLoad].[PanelPtLoad] = 6.0"},
                      "20"}));
    EXPECT_EQ(Girder("30S24G5N"), (Result{{}, "none"}));
}

TEST_F(JoistQueryTest, SaysThatTheDatabaseIsClosed) {
    closeDatabase(&gblSectionDatabase, 0);
    K(20, 1, 1);
    LongSpan(1, 1, 1, 1, 1);
    Girders(1, 1, 1, 1);
    Girder("30S24G5N6K");
    EXPECT_EQ(LoadType(30, 20), -9);
    EXPECT_EQ(shownBoxes.size(), 5U);
}

} // namespace
