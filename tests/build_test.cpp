// What a build does to the file that it replaces, and what it keeps of the password.
#include "DataAccessSupport.h"
#include "PipeSources.h"
#include "ProgramSupport.h"
#include "files/CatalogueBuilder.h"
#include "files/TableChecksum.h"
#include "sources/CatalogueSource.h"

#include <algorithm>
#include <array>
#include <pty.h>
#include <regex>
#include <sys/stat.h>
#include <termios.h>

using namespace testsupport;

namespace {

/// Builds the small catalogue of an output folder.
class BuildTest : public DataAccessTest {
protected:
    Outcome Build(const std::string& options = "") const {
        return Program("build " + m_sources.Path() + " -o " + m_folder.Path() + " " + options);
    }

    /// The printed area of the first pipe.
    std::string Area(const std::string& options = "") const {
        const std::string output =
            Program("show Venezuelan P100 --folder " + m_folder.Path() + " " + options).output;
        std::smatch match;
        return std::regex_search(output, match, std::regex("AX +(\\S+)")) ? match[1].str() : output;
    }

    unsigned Mode() const {
        struct stat status {};
        ::stat(m_file.c_str(), &status);
        return status.st_mode & 07777;
    }

    /// Has the stock program change the areas, and be killed when some of them are in the file.
    void KillAnEdit(const std::string& key = "") const {
        RunStockProgram(m_folder, m_file,
                        key + "PRAGMA cache_size=1; BEGIN; UPDATE [Pipe] SET AX = 3;"
                              "CREATE TABLE x AS SELECT zeroblob(100000);\n.shell kill -9 $PPID\n");
        for (const char* name : {"in.sql", "out.txt"})
            std::filesystem::remove(m_folder.File(name));
        ASSERT_TRUE(std::filesystem::exists(m_file + "-journal"));
    }

    const PipeSources m_sources;
    const std::string m_file = m_folder.File("VenezuelanSections.db3");
};

TEST_F(BuildTest, LetsNothingOfTheOldFileIntoTheNewOne) {
    if (!HasStockProgram())
        GTEST_SKIP() << "the sqlcipher program is not installed";
    for (const std::string option : {"", "--password a", "--password b"}) {
        const bool isProtected = !option.empty() && HasSystemsEngine;
        std::filesystem::remove(m_file);
        ASSERT_EQ(Build(isProtected ? "--password a" : "").status, 0);
        KillAnEdit(isProtected ? "PRAGMA key='a';" : "");
        const Outcome rebuilt = Build(option);
        EXPECT_EQ(rebuilt.status, 0) << rebuilt.output;
        EXPECT_EQ(Area(option), "28.3") << option;
        EXPECT_EQ(m_folder.Count(), 1) << option;
    }
    std::filesystem::remove(m_file);
    ASSERT_EQ(Build().status, 0);
    KillAnEdit();
    std::filesystem::remove(m_file); // the journal stays behind
    EXPECT_EQ(Program("user create " + m_file).status, 0);
    EXPECT_EQ(Program("user list " + m_file).status, 0);
}

TEST_F(BuildTest, LeavesAFileAloneThatAnotherProgramIsWriting) {
    ASSERT_EQ(Build().status, 0);
    StartHolder([&] {
        static CSectionWorkspace workspace;
        static CSectionDatabase database(&workspace);
        database.Open(m_file.c_str());
        workspace.BeginTrans();
        CSectionRecordset rows(&database);
        rows.Open(CSectionRecordset::Dynaset, "Select * From [Pipe]");
        SetValue(rows, 5, COleVariant(3.0));
    });
    ASSERT_TRUE(std::filesystem::exists(m_file + "-journal"));
    EXPECT_TRUE(Ended(Build(), 1, "another program is using the file"));
    EXPECT_TRUE(std::filesystem::exists(m_file + "-journal"));
    StopHolder();
    EXPECT_EQ(Area(), "28.3");
}

TEST_F(BuildTest, KeepsTheModeAndFollowsALink) {
    ASSERT_EQ(Build().status, 0);
    ::chmod(m_file.c_str(), 0600);
    EXPECT_EQ(Build().status, 0);
    EXPECT_EQ(Mode(), 0600U);

    std::filesystem::create_directory(m_folder.File("real"));
    std::filesystem::rename(m_file, m_folder.File("real/a.db3"));
    std::filesystem::create_symlink("real/a.db3", m_file);
    m_sources.Write("families/pipes.csv", "Name,VessaName,OD,T,AX\nTEXT,TEXT,MM,MM,CM^2\n"
                                          "P100,PIP100,100,10,28.27\n");
    EXPECT_EQ(Build().status, 0);
    EXPECT_TRUE(std::filesystem::is_symlink(m_file));
    EXPECT_EQ(Mode(), 0600U);
    EXPECT_EQ(Area(), "28.27");

    ::chmod(m_file.c_str(), 0444);
    const std::string before = ReadFile(m_file);
    EXPECT_TRUE(
        Ended(Build(), 1, "VenezuelanSections.db3: the file is read-only; make it writable"));
    EXPECT_EQ(ReadFile(m_file), before);
    EXPECT_EQ(Mode(), 0444U);
}

TEST_F(BuildTest, StoresAChecksumOfEachTable) {
    // Computed apart: of "Pipe\nRECNO\nName\nVessaName\nOD\nT\nAX\nI\nZ\n", and for each row
    // "d3ff0000000000000t4:P100t6:PIP100d4059...", the numbers as the bits of doubles.
    const std::string pipe = "991ad75b77c8eaa2cd321f48766ac3e89a06a4e42566c57f591fee2bc95164f8";
    ASSERT_EQ(Build().status, 0);
    DatabaseHandle db;
    ASSERT_EQ(Open(db, m_file), 1);
    const std::string stored = TextAt(Rows(db, "Select * From [DBInfo]"), 5);
    EXPECT_TRUE(Holds(stored, pipe + "  Pipe\n"));
    EXPECT_EQ(std::ranges::count(stored, '\n'), 11); // five tables, their units, and their origins
    EXPECT_EQ(stored, dbsection::ChecksumsOf(*db));
    Rows rows(db, "Select * From [Pipe]");
    SetValue(*rows, 5, COleVariant(28.300000000000004));
    EXPECT_NE(dbsection::ChecksumOf(*db, "Pipe"), pipe);

    ASSERT_EQ(Program("user create " + m_folder.File("mine.db3")).status, 0);
    DatabaseHandle mine;
    ASSERT_EQ(Open(mine, m_folder.File("mine.db3")), 1);
    EXPECT_EQ(Rows(mine, "Select * From [DBInfo]")->GetFieldValue(5).vt, VT_NULL);
}

// So that a process that opens the folder derives one key.
TEST_F(BuildTest, GoesOnWithTheSaltOfTheFolder) {
    const auto salt = [this] { return ReadFile(m_file).substr(0, 16); };
    ASSERT_EQ(Build("--password a").status, 0);
    const std::string first = salt();
    ASSERT_EQ(Build("--password a").status, 0);
    EXPECT_EQ(salt(), first);
    ASSERT_EQ(Build("--password b").status, 0);
    EXPECT_NE(salt(), first);
    EXPECT_EQ(Area("--password b"), "28.3");
}

TEST_F(BuildTest, TakesThePasswordFromAFile) {
    const std::string file = m_folder.File("password");
    struct {
        const char* text;
        const char* password; ///< null: refused
    } const cases[] = {
        {"open sesame\nignored\n", "open sesame"},
        {"crlf\r\n", "crlf"},
        {"no end", "no end"},
        {"", nullptr},
        {"\nsecond\n", nullptr},
        {"  \n", nullptr},
    };
    for (const auto& [text, password] : cases) {
        std::filesystem::remove(m_file);
        WriteFile(file, text);
        const Outcome outcome = Build("--password-file " + file);
        EXPECT_EQ(outcome.status, password == nullptr ? 1 : 0) << outcome.output;
        EXPECT_EQ(std::filesystem::exists(m_file), password != nullptr);
        if (password != nullptr) {
            EXPECT_EQ(Area("--password " + Quote(password)), "28.3");
            EXPECT_EQ(Area("--password-file - < " + file), "28.3");
            EXPECT_TRUE(Holds(Area(), "no password was given"));
        }
    }
    EXPECT_NE(Build("--password-file " + m_folder.File("none")).status, 0);
    EXPECT_NE(Build("--password a --password-file " + file).status, 0);
}

/// What the program prints on a terminal on which `typed` is answered to its questions.
std::string OnTerminal(const std::vector<std::string>& arguments, const std::string& typed) {
    int terminal = -1;
    const pid_t child = ::forkpty(&terminal, nullptr, nullptr, nullptr);
    if (child == 0) {
        std::vector<char*> argv;
        for (const std::string& argument : arguments)
            argv.push_back(const_cast<char*>(argument.c_str()));
        argv.push_back(nullptr);
        ::execv(argv[0], argv.data());
        ::_exit(99);
    }
    std::string output;
    std::array<char, 256> buffer{};
    std::size_t answered = 0;
    for (ssize_t count = 0; (count = ::read(terminal, buffer.data(), buffer.size())) > 0;) {
        output.append(buffer.data(), static_cast<std::size_t>(count));
        if (output.ends_with(": ") && answered < typed.size()) {
            const std::size_t end = typed.find_first_of("\n\x03", answered) + 1;
            EXPECT_GT(::write(terminal, typed.data() + answered, end - answered), 0);
            answered = end;
        }
    }
    termios after{};
    EXPECT_EQ(::tcgetattr(terminal, &after), 0);
    EXPECT_NE(after.c_lflag & ECHO, 0U) << "what is typed stays hidden";
    ::close(terminal);
    return output + std::to_string(WaitForChild(child));
}

TEST_F(BuildTest, AsksForThePasswordOnATerminalWithoutShowingIt) {
    const std::vector<std::string> build{
        SECTIONDB_PROGRAM, "build", m_sources.Path(), "-o", m_folder.Path(),
        "--password-file", "-"};
    const std::string differing = OnTerminal(build, "sesame\nsesam\n");
    EXPECT_TRUE(Holds(differing, "The two passwords differ"));
    OnTerminal(build, "sesame\n\x03"); // given up
    EXPECT_FALSE(std::filesystem::exists(m_file));
    const std::string built = OnTerminal(build, "sesame\nsesame\n");
    EXPECT_TRUE(built.starts_with("Password: \r\nThe same again: \r\n")) << built;
    EXPECT_FALSE(Holds(built, "sesame"));
    EXPECT_EQ(Area("--password sesame"), "28.3");
    const std::string shown = OnTerminal({SECTIONDB_PROGRAM, "show", "15", "P100", "--folder",
                                          m_folder.Path(), "--password-file", "-"},
                                         "sesame\n");
    EXPECT_TRUE(Holds(shown, "28.3"));
}

} // namespace
