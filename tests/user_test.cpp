// Files of the user's own sections, kept with the program and read through the façade.
#include "FacadeSupport.h"
#include "ProgramSupport.h"

#include <fmt/format.h>
#include <memory>

using namespace testsupport;

namespace {

const std::string Values = " OD=100 T=5 AX=14.9 I=168 Z=45.1";

class UserFileTest : public FacadeTest {
protected:
    Outcome User(const std::string& command, const std::string& arguments = "") const {
        return Program("user " + command + " " + Quote(m_file) + " " + arguments);
    }
    void Create(const std::string& options = "") const {
        const Outcome made = User("create", options);
        ASSERT_EQ(made.status, 0) << made.output;
    }

    static std::string Names(int index, int type) {
        std::vector<CString> names;
        Facade::GetSectionNameList(index, type, nullptr, names, 1);
        std::string text;
        for (const CString& name : names)
            text += (text.empty() ? "" : " ") + std::string(name);
        return text;
    }

    const std::string m_file = File("mine.db3");
};

TEST_F(UserFileTest, KeepsSectionsForTheFacade) {
    constexpr int Pipe = 2006;
    Create("--password secret");
    EXPECT_EQ(User("add", "--password secret Pipe 'My 100'" + Values).status, 0);
    EXPECT_EQ(User("add", "--password secret pipe 'My 200' --vessa-name mine2" + Values).status, 0);
    const Outcome changed =
        User("update", "--password secret Pipe my100 t=6 AX=17.7 I=197 Z=53.1 --rename 'My 101'");
    EXPECT_EQ(changed.status, 0) << changed.output;
    EXPECT_NE(ReadFile(m_file).substr(0, 6), "SQLite"); // protected

    Facade::m_szUserTableFileName = m_file.c_str();
    Facade::SetSectionDBPassword(";PWD=secret");
    EXPECT_EQ(Names(UserTableIndex, Pipe), "MY100 mine2");
    EXPECT_EQ(Facade::GetSectionCount(UserTableIndex, Pipe), 2);
    int type = 0;
    auto* record = static_cast<SectionRecord*>(
        Facade::GetSectionStructProperty(UserTableIndex, "my100", type, 1004, 2007, ""));
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(type, Pipe);
    EXPECT_EQ(record->PublicName, "My 101");
    const auto& info = dynamic_cast<const SECTIONINFO&>(*record);
    EXPECT_NEAR(info.Area, 1770, 1e-6);
    EXPECT_NEAR(info.Last, 2 * 197e4, 1e-3); // torsion constant, mm^4
    Facade::FreeSectionData(record);
    CString name;
    float values[16] = {};
    EXPECT_EQ(Facade::GetSectionDataForGUI(UserTableIndex, Pipe, 1, &name, values, "", 1005, 2007),
              1);
    EXPECT_NEAR(values[2], 0.6F, 1e-6); // the wall in cm
    EXPECT_TRUE(Holds(User("list", "--password secret Pipe"), "My 101"));
}

TEST_F(UserFileTest, KeepsGenericShapesInTheUnitsOfTheUser) {
    Create("--generic --units US");
    EXPECT_EQ(User("add", "Rectangle 'Bar 4x1' D=4 B=1 AX=4 IZ=5.33 IY=0.333 IX=1.12").status, 0);
    Facade::SetGenericTableFileName(m_file.c_str());
    EXPECT_EQ(Names(GenericTableIndex, 7), "BAR4X1");
    const auto bar = SummaryOf(GenericTableIndex, "Bar4x1", 1004, 2007);
    ASSERT_TRUE(bar);
    EXPECT_NEAR(bar->Area, 4 * 25.4 * 25.4, 1e-3);
}

TEST_F(UserFileTest, RefusesBadInputAndChangesNothing) {
    Create();
    ASSERT_EQ(User("add", "Pipe P1" + Values).status, 0);
    const std::string other = File("other.db3");
    MakeCatalogue(other, 1);
    const std::string before = ReadFile(m_file);
    struct {
        const char* command;
        std::string arguments;
        const char* message;
    } const cases[] = {
        {"create", "", "cannot take this name: File exists"},
        {"add", "Pip P2", "There is no family \"Pip\"; the families are Wide Flange,"},
        {"add", "Pipe P2 OD=100",
         "table \"Pipe\": these values are missing: T (wall thickness, in MM)."},
        {"add", "Tube T1 D=100 B=60 T=5",
         "missing: AX (cross-sectional area, in CM^2); or outside (outside radius of the corners / "
         "wall) and inside ("},
        {"add", "General G1 AX=10", "missing: D (depth, in MM), B (width, in MM), IZ ("},
        {"add", "Pipe P2 OD=100 T=51", "the wall (T) fills the whole diameter (OD)"},
        {"add", "Pipe P2 OD=100 T=5 AX=9999", "AX is 9999 CM^2, its dimensions give 14.923 CM^2"},
        {"update", "Pipe P1 T=6", "AX is 14.9 CM^2, its dimensions give 17.719 CM^2"},
        {"add", "Pipe P2 OD=100 T=5 AX=15.3 --as-published 2", "AX is 15.3 CM^2"},
        {"delete", "Pipe P1 P9", "there is no section \"P9\""},
        {"add", "Pipe P2 Q=1", "\"Q\" names none of its columns"},
        {"add", "Pipe P2 OD=1x", "\"OD=1x\": the outside diameter must be a number, in MM"},
        {"add", "Pipe P2 OD", "\"OD\": the outside diameter must be a number"},
        {"add", "Pipe P2 OD=nan", "\"OD=nan\": the outside"},
        {"add", "Pipe P2 OD=0", "the outside diameter (OD) is 0 MM; it must be"},
        {"add", "Pipe P2 T=-1", "the wall thickness (T) is -1 MM; it must be"},
        {"add", "Pipe P2 OD=1 od=2", "\"od=2\": OD is given twice"},
        {"add", "Pipe \"6' pipe\"" + Values, "section's name: it holds a quote"},
        {"add", "Pipe ''" + Values, "section's name: it is empty"},
        {"add", "Pipe 'P2 '" + Values, "section's name: it begins or ends with"},
        {"add", "Pipe P2 --vessa-name A+B" + Values, R"(VessaName: it holds a "+")"},
        {"add", "Pipe 'P\n2'" + Values, "it holds a control character"},
        {"add", "Pipe R\u00F6hre" + Values, "--vessa-name"},
        {"add", "Pipe " + std::string(65, 'P') + Values, "more than 64 characters"},
        {"add", "Pipe P1 --vessa-name p2" + Values,
         R"("P1": Duplicate section name!! Record not saved.)"},
        {"add", "Pipe P2 --vessa-name p1" + Values,
         R"(the section "P1" of table "Pipe" has the VessaName "P1" already)"},
        {"add", "Prismatic P1 D=10 B=10",
         R"(table "Prismatic": the section "P1" of table "Pipe" has the VessaName "P1" already)"},
        {"update", "Pipe P9 T=1", "there is no section \"P9\""},
        {"update", "Pipe P1 Q=1", "names none of its columns"},
    };
    for (const auto& [command, arguments, message] : cases) {
        EXPECT_TRUE(Ended(User(command, arguments), 1, message));
        EXPECT_TRUE(ReadFile(m_file) == before) << arguments;
    }
    EXPECT_TRUE(Holds(Program("user list " + other), "not a file of user tables"));
    EXPECT_TRUE(Holds(Program("user list " + File("none.db3")), "there is no such file"));
    ASSERT_EQ(Shell("rm " + m_file).status, 0);
    Create("--password secret");
    EXPECT_TRUE(Holds(User("list"), "password"));
    EXPECT_TRUE(Holds(User("list", "--password wrong"), "password"));
}

TEST_F(UserFileTest, ReadsBackExactlyWhatItWrites) {
    Create("--units US");
    ASSERT_EQ(User("add", "Pipe 'P, one' OD=3.5 T=0.3 --vessa-name P1").status, 0);
    ASSERT_EQ(User("add", "Pipe P2 OD=4.4999999999999 T=0.1").status, 0);
    ASSERT_EQ(User("add", "Pipe P3 OD=4 T=0.1 AX=1.25 --as-published 3").status, 0);
    const std::string list = File("pipes.csv");
    ASSERT_EQ(User("export", "Pipe -o " + list).status, 0);
    EXPECT_TRUE(ReadFile(list).starts_with("Name,VessaName,OD,T,AX,I,Z\n"
                                           "TEXT,TEXT,INCHES,INCHES,INCHES^2,INCHES^4,INCHES^3\n"
                                           "\"P, one\",P1,3.5,0.3,"))
        << ReadFile(list);
    EXPECT_EQ(User("export", "Pipe").output, ReadFile(list));
    const Outcome deleted = User("delete", "Pipe 'p, one' P2 P3");
    EXPECT_TRUE(Holds(deleted, "3 sections of table \"Pipe\" deleted"));
    EXPECT_EQ(User("import", "Pipe " + list + " --as-published 3").status, 0);
    EXPECT_EQ(User("export", "Pipe").output, ReadFile(list));

    WriteFile(list, "OD,T,Name\nmm,cm,\n88.9,0.32,CHS\n"); // as people and other programs print
    EXPECT_EQ(User("import", "Pipe " + list).status, 0);
    EXPECT_TRUE(Holds(User("list", "Pipe"), "0.12598425"));
}

TEST_F(UserFileTest, ImportsAllOrNothing) {
    Create();
    ASSERT_EQ(User("add", "Pipe P1" + Values).status, 0);
    const std::string before = ReadFile(m_file);
    const std::string list = File("list.csv");
    std::string wide = "Name";
    for (int i = 0; i < 100000; ++i)
        wide += ",C" + std::to_string(i);
    const std::string beam = "Name,D,BF,TF,TW,AX,IZ\n,mm,mm,mm,mm,cm^2,cm^4\n";
    const std::string pipe = "Name,OD,T\n,mm,mm\n";
    const struct {
        const char* family;
        std::string text;
        const char* message;
    } cases[] = {
        {"Pipe", "", "list.csv: the file is empty; its first line names the columns"},
        {"Pipe", std::string("\177ELF\0\0", 6), "list.csv:1: this is no text, but binary data"},
        {"Pipe", wide + "\n", "list.csv:2: the line of units is missing"},
        {"Pipe", wide + "\n" + wide + "\n", "list.csv:1: column C0: not a column of the table"},
        {"Pipe", "Name,OD,T,OD\n,,,\n", "list.csv:1: column OD: the column occurs twice"},
        {"Pipe", "Name,OD,T\n,mm,mm^2\n", "list.csv:2: column T: \"mm^2\": not a unit of length"},
        {"Pipe", "Name,OD,T\n,mm,mq\n", "list.csv:2: column T: \"mq\": not a known unit"},
        {"Pipe", "OD,T\nmm,mm\n100,5\n", "list.csv:1: column Name: the column is missing"},
        {"Pipe", pipe + "P2,100,5\nP3,100,-5\n",
         "list.csv:4: \"P3\": the wall thickness (T) is -5 mm; it must be a number above zero"},
        {"Pipe", pipe + "P2,100,5\nP2,100,6\n", "list.csv:4: \"P2\": Duplicate section name!!"},
        {"Pipe", pipe + "p1,100,5\n", R"(list.csv:3: the section "P1" of table "Pipe" has)"},
        {"Pipe", pipe + "6' pipe,100,5\n", "list.csv:3: \"6' pipe\" cannot be a section's name"},
        {"Pipe", pipe + "6\" pipe,100,5\n", "list.csv:3: a quote inside a field"},
        {"Pipe", pipe + "P2,100\n", "list.csv:3: 2 fields, but the first line names 3 columns"},
        {"Pipe", pipe + "P2,1OO,5\nP3,,5\n",
         "2 lines are at fault:\nsectiondb: PLACElist.csv:3: column OD: \"1OO\": not a number\n"
         "sectiondb: PLACElist.csv:4: these values are missing: OD (outside diameter, in MM)."},
        {"Wide Flange", beam + "I1,300,10.7,150,7.1,53.8,8356\n", // flange width and thickness
         "list.csv:3: \"I1\": its dimensions contradict each other: the flanges (TF) fill"},
        {"Wide Flange", beam + "I1,300,150,7.1,10.7,53.8,8356\n", // flange and web
         "list.csv:3: \"I1\": IZ is 8356 cm^4, its dimensions give 7"},
        {"Wide Flange",
         "Name,D,BF,TF,TW,AX,IZ\n,mm,mm,mm,mm,cm^2,mm^4\nI1,300,150,10.7,7.1,53.8,8356\n",
         "IZ is 8356 mm^4, its dimensions give 8.35"},
    };
    for (const auto& [family, text, message] : cases) {
        WriteFile(list, text);
        const Outcome outcome = User("import", Quote(family) + " " + list);
        EXPECT_EQ(outcome.status, 1);
        std::string expected = message;
        for (std::size_t at = 0; (at = expected.find("PLACE")) != std::string::npos;)
            expected.replace(at, 5, m_folder.Path() + "/");
        EXPECT_TRUE(Holds(outcome, expected));
        EXPECT_TRUE(ReadFile(m_file) == before) << message;
    }
    EXPECT_TRUE(Holds(User("import", "Pipe " + m_folder.Path()), "this is a folder; name a"));
}

TEST_F(UserFileTest, ImportsManySectionsAtOnce) {
    Create();
    const std::string list = File("list.csv");
    std::string text = "Name,OD,T\n,mm,mm\n";
    for (int i = 1; i <= 70000; ++i)
        text += fmt::format("P{},{},5\n", i, 50 + i % 500);
    WriteFile(list, text);
    const Outcome imported = User("import", "Pipe " + list);
    EXPECT_TRUE(Ended(imported, 0, "70000 sections added"));
    EXPECT_TRUE(Holds(imported, "up to 65535 only"));
    EXPECT_TRUE(Holds(User("list"), "70000"));
}

TEST_F(UserFileTest, IsACatalogueAmongOthers) {
    Create("--password secret");
    ASSERT_EQ(User("add", "--password secret Pipe 'P 88.9x3.2' OD=88.9 T=3.2").status, 0);
    const std::string folder = m_folder.File("catalogues");
    std::filesystem::create_directory(folder);
    MakeCatalogue(folder + "/AISCSections.db3", 1);
    const std::string options =
        " --password secret --folder " + folder + " --user " + Quote(m_file);
    const std::pair<const char*, const char*> cases[] = {
        {"list", "1001  User tables                  mine.db3"},
        {"list own", "Wide Flange"},
        {"list mine Pipe", "P 88.9x3.2"},
        {"show own p88,9*3.20", "P 88.9x3.2 (User tables, Pipe)"},
        {"select 1001 Pipe --range OD:88:89", "P 88.9x3.2"},
        {"find 'p 88.9 x 3.2'", "User tables  Pipe"},
        {"page own --output page.html", "1 catalogue, 1 section"},
        {"verify own", "0"},
        {"draw own p88.9x3.2", "P 88.9x3.2"},
    };
    for (const auto& [command, expected] : cases) {
        const std::string line =
            fmt::format("cd {}; '{}' {}{}", folder, SECTIONDB_PROGRAM, command, options);
        EXPECT_TRUE(Ended(Shell(line), 0, expected)) << command;
    }
    ::setenv("SECTIONDB_USER", m_file.c_str(), 1);
    const Outcome shown = Program("show own P88.9X3.2 --password secret");
    ::unsetenv("SECTIONDB_USER");
    EXPECT_EQ(shown.status, 0) << shown.output;
    EXPECT_TRUE(Holds(Program("show own P1"), "There is no catalogue \"own\""));
}

TEST_F(UserFileTest, DrawsWhatTheFiguresTell) {
    Create();
    ASSERT_EQ(User("add", "Tube T1 D=100 B=60 T=5 outside=1.5 inside=1").status, 0);
    ASSERT_EQ(User("add", "'Wide Flange' I1 D=300 BF=150 TF=10.7 TW=7.1 radius=15").status, 0);
    for (const char* section : {"Tube T1", "'Wide Flange' i1"}) {
        const std::string drawing = File("drawing.svg");
        EXPECT_EQ(User("draw", std::string(section) + " --svg " + drawing).status, 0) << section;
        EXPECT_TRUE(Holds(ReadFile(drawing), "<path")) << section;
    }
    EXPECT_TRUE(Holds(User("draw", "Tube T1"), "\u2588\u2588"));
}

TEST_F(UserFileTest, TakesTheGivenPasswordBeforeThatOfTheEnvironment) {
    ::setenv("SECTIONDB_PASSWORD", "ours", 1);
    EXPECT_TRUE(Holds(Program("user create " + File("other.db3")),
                      "10 tables, protected by SECTIONDB_PASSWORD\n"));
    Create("--password given");
    EXPECT_EQ(User("list", "--password given").status, 0);
    EXPECT_EQ(User("list").status, 1);
    ::setenv("SECTIONDB_PASSWORD", "given", 1);
    EXPECT_EQ(User("list").status, 0);
    ::unsetenv("SECTIONDB_PASSWORD");
}

TEST_F(UserFileTest, UpdatesTheSectionOfThatPublicNameFirst) {
    Create();
    EXPECT_EQ(User("add", "Pipe First --vessa-name Second" + Values).status, 0);
    EXPECT_EQ(User("add", "Pipe Second --vessa-name Other" + Values).status, 0);
    EXPECT_TRUE(Holds(User("update", "Pipe second Z=45.2"), "Other"));
}

TEST_F(UserFileTest, MakesNoFigureOfAMissingOne) {
    {
        CatalogueFile file(m_file);
        file.AddTable("Pipe", LayoutId::RoundTube, {{"P1", "P1", {4.5, 0.25, 3.34}}});
        file.AddTable("General", LayoutId::General, {{"G1", "G1", {10.0, 5.0}}});
        MakeUserTables(file);
    }
    EXPECT_TRUE(Ended(User("update", "General G1 AX=11"), 1,
                      "these values are missing: B (width, in INCHES), IZ ("));
    const Outcome computed = User("update", "Pipe P1 Z=4.52");
    EXPECT_TRUE(
        Holds(computed, "Computed as round tube (mass not given; massWithin not given): I\n"));
    EXPECT_TRUE(Holds(computed, "7.5625"));
}

TEST_F(UserFileTest, KeepsTheGapOfDoubleAnglesWhereTheFileHasAColumnForIt) {
    constexpr const char* Angles =
        " D=100 B=100 T=10 AX=38.3 IZ=354 IY=659 IX=13.9 CY=28.2 CZ=28.2 RV=30.4 ALPHA=0";
    const auto modulus = [this] {
        Facade::m_szUserTableFileName = m_file.c_str();
        const auto info = SummaryOf(UserTableIndex, "2L", 1005, 2007);
        Facade::ExitSectionDBInterface();
        return info->MinorModulus;
    };
    Create();
    EXPECT_TRUE(Holds(User("add", std::string("'Double Angle' 2L") + Angles), "missing: GAP"));
    EXPECT_EQ(User("add", std::string("'Double Angle' 2L GAP=0") + Angles).status, 0);
    EXPECT_NEAR(modulus(), 65.9, 0.05); // they touch
    EXPECT_EQ(User("update", "'Double Angle' 2L GAP=10 IY=777").status, 0);
    EXPECT_NEAR(modulus(), 74.0, 0.05);
    { // as layout version 1 made it
        DatabaseHandle db;
        ASSERT_EQ(openDatabase(db.Address(), m_file.c_str(), 1, 0, 0, "", nullptr), 1);
        TableDefHandle table;
        ASSERT_EQ(openTableDef(db.Get(), table.Address(), "Double Angle"), 1);
        ASSERT_EQ(deleteField(table.Get(), "GAP"), 1);
        CSectionRecordset info(db.Get());
        info.Open(CSectionRecordset::Table, "DBInfo");
        SetValue(info, 3, "1");
    }
    EXPECT_EQ(modulus(), 0); // not known
    EXPECT_EQ(User("update", "'Double Angle' 2L IX=14").status, 0);
    EXPECT_TRUE(Holds(User("update", "'Double Angle' 2L GAP=10"), "names none of its columns"));
    EXPECT_EQ(User("add", std::string("'Double Angle' 2L2") + Angles).status, 0);
    const std::string listed = User("list", "'Double Angle'").output;
    EXPECT_TRUE(Holds(listed, "2L2"));
    EXPECT_FALSE(Holds(listed, "GAP"));
}

TEST_F(UserFileTest, RefusesAFileOfAnotherLayout) {
    {
        CatalogueFile file(m_file);
        file.AddTable("Pipe", LayoutId::RoundBar);
        MakeUserTables(file);
    }
    EXPECT_TRUE(Holds(User("list", "Pipe"),
                      "table \"Pipe\": its columns are RECNO, Name, VessaName, D, AX, I; "
                      "expected RECNO, Name, VessaName, OD, T, AX, I, Z."));
    EXPECT_EQ(User("add", "Pipe P1" + Values).status, 1);
}

TEST_F(UserFileTest, TellsOfSectionsThatAnalysisEnginesDoNotSee) {
    Create();
    ASSERT_EQ(User("add", "Pipe P1" + Values).status, 0);
    {
        CSectionDatabase database;
        database.Open(m_file.c_str());
        CSectionRecordset rows(&database);
        rows.Open(CSectionRecordset::Table, "Pipe");
        rows.AddNew();
        rows.SetFieldValue(0, COleVariant(65537));
        for (const int name : {1, 2})
            rows.SetFieldValue(name, "BIG");
        for (int column = 3; column < rows.GetFieldCount(); ++column)
            rows.SetFieldValue(column, COleVariant(7.0));
        rows.Update();
    }
    EXPECT_EQ(User("update", "Pipe BIG --rename 'BIG 2'").status, 0);
    EXPECT_TRUE(Ended(User("add", "Pipe P2 OD=100 T=5"), 0,
                      "go up to 65538; analysis engines know those up to 65535 only"));
    const std::string listed = User("list", "Pipe").output;
    for (const char* name : {"P1 ", "BIG 2 ", "P2 "})
        EXPECT_TRUE(Holds(listed, name));
}

TEST_F(UserFileTest, LeavesAReadOnlyFileAlone) {
    Create();
    SetFileAttributesA(m_file.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_TRUE(Holds(User("add", "Pipe P1" + Values), "the file is read-only"));
    EXPECT_EQ(User("list", "Pipe").status, 0);
    EXPECT_EQ(GetFileAttributesA(m_file.c_str()), FILE_ATTRIBUTE_READONLY);
}

/// Runs two commands on the file at once; which of them succeeded.
std::pair<bool, bool> RunBoth(const std::string& first, const std::string& second) {
    const Outcome outcome = Shell(fmt::format("({} > /dev/null 2>&1 && echo first) & ({} > "
                                              "/dev/null 2>&1 && echo second); wait",
                                              first, second));
    return {outcome.output.find("first") != std::string::npos,
            outcome.output.find("second") != std::string::npos};
}

TEST_F(UserFileTest, TwoProcessesThatChangeOneSectionLoseNothing) {
    Create();
    ASSERT_EQ(
        User("add", "General P1 AX=9 D=9 B=9 IZ=9 IX=9 IY=9 SZ=9 SY=9 ZZ=9 ZY=9 AZ=9 AY=9").status,
        0);
    const std::string update =
        Quote(SECTIONDB_PROGRAM) + " user update " + Quote(m_file) + " General P1 ";
    int both = 0;
    for (int round = 1; round <= 25; ++round) {
        const std::string number = std::to_string(1000 + round);
        const auto [first, second] =
            RunBoth(fmt::format("{}AZ={}", update, number), fmt::format("{}AY={}", update, number));
        const std::string listed = User("list", "General").output;
        std::size_t found = 0;
        for (std::size_t at = 0; (at = listed.find(number, at)) != std::string::npos; ++at)
            ++found;
        ASSERT_EQ(found, (first ? 1U : 0U) + (second ? 1U : 0U)) << listed;
        both += first && second ? 1 : 0;
    }
    EXPECT_GT(both, 0);
}

TEST_F(UserFileTest, OneOfTwoProcessesGetsAName) {
    Create();
    const std::string add = Quote(SECTIONDB_PROGRAM) + " user add " + Quote(m_file);
    for (int round = 1; round <= 30; ++round) {
        const std::string name = "P" + std::to_string(round);
        const std::string pipe = fmt::format("{} Pipe {}{}", add, name, Values);
        const std::string bar = fmt::format("{} Prismatic {} D=10 B=10", add, name);
        const auto [first, second] = RunBoth(pipe, round % 3 == 0 ? pipe : bar);
        ASSERT_NE(first, second) << name;
    }
}

TEST_F(UserFileTest, AKilledAddLeavesAWholeFile) {
    Create();
    for (int delay = 0; delay < 20; ++delay) {
        const std::string name = "P" + std::to_string(delay);
        Shell(fmt::format("timeout -s KILL 0.0{} '{}' user add '{}' Pipe {}{} > /dev/null",
                          10 + delay, SECTIONDB_PROGRAM, m_file, name, Values));
        EXPECT_EQ(User("list", "Pipe").status, 0);
    }
    EXPECT_EQ(User("add", "Pipe Last" + Values).status, 0);
    EXPECT_TRUE(Holds(User("list", "Pipe"), "LAST"));
}

} // namespace
