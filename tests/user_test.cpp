// Files of the user's own sections, kept with the program and read through the façade.
#include "FacadeSupport.h"
#include "ProgramSupport.h"

#include <fmt/format.h>
#include <memory>

using namespace testsupport;

namespace {

constexpr const char* Values = " OD=100 T=5 AX=14.9 I=168 Z=45.1";

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
    EXPECT_EQ(User("add", std::string("--password secret Pipe 'My 100'") + Values).status, 0);
    EXPECT_EQ(
        User("add", std::string("--password secret pipe 'My 200' --vessa-name mine2") + Values)
            .status,
        0);
    const Outcome changed =
        User("update", "--password secret Pipe my100 t=6 AX=17.7 --rename 'My 101'");
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
    EXPECT_NEAR(info.Last, 2 * 168e4, 1e-3); // torsion constant, mm^4
    Facade::FreeSectionData(record);
    CString name;
    float values[16] = {};
    EXPECT_EQ(Facade::GetSectionDataForGUI(UserTableIndex, Pipe, 1, &name, values, "", 1005, 2007),
              1);
    EXPECT_NEAR(values[2], 0.6F, 1e-6); // the wall in cm
    EXPECT_NE(User("list", "--password secret Pipe").output.find("My 101"), std::string::npos);
}

TEST_F(UserFileTest, KeepsGenericShapesInTheUnitsOfTheUser) {
    Create("--generic --units US");
    EXPECT_EQ(User("add", "Rectangle 'Bar 4x1' D=4 B=1 AX=4 IZ=5.33 IY=0.333 IX=1.12").status, 0);
    Facade::SetGenericTableFileName(m_file.c_str());
    EXPECT_EQ(Names(GenericTableIndex, 7), "BAR4X1");
    int type = 0;
    auto* record = static_cast<SectionRecord*>(
        Facade::GetSectionStructProperty(GenericTableIndex, "Bar4x1", type, 1004, 2007, ""));
    ASSERT_NE(record, nullptr);
    EXPECT_NEAR(dynamic_cast<const SECTIONINFO&>(*record).Area, 4 * 25.4 * 25.4, 1e-3);
    Facade::FreeSectionData(record);
}

TEST_F(UserFileTest, RefusesBadInputAndChangesNothing) {
    Create();
    ASSERT_EQ(User("add", std::string("Pipe P1") + Values).status, 0);
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
        {"add", "Pipe P2 OD=100 T=5 Z=45.1",
         "table \"Pipe\": these values are missing: AX (cross-sectional area, in CM^2), I ("},
        {"add", "Pipe P2 Q=1", "\"Q=1\" names none of its columns"},
        {"add", "Pipe P2 OD=1x", "\"OD=1x\": the outside diameter must be a number above zero, in"},
        {"add", "Pipe P2 OD", "\"OD\": the outside diameter must be a number"},
        {"add", "Pipe P2 OD=nan", "\"OD=nan\": the outside"},
        {"add", "Pipe P2 OD=0", "\"OD=0\": the outside"},
        {"add", "Pipe P2 T=-1", "\"T=-1\": the wall thickness"},
        {"add", "Pipe P2 OD=1 od=2", "\"od=2\": OD is given twice"},
        {"add", std::string("Pipe \"6' pipe\"") + Values, "section's name: it holds a quote"},
        {"add", std::string("Pipe ''") + Values, "section's name: it is empty"},
        {"add", std::string("Pipe 'P2 '") + Values, "section's name: it begins or ends with"},
        {"add", std::string("Pipe P2 --vessa-name A+B") + Values, R"(VessaName: it holds a "+")"},
        {"add", std::string("Pipe 'P\n2'") + Values, "it holds a control character"},
        {"add", std::string("Pipe R\u00F6hre") + Values, "--vessa-name"},
        {"add", "Pipe " + std::string(65, 'P') + Values, "more than 64 characters"},
        {"add", std::string("Pipe P1 --vessa-name p2") + Values,
         R"("P1": Duplicate section name!! Record not saved.)"},
        {"add", std::string("Pipe P2 --vessa-name p1") + Values,
         R"(the section "P1" of table "Pipe" has the VessaName "P1" already)"},
        {"add", "Prismatic P1 D=1 B=1 AX=1 IZ=1 IY=1 IX=1",
         R"(table "Prismatic": the section "P1" of table "Pipe" has the VessaName "P1" already)"},
        {"update", "Pipe P9 T=1", "there is no section \"P9\""},
        {"update", "Pipe P1 Q=1", "names none of its columns"},
    };
    for (const auto& [command, arguments, message] : cases) {
        const Outcome outcome = User(command, arguments);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_NE(outcome.output.find(message), std::string::npos) << outcome.output;
        EXPECT_EQ(ReadFile(m_file), before) << arguments;
    }
    EXPECT_NE(Program("user list " + other).output.find("not a file of user tables"),
              std::string::npos);
    EXPECT_NE(Program("user list " + File("none.db3")).output.find("there is no such file"),
              std::string::npos);
    ASSERT_EQ(Shell("rm " + m_file).status, 0);
    Create("--password secret");
    EXPECT_NE(User("list").output.find("password"), std::string::npos);
    EXPECT_NE(User("list", "--password wrong").output.find("password"), std::string::npos);
}

TEST_F(UserFileTest, TakesTheGivenPasswordBeforeThatOfTheEnvironment) {
    ::setenv("SECTIONDB_PASSWORD", "ours", 1);
    Create("--password given");
    EXPECT_EQ(User("list", "--password given").status, 0);
    EXPECT_EQ(User("list").status, 1);
    ::setenv("SECTIONDB_PASSWORD", "given", 1);
    EXPECT_EQ(User("list").status, 0);
    ::unsetenv("SECTIONDB_PASSWORD");
}

TEST_F(UserFileTest, UpdatesTheSectionOfThatPublicNameFirst) {
    Create();
    EXPECT_EQ(User("add", std::string("Pipe First --vessa-name Second") + Values).status, 0);
    EXPECT_EQ(User("add", std::string("Pipe Second --vessa-name Other") + Values).status, 0);
    EXPECT_NE(User("update", "Pipe second T=6").output.find("Other"), std::string::npos);
}

/// Makes a catalogue one of user tables, by its title.
void MakeUserTables(const CatalogueFile& file) {
    CSectionRecordset info(file.Database());
    info.Open(CSectionRecordset::Table, "DBInfo");
    info.Edit();
    info.SetFieldValue(0, "User tables");
    info.Update();
}

TEST_F(UserFileTest, MakesNoFigureOfAMissingOne) {
    {
        CatalogueFile file(m_file);
        file.AddTable("Pipe", LayoutId::RoundTube, {{"P1", "P1", {100.0, 5.0, 14.9}}});
        MakeUserTables(file);
    }
    const Outcome refused = User("update", "Pipe P1 T=6 Z=45.1");
    EXPECT_EQ(refused.status, 1);
    EXPECT_NE(refused.output.find("these values are missing: I (moment of inertia, in INCHES^4)."),
              std::string::npos)
        << refused.output;
    EXPECT_EQ(User("update", "Pipe P1 Z=45.1 I=168").status, 0);
}

TEST_F(UserFileTest, KeepsTheGapOfDoubleAnglesWhereTheFileHasAColumnForIt) {
    constexpr const char* Angles =
        " D=100 B=100 T=10 AX=38.4 IZ=354 IY=776 IX=12.8 CY=28.2 CZ=28.2 RV=19.5 ALPHA=0";
    const auto modulus = [this] {
        Facade::m_szUserTableFileName = m_file.c_str();
        int type = 0;
        const std::unique_ptr<SectionRecord> record(static_cast<SectionRecord*>(
            Facade::GetSectionStructProperty(UserTableIndex, "2L", type, 1005, 2007, "")));
        Facade::ExitSectionDBInterface();
        return dynamic_cast<const SECTIONINFO&>(*record).MinorModulus;
    };
    Create();
    EXPECT_NE(User("add", std::string("'Double Angle' 2L") + Angles).output.find("missing: GAP"),
              std::string::npos);
    EXPECT_EQ(User("add", std::string("'Double Angle' 2L GAP=0") + Angles).status, 0);
    EXPECT_NEAR(modulus(), 77.6, 0.05); // they touch
    EXPECT_EQ(User("update", "'Double Angle' 2L GAP=10").status, 0);
    EXPECT_NEAR(modulus(), 73.9, 0.05);
    { // as layout version 1 made it
        DatabaseHandle db;
        ASSERT_EQ(openDatabase(db.Address(), m_file.c_str(), 1, 0, 0, "", nullptr), 1);
        TableDefHandle table;
        ASSERT_EQ(openTableDef(db.Get(), table.Address(), "Double Angle"), 1);
        ASSERT_EQ(deleteField(table.Get(), "GAP"), 1);
        CSectionRecordset info(db.Get());
        info.Open(CSectionRecordset::Table, "DBInfo");
        info.Edit();
        info.SetFieldValue(3, "1");
        info.Update();
    }
    EXPECT_EQ(modulus(), 0); // not known
    EXPECT_EQ(User("update", "'Double Angle' 2L IX=13").status, 0);
    EXPECT_NE(User("update", "'Double Angle' 2L GAP=10").output.find("names none of its columns"),
              std::string::npos);
    EXPECT_EQ(User("add", std::string("'Double Angle' 2L2") + Angles).status, 0);
    const std::string listed = User("list", "'Double Angle'").output;
    EXPECT_NE(listed.find("2L2"), std::string::npos) << listed;
    EXPECT_EQ(listed.find("GAP"), std::string::npos) << listed;
}

TEST_F(UserFileTest, RefusesAFileOfAnotherLayout) {
    {
        CatalogueFile file(m_file);
        file.AddTable("Pipe", LayoutId::RoundBar);
        MakeUserTables(file);
    }
    const Outcome listed = User("list", "Pipe");
    EXPECT_NE(
        listed.output.find("table \"Pipe\": its columns are RECNO, Name, VessaName, D, AX, I; "
                           "expected RECNO, Name, VessaName, OD, T, AX, I, Z."),
        std::string::npos)
        << listed.output;
    EXPECT_EQ(User("add", std::string("Pipe P1") + Values).status, 1);
}

TEST_F(UserFileTest, RefusesRecordNumbersThatTheLibraryCannotChange) {
    Create();
    ASSERT_EQ(User("add", std::string("Pipe P1") + Values).status, 0);
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
    const std::string before = ReadFile(m_file);
    for (const auto& [arguments, message] :
         {std::pair("update Pipe BIG T=6", "\"BIG\" has the record number 65537; only those of 1"),
          {"add Pipe P2 OD=100 T=5 AX=14.9 I=168 Z=45.1", "its last record number is 65537"}}) {
        const std::string text = arguments;
        const std::size_t blank = text.find(' ');
        const Outcome outcome = User(text.substr(0, blank), text.substr(blank));
        EXPECT_EQ(outcome.status, 1);
        EXPECT_NE(outcome.output.find(message), std::string::npos) << outcome.output;
        EXPECT_EQ(ReadFile(m_file), before);
    }
    EXPECT_NE(User("list", "Pipe").output.find("BIG"), std::string::npos);
}

TEST_F(UserFileTest, LeavesAReadOnlyFileAlone) {
    Create();
    SetFileAttributesA(m_file.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_NE(User("add", std::string("Pipe P1") + Values).output.find("the file is read-only"),
              std::string::npos);
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
    ASSERT_EQ(User("add", std::string("Pipe P1") + Values).status, 0);
    const std::string update =
        Quote(SECTIONDB_PROGRAM) + " user update " + Quote(m_file) + " Pipe P1 ";
    int both = 0;
    for (int round = 1; round <= 25; ++round) {
        const std::string number = std::to_string(1000 + round);
        const auto [first, second] =
            RunBoth(fmt::format("{}T={}", update, number), fmt::format("{}I={}", update, number));
        const std::string listed = User("list", "Pipe").output;
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
        const std::string bar =
            fmt::format("{} Prismatic {} D=1 B=1 AX=1 IZ=1 IY=1 IX=1", add, name);
        const auto [first, second] = RunBoth(pipe, round % 3 == 0 ? pipe : bar);
        ASSERT_NE(first, second) << name;
    }
}

TEST_F(UserFileTest, AKilledAddLeavesAWholeFile) {
    Create();
    for (int delay = 0; delay < 20; ++delay) {
        const std::string name = "P" + std::to_string(delay);
        Shell("timeout -s KILL 0.0" + std::to_string(10 + delay) + " " + Quote(SECTIONDB_PROGRAM) +
              " user add " + Quote(m_file) + " Pipe " + name + Values + " > /dev/null");
        EXPECT_EQ(User("list", "Pipe").status, 0);
    }
    EXPECT_EQ(User("add", std::string("Pipe Last") + Values).status, 0);
    EXPECT_NE(User("list", "Pipe").output.find("LAST"), std::string::npos);
}

} // namespace
