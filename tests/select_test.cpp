// Choosing sections by criteria and finding names with the program, on the real catalogues.
#include "BuiltCatalogues.h"
#include "dbSectionInterface.h"
#include "sources/CsvTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

using dbsection::CsvTable;
using namespace testsupport;

class SelectTest : public OnBuiltCatalogues<> {
protected:
    static void SetUpTestSuite() {
        Build({"AISCSections", "EuropeanSections", "BritishSections", "EuropeanColdFormedSections",
               "AISCSteelJoists"});
    }

    /// The table that `select --csv` prints; its first record holds the units.
    static CsvTable Selected(const std::string& arguments) {
        const Outcome outcome = On("select " + arguments + " --csv");
        EXPECT_EQ(outcome.status, 0) << outcome.output;
        return {arguments, outcome.output};
    }

    static std::vector<std::string> Names(const CsvTable& table) {
        std::vector<std::string> names;
        for (const auto& record : table.Records().subspan(1))
            names.push_back(table.Text(record, "VessaName"));
        return names;
    }
};

const std::string WShapes = "American 'W Shape' ";
using NameList = std::vector<std::string>;

} // namespace

TEST_F(SelectTest, SortsByOneFieldAndByTwo) {
    const auto lightest = Names(Selected("1 'w shape' --sort ax"));
    ASSERT_EQ(lightest.size(), 289U);
    EXPECT_EQ(NameList(lightest.begin(), lightest.begin() + 3),
              (NameList{"W6X8.5", "W6X9", "W8X10"}));

    const CsvTable table = Selected(WShapes + "--sort TF:desc,AX");
    const auto key = [&](const CsvTable::Record& record) {
        return std::pair(-table.Number(record, "TF"), table.Number(record, "AX"));
    };
    EXPECT_TRUE(std::ranges::is_sorted(table.Records().subspan(1), {}, key));
    EXPECT_EQ(Names(Selected(WShapes + "--like W6 --sort name:desc")).front(), "W6X9");
}

TEST_F(SelectTest, RowsWithoutAnOrderStandAsInTheCatalogue) {
    EXPECT_EQ(Names(Selected(WShapes + "--range AX:2.5:3 ")),
              (NameList{"W8X10", "W6X9", "W6X8.5"}));
}

TEST_F(SelectTest, ARangeIsTheSameInEveryUnit) {
    const auto inches = Names(Selected(WShapes + "--range D:12:12.5"));
    EXPECT_EQ(inches.size(), 14U);
    EXPECT_EQ(Names(Selected(WShapes + "--range D:304.8:317.5 --length mm")), inches);
    EXPECT_EQ(Names(Selected(WShapes + "--range D:304.8:317.5 --length mm --like w12x4")),
              NameList{"W12X45"});
}

// Queries take single-precision bounds of the table's unit; a converted figure has more digits.
TEST_F(SelectTest, EveryFigureLiesBetweenBoundsThatAreThatFigure) {
    for (const std::string unit : {"", " --length in", " --length km"}) {
        const std::string family = "European 'IPE Shape'" + unit;
        const CsvTable table = Selected(family + " --like IPE100AA");
        const auto& section = table.Records()[1];
        const auto figures = table.Columns().subspan(2, table.Columns().size() - 3);
        for (const std::string& column : figures) { // between the names and "computed"
            const std::string& figure = table.Text(section, column);
            std::string arguments = family;
            arguments.append(" --range ").append(column);
            arguments.append(":").append(figure).append(":").append(figure);
            EXPECT_EQ(std::ranges::count(Names(Selected(arguments)), "IPE100AA"), 1) << arguments;
        }
    }
}

TEST_F(SelectTest, ValuesAndUnitsAreThoseOfTheFacade) {
    SectionDBInterface::SetProfileDBFolder(CString(folder->Path() + "/"));
    CSectionDatabase* database = SectionDBInterface::GetDatabasePtr(7);
    ASSERT_NE(database, nullptr);
    SectionDBBase* european = SectionDBInterface::m_SectionDBDrv.GetSectionDBObject(7);
    european->SetDatabase(database);
    const CsvTable table = Selected("European 'IPE Shape' --length in");
    EXPECT_EQ(table.Text(table.Records()[0], "CW"), "in^6");
    EXPECT_EQ(table.Text(table.Records()[0], "Name"), "");
    for (const auto& record : table.Records().subspan(1)) {
        int type = 0;
        const std::unique_ptr<SECTIONINFO> info(european->GetSectionStructProperty(
            table.Text(record, "VessaName").c_str(), 1001, 2002, &type));
        ASSERT_NE(info, nullptr);
        EXPECT_EQ(table.Text(record, "Name"), info->PublicName.View());
        EXPECT_NEAR(table.Number(record, "AX") / info->Area, 1, 1e-14);
        EXPECT_NEAR(table.Number(record, "IZ") / info->MajorInertia, 1, 1e-14);
        EXPECT_NEAR(table.Number(record, "IY") / info->MinorInertia, 1, 1e-14);
    }
    SectionDBInterface::ExitSectionDBInterface();
}

TEST_F(SelectTest, AnEmptyResultHasOnlyHeaders) {
    for (const char* criteria : {"--like W12_", "--like %", "--range AX:1e300:1e308"}) {
        EXPECT_EQ(Selected(WShapes + criteria).Records().size(), 1U) << criteria;
        EXPECT_EQ(On("select " + WShapes + criteria + " --json").output, "[\n]\n");
    }
}

TEST_F(SelectTest, ErrorsAreOneLineThatSaysWhatToDo) {
    struct {
        const char* arguments;
        int status; ///< 2 where the command line is wrong, whatever the files hold
        const char* message;
    } const cases[] = {
        {"select American 'W Shape' --range D:12", 2, "not FIELD:LOW:HIGH"},
        {"select American 'W Shape' --range ''", 2, "not FIELD:LOW:HIGH"},
        {"select American 'W Shape' --range D:tall:14", 2, "not FIELD:LOW:HIGH"},
        {"select American 'W Shape' --range D:nan:14", 2, "not FIELD:LOW:HIGH"},
        {"select American 'W Shape' --range D::", 2, "not FIELD:LOW:HIGH"},
        {"select American 'W Shape' --range D:12: --range D:14:12", 2, "lower bound is above"},
        {"select American 'W Shape' --limit -1", 2, "no whole number above 0"},
        {"select American 'W Shape' --columns AX,H", 1, "There is no field \"H\""},
        {"select American 'W Shape' --range D:14:12", 2, "lower bound is above"},
        {"select American 'W Shape' --range name:1:2", 2, "field of texts"},
        {"select American 'W Shape' --range OD:1:2", 1, "fields are name, AX, D, BF"},
        {"select American 'W Shape' --sort AX,,D", 1, "There is no field \"\""},
        {"select American 'W Shape' --sort AX:up", 2, "FIELD:desc"},
        {"select American 'W Shape' --like \"W1'\"", 2, "holds a quote"},
        {"select American HSS", 1, "There is no family \"HSS\""}, // two begin so
        {"select Canadian W", 1, "is not in the folder"},
        {"select 21 OWJoistMaster", 1, "holds joists"},
        {"find W99X9", 1, "There is no section \"W99X9\" in the 5 catalogues"},
    };
    for (const auto& [arguments, status, message] : cases) {
        const Outcome outcome = On(arguments);
        EXPECT_TRUE(Ended(outcome, status, message)) << arguments;
        EXPECT_EQ(std::ranges::count(outcome.output, '\n'), 1) << outcome.output;
    }
}

TEST_F(SelectTest, HonoursTheSelectionOfThePerson) {
    const std::string file = folder->File("user.dbi");
    WriteFile(file, "[AISCSections]\nW Shape=3,2,9999\nM Shape=-1\nS Shape=0\n");
    ::setenv("SECTIONDB_DBI", file.c_str(), 1);
    EXPECT_EQ(Names(Selected(WShapes)), (NameList{"W44X368", "W44X335"}));
    EXPECT_EQ(Names(Selected(WShapes + "--sort AX")), (NameList{"W44X335", "W44X368"}));
    EXPECT_EQ(Names(Selected(WShapes + "--like W12")), NameList{});
    EXPECT_EQ(Names(Selected("American 'M Shape'")), NameList{});
    EXPECT_EQ(Names(Selected("American 'S Shape'")).size(), 28U);
    EXPECT_EQ(Names(Selected("American 'HP Shape'")).size(), 22U);
    std::filesystem::remove(file);
    std::filesystem::create_symlink(file, file);
    EXPECT_TRUE(Ended(On("select " + WShapes), 1, "user.dbi"));
    ::unsetenv("SECTIONDB_DBI");
    std::filesystem::remove(file);
}

// As the manual prints them, 103, 112 and 107 in^3.
TEST_F(SelectTest, ChoosesByWhatFollowsFromTheTable) {
    const CsvTable table = Selected(WShapes + "--range SZ:100: --range d:12:16 --sort weight "
                                              "--limit 3 --columns Weight,AX,H/TW");
    EXPECT_EQ(Names(table), (NameList{"W14X68", "W14X74", "W12X79"}));
    EXPECT_EQ(std::vector(table.Columns().begin(), table.Columns().end()),
              (NameList{"Name", "VessaName", "Weight", "AX", "H/TW", "computed"}));
    const auto& first = table.Records()[1];
    EXPECT_NEAR(table.Number(first, "H/TW"), 27.5, 0.1);
    EXPECT_EQ(table.Text(first, "computed"), "Weight H/TW");
    EXPECT_EQ(Names(Selected(WShapes + "--range SZ::5.2")), NameList{"W6X8.5"});
}

TEST_F(SelectTest, TellsWhatNoColumnHas) {
    const std::string angle = On("show European 'L 200 x 100 x 10' --csv").output;
    for (const char* row : {",SZ,93.343", ",ALPHA,14.74,deg,", ",CY,69.3,mm,"})
        EXPECT_TRUE(Holds(angle, row));
    EXPECT_FALSE(Holds(angle, "BF/2TF"));
    const CsvTable zee = Selected("'EN cold-formed' RHS --limit 1 --columns SZ,Perimeter");
    EXPECT_EQ(zee.Text(zee.Records()[1], "computed"), "SZ Perimeter");
}

TEST_F(SelectTest, TakesAFamilyByItsFirstWords) {
    EXPECT_EQ(Names(Selected("American w --like W12X26")), NameList{"W12X26"});
    EXPECT_EQ(Names(Selected("American 'hss round' --like HSS28X.875")),
              NameList{"HSS28X.875"}); // another begins with the whole of it
}

TEST_F(SelectTest, FindsANameInAllCataloguesInOrder) {
    const std::string byName = On("find rhs100x50x5").output;
    EXPECT_EQ(byName, "catalogue              family  programName  name                match\n"
                      "British                Tube    RHS100X50X5  RHS 100 x 50 x 5.0  exact\n"
                      "European               RHS     RHS100X50X5  RHS 100 x 50 x 5.0  exact\n"
                      "ColdFormed (European)  RHS     RHS100X50X5  RHS 100 x 50 x 5.0  exact\n");
    EXPECT_EQ(On("find 'RHS 100 x 50 x 5.0'").output, byName);
}

TEST_F(SelectTest, GoesOnWithoutADamagedCatalogue) {
    const std::string file = folder->File("CanadianSections.db3"); // before those that hold it
    WriteFile(file, "not a catalogue");
    const std::string hits = "\nEuropean ";
    for (const auto& [command, text] :
         {std::pair("find RHS100X50X5", hits), std::pair("list", std::string("at fault"))}) {
        const Outcome outcome = On(command);
        EXPECT_TRUE(Ended(outcome, 1, text));
        EXPECT_TRUE(Holds(outcome, "CanadianSections.db3: "));
    }
    std::filesystem::remove(file);
}
