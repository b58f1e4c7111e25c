// The program on files that are busy, damaged, of other programs, or full of surprises.
#include "FacadeSupport.h"
#include "ProgramSupport.h"

#include <sys/stat.h>

using namespace testsupport;

namespace {

class ProgramFaultTest : public FacadeTest {
protected:
    Outcome On(const std::string& arguments) const {
        return Shell("cd " + m_folder.Path() + "; " + Quote(SECTIONDB_PROGRAM) + " " + arguments +
                     " --folder " + m_folder.Path());
    }

    /// A small American catalogue, and one row of W shapes more for each of `sections`.
    void MakeAmerican(const std::vector<Section>& sections = {}) const {
        CatalogueFile file(m_file);
        file.AddTable("W Shape", LayoutId::IShape, {W12X26});
        file.AddTable("Rod", LayoutId::RoundBar, sections);
    }

    const std::string m_file = m_folder.File("AISCSections.db3");
};

/// Every command that reads catalogues.
constexpr const char* Commands[] = {"list",
                                    "list American",
                                    "list American W",
                                    "show American W12X26",
                                    "show American W12X26 --json",
                                    "select American W",
                                    "select American W --json --length mm",
                                    "find W12X26",
                                    "page American --output page.html"};

TEST_F(ProgramFaultTest, BusyDamagedForeignAndMissingAreToldApart) {
    using Spoil = std::function<void()>;
    const std::pair<const char*, Spoil> cases[] = {
        {"another program is using the file",
         [&] {
             MakeAmerican();
             StartHolder([&] {
                 static CSectionDatabase database;
                 database.Open(m_file.c_str(), 1, 0);
             });
         }},
        {"the file is damaged; replace it by a good copy",
         [&] {
             const std::string name(5000, 'R');
             MakeAmerican(std::vector<Section>(10, {name.c_str(), "R", {1.0, 1.0, 1.0}}));
             std::filesystem::resize_file(m_file, std::filesystem::file_size(m_file) / 8192 * 4096);
         }},
        {"this is not a catalogue file", [&] { WriteFile(m_file, "some text\n"); }},
        {"this is no catalogue, but maybe another program's database",
         [&] {
             DatabaseHandle db;
             ASSERT_EQ(createDatabase(db.Address(), m_file.c_str(), "", 0, nullptr), 1);
             CreateShapeTable(db.Get(), "W Shape");
         }},
        {"Too many levels of symbolic links",
         [&] { std::filesystem::create_symlink(m_file, m_file); }},
        {"AISCSections.db3 is not in the folder", [] {}},
    };
    for (const auto& [message, spoil] : cases) {
        StopHolder();
        std::filesystem::remove(m_file);
        spoil();
        const bool isMissing = std::string(message).ends_with("in the folder");
        for (const std::string command : Commands) {
            const Outcome outcome = On(command);
            const bool goesOn = isMissing && command == "list"; // says "no file"
            const bool lists = command == "list" || (isMissing && command.starts_with("find"));
            EXPECT_EQ(outcome.status, goesOn ? 0 : 1) << command << ": " << outcome.output;
            if (isMissing && lists)
                continue;
            EXPECT_TRUE(Holds(outcome, message)) << command;
            EXPECT_FALSE(Holds(outcome, "again from"));
            EXPECT_TRUE(lists || outcome.output.starts_with("sectiondb: ")) << outcome.output;
        }
    }
}

TEST_F(ProgramFaultTest, ATableOfTooFewColumnsIsTold) {
    CatalogueFile(m_file).AddPlainTable("W Shape", {{"RECNO", SectionField::Long}, {"Name"}},
                                        {{COleVariant(1), COleVariant("W12X26")}});
    const std::pair<const char*, const char*> cases[] = {
        {"list American W", "table \"W Shape\" has 2 columns"},
        {"select American W", "table \"W Shape\" has 2 columns"},
        {"show American W12X26", "Table \"W Shape\" cannot be read"},
        {"show American W12X26 --json", "Table \"W Shape\" cannot be read"},
        {"find W12X26", "Table \"W Shape\" cannot be read"},
    };
    for (const auto& [command, message] : cases) {
        EXPECT_TRUE(Ended(On(command), 1, message)) << command;
    }
}

TEST_F(ProgramFaultTest, NothingOfAFileControlsTheTerminal) {
    MakeAmerican({{"\x1B[31mred\x07\xC2\x9B\xFF", "RED", {1.0, 1.0, 1.0}}});
    for (const std::string command :
         {"list American Rod", "show American RED", "show American RED --json",
          "select American Rod", "select American Rod --csv", "select American Rod --json",
          "find RED"}) {
        EXPECT_TRUE(Ended(On(command), 0, "\\u001b[31mred\\u0007\\u009b\xEF\xBF\xBD")) << command;
    }
    const Outcome unknown = On("list $'American\\e[2J'");
    EXPECT_FALSE(Holds(unknown, "\x1B"));
}

TEST_F(ProgramFaultTest, ReadingLeavesTheMarksOfAllFiles) {
    MakeAmerican();
    const std::string other = m_folder.File("CanadianSections.db3");
    std::filesystem::copy(m_file, other);
    for (const mode_t mode : {0444U, 0464U, 0644U}) {
        ::chmod(m_file.c_str(), mode);
        ::chmod(other.c_str(), 0644 + 0444 - (mode & 0644));
        const auto modes = [&] {
            struct stat status {};
            struct stat otherStatus {};
            ::stat(m_file.c_str(), &status);
            ::stat(other.c_str(), &otherStatus);
            return std::pair(status.st_mode, otherStatus.st_mode);
        };
        const auto before = modes();
        for (const char* command : Commands) {
            EXPECT_EQ(On(command).status, 0) << command;
            EXPECT_EQ(modes(), before) << command;
        }
    }
}

} // namespace
