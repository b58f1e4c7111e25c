// What the database engine may not do for a caller, and the engines and files of others.
#include "DataAccessSupport.h"

#include <dlfcn.h>

using namespace testsupport;

namespace {

constexpr const char* Secret = ";PWD=right";

class EngineTest : public DataAccessTest {};

TEST_F(EngineTest, StatementsOnlyReadTables) {
    if (!HasStockProgram())
        GTEST_SKIP() << "the sqlcipher program, which makes the view and the trigger, is missing";
    const std::string path = m_folder.File("hostile.db3");
    CreateCatalogue(path);
    RunStockProgram(m_folder, path,
                    "CREATE VIEW Peek AS SELECT Name FROM Shape;"
                    "CREATE TRIGGER Spread AFTER INSERT ON Shape BEGIN DELETE FROM Shape; END;");
    const std::string before = ReadFile(path);
    DatabaseHandle db;
    ASSERT_EQ(Open(db, path), 1);
    const std::string attach = "ATTACH '" + m_folder.File("attached.db3") + "' AS other";
    for (const std::string sql :
         {"DELETE FROM Shape",
          "UPDATE Shape SET AX = 0",
          "INSERT INTO Shape(Name) VALUES('x')",
          "DROP TABLE Shape",
          "CREATE TABLE T(x)",
          "VACUUM",
          "BEGIN",
          "PRAGMA user_version = 7",
          "PRAGMA table_info(Shape)",
          "EXPLAIN Select * From Shape",
          attach.c_str(),
          "REPLACE INTO Shape(Name) VALUES('x')",
          "/* x */ DELETE FROM Shape",
          "Select * From Shape; DELETE FROM Shape",
          "Select load_extension('x')",
          "Select sqlcipher_export('main')",
          "Select * From Peek",
          "Select 1 From Peek",
          "Peek",
          "Select Name From Shape WHERE Name IN (Select Name From Peek)",
          "WITH RECURSIVE n(i) AS (VALUES(1) UNION ALL SELECT i+1 FROM n) SELECT * FROM n",
          "Select * From (WITH RECURSIVE n(i) AS (SELECT 1 UNION SELECT i FROM n) SELECT i FROM n)",
          "Select Name From Shape WHERE Name = 'A'1",
          "Select randomblob(1000000000)",
          "Select writefile('x', 'y')",
          "Select fts3_tokenizer('simple')"})
        for (const int type : {1, 2, 4}) {
            RecordsetHandle rows;
            EXPECT_EQ(Query(db, rows, sql.c_str(), type), -1) << sql;
            EXPECT_EQ(TakeQuietError(), 3075) << sql;
        }
    EXPECT_EQ(getTableCount(db.Address()), 1) << "a view is no table";
    EXPECT_TRUE(ReadFile(path) == before);
    EXPECT_FALSE(std::filesystem::exists(m_folder.File("attached.db3")));
    RecordsetHandle rows;
    ASSERT_EQ(Query(db, rows, "Shape", 1), 1);
    AddShape(*rows, "F", "F", 6);
    rows->Requery();
    EXPECT_EQ(getRecordCount(rows.Address()), 6) << "the trigger did not run";
}

TEST_F(EngineTest, FilesOfTheStockProgramAndOurs) {
    if (!HasStockProgram())
        GTEST_SKIP() << "the sqlcipher program is missing";
    const std::string path = m_folder.File("ours.db3");
    CreateCatalogue(path, 5, ";PWD=it's");
    const std::string sql = "SELECT 'rows ' || count(*) FROM Shape;";
    if (HasSystemsEngine) {
        EXPECT_TRUE(
            Holds(RunStockProgram(m_folder, path, "PRAGMA key = 'it''s';" + sql), "rows 5"));
    }
    EXPECT_FALSE(Holds(RunStockProgram(m_folder, path, sql), "rows"));

    const std::string theirs = m_folder.File("theirs.db3");
    RunStockProgram(m_folder, theirs,
                    "PRAGMA key = 'right'; PRAGMA encoding = 'UTF-16'; CREATE TABLE T(Name TEXT);"
                    "INSERT INTO T VALUES('W44\xC3\x97"
                    "335');");
    DatabaseHandle db;
    RecordsetHandle rows;
    ASSERT_EQ(Open(db, theirs, Secret), 1);
    ASSERT_EQ(Query(db, rows, "T", 4), 1);
    EXPECT_EQ(TextAt(rows, 0), "W44\xC3\x97"
                               "335");
    EXPECT_EQ(setRecordsetTo(rows.Address(), "Name LIKE 'w44%'", 1) +
                  setRecordsetTo(rows.Address(), "Name LIKE 'w44%'", 0x80000000L),
              1);
}

/// Adds rows to a catalogue until there are `count`.
void FillCatalogue(const TempFolder& folder, const std::string& path, int count) {
    RunStockProgram(folder, path,
                    "PRAGMA synchronous = OFF; PRAGMA journal_mode = OFF; DROP INDEX [AX of Shape];"
                    "WITH RECURSIVE n(i) AS (VALUES(6) UNION ALL SELECT i + 1 FROM n WHERE i < " +
                        std::to_string(count) +
                        ") INSERT INTO Shape SELECT i, 'N' || i, NULL, i % 1000 FROM n;");
}

TEST_F(EngineTest, StatementsThatDeliverNothingEnd) {
    if (!HasStockProgram())
        GTEST_SKIP() << "the sqlcipher program, which adds the rows, is missing";
    const std::string path = m_folder.File("shapes.db3");
    CreateCatalogue(path);
    FillCatalogue(m_folder, path, 1000);
    DatabaseHandle db;
    ASSERT_EQ(Open(db, path), 1);
    for (const char* sql :
         {"Select A.Name From Shape A, Shape B, Shape C WHERE A.AX + B.AX + C.AX < 0",
          "Select count(*) From Shape A, Shape B, Shape C"}) {
        RecordsetHandle rows;
        EXPECT_EQ(Query(db, rows, sql, 4), -1) << sql;
        EXPECT_EQ(TakeQuietError(), 3360) << sql;
    }
    Rows rows(db,
              "Select A.Name, (Select max(B.AX + A.AX) From Shape B) From Shape A, "
              "(Select Name From Shape LIMIT 25)",
              4);
    rows->MoveLast();
    EXPECT_EQ(rows->GetRecordCount(), 25'000) << "each row takes little, all more than the bound";
    const auto find = [&](const char* condition) {
        return setRecordsetTo(rows.Address(), condition, 0x80000000L);
    };
    EXPECT_EQ(find("0 < (Select sum(A.AX) From Shape A, Shape B)"), 1) << "some work is allowed";
    EXPECT_EQ(find("0 > (Select sum(A.AX) From Shape A, Shape B)"), 0);
    EXPECT_EQ(TakeQuietError(), 3360);
}

TEST_F(EngineTest, WholeTablesAreSortedAndSearched) {
    if (!HasStockProgram())
        GTEST_SKIP() << "the sqlcipher program, which adds the rows, is missing";
    constexpr int Million = 1'000'000;
    const std::string path = m_folder.File("large.db3");
    CreateCatalogue(path);
    FillCatalogue(m_folder, path, Million);
    DatabaseHandle db;
    ASSERT_EQ(Open(db, path), 1);
    Rows rows(db, "Select Name, max(AX) From Shape GROUP BY UPPER(Name) ORDER BY AX, Name", 4);
    rows->MoveLast();
    EXPECT_EQ(rows->GetRecordCount(), Million);
    EXPECT_EQ(setRecordsetTo(rows.Address(), "Name LIKE '%none%'", 0x80000000L), 0);
    EXPECT_EQ(TakeQuietError(), 0);
}

/// Run by the test below in a process of its own, where the plain engine was loaded first.
TEST_F(EngineTest, DISABLED_OpenWithPlainEngine) {
    const char* path = std::getenv("TEST_PROTECTED_FILE");
    ASSERT_NE(path, nullptr);
    DatabaseHandle db;
    EXPECT_EQ(Open(db, path, Secret), -1);
    ASSERT_EQ(shownBoxes.size(), 1U);
    EXPECT_EQ(shownBoxes[0],
              (Box{"Failed to open database.\n\nERROR:CDaoException\n\nSCODE_CODE =16389\n"
                   "SCODE_FACILITY =0\nSCODE_SEVERITY =1\nResultFromScode =-2147467259\n",
                   "CDaoException occurred - openDatabase()"}));
    EXPECT_EQ(SectionLibraryState::GetExceptionType(), 4);
    EXPECT_EQ(createDatabase(db.Address(), m_folder.File("x").c_str(), Secret, 0, nullptr), -1);
    EXPECT_EQ(m_folder.Count(), 0);
    CreateCatalogue(m_folder.File("plain"));
    EXPECT_EQ(Open(db, m_folder.File("plain")), 1) << "plain files work";
}

TEST_F(EngineTest, EngineWithoutEncryptionIsToldAndNothingElseHappens) {
    if (!HasSystemsEngine)
        GTEST_SKIP() << "no other engine takes the place of the one within";
    constexpr const char* PlainEngine = "libsqlite3.so.0";
    void* engine = ::dlopen(PlainEngine, RTLD_LAZY | RTLD_LOCAL);
    if (engine == nullptr)
        GTEST_SKIP() << PlainEngine << " is not installed";
    ::dlclose(engine);
    const std::string path = m_folder.File("protected.db3");
    CreateCatalogue(path, 3, Secret);
    const std::string before = ReadFile(path);
    EXPECT_TRUE(IsTrueInChild([&] {
        ::setenv("LD_PRELOAD", PlainEngine, 1);
        ::setenv("TEST_PROTECTED_FILE", path.c_str(), 1);
        ::setenv("ASAN_OPTIONS", "verify_asan_link_order=0", 1);
        ::execl("/proc/self/exe", "test", "--gtest_also_run_disabled_tests",
                "--gtest_filter=*DISABLED_OpenWithPlainEngine", nullptr);
        return false;
    }));
    EXPECT_TRUE(ReadFile(path) == before);
}

} // namespace
