// Bad files, wrong passwords, other processes, full disks and killed writers: each gives its result
// and error number, and leaves the file as it was.
#include "DataAccessSupport.h"

#include <algorithm>
#include <array>
#include <random>
#include <sys/stat.h>

using namespace testsupport;

namespace {

constexpr const char* Secret = ";PWD=right";

mode_t ModeOf(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

class FaultTest : public DataAccessTest {};

TEST_F(FaultTest, BadFilesAndPasswordsAreRefusedAndLeftAlone) {
    const auto file = [&](const char* name) { return m_folder.File(name); };
    const auto content = [&](const char* name) {
        return std::filesystem::is_regular_file(file(name)) ? ReadFile(file(name)) : "";
    };
    CreateCatalogue(file("plain"), 3);
    CreateCatalogue(file("protected"), 3, Secret);
    std::filesystem::create_directory(file("folder"));
    WriteFile(file("empty"), "");
    WriteFile(file("short"), "SQLite format 3");
    WriteFile(file("text"), "RECNO,Name,AX\n1,W44X335,98.5\n");
    std::string words;
    while (words.size() < 4096)
        words += "The quick brown fox jumps over the lazy dog. ";
    WriteFile(file("longtext"), words.substr(0, 4096));
    WriteFile(file("cut"), ReadFile(file("plain")).substr(0, 2500));
    const struct {
        const char* name;
        const char* connect;
        int result;
        int number;
    } cases[] = {
        {"missing", "", 0, 3024},
        {"nowhere/missing", "", 0, 3024},
        {"folder", "", -1, 3343},
        {"empty", "", -1, 3343},
        {"short", "", -1, 3343},
        {"text", "", -1, 3343},
        {"longtext", Secret, -1, 3343},
        {"cut", "", -1, 3049},
        {"plain", "", 1, 0},
        {"plain", Secret, 1, 0},
        {"plain", nullptr, 1, 0},
        {"protected", "", -1, 3031},
        {"protected", nullptr, -1, 3031},
        {"protected", ";PWD=wrong", -1, 3031},
        {"protected", ";PWD=", -1, 3031},
        {"protected", ";UID=right", -1, 3031},
        {"protected", Secret, 1, 0},
        {"protected", "pwd=right;UID=x", 1, 0},
        {"protected", "UID=x; Pwd =right;", 1, 0},
        {"protected", "right", 1, 0},
    };
    for (const int readOnly : {0, 1})
        for (const auto& c : cases) {
            SCOPED_TRACE(std::string(c.name) + " " + (c.connect == nullptr ? "null" : c.connect));
            const std::string before = content(c.name);
            const mode_t mode = ModeOf(file(c.name));
            {
                DatabaseHandle db;
                EXPECT_EQ(Open(db, file(c.name), c.connect, readOnly), c.result);
                EXPECT_EQ(TakeQuietError(), c.number);
                EXPECT_EQ(db.Get() != nullptr, c.result == 1);
                if (c.result == 1) {
                    EXPECT_EQ(getTableCount(db.Address()), 1);
                }
            }
            EXPECT_TRUE(content(c.name) == before);
            EXPECT_EQ(ModeOf(file(c.name)), mode);
        }
    ::setenv("SECTIONDB_PASSWORD", "right", 1);
    DatabaseHandle db;
    EXPECT_EQ(Open(db, file("protected")), 1);
    EXPECT_EQ(Open(db, file("protected"), ";PWD=wrong"), -1) << "only where none is given";
    EXPECT_EQ(openDatabase(db.Address(), file("missing").c_str(), 0, 0, 0, "", nullptr), 0);
    EXPECT_EQ(TakeQuietError(), 3031) << "a missing file that is not to be reported is not";
    EXPECT_EQ(m_folder.Count(), 8) << "nothing else came into being";
    EXPECT_TRUE(shownBoxes.empty());
}

TEST_F(FaultTest, CreatingLeavesNothingBehindWhereItFails) {
    const std::string path = m_folder.File("new.db3");
    WriteFile(path, "mine");
    DatabaseHandle db;
    EXPECT_EQ(createDatabase(db.Address(), path.c_str(), Secret, 0, nullptr), -1);
    EXPECT_EQ(TakeQuietError(), 3204);
    EXPECT_EQ(ReadFile(path), "mine");
    EXPECT_EQ(createDatabase(db.Address(), m_folder.File("no/x").c_str(), "", 0, nullptr), -1);
    EXPECT_EQ(TakeQuietError(), 3043);
    EXPECT_EQ(db.Get(), nullptr);
    EXPECT_TRUE(IsTrueInChild([&] {
        const rlimit none{0, 0};
        std::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &none);
        const std::string other = m_folder.File("other.db3");
        const int result = createDatabase(db.Address(), other.c_str(), Secret, 0, nullptr);
        return result == -1 && TakeQuietError() == 3043 && m_folder.Count() == 1;
    }));
}

TEST_F(FaultTest, OtherProcessesKeepUsOut) {
    const std::string path = m_folder.File("shared.db3");
    CreateCatalogue(path);
    DatabaseHandle db;
    StartHolder([&] {
        static DatabaseHandle held;
        EXPECT_EQ(Open(held, path, "", 1, 1), 1);
    });
    EXPECT_EQ(Open(db, path, "", 1), -1);
    EXPECT_EQ(TakeQuietError(), 3045);
    StopHolder();
    StartHolder([&] {
        static CSectionWorkspace workspace;
        static DatabaseHandle held;
        openDatabase(held.Address(), path.c_str(), 1, 0, 0, "", &workspace);
        workspace.BeginTrans();
        RecordsetHandle rows;
        EXPECT_EQ(Query(held, rows, "Shape", 1), 1);
        rows->Delete();
    });
    EXPECT_EQ(Open(db, path, "", 0, 1), -1) << "not exclusively";
    EXPECT_EQ(TakeQuietError(), 3045);
    ASSERT_EQ(Open(db, path), 1);
    RecordsetHandle rows;
    ASSERT_EQ(Query(db, rows, "Shape", 1), 1);
    EXPECT_EQ(getRecordCount(rows.Address()), 5) << "the other's deletion is not seen";
    EXPECT_EQ(deleteRecord(rows.Address(), ""), 0);
    EXPECT_EQ(TakeQuietError(), 3218);
    StopHolder();
    EXPECT_EQ(deleteRecord(rows.Address(), ""), 1) << "the killed writer is out of the way";
    EXPECT_EQ(getRecordCount(rows.Address()), 4);
}

TEST_F(FaultTest, ReadOnlyDatabasesFilesAndFoldersRefuseWriting) {
    const std::string folder = m_folder.File("folder");
    const std::string path = folder + "/shapes.db3";
    std::filesystem::create_directory(folder);
    CreateCatalogue(path);
    const std::string before = ReadFile(path);
    const auto write = [&](int readOnly) {
        DatabaseHandle db;
        RecordsetHandle rows;
        if (Open(db, path, "", readOnly) != 1 || Query(db, rows, "Shape", 1) != 1)
            return -1;
        if (deleteRecord(rows.Address(), "AX = 1") != 0)
            return -2;
        const int number = TakeQuietError();
        return deleteTable(db.Get(), "Shape") == 0 && TakeQuietError() == number ? number : -3;
    };
    EXPECT_EQ(write(1), 3027);
    ::chmod(m_folder.Path().c_str(), 0755);
    for (const auto& [folderMode, fileMode] : {std::pair{0777, 0444}, std::pair{0555, 0666}}) {
        ::chmod(path.c_str(), static_cast<mode_t>(fileMode));
        ::chmod(folder.c_str(), static_cast<mode_t>(folderMode));
        if (fileMode == 0444 && ::geteuid() != 0)
            continue; // the owner of a file may lift its mark
        EXPECT_TRUE(IsTrueInChild([&] { return BecomeOrdinaryUser() && write(0) == 3027; }))
            << std::oct << fileMode;
    }
    ::chmod(folder.c_str(), 0777);
    EXPECT_TRUE(ReadFile(path) == before);
}

TEST_F(FaultTest, ReadOnlyMarkIsLiftedWhileOpen) {
    const std::string marked = m_folder.File("marked.db3");
    const std::string free = m_folder.File("free.db3");
    CreateCatalogue(marked);
    CreateCatalogue(free);
    const auto mark = [&] { ::chmod(marked.c_str(), 0444); };
    DatabaseHandle first;
    DatabaseHandle second;

    mark();
    ASSERT_EQ(Open(first, marked), 1);
    EXPECT_EQ(ModeOf(marked), 0644U);
    closeDatabase(first.Address(), 0);
    EXPECT_EQ(ModeOf(marked), 0444U);

    WriteFile(m_folder.File("bad.db3"), "bad");
    ::chmod(m_folder.File("bad.db3").c_str(), 0444);
    EXPECT_EQ(Open(first, m_folder.File("bad.db3")), -1);
    EXPECT_EQ(ModeOf(m_folder.File("bad.db3")), 0444U) << "a file that is not opened keeps it";

    // One word for the process: the file opened last is the one that is remembered.
    ASSERT_EQ(Open(first, marked), 1);
    ASSERT_EQ(Open(second, free), 1);
    closeDatabase(second.Address(), 1);
    closeDatabase(first.Address(), 1);
    EXPECT_EQ(ModeOf(marked), 0644U);

    mark();
    ASSERT_EQ(Open(second, free), 1);
    ASSERT_EQ(Open(first, marked), 1);
    closeDatabase(second.Address(), 1);
    EXPECT_EQ(ModeOf(free), 0444U);
    ::chmod(free.c_str(), 0644);
}

/// Fills the disk with rows; 0 when the first row that does not fit leaves all others as they were.
int FillDisk(const std::string& path, const char* connect) {
    CreateCatalogue(path, 5, connect);
    DatabaseHandle db;
    RecordsetHandle rows;
    if (openDatabase(db.Address(), path.c_str(), 1, 0, 0, connect, nullptr) != 1 ||
        openRecordset(db.Address(), rows.Address(), "Shape", 1, 0) != 1)
        return 1;
    const std::string text(3000, 'x');
    const auto addOne = [&] { return ErrorOf([&] { AddShape(*rows, "N", text.c_str(), 1); }); };
    int count = 5;
    int number = 0;
    while ((number = addOne()) == 0 && count < 1000)
        ++count;
    if (number != 3026 && number != 3043) // a limit on the size of files is an input-output error
        return 2;
    const std::string before = ReadFile(path);
    if (addOne() != number)
        return 3;
    rows->Requery();
    if (getRecordCount(rows.Address()) != count)
        return 4;
    // Pages of a protected file are encrypted anew when they are put back.
    if (*connect == '\0' && ReadFile(path) != before)
        return 5;
    return deleteRecord(rows.Address(), "Name = 'A'") == 1 ? 0 : 6;
}

TEST_F(FaultTest, FullDiskKeepsTheOldContent) {
    const std::string disk = m_folder.File("disk");
    std::filesystem::create_directory(disk);
    for (const char* connect : {"", Secret})
        EXPECT_EQ(RunInChild([&] {
                      constexpr std::size_t Room = 200'000;
                      LimitDisk(disk, Room);
                      return FillDisk(disk + "/full.db3" + connect, connect);
                  }),
                  0)
            << connect;
}

/// Reads all that there is to read of a file. Returns an error number that is not one of a damaged
/// file, or 0.
class DamagedWalk {
public:
    int Run(const std::string& path, int readOnly) {
        DatabaseHandle db;
        const int opened =
            openDatabase(db.Address(), path.c_str(), 1, 0, readOnly, Secret, nullptr);
        Note(TakeQuietError());
        if (opened != 1)
            return m_unexpected;
        short count = 0;
        Note(ErrorOf([&] { count = db->GetTableDefCount(); }));
        for (int i = 0; i < count; ++i) {
            CSectionTableDefInfo info;
            Note(ErrorOf([&] { db->GetTableDefInfo(i, info, PrimaryInformation); }));
            getTableInfo(db.Get(), &info, i, 1);
            Note(TakeQuietError());
            WalkTable(db, info.m_strName);
        }
        return SectionLibraryState::GetExceptionType() == 1 ? 1 : m_unexpected;
    }

private:
    void WalkTable(DatabaseHandle& db, const CString& name) {
        TableDefHandle table;
        openTableDef(db.Get(), table.Address(), name);
        Note(TakeQuietError());
        for (const char* order : {"", " ORDER BY AX", " WHERE AX BETWEEN 3 AND 40"}) {
            RecordsetHandle rows;
            const CString sql = "Select * From [" + name + "]" + order;
            const int opened = openRecordset(db.Address(), rows.Address(), sql, 2, 0);
            Note(TakeQuietError());
            if (opened != 1)
                continue;
            setRecordsetTo(rows.Address(), "RECNO = 9999", 1);
            Note(TakeQuietError());
            Note(ErrorOf([&] { // rows to be edited are read when they are asked for
                for (; !rows->IsEOF(); rows->MoveNext())
                    for (int column = 0; column < rows->GetFieldCount(); ++column)
                        rows->GetFieldValue(column);
            }));
        }
    }

    void Note(int number) {
        // The names of tables and columns may be damaged too.
        constexpr std::array Expected{0, 3031, 3049, 3061, 3070, 3075, 3078, 3343};
        if (std::ranges::count(Expected, number) == 0)
            m_unexpected = number;
    }

    int m_unexpected = 0;
};

TEST_F(FaultTest, DamageAnywhereIsMetWithoutACrash) {
    constexpr std::size_t Stretch = 256;
    std::mt19937 random(20240601);
    for (const char* connect : {"", Secret}) {
        const std::string whole = m_folder.File("whole.db3");
        std::filesystem::remove(whole);
        CreateCatalogue(whole, 26, connect);
        {
            DatabaseHandle db;
            ASSERT_EQ(Open(db, whole, connect), 1);
            CreateShapeTable(db.Get(), "Second");
            RecordsetHandle rows;
            ASSERT_EQ(Query(db, rows, "Second", 1), 1);
            for (int i = 0; i < 60; ++i)
                AddShape(*rows, "a name", "another name", i);
        }
        const std::string content = ReadFile(whole);
        for (std::size_t at = 0; at < content.size(); at += Stretch)
            for (const bool isRandom : {false, true}) {
                std::string damaged = content;
                std::generate_n(damaged.begin() + static_cast<std::ptrdiff_t>(at),
                                std::min(Stretch, content.size() - at),
                                [&] { return isRandom ? static_cast<char>(random()) : '\xFF'; });
                const std::string path = m_folder.File("damaged.db3");
                WriteFile(path, damaged);
                ASSERT_EQ(
                    RunInChild([&] { return DamagedWalk().Run(path, isRandom) == 0 ? 0 : 1; }), 0)
                    << "bytes from " << at << (isRandom ? ", random" : ", FF");
                ASSERT_TRUE(ReadFile(path) == damaged);
            }
    }
    EXPECT_EQ(m_folder.Count(), 2);
}

/// Writes rows whose two names are equal, for ever, and a byte to `told` before each.
[[noreturn]] void WriteForEver(const std::string& path, int told) {
    DatabaseHandle db;
    RecordsetHandle rows;
    openDatabase(db.Address(), path.c_str(), 1, 0, 0, Secret, nullptr);
    openRecordset(db.Address(), rows.Address(), "Shape", 1, 0);
    for (int i = 0;; ++i) {
        static_cast<void>(::write(told, "x", 1) == 1);
        const std::string text(200, static_cast<char>('a' + i % 26));
        if (i % 3 == 0) {
            AddShape(*rows, text.c_str(), text.c_str(), i);
            continue;
        }
        rows->SetAbsolutePosition(i % 5);
        rows->Edit();
        rows->SetFieldValue(1, text.c_str());
        rows->SetFieldValue(2, text.c_str());
        rows->SetFieldValue(3, COleVariant(i));
        rows->Update();
    }
}

TEST_F(FaultTest, KilledWriterLeavesTheOldRowOrTheNewOne) {
    constexpr int Rounds = 64;
    int halfWay = 0;
    for (const char* connect : {"", Secret}) {
        const std::string path = m_folder.File(*connect == '\0' ? "plain.db3" : "protected.db3");
        CreateCatalogue(path, 5, connect);
        int rowsBefore = 5;
        for (int round = 0; round < Rounds; ++round) {
            SCOPED_TRACE(round);
            int told[2];
            ASSERT_EQ(::pipe(told), 0);
            const pid_t writer = StartChild([&]() -> int { WriteForEver(path, told[1]); });
            ::close(told[1]);
            char answer = 0;
            for (int row = 0; row <= round % 4; ++row)
                ASSERT_EQ(::read(told[0], &answer, 1), 1);
            ::usleep(static_cast<useconds_t>(round * 211 % 9000));
            ::kill(writer, SIGKILL);
            WaitForChild(writer);
            ::close(told[0]);
            halfWay += std::filesystem::exists(path + "-journal") ? 1 : 0;
            DatabaseHandle db;
            RecordsetHandle rows;
            ASSERT_EQ(Open(db, path, connect, round % 2), 1);
            ASSERT_EQ(Query(db, rows, "Shape", 4), 1);
            int count = 0;
            for (; !rows->IsEOF(); rows->MoveNext(), ++count)
                ASSERT_EQ(TextAt(rows, 1), TextAt(rows, 2));
            ASSERT_GE(count, rowsBefore);
            rowsBefore = count;
            RecordsetHandle broken;
            ASSERT_EQ(Query(db, broken, "Select * From Shape ORDER BY AX", 4), 1);
            ASSERT_EQ(getRecordCount(broken.Address()), count) << "the index agrees";
        }
        EXPECT_GT(rowsBefore, 5) << "the writers did write";
    }
    RecordProperty("killed half-way", halfWay);
}

} // namespace
