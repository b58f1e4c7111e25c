// Statements and conditions of callers: what is understood, and what is refused.
#include "DataAccessSupport.h"

using namespace testsupport;

namespace {

constexpr long First = 0x80000000L;

class StatementTest : public DataAccessTest {
protected:
    StatementTest() {
        CreateCatalogue(m_path);
        EXPECT_EQ(Open(m_db, m_path), 1);
        CreateShapeTable(m_db.Get(), "Other");
        AddShape(*Rows(m_db, "Other", 1), "O", "O", 7);
    }

    /// A table of text columns with one row, in which each holds its own name.
    void CreateTextTable(const char* name, const std::vector<const char*>& columns) {
        TableDefHandle table;
        ASSERT_EQ(createNewTableDef(m_db.Get(), table.Address(), name), 1);
        for (const char* column : columns)
            ASSERT_EQ(AddField(table.Get(), column, SectionField::Text), 1);
        ASSERT_EQ(appendTableDef(m_db.Get(), table.Get()), 1);
        Rows rows(m_db, name, 1);
        rows->AddNew();
        for (int i = 0; i < static_cast<int>(columns.size()); ++i)
            rows->SetFieldValue(i, columns[static_cast<std::size_t>(i)]);
        rows->Update();
    }

    /// The error number of a statement, or 0.
    int Refusal(const std::string& sql, int type) {
        RecordsetHandle rows;
        if (Query(m_db, rows, sql.c_str(), type) == 1)
            return 0;
        EXPECT_EQ(rows.Get(), nullptr);
        return TakeQuietError();
    }

    std::string m_path = m_folder.File("shapes.db3");
    DatabaseHandle m_db;
};

/// A text repeated, with the number of the repetition behind it.
std::string Repeated(const char* text, int count, const char* separator) {
    std::string repeated;
    for (int i = 0; i < count; ++i)
        repeated += (i == 0 ? "" : separator) + (text + std::to_string(i)) + "'";
    return repeated;
}

TEST_F(StatementTest, LiteralsMayBeManyAndMayBeNames) {
    const std::pair<std::string, const char*> statements[] = {
        {"Select Name From Shape WHERE Name IN ('B', " + Repeated("'x", 1000, ", ") + ")", "B"},
        {"Select Name From Shape WHERE Name = 'C' OR " + Repeated("Name = 'x", 250, " OR "), "C"},
        {"Select Name From Shape WHERE Name = 'd' COLLATE 'NOCASE'", "D"},
        {"Select Name From Shape WHERE Name = 'E' UNION Select Name From 'Other'", "EO"},
        {"Select Name From Shape WHERE CAST(AX AS 'TEXT') = '2.0'", "B"},
        {"Select Name From Shape WHERE Name = '?9' OR Name = ':x' OR Name = 'A'", "A"},
        {R"(Select [Name] From `Shape` WHERE "Name" = 'C' -- "x" ?)", "C"},
    };
    for (const auto& [sql, names] : statements)
        for (const int type : {2, 4}) {
            Rows rows(m_db, sql.c_str(), type);
            std::string found;
            for (; !rows->IsEOF(); rows->MoveNext())
                found += TextAt(rows, 0);
            EXPECT_EQ(found, names) << sql;
        }
    Rows rows(m_db, "Shape", 4);
    const std::string condition = "Name = 'D' OR " + Repeated("Name = 'x", 250, " OR ");
    EXPECT_EQ(setRecordsetTo(rows.Address(), condition.c_str(), First), 1);
    EXPECT_EQ(TextAt(rows, 1), "D");
}

TEST_F(StatementTest, WhatIsNotOneConditionIsRefused) {
    Rows rows(m_db, "Shape", 4);
    rows->SetAbsolutePosition(3);
    for (const char* condition :
         {"?2 = 'A'", "Name = ?", "Name = :x", "Name = @x", "Name = $x", "1=1) /*", "1=1 /*",
          "1) UNION SELECT (1", "1) GROUP BY (1", "1=1) --", "(AX = 1", "AX = 1; --", "Name = 'A",
          "[Name = 'A'", "AX = 1 ORDER BY 1"}) {
        EXPECT_EQ(setRecordsetTo(rows.Address(), condition, First), 0) << condition;
        EXPECT_EQ(TakeQuietError(), 3075) << condition;
        EXPECT_EQ(rows->GetAbsolutePosition(), 3);
    }
    for (const char* statement : {"Select Name From Shape WHERE Name = ?1", "Select :a From Shape",
                                  "Select @a", "Select $a", "Select Name From Shape LIMIT ?"})
        EXPECT_EQ(Refusal(statement, 2), 3075) << statement;
}

TEST_F(StatementTest, AnUnknownNameIsNeverAText) {
    CreateTextTable("WithId", {"ID", "Text"});
    CreateTextTable("Plain", {"Title", "Text"});
    const struct {
        const char* sql;
        int number;
        const char* first;
    } statements[] = {
        {"Select \"Nothing\" From Shape", 3061, ""},
        {"Select Name From Shape WHERE Name = \"B\"", 3061, ""},
        {"Select Name From Shape ORDER BY \"nothing\"", 3061, ""},
        {"Select count(*) From Shape GROUP BY \"nothing\"", 3061, ""},
        {R"(Select "VessaName" From "Shape" WHERE "AX" = 2)", 0, "B"},
        {R"(Select "ID" From Shape WHERE "ID" = 2)", 0, ""},
        {"Select [ID] From [Plain]", 3061, ""},
        {"Select * From [Plain] WHERE [RECNO] IN(1)", 3061, ""},
        {"Select * From [Plain] ORDER BY [RECNO] ASC", 3061, ""},
        {"Select [RECNO] From [WithId]", 0, "ID"},
        {"Select [Text] From [WithId] WHERE RECNO = 'ID'", 0, "Text"},
    };
    for (const auto& [sql, number, first] : statements)
        for (const int type : {2, 4}) {
            ASSERT_EQ(Refusal(sql, type), number) << sql;
            if (number == 0) {
                EXPECT_EQ(TextAt(Rows(m_db, sql, type), 0), first) << sql;
            }
        }
    const struct {
        const char* table;
        const char* condition;
        int found;
        int number;
    } conditions[] = {
        {"Plain", "ID = 'ID'", 0, 3070},         {"Plain", "\"Nothing\" = 'Nothing'", 0, 3070},
        {"Plain", "[RECNO] = 'RECNO'", 0, 3070}, {"Plain", R"("Title" = "Text")", 0, 0},
        {"WithId", "RECNO = 'ID'", 1, 0},
    };
    for (const auto& c : conditions) {
        Rows rows(m_db, c.table, 4);
        EXPECT_EQ(setRecordsetTo(rows.Address(), c.condition, First), c.found) << c.condition;
        EXPECT_EQ(TakeQuietError(), c.number) << c.condition;
    }
}

TEST_F(StatementTest, ViewsAndVirtualTablesAreNotRun) {
    if (!HasStockProgram())
        GTEST_SKIP() << "the sqlcipher program, which makes the views, is missing";
    Rows kept(m_db, "Select Name From Other");
    Rows editable(m_db, "Select Name, AX From Other WHERE AX > 0");
    RunStockProgram(m_folder, m_path,
                    "CREATE VIEW Fixed AS SELECT 1 AS RECNO, 'x' AS Name;"
                    "CREATE VIEW Large AS SELECT a.Name FROM Shape a, Shape b, Shape c, Shape d;"
                    "CREATE VIRTUAL TABLE Words USING fts3(word);"
                    "DROP TABLE Other; CREATE VIEW Other AS SELECT 'new' AS Name, 1.0 AS AX;");
    for (const std::string sql :
         {"Select * From Fixed", "Select 1 From \"fixed\"", "Select * From 'Fixed'",
          "Select * From main.[Fixed]", "Select * From Shape, Fixed", "Select * From Large",
          "Select Name From Shape WHERE Name IN Fixed",
          "Select Name From Shape WHERE RECNO IN (Select RECNO From Fixed)",
          "Select Name From Shape WHERE AX = 1 UNION Select Name From 'Fixed'",
          "Select count(*) From (Select 1 From Fixed)", "Select * From Words", "Fixed", "Words"})
        for (const int type : {1, 2, 4})
            EXPECT_EQ(Refusal(sql, type), 3075) << sql;
    EXPECT_EQ(TextAt(Rows(m_db, "Select Name From Shape WHERE Name <> 'Fixed'"), 0), "A")
        << "a text, no name";
    // Nor where the statement was made ready when there was a table of that name.
    EXPECT_EQ(ErrorOf([&] { kept->Requery(); }), 3075);
    EXPECT_EQ(ErrorOf([&] { editable->Requery(); }), 3075);
    EXPECT_EQ(TextAt(editable, 0), "O") << "the rows that were read stay";
}

TEST_F(StatementTest, ChangedTablesAreReadAsTheyAreNow) {
    Rows all(m_db, "Select * From Shape");
    Rows names(m_db, "Select Name From Shape");
    EXPECT_EQ(getRecordCount(all.Address()) + getRecordCount(names.Address()), 10);
    DatabaseHandle other;
    TableDefHandle table;
    ASSERT_EQ(Open(other, m_path), 1);
    ASSERT_EQ(openTableDef(other.Get(), table.Address(), "Shape"), 1);
    ASSERT_EQ(AddField(table.Get(), "Grade", SectionField::Text), 1);
    all->Requery();
    EXPECT_EQ(getFieldCount(all.Address()), 5);
    ASSERT_EQ(deleteField(table.Get(), "VessaName"), 1);
    all->Requery();
    names->Requery();
    EXPECT_EQ(getFieldCount(all.Address()), 4);
    EXPECT_EQ(TextAt(names, 0), "A");
    SetValue(*names, 0, "AA");
    EXPECT_EQ(TextAt(Rows(other, "Select Name From Shape WHERE AX = 1"), 0), "AA");
}

} // namespace
