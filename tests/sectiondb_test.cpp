// The program, run as a person runs it, on the American catalogue.
#include "ProgramSupport.h"
#include "dbSectionInterface.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <regex>

namespace {

using testsupport::Outcome;
using testsupport::Program;
using testsupport::Quote;
using testsupport::ReadFile;
using testsupport::Shell;
using testsupport::TempFolder;
using testsupport::WriteFile;

const std::string American = Quote(SECTIONDB_DATA_DIR "/AISCSections");

Outcome BuildAmerican(const TempFolder& folder, const std::string& options = "") {
    return Program("build " + American + " -o " + folder.Path() + " " + options);
}

/// The columns of a printed section: "AX" -> "7.65 in^2".
std::string Printed(const std::string& output, const std::string& column) {
    std::smatch match;
    const std::regex line("\n  " + column + " +(\\S+ \\S+)");
    return std::regex_search(output, match, line) ? match[1].str() : "";
}

class CatalogueTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        folder = std::make_unique<TempFolder>();
        ASSERT_EQ(BuildAmerican(*folder).status, 0);
    }
    static void TearDownTestSuite() { folder.reset(); }

    static Outcome On(const std::string& arguments) {
        return Program(arguments + " --folder " + folder->Path());
    }

    void SetUp() override {
        SectionDBInterface::SetProfileDBFolder(CString(folder->Path() + "/"));
        database = SectionDBInterface::GetDatabasePtr(1);
        ASSERT_NE(database, nullptr);
        catalogue = dynamic_cast<CatalogueSectionDB*>(
            SectionDBInterface::m_SectionDBDrv.GetSectionDBObject(1));
        catalogue->SetDatabase(database);
    }
    void TearDown() override { SectionDBInterface::ExitSectionDBInterface(); }

    static std::unique_ptr<TempFolder> folder;
    CSectionDatabase* database = nullptr;
    CatalogueSectionDB* catalogue = nullptr;
};

std::unique_ptr<TempFolder> CatalogueTest::folder;

} // namespace

TEST(BuildCommand, GivesTheSameBytesFromTheSameSources) {
    const TempFolder first;
    const TempFolder second;
    ASSERT_EQ(BuildAmerican(first).status, 0);
    ASSERT_EQ(BuildAmerican(second).status, 0);
    EXPECT_EQ(ReadFile(first.File("AISCSections.db3")), ReadFile(second.File("AISCSections.db3")));
    EXPECT_EQ(first.Count(), 1);
}

TEST(BuildCommand, LeavesTheEarlierFileWhenASourceIsWrong) {
    const TempFolder output;
    const TempFolder data;
    const std::string source = data.File("AISCSections");
    std::filesystem::copy(SECTIONDB_DATA_DIR "/AISCSections", source);
    ASSERT_EQ(Program("build " + source + " -o " + output.Path()).status, 0);
    const std::string before = ReadFile(output.File("AISCSections.db3"));

    std::string table = ReadFile(source + "/W Shape.csv");
    const std::size_t row = table.find("W12X26,");
    table.replace(table.find("204", row), 3, "2x4");
    WriteFile(source + "/W Shape.csv", table);
    const Outcome outcome = Program("build " + source + " -o " + output.Path());
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(std::regex_search(outcome.output,
                                  std::regex("W Shape\\.csv:\\d+: column IZ: \"2x4\": .*number")))
        << outcome.output;
    EXPECT_EQ(ReadFile(output.File("AISCSections.db3")), before);
    EXPECT_EQ(output.Count(), 1);
}

TEST(BuildCommand, LeavesTheEarlierFileWhenTheDiskIsFull) {
    const int status = testsupport::RunInChild([] {
        const TempFolder output;
        testsupport::LimitDisk(output.Path(), 100000);
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
    if (Shell("command -v sqlcipher").status != 0)
        GTEST_SKIP() << "the sqlcipher program is not installed";
    const TempFolder folder;
    ASSERT_EQ(BuildAmerican(folder, "--password 'open sesame'").status, 0);
    const std::string file = folder.File("AISCSections.db3");
    const std::string count = "SELECT count(*) FROM [W Shape];\" | sqlcipher " + file;
    EXPECT_EQ(Shell("echo \"PRAGMA key='open sesame';" + count).output, "289\n");
    EXPECT_NE(Shell("echo \"" + count).output.find("file is encrypted or is not a database"),
              std::string::npos);

    const std::string show = "show American W12X26 --folder " + folder.Path();
    EXPECT_EQ(Program(show + " --password 'open sesame'").status, 0);
    EXPECT_EQ(Shell("SECTIONDB_PASSWORD='open sesame' " SECTIONDB_PROGRAM " " + show).status, 0);
    EXPECT_NE(Program(show).output.find("no password was given"), std::string::npos);
    EXPECT_NE(Program(show + " --password wrong").output.find("password is wrong"),
              std::string::npos);
}

TEST_F(CatalogueTest, ShowPrintsPublishedAndConvertedFigures) {
    const Outcome us = On("show American w12x26");
    ASSERT_EQ(us.status, 0) << us.output;
    EXPECT_EQ(Printed(us.output, "AX"), "7.65 in^2");
    EXPECT_EQ(Printed(us.output, "IZ"), "204 in^4");
    EXPECT_EQ(Printed(us.output, "ZZ"), "37.2 in^3");
    EXPECT_EQ(Printed(us.output, "IX"), "0.3 in^4");

    const Outcome metric = On("show AISCSections W12X26 --length mm --force kN");
    EXPECT_EQ(Printed(metric.output, "AX"), "4935.5 mm^2");
    EXPECT_EQ(Printed(metric.output, "D"), "309.88 mm");

    const Outcome json = On("show 1 W12X26 --json --length cm");
    EXPECT_NE(json.output.find("{\"column\": \"AX\", \"value\": 49.35474, \"unit\": \"cm^2\""),
              std::string::npos)
        << json.output;
}

TEST_F(CatalogueTest, ErrorsSayWhatFailedAndWhatToDo) {
    struct Case {
        const char* arguments;
        const char* message;
    };
    constexpr std::array Cases{
        Case{"show Martian W12X26", "There is no catalogue \"Martian\""},
        Case{"show British UB", "BritishSections.db3 is not in the folder"},
        Case{"show American W99X9", "There is no section \"W99X9\" in the catalogue American"},
        Case{"show American \"W12'X26\"", "There is no section \"W12'X26\""},
        Case{"show American W12X26 --length parsec", "\"parsec\" is no unit of length"},
        Case{"list American Tea", "There is no family \"Tea\""},
    };
    for (const Case& each : Cases) {
        const Outcome outcome = On(each.arguments);
        EXPECT_EQ(outcome.status, 1) << each.arguments;
        EXPECT_NE(outcome.output.find(each.message), std::string::npos) << outcome.output;
    }
    const Outcome full = Shell("{ " + Quote(SECTIONDB_PROGRAM) + " list --folder " +
                               folder->Path() + " >/dev/full; }");
    EXPECT_EQ(full.status, 1);
    EXPECT_NE(full.output.find("cannot be written: No space left"), std::string::npos);
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
    const Outcome outcome = Program("list American --folder " + other.Path());
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.output.find("layout version is 99, expected 2"), std::string::npos);
}

// The text sources name the tables and layouts that the catalogue class reads.
TEST_F(CatalogueTest, TablesAreThoseOfTheClass) {
    CStringList tables;
    catalogue->GetSectionTypeList(&tables);
    EXPECT_EQ(static_cast<std::size_t>(tables.GetCount()), catalogue->Families().size());
    for (const SectionFamily& family : catalogue->Families()) {
        CStringArray names;
        ASSERT_EQ(catalogue->GetSectionFieldNameArray(family.sectionType, &names), 1);
        const auto columns = GetSectionLayout(family.layout).columns;
        ASSERT_EQ(names.GetSize(), static_cast<int>(columns.size()) + BookkeepingColumns)
            << family.table;
        for (int i = BookkeepingColumns; i < names.GetSize(); ++i)
            EXPECT_EQ(names[i], columns[static_cast<std::size_t>(i - BookkeepingColumns)].name);
    }
}

// Radii of gyration and moduli follow from the published figures; those of the W shapes are
// compared with some that the standard prints besides.
TEST_F(CatalogueTest, SummaryAgreesWithPublishedRadiiAndModuli) {
    struct Case {
        const char* name;
        double majorModulus; // in^3, as published
        double majorRadius;  // in
        double minorModulus;
        double minorRadius;
        double weight; // lb/ft
    };
    constexpr std::array Cases{
        Case{"W12X26", 33.4, 5.17, 5.34, 1.51, 26},    Case{"W44X335", 1410, 17.8, 150, 3.49, 335},
        Case{"S24X121", 258, 9.43, 20.6, 1.53, 121},   Case{"C15X50", 53.8, 5.24, 3.77, 0.865, 50},
        Case{"HP18X204", 380, 7.6, 124, 4.31, 204},    Case{"MC18X58", 75, 6.29, 5.28, 1.02, 58},
        Case{"HSS34X10X1", 565, 11.2, 268, 4.19, 259}, // weight of the design wall, not the nominal
        Case{"PIPE26STD", 178, 9.07, 178, 9.07, 96}};
    for (const Case& each : Cases) {
        int type = 0;
        const std::unique_ptr<SECTIONINFO> info(
            catalogue->GetSectionStructProperty(each.name, 1001, 2002, &type));
        ASSERT_NE(info, nullptr) << each.name;
        EXPECT_NEAR(info->MajorModulus / each.majorModulus, 1, 0.01) << each.name;
        EXPECT_NEAR(info->MajorRadius / each.majorRadius, 1, 0.01) << each.name;
        EXPECT_NEAR(info->MinorModulus / each.minorModulus, 1, 0.02) << each.name;
        EXPECT_NEAR(info->MinorRadius / each.minorRadius, 1, 0.01) << each.name;
        EXPECT_NEAR(info->WeightPerLength * 12 / each.weight, 1, 0.015) << each.name;
    }
}

TEST_F(CatalogueTest, FixedStatementsUseTheIndexes) {
    if (Shell("command -v sqlcipher").status != 0)
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
        EXPECT_NE(
            plan.output.find(std::string(each.access) + " TABLE W Shape USING INDEX " + each.index),
            std::string::npos);
        EXPECT_EQ(plan.output.find("TEMP B-TREE"), std::string::npos) << plan.output;
    }
}
