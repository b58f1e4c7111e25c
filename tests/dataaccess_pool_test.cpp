// Closed databases whose connection rests: whatever happens to the file meanwhile is seen.
#include "DataAccessSupport.h"

#include <fcntl.h>
#include <functional>
#include <memory>
#include <sys/stat.h>

namespace {

using namespace testsupport;
namespace fs = std::filesystem;

constexpr const char* Secret = ";PWD=right";

/// How often this process has a file open.
int OpenCount(const std::string& path) {
    int count = 0;
    for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
        std::error_code gone;
        count += fs::read_symlink(entry, gone) == path ? 1 : 0;
    }
    return count;
}

void Overwrite(const std::string& path, const std::string& content) {
    struct stat before {};
    ::stat(path.c_str(), &before);
    WriteFile(path, content);
    const timespec times[]{before.st_atim, before.st_mtim};
    ::utimensat(AT_FDCWD, path.c_str(), times, 0);
}

class PoolTest : public DataAccessTest {
protected:
    PoolTest() {
        CreateCatalogue(m_plain);
        CreateCatalogue(m_protected, 5, Secret);
        LetSettle();
    }
    ~PoolTest() override { terminateDAOEngine(); }

    /// Opens, asks and closes: the tables, the names of the first one, or an error number.
    std::string Look(const std::string& path, const char* connect = Secret, int readOnly = 0,
                     int exclusive = 0) {
        DatabaseHandle db;
        if (Open(db, path, connect, readOnly, exclusive) != 1)
            return std::to_string(TakeQuietError());
        std::string seen;
        for (const CString& table : db->GetUserTableNames())
            seen += std::string(table.View()) + ' ';
        RecordsetHandle rows;
        if (Query(db, rows, "Select * From Shape Where Name <> ''", 4) == 1)
            for (; !rows->IsEOF(); rows->MoveNext())
                seen += TextAt(rows, 1);
        return seen;
    }

    /// Changes a file in another process.
    void Elsewhere(const std::string& path, const std::function<void(DatabaseHandle&)>& change) {
        EXPECT_TRUE(IsTrueInChild([&] {
            DatabaseHandle db;
            const int opened = Open(db, path, Secret);
            change(db);
            return opened == 1;
        }));
    }

    const std::string m_plain = m_folder.File("plain.db3");
    const std::string m_protected = m_folder.File("protected.db3");
};

TEST_F(PoolTest, RestsUntilTheEngineIsTerminated) {
    for (const std::string& path : {m_plain, m_protected}) {
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(Look(path), "Shape ABCDE");
            EXPECT_EQ(OpenCount(path), 1);
        }
        Look(path, Secret, 1);
        EXPECT_EQ(OpenCount(path), 2) << "for reading only";
        Look(path, Secret, 0, 1);
        EXPECT_EQ(OpenCount(path), 2) << "what was opened exclusively does not rest";
        DatabaseHandle first;
        DatabaseHandle second;
        EXPECT_EQ(Open(first, path, Secret) + Open(second, path, Secret), 2);
        EXPECT_EQ(OpenCount(path), 3) << "two users, two connections";
    }
    terminateDAOEngine();
    EXPECT_EQ(OpenCount(m_plain) + OpenCount(m_protected), 0);
    EXPECT_EQ(Look(m_protected), "Shape ABCDE");
}

TEST_F(PoolTest, WhateverHappenedToTheFileIsSeen) {
    const std::string other = m_folder.File("other.db3");
    const auto deleteB = [](DatabaseHandle& db) {
        RecordsetHandle rows;
        openRecordset(db.Address(), rows.Address(), "Shape", 1, 0);
        deleteRecord(rows.Address(), "Name = 'B'");
    };
    for (const std::string& path : {m_plain, m_protected}) {
        const char* connect = path == m_plain ? "" : Secret;
        struct {
            const char* what;
            std::function<void()> happen;
            std::string seen;
        } const cases[]{
            {"a row deleted", [&] { Elsewhere(path, deleteB); }, "Shape ACDE"},
            {"a table added",
             [&] { Elsewhere(path, [](DatabaseHandle& db) { CreateShapeTable(db.Get(), "Z"); }); },
             "Shape Z ABCDE"},
            {"the table dropped",
             [&] { Elsewhere(path, [](DatabaseHandle& db) { deleteTable(db.Get(), "Shape"); }); },
             ""},
            {"replaced", [&] { fs::rename(other, path); }, "Shape AXCDE"},
            {"overwritten, size and time kept", [&] { Overwrite(path, ReadFile(other)); },
             "Shape AXCDE"},
            {"cut short", [&] { fs::resize_file(path, 100); }, "3343"},
            {"removed", [&] { fs::remove(path); }, "3024"},
            {"a folder instead", [&] { fs::remove(path), fs::create_directory(path); }, "3343"},
        };
        for (const auto& c : cases) {
            SCOPED_TRACE(path + ": " + c.what);
            fs::remove(path);
            fs::remove(other);
            CreateCatalogue(path, 5, connect);
            fs::copy_file(path, other);
            {
                DatabaseHandle db;
                RecordsetHandle rows;
                ASSERT_EQ(Open(db, other, connect) + Query(db, rows, "Shape", 1), 2);
                rows->MoveNext();
                SetValue(*rows, 1, "X");
            }
            if (path == m_plain) { // the engine's own mark of a change is alike
                std::string content = ReadFile(other);
                const std::string mark = ReadFile(path);
                for (const std::size_t at : {24U, 92U})
                    content.replace(at, 4, mark, at, 4);
                WriteFile(other, content);
            }
            LetSettle();
            ASSERT_EQ(Look(path), "Shape ABCDE");
            ASSERT_EQ(OpenCount(path), 1);
            c.happen();
            EXPECT_EQ(Look(path), c.seen);
            EXPECT_LE(OpenCount(path), 1) << "the old connection is gone";
        }
    }
}

TEST_F(PoolTest, RightsAreAskedForEachTime) {
    EXPECT_EQ(Look(m_protected), "Shape ABCDE");
    for (const char* connect : {";PWD=wrong", "", ";PWD=right "})
        EXPECT_EQ(Look(m_protected, connect), "3031") << connect;
    EXPECT_EQ(Look(m_protected, "right"), "Shape ABCDE");

    ::chmod(m_folder.Path().c_str(), 0755);
    ::chmod(m_plain.c_str(), 0666);
    LetSettle();
    const auto lookAs = [&](auto change) {
        return RunInChild([&] {
            Look(m_plain);
            const bool rested = OpenCount(m_plain) == 1;
            return rested && change() && Look(m_plain) == "3043" ? 0 : 1;
        });
    };
    EXPECT_EQ(lookAs([&] { return ::chmod(m_plain.c_str(), 0) == 0 && BecomeOrdinaryUser(); }), 0);
    ::chmod(m_plain.c_str(), 0600);
    LetSettle();
    if (::geteuid() == 0) {
        EXPECT_EQ(lookAs(BecomeOrdinaryUser), 0) << "another user in the same process";
    }
}

TEST_F(PoolTest, OtherProcessesAreNotKeptOut) {
    EXPECT_EQ(Look(m_protected), "Shape ABCDE");
    StartHolder([&] {
        static DatabaseHandle held;
        EXPECT_EQ(Open(held, m_protected, Secret, 0, 1), 1) << "nobody stands in the way";
    });
    EXPECT_EQ(Look(m_protected), "3045");
    StopHolder();
    EXPECT_EQ(Look(m_protected), "Shape ABCDE");
}

TEST_F(PoolTest, NothingOfAUseOutlastsIt) {
    CSectionWorkspace workspace;
    CSectionDatabase* db = nullptr;
    CSectionRecordset* rows = nullptr;
    ASSERT_EQ(openDatabase(&db, m_plain.c_str(), 1, 0, 0, "", &workspace), 1);
    workspace.BeginTrans();
    ASSERT_EQ(openRecordset(&db, &rows, "Shape", 1, 0), 1);
    EXPECT_EQ(deleteRecord(&rows, "Name = 'B'"), 1);
    closeDatabase(&db, 0);
    EXPECT_EQ(OpenCount(m_plain), 0) << "an unfinished transaction ends with its connection";
    EXPECT_EQ(Look(m_plain), "Shape ABCDE");

    LetSettle();
    ASSERT_EQ(openDatabase(&db, m_plain.c_str(), 1, 0, 0, "", &workspace), 1);
    ASSERT_EQ(openRecordset(&db, &rows, "Shape", 4, 0), 1);
    const CSectionDatabase copy = *db;
    closeDatabase(&db, 1);
    DatabaseHandle next;
    ASSERT_EQ(Open(next, m_plain), 1);
    EXPECT_EQ(OpenCount(m_plain), 1) << "the next user has it";
    EXPECT_FALSE(rows->IsOpen());
    EXPECT_FALSE(copy.IsOpen());
    workspace.Rollback();
    workspace.BeginTrans(); // begins nothing: its database was closed
    Elsewhere(m_plain, [](DatabaseHandle& other) { CreateShapeTable(other.Get(), "Z"); });
    EXPECT_EQ(getTableCount(next.Address()), 2);
    closeRecordset(&rows);
}

TEST_F(PoolTest, FilesWithAWriteAheadLogAreClosed) {
    if (!HasStockProgram())
        GTEST_SKIP() << "the engine's own program is missing";
    RunStockProgram(m_folder, m_plain, "PRAGMA journal_mode = WAL;");
    LetSettle();
    EXPECT_EQ(Look(m_plain), "Shape ABCDE");
    EXPECT_EQ(OpenCount(m_plain), 0);
    EXPECT_FALSE(fs::exists(m_plain + "-wal"));
}

TEST_F(PoolTest, NoMoreThan64Rest) {
    constexpr int Most = 64;
    const auto file = [&](int i) { return m_folder.File(std::to_string(i)); };
    for (int i = 0; i <= Most; ++i)
        fs::copy_file(m_plain, file(i));
    LetSettle();
    for (int i = 0; i < Most; ++i)
        Look(file(i));
    Look(file(0)); // so that the second is the one that rests longest
    Look(file(Most));
    int count = 0;
    for (int i = 0; i <= Most; ++i)
        count += OpenCount(file(i));
    EXPECT_EQ(count, Most);
    EXPECT_EQ(OpenCount(file(0)), 1);
    EXPECT_EQ(OpenCount(file(1)), 0);
}

TEST_F(PoolTest, ChildLeavesItsParentsConnectionsAlone) {
    Look(m_protected);
    DatabaseHandle open;
    ASSERT_EQ(Open(open, m_plain), 1);
    RecordsetHandle rows;
    TableDefHandle table;
    ASSERT_EQ(Query(open, rows, "Shape"), 1);
    ASSERT_EQ(openTableDef(open.Get(), table.Address(), "Shape"), 1);
    EXPECT_TRUE(IsTrueInChild([&] {
        const bool seen = Look(m_protected) == "Shape ABCDE" && OpenCount(m_protected) == 2;
        const bool refused = !open->IsOpen() && !rows->IsOpen() &&
                             ErrorOf([&] { open->GetTableDefCount(); }) == 3420 &&
                             ErrorOf([&] { rows->MoveNext(); }) == 3420 &&
                             ErrorOf([&] { table->DeleteField("AX"); }) == 3420;
        closeDatabase(open.Address(), 1); // the parent's: neither closed nor kept
        const bool left = OpenCount(m_plain) == 1 && Look(m_plain) == "Shape ABCDE";
        terminateDAOEngine();
        return seen && refused && left && OpenCount(m_protected) == 1;
    }));
    EXPECT_EQ(Look(m_protected), "Shape ABCDE");
    EXPECT_EQ(OpenCount(m_protected), 1);
    EXPECT_TRUE(rows->IsOpen());
}

TEST_F(PoolTest, ChildLeavesItsParentsTransactionAlone) {
    CSectionWorkspace workspace;
    CSectionDatabase* db = nullptr;
    CSectionRecordset* rows = nullptr;
    ASSERT_EQ(openDatabase(&db, m_plain.c_str(), 1, 0, 0, "", &workspace), 1);
    ASSERT_EQ(openRecordset(&db, &rows, "Shape", 1, 0), 1);
    workspace.BeginTrans();
    ASSERT_EQ(deleteRecord(&rows, "Name = 'B'"), 1);
    const std::string journal = m_plain + "-journal";
    ASSERT_TRUE(fs::exists(journal));
    EXPECT_TRUE(IsTrueInChild([&] {
        workspace.Rollback();
        closeRecordset(&rows);
        closeDatabase(&db, 1);
        return fs::exists(journal) && Look(m_plain) == "3045" && Look(m_protected) == "Shape ABCDE";
    }));
    EXPECT_TRUE(fs::exists(journal)) << "what a killed parent would be undone by";
    workspace.CommitTrans();
    closeRecordset(&rows);
    closeDatabase(&db, 1);
    EXPECT_EQ(Look(m_plain), "Shape ACDE");
}

TEST_F(PoolTest, ProcessEndsInOrder) {
    EXPECT_EQ(RunInChild([&]() -> int {
                  static DatabaseHandle left; // closed when nothing rests any more
                  Look(m_plain);              // before the cipher is used for the first time
                  Look(m_protected);
                  Open(left, m_protected, Secret);
                  std::exit(OpenCount(m_protected) == 1 ? 0 : 1);
              }),
              0);
}

} // namespace
