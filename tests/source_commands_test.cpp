// What the program makes of the text sources as a whole, and tells of them.
#include "ProgramSupport.h"
#include "sources/CsvTable.h"

#include <gtest/gtest.h>

using namespace testsupport;

TEST(SharedFamily, ShowsAChangeInAllCatalogues) {
    const TempFolder data;
    const TempFolder output;
    std::filesystem::copy(SECTIONDB_DATA_DIR, data.Path(),
                          std::filesystem::copy_options::recursive);
    const std::string file = data.File("families/en10365-ipe.csv");
    std::string family = ReadFile(file);
    family.replace(family.find("\nIPE 300,IPE300,"), 16, "\nIPE 300 new,IPE300NEW,");
    WriteFile(file, family);
    ASSERT_EQ(Program("build " + data.Path() + " -o " + output.Path()).status, 0);
    const std::string found = Program("find IPE300NEW --folder " + output.Path()).output;
    for (const char* catalogue : {"European", "Dutch", "French", "German", "Spanish", "Jindal"})
        EXPECT_TRUE(Holds(found, "\n" + std::string(catalogue) + " "));
    EXPECT_EQ(Program("find IPE300 --folder " + output.Path()).status, 1);
}

TEST(SharedFamily, GivesTheSameBytesInAnyOrderOfBuilding) {
    const TempFolder first;
    const TempFolder second;
    const std::string data = SECTIONDB_DATA_DIR;
    const std::string german = Quote(data + "/GermanSections") + " ";
    const std::string dutch = Quote(data + "/DutchSections") + " ";
    ASSERT_EQ(Program("build " + german + dutch + "-o " + first.Path()).status, 0);
    ASSERT_EQ(Program("build " + dutch + german + "-o " + second.Path()).status, 0);
    for (const char* file : {"GermanSections.db3", "DutchSections.db3"})
        EXPECT_EQ(ReadFile(first.File(file)), ReadFile(second.File(file))) << file;
}

TEST(Sources, LetFewMisprintsPass) {
    const Outcome outcome = Program("sources check " + Quote(SECTIONDB_DATA_DIR) + " --csv");
    EXPECT_EQ(outcome.status, 0) << outcome.output;
    const dbsection::CsvTable table("check", outcome.output);
    EXPECT_EQ(table.Records().size(), 31U);
    for (const auto& catalogue : table.Records()) {
        EXPECT_LE(table.Number(catalogue, "percent"), 2) << table.Text(catalogue, "catalogue");
        EXPECT_EQ(table.Number(catalogue, "shiftsPassed"), 0);
        EXPECT_GT(table.Number(catalogue, "swaps"), 100);
    }
}

TEST(Sources, AreToldByTheDocumentation) {
    const std::string data = Quote(SECTIONDB_DATA_DIR);
    const std::vector<std::pair<std::string, std::string>> pages{
        {"catalogues", "catalogues.md"},     {"corrections", "corrections.md"},
        {"validation", "validation.md"},     {"families", "families.md"},
        {"families --plot", "families.svg"}, {"validation --plot", "validation.svg"}};
    for (const auto& [page, file] : pages) {
        const Outcome outcome = Program(std::string("sources ").append(page).append(" ") + data);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_TRUE(outcome.output == ReadFile(SECTIONDB_DATA_DIR "/../docs/" + file))
            << "\"sectiondb sources " << page << "\" writes another docs/" << file;
    }
}
