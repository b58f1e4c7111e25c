// The user's selections in the table-index file.
#include "FacadeSupport.h"

#include "platform/PrivateProfile.h"

#include <memory>

using namespace testsupport;

namespace {

using Numbers = std::vector<int>;

CDWordArray ArrayOf(const Numbers& numbers) {
    CDWordArray array;
    for (const int number : numbers)
        array.Add(static_cast<DWORD>(number));
    return array;
}

class SelectionsTest : public FacadeTest {
protected:
    static constexpr int WShape = 1;

    SelectionsTest() {
        CatalogueFile file(File("AISCSections.db3"));
        file.AddTable("W Shape", LayoutId::Cable,
                      {{"a", "VA", {}}, {"b", "VB", {}}, {"c", "VC", {}}, {"d", "VD", {}}});
        file.AddTable("Pipe", LayoutId::Cable);
        Facade::SetDBIFileName(m_dbi.c_str());
    }

    /// Stores a text for the W shapes.
    void Store(const std::string& text) {
        WriteFile(m_dbi, "[AISCSections]\nW Shape=" + text + "\n");
    }

    static Numbers Read(int index, int type, const Numbers& before = {}) {
        CDWordArray selection = ArrayOf(before);
        Facade::GetUserSelectedSections(index, type, selection);
        return {selection.begin(), selection.end()};
    }

    static void Save(const Numbers& numbers, int type = WShape) {
        CDWordArray selection = ArrayOf(numbers);
        Facade::SaveUserSelectedSections(1, type, selection);
    }

    const std::string m_dbi = m_folder.File("tables.dbi");
};

TEST_F(SelectionsTest, ReadsWhatIsStored) {
    struct Case {
        const char* text;
        Numbers selection;
    };
    for (const Case& c : {Case{"0", {0}},
                          {"-1", {-1}},
                          {"12,15,40", {12, 15, 40}},
                          {"0,12", {0}},
                          {"12,", {12, 0}},
                          {"", {0}},
                          {"12a,b7,8.9", {12, 0, 8}},
                          {"12, +15,-3", {12, 15, -3}},
                          {"99999999999999999999,2", {0, 2}}}) {
        Store(c.text);
        EXPECT_EQ(Read(1, WShape), c.selection) << c.text;
    }
    EXPECT_EQ(Read(1, 10), Numbers{0}); // no such key
    Store("5,6");
    EXPECT_EQ(Read(1, WShape, {1, 2, 3, 4}), (Numbers{5, 6, 3, 4}));
    for (const auto& [index, type] : {std::pair(1, 17), {2, 1}, {0, 1}, {1001, 2001}, {38, 1}})
        EXPECT_EQ(Read(index, type, {9, 9}), (Numbers{0, 9})) << index << ' ' << type;
    Facade::SetGenericTableFileName(File("AISCSections.db3").c_str());
    EXPECT_EQ(Read(1010, WShape), Numbers{0}); // the file has no section for it
    std::filesystem::remove(m_dbi);
    EXPECT_EQ(Read(1, WShape, {9, 9}), (Numbers{0, 9}));
    EXPECT_FALSE(std::filesystem::exists(m_dbi));
}

TEST_F(SelectionsTest, CutsAValueToTheBuffer) {
    std::string text = "10000";
    for (int number = 10001; number < 12000; ++number)
        text += "," + std::to_string(number);
    Store(text);
    const Numbers numbers = Read(1, WShape);
    ASSERT_EQ(numbers.size(), 1459u); // 8749 characters: 1458 numbers and one digit
    EXPECT_EQ(numbers[1457], 11457);
    EXPECT_EQ(numbers.back(), 1);
}

TEST_F(SelectionsTest, SavesAndKeepsAllElse) {
    struct Case {
        Numbers selection;
        const char* text;
    };
    for (const Case& c : {Case{{12, 15}, "12,15"},
                          {{12, 0}, "12,"},
                          {{5, 0, 6}, "5,6"},
                          {{0, 7}, "0"},
                          {{-1}, "-1"}}) {
        WriteFile(m_dbi, "; mine\r\n[Other]\r\nW Shape=4\r\n\r\n[aiscsections]\r\nPipe=2\r\n"
                         "w shape = 9\r\n# the end\r\n");
        Save(c.selection);
        EXPECT_EQ(ReadFile(m_dbi), std::string("; mine\r\n[Other]\r\nW Shape=4\r\n\r\n"
                                               "[aiscsections]\r\nPipe=2\r\nw shape = ") +
                                       c.text + "\r\n# the end\r\n");
    }
    const std::string before = ReadFile(m_dbi);
    Save({5}, 17); // there is no such table
    EXPECT_EQ(ReadFile(m_dbi), before);
    CDWordArray empty;
    EXPECT_TRUE(IsRefused([&] { Facade::SaveUserSelectedSections(1, WShape, empty); }));
    EXPECT_EQ(ReadFile(m_dbi), before);

    std::filesystem::remove(m_dbi);
    Save({8, 9});
    EXPECT_EQ(Read(1, WShape), (Numbers{8, 9}));
    EXPECT_TRUE(Holds(ReadFile(m_dbi), "Pipe=0")); // built whole
}

TEST_F(SelectionsTest, TellsWhetherASectionIsSelected) {
    EXPECT_EQ(Facade::IsSectionInProject(1, WShape, 12), 1); // nothing is stored
    struct Case {
        const char* text;
        int twelve;
        int forty;
    };
    for (const Case& c :
         {Case{"-1", 0, 0}, {"-2,12", 0, 0}, {"12,15", 1, 0}, {"15,7,40", 0, 1}, {"0", 1, 1}}) {
        Store(c.text);
        EXPECT_EQ(Facade::IsSectionInProject(1, WShape, 12), c.twelve) << c.text;
        EXPECT_EQ(Facade::IsSectionInProject(1, WShape, 40), c.forty) << c.text;
    }
    EXPECT_EQ(Facade::IsSectionInProject(1, 17, 12), 1); // nor is anything known of the type
    Facade::CloseGblSectionDBObject(1);
    for (const auto& [index, type, record] : {std::tuple(0, 1, 1), {3, 0, 1}, {3, 1, 0}})
        EXPECT_EQ(Facade::IsSectionInProject(index, type, record), 0);
    EXPECT_EQ(gblSectionDatabase, nullptr); // told without a look at any file
}

TEST_F(SelectionsTest, NamesTheSelectedSections) {
    struct Case {
        const char* text;
        std::vector<CString> names;
    };
    for (const Case& c : {Case{"0", {"VA", "VB", "VC", "VD"}},
                          {"4,2", {"VB", "VD"}},
                          {"-7,2", {"VA", "VB", "VC", "VD"}},
                          {"-1", {}},
                          {"77", {}}}) {
        Store(c.text);
        Facade::CloseGblSectionDBObject(1);
        const std::unique_ptr<CStringList> list(Facade::GetUserSelectedSectionNameList(1, WShape));
        ASSERT_EQ(list == nullptr, c.names.empty()) << c.text;
        const CStringList names = list ? *list : CStringList();
        EXPECT_EQ(std::vector<CString>(names.begin(), names.end()), c.names) << c.text;
        EXPECT_EQ(Facade::m_nCountry, 1);
    }
    for (const auto& [index, type] : {std::pair(1, 10), {1, 2}, {1, 17}, {2, 1}, {0, 1}})
        EXPECT_EQ(Facade::GetUserSelectedSectionNameList(index, type), nullptr);
}

TEST_F(SelectionsTest, AKilledSaveLeavesTheOldOrTheNewFile) {
    const std::vector<Numbers> selections{Numbers(1500, 1234), {1, 2}};
    Save(selections[1]);
    Facade::ExitSectionDBInterface(); // the child opens its own
    int saved = 0;
    for (int round = 0; round < 24; ++round) {
        const pid_t writer = StartChild([&]() -> int {
            for (std::size_t i = 0;; ++i)
                Save(selections[i % 2]);
        });
        ::usleep(static_cast<useconds_t>(500 + 1009 * round));
        ::kill(writer, SIGKILL);
        ASSERT_EQ(WaitForChild(writer), 128 + SIGKILL);
        const Numbers found = Read(1, WShape);
        ASSERT_TRUE(found == selections[0] || found == selections[1]) << "round " << round;
        saved += found == selections[0] ? 1 : 0;
        Facade::ExitSectionDBInterface();
    }
    EXPECT_GT(saved, 0) << "no save was tried before the writer was killed";
}

TEST_F(SelectionsTest, TwoProcessesLoseNothing) {
    Save({1}); // makes the file
    Facade::ExitSectionDBInterface();
    constexpr int Pipe = 10;
    constexpr int Times = 40;
    const auto save = [](int type) {
        return StartChild([type] {
            int kept = 0;
            for (int i = 1; i <= Times; ++i) {
                Save({i}, type);
                kept += Read(1, type) == Numbers{i} ? 1 : 0;
            }
            return kept == Times ? 0 : 1;
        });
    };
    const pid_t first = save(WShape);
    const pid_t second = save(Pipe);
    EXPECT_EQ(WaitForChild(first), 0);
    EXPECT_EQ(WaitForChild(second), 0);
    EXPECT_EQ(Read(1, WShape), Numbers{Times});
    EXPECT_EQ(Read(1, Pipe), Numbers{Times});
}

} // namespace
