// What a person may get wrong, of every command.
#include "FacadeSupport.h"
#include "ProgramSupport.h"

#include <map>

using namespace testsupport;

namespace {

constexpr int Failure = 1;
constexpr int WrongUsage = 2;

class BadInputTest : public FacadeTest {
protected:
    void SetUp() override {
        FacadeTest::SetUp();
        MakeCatalogue(File("AISCSections.db3"), 1);
        ASSERT_EQ(On("user create mine.db3").status, 0);
        ASSERT_EQ(On("user add mine.db3 Pipe P1 OD=100 T=5").status, 0);
        ASSERT_EQ(On("user add mine.db3 General G1 AX=9 D=9 B=9 IZ=9 IX=9 IY=9 SZ=9 SY=9 ZZ=9 ZY=9 "
                     "AZ=9 AY=9")
                      .status,
                  0);
        WriteFile(File("empty.db3"), "");
        WriteFile(File("text.db3"), "some text\n");
        WriteFile(File("binary.db3"), std::string(5000, '\x7F'));
        WriteFile(File("good.csv"), "Name,OD,T\n,mm,mm\nP2,100,5\n");
        WriteFile(File("semicolons.csv"), "Name;OD;T\n;mm;mm\nP2;100;5,2\n");
        WriteFile(File("quoted.csv"), "\"Name\";\"OD\";\"T\"\n;mm;mm\nP2;100;5\n");
        WriteFile(File("tabs.csv"), "Name\tOD\tT\n\tmm\tmm\nP2\t100\t5\n");
        WriteFile(File("returns.csv"), "\"Name\",\"OD\",\"T\"\r,mm,mm\rP2,100,5\r");
        WriteFile(File("plainreturns.csv"), "Name,OD,T\r,mm,mm\rP2,100,5\r");
        {
            DatabaseHandle foreign;
            EXPECT_EQ(
                createDatabase(foreign.Address(), File("foreign.db3").c_str(), "", 0, nullptr), 1);
        }
        for (const char* folder : {"folder", "folder.db3", "folder.csv", "folder.html"})
            std::filesystem::create_directory(File(folder));
    }

    std::string CommandLine(const std::string& arguments) const {
        return "cd " + m_folder.Path() + "; SECTIONDB_FOLDER=. " + Quote(SECTIONDB_PROGRAM) + " " +
               arguments;
    }

    Outcome On(const std::string& arguments) const { return Shell(CommandLine(arguments)); }

    /// The contents of all files of the folder.
    std::map<std::string, std::string> Contents() const {
        std::map<std::string, std::string> contents;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(m_folder.Path()))
            contents[entry.path().string()] =
                entry.is_regular_file() ? ReadFile(entry.path().string()) : "";
        return contents;
    }

    void Refuses(const std::string& arguments, int status, const std::string& message) const {
        const auto before = Contents();
        const Outcome outcome = On(arguments);
        EXPECT_EQ(outcome.status, status) << arguments << ": " << outcome.output;
        EXPECT_TRUE(outcome.output.starts_with("sectiondb: ") || arguments == "list --folder none")
            << arguments << ": " << outcome.output;
        EXPECT_TRUE(Holds(outcome, message)) << arguments;
        EXPECT_TRUE(Contents() == before) << arguments;
    }
};

TEST_F(BadInputTest, NamesAreTold) {
    const struct {
        const char* arguments;
        int status;
        const char* message;
    } cases[] = {
        {"list Nowhere", Failure, "There is no catalogue \"Nowhere\"; give its number"},
        {"show Nowhere W12X26", Failure, "There is no catalogue \"Nowhere\""},
        {"select Nowhere W", Failure, "There is no catalogue \"Nowhere\""},
        {"page Nowhere -o p.html", Failure, "There is no catalogue \"Nowhere\""},
        {"verify Nowhere", Failure, "There is no catalogue \"Nowhere\""},
        {"list 38", Failure, "There is no catalogue \"38\""},
        {"list own", Failure, "There is no catalogue \"own\""},
        {"list American Q", Failure, "There is no family \"Q\"; the families are W Shape."},
        {"select American Q", Failure, "There is no family \"Q\""},
        {"user list mine.db3 Q", Failure, "There is no family \"Q\"; the families are Wide"},
        {"user add mine.db3 Q P2 OD=1", Failure, "There is no family \"Q\""},
        {"user update mine.db3 Q P1 OD=1", Failure, "There is no family \"Q\""},
        {"user delete mine.db3 Q P1", Failure, "There is no family \"Q\""},
        {"user export mine.db3 Q", Failure, "There is no family \"Q\""},
        {"user import mine.db3 Q good.csv", Failure, "There is no family \"Q\""},
        {"select American W --range Q:1:2", Failure, "There is no field \"Q\""},
        {"select American W --sort Q", Failure, "There is no field \"Q\""},
        {"user add mine.db3 Pipe P2 Q=1", Failure, "\"Q\" names none of its columns"},
        {"user update mine.db3 Pipe P1 Q=1", Failure, "\"Q\" names none of its columns"},
        {"show American W12X27", Failure, "There is no section \"W12X27\" in the catalogue"},
        {"find W12X27", Failure, "did you mean \"W12X26\" (American)?"},
        {"find ''", WrongUsage, "Name a section, or the beginning of names"},
        {"user update mine.db3 Pipe P9 T=5", Failure, "there is no section \"P9\""},
        {"user draw mine.db3 Pipe P9", Failure, "there is no section \"P9\""},
        {"user draw mine.db3 Pipe P1 --svg mine.db3", WrongUsage, "mine.db3: "},
        {"user draw mine.db3 General G1", Failure, "its figures do not tell its shape"},
        {"user delete mine.db3 Pipe P1 P9", Failure, "there is no section \"P9\""},
        {"show American W12X26 --length parsec", WrongUsage, "\"parsec\" is no unit of length"},
        {"show American W12X26 --force stone", WrongUsage, "\"stone\" is no unit of force"},
        {"select American W --length parsec", WrongUsage, "\"parsec\" is no unit of length"},
        {"select American W --range D:1mm:2", WrongUsage, "The range \"D:1mm:2\" is not"},
        {"user create new.db3 --units imperial", WrongUsage, "give metric or US"},
        {"user add mine.db3 Pipe P2 OD=9 T=1 --as-published 100", WrongUsage, "below 100 percent"},
        {"user import mine.db3 Pipe good.csv --as-published -1", WrongUsage,
         "give a bound above 0"},
        {"show American W12X26 --length ''", WrongUsage, "\"\" is no unit of length"},
        {"show American W12X26 --force ''", WrongUsage, "\"\" is no unit of force"},
        {"export Xlsx American -o x.xlsx --length ''", WrongUsage, "\"\" is no unit of exported"},
        {"show American W12X26 --symbols ''", WrongUsage, "\"\" are no symbols"},
        {"select American W --limit ''", WrongUsage, "The limit \"\" is no whole number"},
        {"user add mine.db3 Pipe P2 OD=1e300 T=1", Failure,
         "its dimensions give no finite AX: one of them is too large or too small"},
        {"user add mine.db3 Pipe P2 OD=1e-300 T=1e-301", Failure, "AX"},
        {"user add mine.db3 Pipe P2 OD=-1 T=1", Failure, "it must be a number above zero"},
        {"user import mine.db3 Pipe semicolons.csv", Failure,
         "semicolons.csv:1: the columns are separated by semicolons; separate them by"},
        {"user import mine.db3 Pipe quoted.csv", Failure, "are separated by semicolons"},
        {"user import mine.db3 Pipe tabs.csv", Failure, "the columns are separated by tabs"},
        {"user import mine.db3 Pipe returns.csv", Failure, "end lines with LF or CR LF"},
        {"user import mine.db3 Pipe plainreturns.csv", Failure, "end lines with LF or CR LF"},
        {"list --csv --json", WrongUsage, "--csv excludes --json"},
        {"nothing", WrongUsage, "nothing"},
        {"user nothing", WrongUsage, "A subcommand is required"},
        {"show American", WrongUsage, "name is required"},
        {"user delete mine.db3 Pipe", WrongUsage, "names is required"},
        {"layouts Q", WrongUsage, "not expected: Q"},
        {"where Q", WrongUsage, "not expected: Q"},
    };
    for (const auto& [arguments, status, message] : cases)
        Refuses(arguments, status, message);
}

TEST_F(BadInputTest, FilesThatAreNoneOfOursAreTold) {
    const std::pair<const char*, const char*> files[] = {
        {"none.db3", "none.db3: there is no such file; check the folder and the name."},
        {"empty.db3", "empty.db3: this is not a catalogue file; name another file."},
        {"text.db3", "text.db3: this is not a catalogue file; name another file."},
        {"binary.db3", "binary.db3: this is not a catalogue file; name another file."},
        {"folder.db3", "folder.db3: this is not a file; name a catalogue file."},
        {"foreign.db3", "foreign.db3: this is no catalogue, but maybe another program's database"},
        {"AISCSections.db3", "\", not a file of user tables or generic shapes."},
    };
    const char* const commands[] = {"user list FILE",
                                    "user add FILE Pipe P2 OD=100 T=5",
                                    "user update FILE Pipe P1 T=5",
                                    "user delete FILE Pipe P1",
                                    "user export FILE Pipe",
                                    "user draw FILE Pipe P1",
                                    "user import FILE Pipe good.csv",
                                    "list own --user FILE",
                                    "show own P1 --user FILE",
                                    "select own Pipe --user FILE",
                                    "find P1 --user FILE",
                                    "page own -o p.html --user FILE",
                                    "verify own --user FILE"};
    for (const auto& [file, message] : files)
        for (std::string command : commands) {
            command.replace(command.find("FILE"), 4, file);
            Refuses(command, Failure, message);
        }
    for (const auto& [file, message] : files)
        if (std::string(file) != "AISCSections.db3")
            Refuses(std::string("verify ") + file, Failure, message);
}

TEST_F(BadInputTest, PlacesThatCannotBeReadOrWrittenAreTold) {
    const struct {
        const char* arguments;
        int status;
        const char* message;
    } cases[] = {
        {"list --folder none", Failure, "There is no folder \"none/\"; name another one"},
        {"find W12X26 --folder none", Failure, "There is no folder \"none/\"; name another one"},
        {"list American --folder text.db3", Failure, "--folder: text.db3, no such folder"},
        {"user create mine.db3", Failure, "mine.db3: the finished file cannot take this name"},
        {"user create folder", Failure, "folder: the finished file cannot take this name"},
        {"user create none/x.db3", Failure, "none/x.db3: not built: "},
        {"user export mine.db3 Pipe -o mine.db3", WrongUsage, "ends with .csv"},
        {"user export mine.db3 Pipe -o folder.csv", Failure, "folder.csv: the list of sections"},
        {"user export mine.db3 Pipe -o none/x.csv", Failure, "No such file or directory; name"},
        {"user import mine.db3 Pipe folder.csv", Failure, "folder.csv: this is a folder; name"},
        {"user import mine.db3 Pipe none.csv", Failure, "none.csv: the file cannot be read: No"},
        {"page -o AISCSections.db3", WrongUsage, "the name of a page ends with .html"},
        {"page -o folder.html", Failure, "folder.html: the page cannot be written: Is a dir"},
        {"page -o none/x.html", Failure, "none/x.html: the page cannot be written: No such"},
        {"build none -o folder", Failure, "none: there is no such folder; name one of text"},
        {"build text.db3 -o folder", Failure, "text.db3: there is no such folder; name one"},
        {"build folder -o folder", Failure, "folder: the folder must have the file stem of"},
        {"sources check none", Failure, "none: there is no such folder; name one of text"},
        {"sources catalogues text.db3", Failure, "text.db3: there is no such folder"},
        {"sources corrections none", Failure, "none/families/_families.csv: the file cannot be"},
        {"sources validation none", Failure, "none: there is no such folder"},
        {"list --password-file none", Failure, "none: the file of the password cannot be read"},
        {"user list mine.db3 --password-file folder", Failure, "folder: there is no password in"},
    };
    for (const auto& [arguments, status, message] : cases)
        Refuses(arguments, status, message);
    const std::string unsetFolder = "cd " + File("folder") +
                                    "; SECTIONDB_FOLDER= " + Quote(SECTIONDB_PROGRAM) +
                                    " page -o p.html";
    EXPECT_TRUE(Ended(Shell(unsetFolder), Failure,
                      "No folder of catalogues is known; name one with --folder"));
    const std::string american = Quote(SECTIONDB_DATA_DIR "/AISCSections");
    Refuses("build " + american + " -o text.db3", Failure, "text.db3: the folder cannot be made");
}

TEST_F(BadInputTest, AnOutputThatTakesNothingIsTold) {
    for (const char* command : {"list", "list American W", "show American W12X26", "find W12X26",
                                "select American W", "layouts", "where", "verify American",
                                "user list mine.db3", "user export mine.db3 Pipe"}) {
        EXPECT_TRUE(Ended(Shell("(" + CommandLine(command) + " > /dev/full)"), Failure,
                          "No space left on device"))
            << command;
        const Outcome closed = Shell("(" + CommandLine(command) + " | true)");
        EXPECT_EQ(closed.output, "") << command;
    }
}

} // namespace
