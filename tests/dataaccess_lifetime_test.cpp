// What refers to a database that is closed, gone, or in a transaction that others end.
#include "DataAccessSupport.h"

#include <fcntl.h>
#include <functional>
#include <optional>

using namespace testsupport;

namespace {

class LifetimeTest : public DataAccessTest {
protected:
    LifetimeTest() {
        CreateCatalogue(m_first);
        CreateCatalogue(m_second);
    }

    /// The number of rows in a file, as another connection sees it.
    int Count(const std::string& path) {
        DatabaseHandle db;
        EXPECT_EQ(Open(db, path, "", 1), 1);
        Rows rows(db, "Shape", 4);
        return getRecordCount(rows.Address());
    }

    static void DeleteOne(CSectionDatabase& database) {
        CSectionRecordset rows(&database);
        rows.Open(CSectionRecordset::Table, "Shape");
        rows.Delete();
    }

    const std::string m_first = m_folder.File("first.db3");
    const std::string m_second = m_folder.File("second.db3");
};

TEST_F(LifetimeTest, WhatOutlivesItsDatabaseIsClosed) {
    const std::pair<const char*, std::function<void(std::optional<CSectionDatabase>&)>> ends[]{
        {"closed", [](auto& database) { database->Close(); }},
        {"destroyed", [](auto& database) { database.reset(); }},
        {"opened again",
         [&](auto& database) {
             database->Close();
             database->Open(m_second.c_str());
         }},
        {"opened on another file", [&](auto& database) { database->Open(m_second.c_str()); }},
    };
    for (const auto& [what, end] : ends) {
        SCOPED_TRACE(what);
        std::optional<CSectionDatabase> database(std::in_place);
        database->Open(m_first.c_str());
        CSectionRecordset rows(&*database);
        rows.Open(CSectionRecordset::Dynaset, "Select * From Shape");
        CSectionTableDef table(&*database);
        table.Open("Shape");
        CSectionTableDef fresh(&*database);
        fresh.Create("Fresh");
        end(database);
        EXPECT_FALSE(rows.IsOpen() || table.IsOpen() || fresh.IsOpen());
        CSectionFieldInfo field;
        const std::function<void()> uses[]{[&] { rows.MoveNext(); },
                                           [&] { rows.GetFieldValue(1); },
                                           [&] { rows.Edit(); },
                                           [&] { rows.Requery(); },
                                           [&] { table.GetFieldCount(); },
                                           [&] { table.GetFieldInfo(0, field); },
                                           [&] { table.DeleteField("AX"); },
                                           [&] { fresh.CreateField(field); },
                                           [&] { fresh.Append(); }};
        for (const auto& use : uses)
            EXPECT_EQ(ErrorOf(use), 3420);
        const bool canOpen = database.has_value() && database->IsOpen();
        EXPECT_EQ(ErrorOf([&] { table.Open("Shape"); }), canOpen ? 0 : 3420);
        EXPECT_EQ(ErrorOf([&] { rows.Open(4, "Shape"); }), canOpen ? 0 : 3420);
    }
    EXPECT_EQ(Count(m_first), 5);
}

TEST_F(LifetimeTest, CopiesShareTheFile) {
    CSectionDatabase copy;
    CSectionDatabase referring;
    {
        CSectionDatabase database;
        database.Open(m_first.c_str());
        copy = database;
        referring.ReferTo(database);
    }
    EXPECT_TRUE(copy.IsOpen() && referring.IsOpen());
    EXPECT_EQ(referring.GetTableDefCount(), 1);
    copy = CSectionDatabase();
    EXPECT_FALSE(referring.IsOpen()) << "it does not keep the file open";
    EXPECT_EQ(ErrorOf([&] { referring.GetTableDefCount(); }), 3420);
    EXPECT_STREQ(referring.GetName(), m_first.c_str());
}

/// Two databases of a workspace, in a transaction in which each has lost a row.
struct TwoInTransaction {
    TwoInTransaction(const std::string& firstPath, const std::string& secondPath) {
        first->Open(firstPath.c_str());
        second->Open(secondPath.c_str());
        workspace->BeginTrans();
        for (const auto& database : {&*first, &*second}) {
            CSectionRecordset rows(database);
            rows.Open(CSectionRecordset::Table, "Shape");
            rows.Delete();
        }
    }

    std::optional<CSectionWorkspace> workspace{std::in_place};
    std::optional<CSectionDatabase> first{std::in_place, &*workspace};
    std::optional<CSectionDatabase> second{std::in_place, &*workspace};
};

TEST_F(LifetimeTest, TransactionsEndWhateverHappensToTheirDatabases) {
    const struct {
        const char* what;
        std::function<void(TwoInTransaction&)> happen;
        int number; ///< of the commit
        int first;
        int second;
    } cases[]{
        {"nothing", [](auto&) {}, 0, 4, 4},
        {"one is closed", [](auto& two) { two.first->Close(); }, 3420, 5, 4},
        {"the other is gone", [](auto& two) { two.second.reset(); }, 3420, 4, 5},
        {"both are gone",
         [](auto& two) {
             two.first.reset();
             two.second.reset();
         },
         3420, 5, 5},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        std::filesystem::remove(m_first);
        std::filesystem::remove(m_second);
        CreateCatalogue(m_first);
        CreateCatalogue(m_second);
        TwoInTransaction two(m_first, m_second);
        c.happen(two);
        EXPECT_EQ(ErrorOf([&] { two.workspace->CommitTrans(); }), c.number);
        EXPECT_EQ(Count(m_first), c.first);
        EXPECT_EQ(Count(m_second), c.second);
        EXPECT_EQ(ErrorOf([&] { two.workspace->CommitTrans(); }), 0) << "told once";
        EXPECT_EQ(ErrorOf([&] { two.workspace->BeginTrans(); }), 0);
        two.workspace->Rollback();
    }

    TwoInTransaction abandoned(m_first, m_second);
    const int before = Count(m_first);
    EXPECT_EQ(ErrorOf([&] { abandoned.workspace->BeginTrans(); }), 3075) << "one at a time";
    abandoned.workspace.reset();
    EXPECT_EQ(Count(m_first), before) << "undone with its workspace";
    DeleteOne(*abandoned.first);
    EXPECT_EQ(Count(m_first), before - 1);
}

/// Holds the lock under which the engine reads a file, which keeps a writer from finishing.
void ReadForEver(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    struct flock lock {};
    lock.l_type = F_RDLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start = 0x4000'0002;
    lock.l_len = 510;
    EXPECT_EQ(::fcntl(file, F_SETLK, &lock), 0);
}

TEST_F(LifetimeTest, WhatCannotBeCommittedYetStaysForAnotherTry) {
    TwoInTransaction two(m_first, m_second);
    StartHolder([&] { ReadForEver(m_first); });
    EXPECT_EQ(ErrorOf([&] { two.workspace->CommitTrans(); }), 3218);
    EXPECT_EQ(ErrorOf([&] { two.workspace->BeginTrans(); }), 3075);
    EXPECT_EQ(Count(m_second), 4) << "the other is committed";
    StopHolder();
    two.workspace->CommitTrans();
    EXPECT_EQ(Count(m_first), 4);

    two.workspace->BeginTrans();
    DeleteOne(*two.first);
    StartHolder([&] { ReadForEver(m_first); });
    EXPECT_EQ(ErrorOf([&] { two.workspace->CommitTrans(); }), 3218);
    two.workspace->Rollback();
    StopHolder();
    EXPECT_EQ(Count(m_first), 4);
}

TEST_F(LifetimeTest, TransactionsLeaveDatabasesThatAreOnlyReadAlone) {
    CSectionWorkspace workspace;
    CSectionDatabase database(&workspace);
    database.Open(m_first.c_str(), 0, 1);
    workspace.BeginTrans();
    CSectionDatabase writer;
    writer.Open(m_first.c_str());
    DeleteOne(writer);
    workspace.CommitTrans();
    EXPECT_EQ(Count(m_first), 4);
}

TEST_F(LifetimeTest, AnErrorThatUndoesATransactionIsNotFollowedByLooseWrites) {
    EXPECT_EQ(RunInChild([&] {
                  constexpr rlim_t Most = 3'000'000;
                  const rlimit limit{Most, Most};
                  std::signal(SIGXFSZ, SIG_IGN);
                  ::setrlimit(RLIMIT_FSIZE, &limit);
                  CSectionWorkspace workspace;
                  CSectionDatabase database(&workspace);
                  database.Open(m_first.c_str());
                  CSectionRecordset rows(&database);
                  rows.Open(CSectionRecordset::Table, "Shape");
                  const std::string text(200'000, 'x');
                  const auto add = [&] { AddShape(rows, "N", text.c_str(), 1); };
                  workspace.BeginTrans();
                  int added = 0;
                  while (added < 100 && ErrorOf(add) == 0)
                      ++added;
                  EXPECT_TRUE(added > 0 && added < 100) << added;
                  EXPECT_EQ(ErrorOf(add), 3034) << "not on its own";
                  rows.Requery();
                  EXPECT_EQ(rows.Find(CSectionRecordset::FindFirst, "Name = 'N'"), 0);
                  EXPECT_EQ(ErrorOf([&] { workspace.CommitTrans(); }), 3034);
                  EXPECT_EQ(Count(m_first), 5);
                  workspace.BeginTrans();
                  DeleteOne(database);
                  workspace.CommitTrans();
                  return ::testing::Test::HasFailure() ? 1 : 0;
              }),
              0);
    EXPECT_EQ(Count(m_first), 4);
}

} // namespace
