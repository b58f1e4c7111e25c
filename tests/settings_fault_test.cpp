// Settings files that cannot be read or written: nothing is taken for missing, and nothing is lost.
#include "QuerySupport.h"

#include "platform/PrivateProfile.h"

#include <chrono>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>

using namespace testsupport;

namespace {

constexpr int FileError = 2;
constexpr int WShape = 1;
constexpr int Pipe = 10;

using Numbers = std::vector<DWORD>;
constexpr DWORD Nothing = static_cast<DWORD>(-1);

class SettingsFaultTest : public QueryTest {
protected:
    SettingsFaultTest() {
        CatalogueFile file(File("AISCSections.db3"));
        file.AddTable("W Shape", LayoutId::Cable, {{"a", "VA", {}}, {"b", "VB", {}}});
        file.AddTable("Pipe", LayoutId::Cable);
        Facade::SetDBIFileName(m_dbi.c_str());
    }

    static Numbers Read(int type, const Numbers& before = {}) {
        CDWordArray selection;
        for (const DWORD number : before)
            selection.Add(number);
        Facade::GetUserSelectedSections(1, type, selection);
        return {selection.begin(), selection.end()};
    }

    static void Save(const Numbers& numbers, int type = WShape) {
        CDWordArray selection;
        for (const DWORD number : numbers)
            selection.Add(number);
        Facade::SaveUserSelectedSections(1, type, selection);
    }

    /// The kind of the error since the last call, and the captions of its messages.
    static std::pair<int, std::vector<std::string>> TakeErrors() {
        std::vector<std::string> captions;
        for (const Box& box : std::exchange(shownBoxes, {}))
            captions.push_back(box.caption);
        const int kind = Facade::GetExceptionType();
        Facade::SetExceptionType(0);
        return {kind, captions};
    }

    static auto ErrorOfFile(const char* label) {
        return std::pair(FileError, std::vector{std::string("CFileException occurred - ") + label});
    }

    const std::string m_dbi = m_folder.File("tables.dbi");
};

/// Makes `path` one that cannot be read, whoever tries.
using Spoil = void (*)(const std::string& path);

void MakeTooLarge(const std::string& path) {
    WriteFile(path, "[AISCSections]\nW Shape=2\n");
    std::filesystem::resize_file(path, 20'000'000);
}
void MakeALoop(const std::string& path) { std::filesystem::create_symlink(path, path); }
void MakeAPipe(const std::string& path) { ASSERT_EQ(::mkfifo(path.c_str(), 0666), 0); }

TEST_F(SettingsFaultTest, ASelectionThatCannotBeReadSelectsNothing) {
    const int keys[][2] = {{-1, 0}};
    for (const Spoil spoil : {MakeTooLarge, MakeALoop, MakeAPipe}) {
        std::filesystem::remove(m_dbi);
        spoil(m_dbi);
        EXPECT_EQ(Read(WShape, {7, 8}), (Numbers{Nothing, 8}));
        EXPECT_NE(GetLastProfileError(), 0);
        EXPECT_EQ(TakeErrors(), ErrorOfFile("GetUserSelectedSections()"));
        EXPECT_EQ(Facade::IsSectionInProject(1, WShape, 2), 0);
        EXPECT_EQ(TakeErrors().first, FileError);
        EXPECT_EQ(Facade::GetUserSelectedSectionNameList(1, WShape), nullptr);
        EXPECT_EQ(TakeErrors().first, FileError);
        const Result sorted = Run([&](auto* db, auto* rs) {
            openRecordset(db, rs, "Pipe", 4, 0); // of an earlier query
            Facade::GetSortedSectionRecords(1, WShape, keys, db, rs);
        });
        EXPECT_EQ(sorted.names, "none");
        EXPECT_EQ(TakeErrors().first, FileError);

        Save({1});
        EXPECT_EQ(TakeErrors(), ErrorOfFile("SaveUserSelectedSections()"));
        EXPECT_NE(GetLastProfileError(), 0);

        Facade::SetEngineMode(1);
        EXPECT_EQ(Facade::IsSectionInProject(1, WShape, 2), 0);
        Facade::SetEngineMode(0);
        EXPECT_EQ(TakeErrors(), std::pair(FileError, std::vector<std::string>{}));
    }
    EXPECT_TRUE(std::filesystem::is_fifo(m_dbi));
    std::filesystem::remove(m_dbi);
    std::filesystem::create_directory(m_dbi); // where a file would stand there is none
    EXPECT_EQ(Read(WShape), Numbers{0});
    EXPECT_EQ(TakeErrors(), std::pair(0, std::vector<std::string>{}));
}

TEST_F(SettingsFaultTest, NoCatalogueIsTakenForAReplacedOne) {
    const std::string settings = File("Custom.ini");
    Facade::SetINIFileName(settings.c_str());
    for (const Spoil spoil : {MakeTooLarge, MakeALoop, MakeAPipe}) {
        std::filesystem::remove(settings);
        spoil(settings);
        EXPECT_EQ(Facade::GetDatabaseFileName(1), "");
        EXPECT_EQ(TakeErrors(), ErrorOfFile("IsCustomized()"));
        EXPECT_EQ(Facade::GetSectionCount(1, WShape), 0);
        EXPECT_EQ(TakeErrors().first, FileError);
        EXPECT_EQ(Facade::IsCustomized(1), 0);
        EXPECT_EQ(TakeErrors().first, FileError);
    }
    std::filesystem::remove(settings);
    EXPECT_EQ(Facade::GetSectionCount(1, WShape), 2);
    EXPECT_EQ(TakeErrors(), std::pair(0, std::vector<std::string>{}));
}

TEST_F(SettingsFaultTest, ADatabaseThatCannotBeLookedForIsNotMissing) {
    std::filesystem::remove(File("AISCSections.db3"));
    MakeALoop(File("AISCSections.db3"));
    EXPECT_EQ(Facade::GetDatabaseFileName(1), "");
    EXPECT_EQ(TakeErrors(), ErrorOfFile("GetDatabaseFileName()"));
}

TEST_F(SettingsFaultTest, TwoProcessesThatMakeTheFileLoseNothing) {
    for (int round = 0; round < 20; ++round) {
        std::filesystem::remove(m_dbi);
        Facade::ExitSectionDBInterface(); // the children open their own
        const auto save = [](int type) {
            return StartChild([type] {
                Save({5}, type);
                return 0;
            });
        };
        const pid_t first = save(WShape);
        const pid_t second = save(Pipe);
        EXPECT_EQ(WaitForChild(first) + WaitForChild(second), 0);
        ASSERT_EQ(Read(WShape), Numbers{5}) << round;
        ASSERT_EQ(Read(Pipe), Numbers{5}) << round;
    }
}

TEST_F(SettingsFaultTest, AFolderThatStaysLockedIsTold) {
    Save({1});
    const std::string before = ReadFile(m_dbi);
    StartHolder([&] {
        const int folder = ::open(m_folder.Path().c_str(), O_RDONLY | O_DIRECTORY);
        ::flock(folder, LOCK_EX);
    });
    const auto start = std::chrono::steady_clock::now();
    Save({2});
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(8));
    ASSERT_EQ(shownBoxes.size(), 1U);
    EXPECT_TRUE(shownBoxes[0].text.starts_with("Another program is writing settings in the same "
                                               "folder; try again when it has finished."));
    EXPECT_EQ(TakeErrors(), ErrorOfFile("SaveUserSelectedSections()"));
    EXPECT_EQ(GetLastProfileError(), EWOULDBLOCK);
    EXPECT_EQ(ReadFile(m_dbi), before);
    StopHolder();
    Save({2});
    EXPECT_EQ(Read(WShape), Numbers{2});
}

} // namespace
