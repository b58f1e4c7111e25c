// The example browser, run unattended on small catalogues.
#include "FacadeSupport.h"
#include "JoistFixture.h"

using namespace testsupport;

namespace {

struct Outcome {
    int status;
    std::string output;
    std::string errors;
};

const Section L6X4{
    "L6X4X1/2", "L6X4", {6.0, 4.0, 0.5, 4.75, 17.3, 6.22, 0.407, 1.98, 0.981, 0.864, 23.75}};
const Section L4X4{
    "L4X4X1/2", "L4X4", {4.0, 4.0, 0.5, 3.75, 5.52, 5.52, 0.322, 1.18, 1.18, 0.776, 45.0}};

/// All 37 catalogues; the American, the British and that of joists hold sections.
class BrowserTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        folder = std::make_unique<TempFolder>();
        MakeAmerican(FileOf(1));
        CatalogueFile(FileOf(3)).AddTable("UB Shape", LayoutId::IShape,
                                          {{"356x171x39", "w12X26", W12X26.properties}});
        MakeJoists(FileOf(21));
        { const CatalogueFile empty(folder->File("empty")); }
        for (int index = 1; index <= LastCatalogueIndex; ++index)
            std::filesystem::copy_file(folder->File("empty"), FileOf(index),
                                       std::filesystem::copy_options::skip_existing);
    }
    static void TearDownTestSuite() { folder.reset(); }

    static void MakeAmerican(const std::string& path, const char* connect = "") {
        CatalogueFile file(path, connect);
        file.AddTable("Angle", LayoutId::Angle, {L6X4, L4X4});
        file.AddTable("W Shape", LayoutId::IShape,
                      {{"W14X30", "W14x30", W12X26.properties}, W12X26});
        file.AddTable("HP Shape", LayoutId::IShape, {{"HP", "w14X30", W12X26.properties}});
    }

    static void MakeJoists(const std::string& path) {
        using namespace joistrows;
        CatalogueFile(path).AddPlainTable(
            "OWJoistMaster", JoistColumns(),
            {Joist(7, "11K1", 1, 11, 9.5), Joist(8, "19LH01", 3, 19, 9.5)});
    }

    static std::string FileOf(int index) {
        return folder->File(std::string(Facade::m_saSectionFile[index]) + ".db3");
    }

    Outcome Browse(const std::string& script, std::string options = "") const {
        if (options.empty())
            options = "--folder " + folder->Path() + " --dbi " + m_own.File("user.dbi");
        WriteFile(m_own.File("script"), script);
        const std::string command =
            std::string("cd ") + m_own.Path() + " && env -u SECTIONDB_DBI -u SECTIONDB_PASSWORD " +
            BROWSER_PROGRAM + " " + options + " < script > output 2> errors";
        const int status = std::system(command.c_str());
        return {WEXITSTATUS(status), ReadFile(m_own.File("output")),
                ReadFile(m_own.File("errors"))};
    }

    static std::unique_ptr<TempFolder> folder;
    TempFolder m_own;
};

std::unique_ptr<TempFolder> BrowserTest::folder;

/// Lines that begin so, in this order.
void ExpectLines(const Outcome& outcome, const std::vector<std::string>& lines) {
    std::size_t place = 0;
    for (const std::string& line : lines) {
        place = outcome.output.find("\n" + line, place);
        ASSERT_NE(place, std::string::npos) << "missing, or not here: " << line << "\n"
                                            << outcome.output;
        ++place;
    }
}

TEST_F(BrowserTest, ShowsASectionInTheChosenUnits) {
    const Outcome outcome = Browse("# A comment, and an empty line\n\nuse 1\nfamily \"w shape\"\n"
                                   "show W12X26\nunits mm kN\nshow w12x26\nquit\nnames\n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.output, R"(> use 1
American: 3 families
> family "w shape"
American, W Shape: 2 sections
> show W12X26
W12x26 (American, W Shape)
  AX  7.65  in^2
  D   12.2  in
  BF  6.49  in
  TF  0.38  in
  TW  0.23  in
  IZ   204  in^4
  IX   0.3  in^4
  CW   607  in^6
  IY  17.3  in^4
  ZZ  37.2  in^3
  ZY  8.17  in^3
> units mm kN
Values are in mm and kN.
> show w12x26
W12x26 (American, W Shape)
  AX      4935.47  mm^2
  D        309.88  mm
  BF      164.846  mm
  TF        9.652  mm
  TW        5.842  mm
  IZ  8.49112e+07  mm^4
  IX       124869  mm^4
  CW  1.63001e+11  mm^6
  IY   7.2008e+06  mm^4
  ZZ       609599  mm^3
  ZY       133882  mm^3
> quit
)");
}

TEST_F(BrowserTest, ShowsFamiliesAndSummaries) {
    const Outcome outcome =
        Browse("use american\nfamilies\nfamily Angle\nnames\nfields\nunits cm t\nall\n"
               "summary L6X4\nangle L6X4X1/2\nangle L4X4\n"
               "use SteelJoists (US)\nfamilies\nfamily LH Series\nshow 19lh01\n");
    EXPECT_EQ(outcome.status, 0);
    ExpectLines(outcome, {"  8  Angle     2", "  L6X4  L6X4X1/2     yes", "  AX     INCHES^2",
                          "  Name       AX      D      B     T      IZ",
                          "           cm^2     cm     cm    cm    cm^4",
                          "  L6X4  30.6451  15.24  10.16  1.27  720.08",
                          "  weight per length               0.000240611  t/cm",
                          "  least radius of gyration            2.19456  cm",
                          "  angle of the principal axes           23.75  deg",
                          "L6X4: principal axes at 23.7701 deg", "L4X4: principal axes at 45 deg",
                          "  3  LH Series      1", "  SeriesID    3", "  Depth      19"});
}

TEST_F(BrowserTest, FindsANameInAllCatalogues) {
    ExpectLines(Browse("find \"w 12 x 26\"\nfind W12X25\n"),
                {"  Match  Catalogue  Family    Name    Public name",
                 "  exact  American   W Shape   W12x26  W12X26",
                 "  exact  British    UB Shape  w12X26  356x171x39", "> find W12X25",
                 "error: No catalogue has a section \"W12X25\"; did you mean W12X26 (American)"});
    std::filesystem::copy_file(FileOf(1), m_own.File("AISCSections.db3"));
    WriteFile(m_own.File("BritishSections.db3"), std::string(4096, 'x'));
    const Outcome outcome = Browse("find W12X26\n", "--folder " + m_own.Path());
    EXPECT_EQ(outcome.status, 1);
    ExpectLines(outcome, {"  exact  American   W Shape  W12x26  W12X26", "error: "});
    EXPECT_TRUE(Holds(outcome.output, "BritishSections.db3"));
}

TEST_F(BrowserTest, DrawsASectionInCharacters) {
    const Outcome outcome = Browse("use American\ndraw w12*26\n");
    EXPECT_EQ(outcome.status, 0);
    ExpectLines(outcome, {"W12X26 (American, W Shape)", "\u2588\u2588\u2588\u2588",
                          "          \u2588", "\u2588\u2588\u2588\u2588"});
    EXPECT_EQ(Browse("draw W12X26\n").status, 1);
    ExpectLines(Browse("use American\ndraw W12X27\n"),
                {"error: There is no section \"W12X27\" in the catalogue; did you mean W12X26"});
}

TEST_F(BrowserTest, KeepsPreferredSections) {
    const std::string choose = "use American\nfamily 1\n";
    EXPECT_EQ(Browse(choose + "prefer W14X30\nprefer w12x26\nprefer W14X30 nix\n").status, 1);
    const Outcome second = Browse(choose + "preferred\nnames\nshow W14X30\nprefer none\n"
                                           "preferred\nprefer ALL\nprefer W14X30 W12X26\n");
    EXPECT_EQ(second.status, 0);
    ExpectLines(second,
                {"American, W Shape: 1 preferred sections", "  W12x26", "  W14x30  W14X30       no",
                 "  W12x26  W12X26       yes", "It is not among the preferred sections.",
                 "American, W Shape: 0 preferred sections", "> prefer ALL",
                 "American, W Shape: 2 preferred sections"});
    EXPECT_TRUE(Holds(ReadFile(m_own.File("user.dbi")), "\nW Shape=1,2\n"));
}

TEST_F(BrowserTest, TellsWhatIsWrongAndGoesOn) {
    struct {
        const char* script;
        const char* error;
    } const cases[] = {
        {"frobnicate", "There is no command"},
        {"use", "Write \"use CATALOGUE\"."},
        {"help me", "Write \"help\"."},
        {"families", "Choose a catalogue first"},
        {"use Martian", "There is no catalogue"},
        {"use 1\nnames", "Choose a family first"},
        {"use 1\nfamily 2", "There is no family"},
        {"use 1\nfamily 1\nshow W9", "There is no section \"W9\" in the family W Shape"},
        {"use 1\nfamily 1\nangle W12X26", "W12x26 is no angle section."},
        {"use 1\nfamily 4\nsummary HP", "w14X30 is also in the family W Shape, which comes first."},
        {"units mm furlong", "\"furlong\" is no unit; lengths are in, ft, yd, mm, cm, dm, m, km; "
                             "forces are kip, lb, kg, t, N, daN, kN, MN."},
        {"find W9", "No catalogue has a section"},
        {"use 21\nfamily 1\nprefer 11K1", "The library keeps no selections of joists."},
        {"use 21\nfamily 1\nall", "The library does not give all values here"},
    };
    for (const auto& [script, error] : cases) {
        const Outcome outcome = Browse(script + std::string("\nunits\n"));
        EXPECT_EQ(outcome.status, 1) << script;
        EXPECT_TRUE(Holds(outcome.output, std::string("error: ") + error));
        ExpectLines(outcome, {"Values are in in and kip."});
    }
}

TEST_F(BrowserTest, NeedsFilesAPasswordAndAPlaceForSelections) {
    MakeAmerican(m_own.File("AISCSections.db3"), ";PWD=secret");
    const std::string own = "--folder " + m_own.Path();
    const std::string loop = m_own.File("loop.dbi");
    std::filesystem::create_symlink(loop, loop);
    struct {
        const char* script;
        std::string options;
        const char* told;
    } const cases[] = {
        {"use 3\n", own, "error: BritishSections.db3 is not in the folder"},
        {"use 1\n", own, "cannot be opened: the password is missing or wrong"},
        {"use 1\nfamily 1\nprefer all\n", own + " --password secret", "name it with --dbi"},
        {"use 1\nfamily 1\npreferred\n", own + " --password secret --dbi " + loop,
         "error: The preferred sections cannot be read."},
        {"", "--colour", "usage: browser"},
        {"", "none.txt", "browser: none.txt cannot be read."},
    };
    for (const auto& [script, options, told] : cases) {
        const Outcome outcome = Browse(script, options);
        EXPECT_EQ(outcome.status, 1) << script;
        EXPECT_TRUE(Holds(outcome.output + outcome.errors, told))
            << outcome.output << outcome.errors;
    }
}

} // namespace
