// The program, run as a person runs it, on the American catalogue.
#include "BuiltCatalogues.h"
#include "DataAccessSupport.h"
#include "dbSectionInterface.h"

#include <gtest/gtest.h>

#include <regex>
#include <sstream>

namespace {

using namespace testsupport;

const std::string American = Quote(SECTIONDB_DATA_DIR "/AISCSections");

Outcome BuildAmerican(const TempFolder& folder, const std::string& options = "") {
    return Program("build " + American + " -o " + folder.Path() + " " + options);
}

/// The columns of a printed section: "AX" -> "7.65 in^2".
std::string Printed(const std::string& output, const std::string& column) {
    std::smatch match;
    const std::regex line("\n  " + column + " +(\\S+) +(\\S+)");
    return std::regex_search(output, match, line) ? match[1].str() + ' ' + match[2].str() : "";
}

class CatalogueTest : public OnBuiltCatalogues<> {
protected:
    static void SetUpTestSuite() { Build({"AISCSections"}); }
};

} // namespace

TEST(BuildCommand, GivesTheSameBytesFromTheSameSources) {
    const TempFolder first;
    const TempFolder second;
    ASSERT_EQ(BuildAmerican(first).status, 0);
    ASSERT_EQ(BuildAmerican(second).status, 0);
    EXPECT_EQ(ReadFile(first.File("AISCSections.db3")), ReadFile(second.File("AISCSections.db3")));
    EXPECT_EQ(first.Count(), 1);
}

TEST(BuildCommand, LeavesTheEarlierFileWhenADigitOfASourceIsWrong) {
    const TempFolder output;
    const TempFolder data;
    std::filesystem::copy(SECTIONDB_DATA_DIR, data.Path(),
                          std::filesystem::copy_options::recursive);
    const std::string build = "build " + data.File("AISCSections") + " -o " + output.Path();
    ASSERT_EQ(Program(build).status, 0);
    const std::string before = ReadFile(output.File("AISCSections.db3"));

    const std::string family = data.File("families/aisc-w.csv");
    std::string table = ReadFile(family);
    table.replace(table.find(",38700,"), 7, ",37800,");
    WriteFile(family, table);
    EXPECT_TRUE(Ended(Program(build), 1, "aisc-w.csv:3: column IZ: \"37800\": 2."));
    EXPECT_EQ(ReadFile(output.File("AISCSections.db3")), before);
    EXPECT_EQ(output.Count(), 1);
}

TEST(BuildCommand, LeavesTheEarlierFileWhenTheDiskIsFull) {
    const int status = RunInChild([] {
        const TempFolder output;
        LimitDisk(output.Path(), 100000);
        WriteFile(output.File("AISCSections.db3"), "earlier");
        const Outcome outcome = BuildAmerican(output);
        const bool told = outcome.output.find("disk is full") != std::string::npos ||
                          outcome.output.find("check the disk") != std::string::npos;
        const bool kept = ReadFile(output.File("AISCSections.db3")) == "earlier";
        return outcome.status == 1 && told && kept && output.Count() == 1 ? 0 : 1;
    });
    EXPECT_EQ(status, 0);
}

TEST(BuildCommand, KilledAtAnyMomentLeavesNoFileOrAWholeOne) {
    const TempFolder reference;
    ASSERT_EQ(BuildAmerican(reference).status, 0);
    const std::string whole = ReadFile(reference.File("AISCSections.db3"));
    const TempFolder output;
    for (int milliseconds = 0; milliseconds < 100; milliseconds += 5) {
        Shell("timeout -s KILL " + std::to_string(0.001 * milliseconds + 0.001) + " " +
              Quote(SECTIONDB_PROGRAM) + " build " + American + " -o " + output.Path());
        const std::string file = output.File("AISCSections.db3");
        ASSERT_TRUE(!std::filesystem::exists(file) || ReadFile(file) == whole) << milliseconds;
    }
}

TEST(BuildCommand, ProtectsAFileThatTheStockProgramOpensWithThePassword) {
    if (!HasSystemsEngine || !HasStockProgram())
        GTEST_SKIP() << "no sqlcipher program of the library's engine is installed";
    const TempFolder folder;
    ASSERT_EQ(BuildAmerican(folder, "--password 'open sesame'").status, 0);
    const std::string file = folder.File("AISCSections.db3");
    const std::string count = "SELECT count(*) FROM [W Shape];\" | sqlcipher " + file;
    EXPECT_EQ(Shell("echo \"PRAGMA key='open sesame';" + count).output, "289\n");
    EXPECT_TRUE(Holds(Shell("echo \"" + count), "file is encrypted or is not a database"));

    const std::string show = "show American W12X26 --folder " + folder.Path();
    EXPECT_EQ(Program(show + " --password 'open sesame'").status, 0);
    EXPECT_EQ(Shell("SECTIONDB_PASSWORD='open sesame' " SECTIONDB_PROGRAM " " + show).status, 0);
    EXPECT_TRUE(Holds(Program(show), "no password was given"));
    EXPECT_TRUE(Holds(Program(show + " --password wrong"), "password is wrong"));
}

TEST_F(CatalogueTest, ShowPrintsPublishedAndConvertedFigures) {
    const Outcome us = On("show American w12x26");
    ASSERT_EQ(us.status, 0) << us.output;
    EXPECT_TRUE(us.output.starts_with("W12X26 (American, W Shape)\n")) << us.output;
    EXPECT_EQ(Printed(us.output, "AX"), "7.65 in^2");
    EXPECT_EQ(Printed(us.output, "IZ"), "204 in^4");
    EXPECT_EQ(Printed(us.output, "ZZ"), "37.2 in^3");
    EXPECT_EQ(Printed(us.output, "IX"), "0.3 in^4");

    const Outcome metric = On("show AISCSections W12X26 --length mm --force kN");
    EXPECT_EQ(Printed(metric.output, "AX"), "4935 mm^2");
    EXPECT_EQ(Printed(metric.output, "D"), "309.9 mm");
    EXPECT_EQ(Printed(metric.output, "IZ"), "8.491e7 mm^4");

    const std::pair<const char*, const char*> exact[] = {
        {"--json --length cm", R"({"column": "AX", "value": 49.35474, "unit": "cm^2")"},
        {"--json --length mm", R"({"column": "D", "value": 309.88, "unit": "mm")"},
        {"--csv --length mm",
         "American,W Shape,W12X26,W12X26,\"AISC Steel Construction Manual, 16th Edition\","
         "rolled,W310X38.7; IR 305 x 38.7,D,309.88,mm,depth,published\n"},
    };
    for (const auto& [options, text] : exact) {
        EXPECT_TRUE(Holds(On(std::string("show 1 W12X26 ") + options), text));
    }
}

TEST_F(CatalogueTest, TellsWrongUsageFromFailure) {
    struct {
        const char* arguments;
        int status;
        const char* message;
    } const cases[] = {
        {"", 2, "A command is required"},
        {"paint", 2, "paint"},
        {"user", 2, "subcommand"},
        {"show American", 2, "name is required"},
        {"list --csv --json", 2, "excludes"},
        {"show American W12X26 --length parsec", 2, "\"parsec\" is no unit of length"},
        {"show American W12X26 --force kips/in", 2, "is no unit of force"},
        {"user create mine.db3 --units SI", 2, "\"SI\" is no system of units"},
        {"show Martian W12X26", 1, "There is no catalogue \"Martian\""},
        {"show British UB", 1, "BritishSections.db3 is not in the folder"},
        {"show American W99X9", 1, "There is no section \"W99X9\" in the catalogue American"},
        {"show American \"W12'X26\"", 1, "There is no section \"W12'X26\""},
        {"list American Tea", 1, "There is no family \"Tea\""},
        {"list >/dev/full", 1, "cannot be written: No space left"},
        {"list >/dev/full 2>&1", 1, ""},
        {"build nowhere -o $SECTIONDB_FOLDER", 1, "nowhere: "},
    };
    for (const auto& [arguments, status, message] : cases) {
        const Outcome outcome = Shell("export SECTIONDB_FOLDER=" + folder->Path() + "; { " +
                                      Quote(SECTIONDB_PROGRAM) + " " + arguments + "; }");
        EXPECT_TRUE(Ended(outcome, status, message)) << arguments;
        std::istringstream lines(outcome.output);
        for (std::string line; std::getline(lines, line);)
            EXPECT_TRUE(line.starts_with("sectiondb: ")) << line;
    }
}

TEST_F(CatalogueTest, AnotherLayoutVersionIsRefused) {
    const TempFolder other;
    std::filesystem::copy(folder->File("AISCSections.db3"), other.File("AISCSections.db3"));
    DatabaseHandle db;
    RecordsetHandle rows;
    ASSERT_EQ(
        openDatabase(db.Address(), CString(other.File("AISCSections.db3")), 1, 0, 0, "", nullptr),
        1);
    ASSERT_EQ(openRecordset(db.Address(), rows.Address(), "Select * From [DBInfo]",
                            CSectionRecordset::Dynaset, 1),
              1);
    rows->Edit();
    rows->SetFieldValue(3, "99");
    rows->Update();
    EXPECT_TRUE(Ended(Program("list American --folder " + other.Path()), 1,
                      "layout version is 99, expected 2"));
    const Outcome where = Program("where --csv --folder " + other.Path());
    EXPECT_TRUE(Ended(where, 1, "folder,--folder," + other.Path() + ",,used\n"));
    EXPECT_TRUE(Holds(where, "file,American," + other.File("AISCSections.db3") + ",,at fault\n"));
    EXPECT_TRUE(Holds(where, "layout version is 99, expected 2"));
}

TEST_F(CatalogueTest, WhereTellsWhichSettingWon) {
    const std::string file = "file,American," + folder->File("AISCSections.db3") + ",2,\n";
    struct {
        const char* setting;
        std::string folder;
        std::string lines;
    } const cases[] = {
        {"SECTIONDB_FOLDER=/elsewhere ", folder->Path(),
         "folder,--folder," + folder->Path() +
             ",,used\nfolder,SECTIONDB_FOLDER,/elsewhere,,not needed\n"},
        {"SECTIONDB_FOLDER=/elsewhere ", "",
         "folder,--folder,,,not given\nfolder,SECTIONDB_FOLDER,/elsewhere,,no such folder\n"},
        {"SECTIONDB_FOLDER= ", folder->Path(),
         "folder,--folder," + folder->Path() + ",,used\nfolder,SECTIONDB_FOLDER,,,not set\n"},
    };
    for (const auto& [setting, given, lines] : cases) {
        const Outcome outcome = Shell(setting + Quote(SECTIONDB_PROGRAM) + " where --csv" +
                                      (given.empty() ? "" : " --folder " + given));
        EXPECT_TRUE(Holds(outcome, lines));
        EXPECT_EQ(outcome.output.find(file) != std::string::npos, !given.empty()) << outcome.output;
    }
}

TEST_F(CatalogueTest, FixedStatementsUseTheIndexes) {
    if (!HasStockProgram())
        GTEST_SKIP() << "the sqlcipher program is not installed";
    struct Case {
        const char* statement;
        const char* index;
        const char* access = "SEARCH";
    };
    constexpr std::array Cases{
        Case{"Select * From [W Shape] ORDER BY [AX] ASC", "W Shape by [AX]", "SCAN"},
        Case{"Select * From [W Shape] ORDER BY [AX] DESC", "W Shape by [AX]", "SCAN"},
        Case{"Select * From [W Shape] WHERE UPPER([VessaName]) = UPPER('W12X26') AND [RECNO] "
             "IN(1,2,3,4,5,6,7,8,9,10)",
             "W Shape by UPPER([VessaName])"},
        Case{"SELECT * FROM [W Shape] WHERE UPPER([VessaName]) = UPPER('W12X26')",
             "W Shape by UPPER([VessaName])"},
        Case{"SELECT * FROM [W Shape] WHERE [Name] = 'W12X26'", "W Shape by [Name]"},
        Case{"Select * From [W Shape] WHERE [AX] >= 7.0 AND [AX] <= 9.0", "W Shape by [AX]"},
        Case{"Select * From [W Shape] WHERE [AX] >= 7.0 ORDER BY [AX] ASC", "W Shape by [AX]"}};
    for (const Case& each : Cases) {
        const Outcome plan = Shell(std::string("echo \"EXPLAIN QUERY PLAN ") + each.statement +
                                   ";\" | sqlcipher " + folder->File("AISCSections.db3"));
        std::printf("%s\n  %s", each.statement, plan.output.c_str());
        EXPECT_TRUE(
            Holds(plan, std::string(each.access) + " TABLE W Shape USING INDEX " + each.index));
        EXPECT_FALSE(Holds(plan, "TEMP B-TREE"));
    }
}
