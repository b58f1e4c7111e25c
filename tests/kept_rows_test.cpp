// Rows that are kept in memory: what they answer is what the engine answers, whatever happens.
#include "DataAccessSupport.h"

#include <array>
#include <cstdio>
#include <functional>
#include <memory>
#include <random>
#include <sqlcipher/sqlite3.h>
#include <tuple>

using namespace testsupport;

namespace {

std::string Number(double value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.17g", value);
    return text.data();
}

/// The database engine itself.
class Engine {
public:
    explicit Engine(const std::string& path) { EXPECT_EQ(sqlite3_open(path.c_str(), &m_file), 0); }
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;
    ~Engine() { sqlite3_close(m_file); }

    void Run(const std::string& sql) const {
        EXPECT_EQ(sqlite3_exec(m_file, sql.c_str(), nullptr, nullptr, nullptr), 0) << sql;
    }

    /// The values of all rows in their order.
    std::vector<std::string> Ask(const std::string& sql) const {
        sqlite3_stmt* rows = nullptr;
        EXPECT_EQ(sqlite3_prepare_v2(m_file, sql.c_str(), -1, &rows, nullptr), 0) << sql;
        std::vector<std::string> values;
        while (sqlite3_step(rows) == SQLITE_ROW)
            for (int column = 0; column < sqlite3_column_count(rows); ++column)
                values.push_back(Value(rows, column));
        sqlite3_finalize(rows);
        return values;
    }

private:
    static std::string Value(sqlite3_stmt* row, int column) {
        const auto bytes = [&] {
            const auto* begin = static_cast<const char*>(sqlite3_column_blob(row, column));
            const auto size = static_cast<std::size_t>(sqlite3_column_bytes(row, column));
            return std::string(begin == nullptr ? "" : begin, size);
        };
        switch (sqlite3_column_type(row, column)) {
        case SQLITE_NULL:
            return "null";
        case SQLITE_TEXT:
            return "text " + bytes();
        case SQLITE_BLOB:
            return "bytes " + bytes();
        default:
            return "number " + Number(sqlite3_column_double(row, column));
        }
    }

    sqlite3* m_file = nullptr;
};

std::string ValueOf(const COleVariant& value) {
    switch (value.vt) {
    case VT_NULL:
        return "null";
    case VT_BSTR:
        return "text " + std::string(value.strVal.View());
    case VT_ARRAY | VT_UI1:
        return "bytes " + std::string(value.strVal.View());
    case VT_I4:
        return "number " + Number(value.lVal);
    default:
        return "number " + Number(value.dblVal);
    }
}

bool IsKept(CSectionRecordset& rows) {
    const auto stamp = rows.GetDataStamp();
    return stamp && stamp->connection < 0;
}

class KeptRowsTest : public DataAccessTest {
protected:
    ~KeptRowsTest() override {
        SetKeptRowsLimit(std::size_t{32} << 20);
        terminateDAOEngine();
    }

    std::vector<std::string> Ask(DatabaseHandle& db, const std::string& sql, int type = 4) {
        RecordsetHandle rows;
        std::vector<std::string> values;
        EXPECT_EQ(Query(db, rows, sql.c_str(), type), 1) << sql;
        if (rows.Get() == nullptr)
            return values;
        m_wasKept = IsKept(*rows);
        m_keptAnswers += m_wasKept ? 1 : 0;
        for (; !rows->IsEOF(); rows->MoveNext())
            for (int column = 0; column < rows->GetFieldCount(); ++column)
                values.push_back(ValueOf(rows->GetFieldValue(column)));
        return values;
    }

    /// Asks until the answer comes from memory; fails where it never does.
    std::vector<std::string> AskUntilKept(DatabaseHandle& db, const std::string& sql) {
        LetSettle();
        m_wasKept = false;
        std::vector<std::string> values;
        for (int i = 0; i < 100 && !m_wasKept; ++i)
            values = Ask(db, sql);
        EXPECT_TRUE(m_wasKept) << sql;
        return values;
    }

    const std::string m_path = m_folder.File("file.db3");
    bool m_wasKept = false;
    int m_keptAnswers = 0;
};

/// Statements of the fixed forms, with texts and numbers that are there, nearly there, or not.
class Statements {
public:
    std::string Next() {
        switch (Pick(7)) {
        case 0:
            return All() + " WHERE UPPER([" + TextColumn() + "]) = UPPER('" + Text() + "')" +
                   Selection();
        case 1:
            return All() + " WHERE UPPER([" + TextColumn() + "]) = '" + Text() + "'" + Selection();
        case 2:
            return All() + " WHERE [" + Column() + "] = '" + Text() + "'" + Selection();
        case 3:
            return All() + " WHERE [" + Of({"RECNO", "AX", "Any"}) + "] =" + Integer() +
                   Selection();
        case 4:
            return All() + " WHERE [" + Column() + "] LIKE '" + Of({"W%", "w1_%", "%", "%Ä%", ""}) +
                   "'" + Selection() + Order();
        case 5:
            return All() + " WHERE [" + Column() + "] >= " + Integer() + ".5 AND [" + Column() +
                   "] <= " + Integer() + ".000000" + Order();
        default:
            return Of({"Select count(*) From [T]", "Select MAX(AX), MIN(AX), AVG(AX) From [T]",
                       "Select * From [T]", "Select * From [Pairs]",
                       "Select * From [Pairs] WHERE [RECNO] =3",
                       "Select * From [Pairs] WHERE [Name] = 'c' AND [RECNO] IN(3,4)"});
        }
    }

private:
    std::string Of(std::initializer_list<const char*> texts) {
        return texts.begin()[Pick(static_cast<int>(texts.size()))];
    }
    int Pick(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }

    std::string All() { return Of({"Select * From [T]", "SELECT * FROM [t]"}); }
    std::string TextColumn() { return Of({"VessaName", "Name", "vessaname", "Kind", "Any"}); }
    std::string Column() {
        return Of({"RECNO", "Name", "VessaName", "AX", "Kind", "Any", "Whole"});
    }
    std::string Integer() { return Of({"0", "-1", "1", "2", "3", "7", "12", "150", "300"}); }
    std::string Text() {
        return Of({"W1X1", "w1x1", "W7X2", "DOUBLE", "Double", "double", "\u00c4", "\u00e4", "",
                   " ", "W1X1 ", "12", "1.0", "W12X12", "nowhere", "null"});
    }
    std::string Selection() {
        return Of(
            {"", "", " AND [RECNO] IN(0)", " AND [RECNO] IN(1,2,150,7)", " AND [RECNO] IN(-1, 3)"});
    }
    std::string Order() {
        return Of({"", " ORDER BY [AX] ASC", " ORDER BY [AX] DESC",
                   " ORDER BY [Kind] ASC, [AX] DESC", " ORDER BY [Any] ASC,  [Name] ",
                   " ORDER BY [Name] DESC"});
    }

    std::mt19937 m_random{13};
};

TEST_F(KeptRowsTest, AnswersAreThoseOfTheEngine) {
    const Engine engine(m_path);
    engine.Run("CREATE TABLE T (RECNO INTEGER PRIMARY KEY, Name TEXT, VessaName VARCHAR(40), "
               "AX DOUBLE, Kind TEXT COLLATE NOCASE, Any, Whole INTEGER);"
               "CREATE INDEX ByUpper ON T (UPPER(VessaName)); CREATE INDEX ByName ON T (Name, AX);"
               "CREATE INDEX ByArea ON T (AX);"
               // An index of all columns, in whose order the rows come.
               "CREATE TABLE Pairs (RECNO INTEGER PRIMARY KEY, Name TEXT);"
               "CREATE INDEX ByPair ON Pairs (Name);"
               "INSERT INTO Pairs (Name) VALUES ('d'), ('a'), ('c'), ('c'), ('b'); BEGIN");
    for (int i = 1; i <= 200; ++i) {
        const std::string name = "'W" + std::to_string(i) + "X" + std::to_string(i % 3) + "'";
        const std::string odd[]{"NULL", "'double'", "'Double'", "'12'",    "x'5731', 12", "1e3",
                                "''",   "'\u00c4'", "'\u00e4'", "'it''s'", "'1.0'"};
        const std::string& other = odd[i % 11 == 4 ? 0 : i % 11];
        engine.Run("INSERT INTO T VALUES (" + std::to_string(i + i / 100) + ", " +
                   (i % 5 == 0 ? other : name) + ", " + (i % 7 == 0 ? other : name) + ", " +
                   (i % 13 == 0 ? "NULL" : std::to_string(i * 7 % 150) + ".5") + ", " +
                   (i % 2 == 0 ? "'w1x1'" : "'Kind'") + ", " + other + ", " +
                   (i % 17 == 0 ? "'many'" : std::to_string(i)) + ")");
    }
    engine.Run("INSERT INTO T (Name, Any) VALUES (x'4142', x'4142'); COMMIT");
    LetSettle();
    DatabaseHandle db;
    ASSERT_EQ(Open(db, m_path), 1);
    Statements statements;
    for (int i = 0; i < 3000; ++i) {
        const std::string sql = statements.Next();
        const auto expected = engine.Ask(sql);
        for (const int type : {4, 2, 4, 2})
            ASSERT_EQ(Ask(db, sql, type), expected) << sql << ", type " << type;
    }
    EXPECT_GT(m_keptAnswers, 2000) << "of the answers that have rows";
}

TEST_F(KeptRowsTest, ChangesOfOthersAreSeenByTheNextCall) {
    CreateCatalogue(m_path);
    DatabaseHandle db;
    ASSERT_EQ(Open(db, m_path), 1);
    for (const char* sql :
         {"Select * From [Shape]", "Select * From [Shape] WHERE UPPER([VessaName]) = UPPER('a')",
          "Select * From [Shape] ORDER BY [AX] ASC", "Select count(*) From [Shape]"}) {
        SCOPED_TRACE(sql);
        for (const char* change :
             {"UPDATE Shape SET AX = AX + 1", "INSERT INTO Shape (Name) VALUES ('Z')",
              "ALTER TABLE Shape ADD COLUMN [More] TEXT DEFAULT 'x'", "DELETE FROM Shape"}) {
            const auto before = AskUntilKept(db, sql);
            EXPECT_TRUE(IsTrueInChild([&] {
                const Engine engine(m_path);
                engine.Run("DELETE FROM Shape WHERE Name = 'Z'");
                engine.Run(change);
                return true;
            }));
            EXPECT_EQ(Ask(db, sql), Engine(m_path).Ask(sql)) << change;
        }
        db->Close();
        std::filesystem::remove(m_path);
        CreateCatalogue(m_path);
        ASSERT_EQ(Open(db, m_path), 1);
    }
}

TEST_F(KeptRowsTest, TransactionsSeeWhatTheyWroteAndOthersDoNot) {
    constexpr const char* Sql = "Select * From [Shape] WHERE UPPER([VessaName]) = UPPER('b')";
    constexpr const char* Row = "Select * From [Shape] WHERE [RECNO] =2";
    CreateCatalogue(m_path);
    CSectionWorkspace workspace;
    CSectionDatabase writer(&workspace);
    writer.Open(m_path.c_str());
    DatabaseHandle mine;
    DatabaseHandle others;
    ASSERT_EQ(Open(others, m_path), 1);
    ASSERT_EQ(Open(mine, m_path), 1);
    mine->ReferTo(writer);
    const std::vector<std::string> whole{"number 2", "text B", "text B", "number 2"};
    EXPECT_EQ(AskUntilKept(mine, Sql), whole);
    EXPECT_EQ(AskUntilKept(others, Row), whole);

    workspace.BeginTrans();
    {
        const Rows row(mine, Sql);
        SetValue(*row, 1, "changed");
        EXPECT_EQ(ValueOf(row->GetFieldValue(1)), "text changed");
        EXPECT_EQ(ValueOf(row->GetFieldValue(3)), "number 2");
    }
    const std::vector<std::string> changed{"number 2", "text changed", "text B", "number 2"};
    EXPECT_EQ(Ask(mine, Sql), changed);
    EXPECT_EQ(Ask(mine, Row), changed);
    EXPECT_EQ(Ask(others, Row), whole);
    workspace.Rollback();
    EXPECT_EQ(Ask(mine, Sql), whole);

    RecordsetHandle held;
    ASSERT_EQ(Query(others, held, Row), 1);
    workspace.BeginTrans();
    Rows(mine, Sql)->Delete();
    workspace.CommitTrans();
    EXPECT_EQ(Ask(mine, Row), std::vector<std::string>());
    EXPECT_EQ(Ask(others, Row), std::vector<std::string>());
    EXPECT_EQ(ValueOf(held->GetFieldValue(1)), "text B") << "until it is asked for again";
    held->Requery();
    EXPECT_TRUE(held->IsEOF());
}

TEST_F(KeptRowsTest, AChangedCopyLeavesTheKeptRowsAlone) {
    CreateCatalogue(m_path);
    DatabaseHandle db;
    ASSERT_EQ(Open(db, m_path), 1);
    AskUntilKept(db, "Select * From [Shape] ORDER BY [AX] DESC");
    Rows kept(db, "Select * From [Shape] ORDER BY [AX] DESC", 2);
    Rows other(db, "Select * From [Shape] ORDER BY [AX] DESC", 2);
    kept->MoveNext();
    SetValue(*kept, 1, "changed");
    AddShape(*kept, "F", "F", 9);
    kept->Delete();
    kept->MoveNext();
    EXPECT_EQ(TextAt(kept, 1), "C");
    other->MoveNext();
    EXPECT_EQ(TextAt(other, 1), "D");
    EXPECT_EQ(ErrorOf([&] { other->Delete(); }), 3021) << "it is gone";
    other->MoveNext();
    other->Delete();
    EXPECT_EQ(Engine(m_path).Ask("Select Name From Shape"),
              (std::vector<std::string>{"text A", "text B", "text E", "text F"}));
}

TEST_F(KeptRowsTest, WhatFollowsADeletionIsReadAgain) {
    CreateCatalogue(m_path);
    DatabaseHandle db;
    ASSERT_EQ(Open(db, m_path), 1);
    for (const auto& [sql, first, count] :
         {std::tuple("Select * From Shape", "text B", 4),
          {"Select * From Shape LIMIT 2", "text C", 2},
          {"Select * From Shape WHERE AX > (Select MIN(AX) From Shape)", "text E", 1}}) {
        SCOPED_TRACE(sql);
        Rows rows(db, sql);
        rows->Delete();
        rows->Requery();
        EXPECT_EQ(ValueOf(rows->GetFieldValue(1)), first);
        EXPECT_EQ(getRecordCount(rows.Address()), count);
    }
}

TEST_F(KeptRowsTest, TheirRoomIsBoundedAndGivenBack) {
    constexpr int Count = 58;
    constexpr const char* Sql = "Select * From [Shape]";
    const std::string second = m_folder.File("second.db3");
    CreateCatalogue(m_path, Count);
    CreateCatalogue(second, Count);
    DatabaseHandle db;
    DatabaseHandle other;
    ASSERT_EQ(Open(db, m_path) + Open(other, second), 2);
    AskUntilKept(db, Sql);
    const std::size_t one = GetKeptRowsSize();
    EXPECT_GT(one, std::size_t{Count} * 4 * sizeof(double));
    AskUntilKept(other, Sql);
    EXPECT_EQ(GetKeptRowsSize(), 2 * one);

    SetKeptRowsLimit(2 * one - 1);
    EXPECT_EQ(GetKeptRowsSize(), 0U);
    for (DatabaseHandle* used : {&db, &other, &db}) {
        AskUntilKept(*used, Sql);
        EXPECT_EQ(GetKeptRowsSize(), one) << "the file that was used last";
    }
    for (const std::size_t tooLittle : {one / 2, std::size_t{0}}) {
        SetKeptRowsLimit(tooLittle);
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(Ask(db, Sql).size(), Count * 4U);
            EXPECT_FALSE(m_wasKept);
        }
        EXPECT_EQ(GetKeptRowsSize(), 0U);
    }

    SetKeptRowsLimit(2 * one);
    AskUntilKept(other, Sql);
    Rows(other, Sql, 2)->Delete();
    EXPECT_EQ(GetKeptRowsSize(), 0U) << "what is written is forgotten";
    AskUntilKept(other, Sql);
    terminateDAOEngine();
    EXPECT_EQ(GetKeptRowsSize(), 0U);
    AskUntilKept(other, Sql);
}

TEST_F(KeptRowsTest, CountingALongTableReadsNone) {
    constexpr int Count = 3000;
    constexpr const char* Sql = "Select * From [Shape]";
    CreateCatalogue(m_path, 0);
    const Engine engine(m_path);
    engine.Run("WITH RECURSIVE N(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM N LIMIT 3000) "
               "INSERT INTO Shape SELECT i, 'N' || i, 'n' || i, i FROM N");
    LetSettle();
    DatabaseHandle db;
    ASSERT_EQ(Open(db, m_path), 1);
    for (const int type : {4, 2}) {
        SCOPED_TRACE(type);
        Rows rows(db, Sql, type);
        EXPECT_FALSE(rows->IsBOF() || rows->IsEOF());
        EXPECT_EQ(rows->GetRecordCount(), 1);
        if (type == 4) {
            EXPECT_EQ(getRecordCount(rows.Address()), Count);
            EXPECT_EQ(GetKeptRowsSize(), 0U) << "before any of them is asked for";
        }
        rows->MoveLast();
        EXPECT_EQ(rows->GetRecordCount(), Count);
        EXPECT_EQ(rows->GetAbsolutePosition(), Count - 1);
        EXPECT_EQ(TextAt(rows, 1), "N3000");
        rows->MoveNext();
        EXPECT_TRUE(rows->IsEOF());
        EXPECT_EQ(ErrorOf([&] { rows->MoveNext(); }), 3021);
    }
    RecordsetHandle before;
    ASSERT_EQ(Query(db, before, Sql, 4), 1);
    engine.Run("DELETE FROM Shape WHERE RECNO > 2000");
    RecordsetHandle after;
    ASSERT_EQ(Query(db, after, Sql, 4), 1);
    after->SetAbsolutePosition(1999);
    EXPECT_EQ(ErrorOf([&] { after->SetAbsolutePosition(2000); }), 3021);
    engine.Run("INSERT INTO Shape (Name) VALUES ('X')");
    EXPECT_EQ(getRecordCount(after.Address()), 2001) << "it is queried again";
    after->MoveLast();
    EXPECT_EQ(TextAt(after, 1), "X");
    EXPECT_EQ(getRecordCount(before.Address()), 2001);

    engine.Run("DELETE FROM Shape");
    RecordsetHandle none;
    ASSERT_EQ(Query(db, none, Sql, 4), 1);
    EXPECT_TRUE(none->IsEOF() && none->IsBOF());
    EXPECT_EQ(getRecordCount(none.Address()), 0);
    before->Requery();
    EXPECT_TRUE(before->IsEOF());
}

TEST_F(KeptRowsTest, TheCountOfALongTableIsThatOfItsFileAsItIs) {
    CreateCatalogue(m_path, 0);
    Engine(m_path).Run("WITH RECURSIVE N(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM N LIMIT 3000) "
                       "INSERT INTO Shape SELECT i, 'N' || i, 'n' || i, i FROM N");
    CSectionWorkspace workspace;
    CSectionDatabase writer(&workspace);
    writer.Open(m_path.c_str());
    DatabaseHandle mine;
    DatabaseHandle others;
    ASSERT_EQ(Open(others, m_path), 1);
    ASSERT_EQ(Open(mine, m_path), 1);
    mine->ReferTo(writer);
    const auto rowsAndColumns = [](DatabaseHandle& db) {
        Rows rows(db, "Select * From [Shape]", 4);
        return std::pair(getRecordCount(rows.Address()), rows->GetFieldCount());
    };
    const auto askUntilKept = [&](DatabaseHandle& db) {
        LetSettle();
        rowsAndColumns(db);
        return rowsAndColumns(db);
    };
    EXPECT_EQ(askUntilKept(others), std::pair(3000, 4));
    for (const auto& [change, rows, columns] :
         {std::tuple{"DELETE FROM Shape WHERE RECNO > 2000", 2000, 4},
          {"ALTER TABLE Shape ADD COLUMN [More] TEXT", 2000, 5}}) {
        EXPECT_EQ(RunInChild([&, sql = change] {
                      Engine(m_path).Run(sql);
                      return 0;
                  }),
                  0);
        EXPECT_EQ(rowsAndColumns(others), std::pair(rows, columns)) << change;
        EXPECT_EQ(askUntilKept(others), std::pair(rows, columns)) << change;
    }
    workspace.BeginTrans();
    Rows(mine, "Select * From [Shape] WHERE [RECNO] =2")->Delete();
    EXPECT_EQ(rowsAndColumns(mine), std::pair(1999, 5));
    EXPECT_EQ(rowsAndColumns(others), std::pair(2000, 5));
    workspace.Rollback();
    EXPECT_EQ(rowsAndColumns(mine), std::pair(2000, 5));
}

TEST_F(KeptRowsTest, NothingIsKeptWhereALookAtTheFileDoesNotTell) {
    CreateCatalogue(m_path);
    const auto isKept = [&](DatabaseHandle& db, const char* sql) {
        LetSettle();
        for (int i = 0; i < 3; ++i)
            Ask(db, sql);
        return m_wasKept;
    };
    constexpr const char* Sql = "Select * From [Shape]";
    {
        DatabaseHandle db;
        ASSERT_EQ(Open(db, m_path), 1);
        EXPECT_TRUE(isKept(db, Sql));
        EXPECT_TRUE(isKept(db, "Select upper(Name), Name From [Shape]"));
        EXPECT_FALSE(isKept(db, "Select date('now'), Name From [Shape]")) << "others tomorrow";
        std::filesystem::copy_file(m_path, m_folder.File("moved.db3"));
        std::filesystem::rename(m_folder.File("moved.db3"), m_path);
        EXPECT_FALSE(isKept(db, Sql)) << "the open file is another one";
    }
    DatabaseHandle db;
    ASSERT_EQ(Open(db, m_path), 1);
    EXPECT_TRUE(isKept(db, Sql));
    const Engine engine(m_path);
    engine.Run("PRAGMA journal_mode = WAL");
    EXPECT_FALSE(isKept(db, Sql)) << "changes go to another file";
    engine.Run("DELETE FROM Shape WHERE Name <> 'B'");
    EXPECT_EQ(Ask(db, "Select Name From [Shape]"), std::vector<std::string>{"text B"});
}

} // namespace
