// Recordsets, seen through the data-access functions.
#include "DataAccessSupport.h"

#include <functional>

using namespace testsupport;

namespace {

constexpr long First = 0x80000000L;
constexpr long Last = 0x7FFFFFFFL;
constexpr long Next = 1;
constexpr long Previous = -1;

class RecordsetTest : public DataAccessTest {
protected:
    RecordsetTest() {
        CreateCatalogue(m_path);
        EXPECT_EQ(Open(m_db, m_path), 1);
    }

    /// The names of all rows of the table, as another connection sees them.
    std::string NamesInFile() {
        DatabaseHandle db;
        RecordsetHandle rows;
        EXPECT_EQ(Open(db, m_path, "", 1), 1);
        EXPECT_EQ(Query(db, rows, "Select Name From Shape"), 1);
        std::string names;
        for (; !rows->IsEOF(); rows->MoveNext())
            names += TextAt(rows, 0);
        return names;
    }

    std::string m_path = m_folder.File("shapes.db3");
    DatabaseHandle m_db;
};

TEST_F(RecordsetTest, MovesThroughTheRowsOfEveryType) {
    for (const int type : {1, 2, 4}) {
        SCOPED_TRACE(type);
        Rows rows(m_db, "Select * From [Shape]", type);
        EXPECT_EQ(rows->GetAbsolutePosition(), 0);
        EXPECT_EQ(rows->GetRecordCount(), 1); // visited so far
        EXPECT_EQ(setRecordsetToNext(rows.Address()), 1);
        EXPECT_EQ(getRecordCount(rows.Address()), 5);
        EXPECT_EQ(rows->GetAbsolutePosition(), 1);
        EXPECT_EQ(setRecordsetToLast(rows.Address()), 1);
        EXPECT_EQ(TextAt(rows, 1), "E");
        EXPECT_EQ(setRecordsetToNext(rows.Address()), 1); // past the end: no row, no failure
        EXPECT_TRUE(rows->IsEOF());
        EXPECT_EQ(rows->GetAbsolutePosition(), -1);
        EXPECT_EQ(getRecordCount(rows.Address()), 0);
        EXPECT_EQ(setRecordsetToNext(rows.Address()), 0); // and on from there: 3021
        EXPECT_EQ(ErrorOf([&] { rows->MoveNext(); }), 3021);
        EXPECT_EQ(ErrorOf([&] { rows->GetFieldValue(1); }), 3021);
        EXPECT_EQ(setRecordsetToPrevious(rows.Address()), 1);
        EXPECT_EQ(TextAt(rows, 1), "E");
        EXPECT_EQ(setRecordsetToFirst(rows.Address()), 1);
        EXPECT_EQ(setRecordsetToPrevious(rows.Address()), 1);
        EXPECT_TRUE(rows->IsBOF());
        EXPECT_EQ(setRecordsetToPrevious(rows.Address()), 0);
        EXPECT_EQ(setRecordsetToNext(rows.Address()), 1);
        EXPECT_EQ(TextAt(rows, 1), "A");
        EXPECT_EQ(ErrorOf([&] { rows->SetAbsolutePosition(5); }), 3021);
        EXPECT_EQ(getFieldCount(rows.Address()), 4);
    }
    EXPECT_EQ(SectionLibraryState::GetExceptionType(), 0) << "3021 is kept quiet";
    EXPECT_TRUE(shownBoxes.empty());
}

TEST_F(RecordsetTest, EmptyRecordsetHasNoCurrentRow) {
    Rows rows(m_db, "Select * From Shape WHERE AX > 99");
    EXPECT_TRUE(rows->IsBOF() && rows->IsEOF());
    EXPECT_EQ(getRecordCount(rows.Address()), 0);
    EXPECT_EQ(setRecordsetToFirst(rows.Address()), 0);
    EXPECT_EQ(setRecordsetTo(rows.Address(), "AX > 0", First), 0);
    EXPECT_EQ(IsExistentRecord(rows.Address(), "AX > 0"), 0);
    EXPECT_TRUE(shownBoxes.empty());
}

TEST_F(RecordsetTest, FindsInFourModesAndStaysWhereNothingIsFound) {
    struct Case {
        long start;
        long mode;
        const char* condition;
        int result;
        long position;
    };
    const Case cases[] = {
        {3, First, "AX >= 2", 1, 1},
        {1, Last, "AX <= 4", 1, 3},
        {1, Next, "AX > 1", 1, 2},
        {3, Previous, "AX < 9", 1, 2},
        {4, Next, "AX > 1", 0, 4},
        {0, Previous, "AX > 0", 0, 0},
        {2, First, "Name = 'Z'", 0, 2},
        {2, First, "", 0, 2},
        {2, -2147483647L - 1, "AX=1", 1, 0},
        {2, First, "UPPER([VessaName]) = 'D'", 1, 3},
        {0, First, "ID = 3", 1, 2},
        {0, First, "[RECNO] = 4 AND Name LIKE 'd%'", 1, 3},
        {0, First, "[Name]='B' OR (AX=5)", 1, 1},
        {0, First, "Name = 'B' -- or not", 1, 1},
    };
    for (const int type : {1, 2, 4})
        for (const Case& c : cases) {
            SCOPED_TRACE(std::string(c.condition) + " from " + std::to_string(c.start));
            Rows rows(m_db, "Select * From Shape", type);
            rows->SetAbsolutePosition(c.start);
            EXPECT_EQ(setRecordsetTo(rows.Address(), c.condition, c.mode), c.result);
            EXPECT_EQ(rows->GetAbsolutePosition(), c.position);
        }
    EXPECT_EQ(TakeQuietError(), 0);
}

TEST_F(RecordsetTest, FailedConditionsKeepTheRowAndTellTheirNumber) {
    Rows rows(m_db, "Select * From Shape");
    rows->SetAbsolutePosition(2);
    for (const auto& [condition, number] :
         std::vector<std::pair<const char*, int>>{{"Nonsense = 1", 3070},
                                                  {"AX = ", 3075},
                                                  {"AX > ?", 3075},
                                                  {"1); DELETE FROM Shape", 3075},
                                                  {"load_extension('x')", 3075}}) {
        SCOPED_TRACE(condition);
        EXPECT_EQ(setRecordsetTo(rows.Address(), condition, First), 0);
        EXPECT_EQ(TakeQuietError(), number);
        EXPECT_EQ(rows->GetAbsolutePosition(), 2);
        EXPECT_EQ(IsExistentRecord(rows.Address(), condition), 0);
        EXPECT_EQ(TakeQuietError(), number == 3070 ? 0 : number);
        EXPECT_EQ(rows->GetAbsolutePosition(), 2);
    }
    EXPECT_EQ(IsExistentRecord(rows.Address(), "AX = 1"), 1);
    EXPECT_EQ(rows->GetAbsolutePosition(), 2);
}

TEST_F(RecordsetTest, DeletedRowLeavesAGapUntilTheNextMove) {
    const struct {
        std::function<void(CSectionRecordset&)> leave;
        const char* name;
        long position;
    } moves[] = {
        {[](auto& rows) { rows.MoveNext(); }, "C", 1},
        {[](auto& rows) { rows.MovePrev(); }, "A", 0},
        {[](auto& rows) { rows.SetAbsolutePosition(2); }, "D", 2},
        {[](auto& rows) { rows.Find(First, "Name >= 'B'"); }, "C", 1},
        {[](auto& rows) { rows.Find(Next, "AX > 3"); }, "D", 2},
        {[](auto& rows) { rows.Find(Previous, "AX > 0"); }, "A", 0},
        {[](auto& rows) { rows.Requery(); }, "A", 0},
    };
    for (const auto& move : moves) {
        const std::string path = m_folder.File("gap.db3");
        std::filesystem::remove(path);
        CreateCatalogue(path);
        DatabaseHandle db;
        RecordsetHandle rows;
        ASSERT_EQ(Open(db, path), 1);
        ASSERT_EQ(Query(db, rows, "Shape", 1), 1);
        rows->MoveNext();
        rows->Delete();
        EXPECT_EQ(rows->GetAbsolutePosition(), -1);
        EXPECT_EQ(ErrorOf([&] { rows->GetFieldValue(1); }), 3021);
        EXPECT_EQ(ErrorOf([&] { rows->Delete(); }), 3021);
        EXPECT_EQ(rows->Find(First, "Name = 'B'"), 0) << "a deleted row is found no more";
        move.leave(*rows);
        EXPECT_EQ(TextAt(rows, 1), move.name);
        EXPECT_EQ(rows->GetAbsolutePosition(), move.position);
        EXPECT_EQ(getRecordCount(rows.Address()), 4);
    }
}

TEST_F(RecordsetTest, DeletesOneRecordAndThenAll) {
    Rows rows(m_db, "Shape", 1);
    EXPECT_EQ(deleteRecord(rows.Address(), "Name = 'B'"), 1);
    EXPECT_EQ(TextAt(rows, 1), "C") << "the next row is current";
    EXPECT_EQ(deleteRecord(rows.Address(), ""), 1);
    EXPECT_EQ(TextAt(rows, 1), "D");
    EXPECT_EQ(deleteRecord(rows.Address(), "RECNO = 5"), 1);
    EXPECT_EQ(TextAt(rows, 1), "D") << "behind the last row, the one before it";
    EXPECT_EQ(NamesInFile(), "AD");
    EXPECT_EQ(deleteRecord(rows.Address(), ""), 1);
    EXPECT_EQ(deleteRecord(rows.Address(), ""), 1);
    EXPECT_EQ(getRecordCount(rows.Address()), 0);
    for (const char* name : {"X", "Y", "Z"})
        AddShape(*rows, name, nullptr, 1);
    rows->Requery();
    rows->SetAbsolutePosition(1);
    EXPECT_EQ(deleteAllRecords(rows.Address()), 3);
    EXPECT_EQ(getRecordCount(rows.Address()), 0);
    EXPECT_EQ(NamesInFile(), "");
    EXPECT_TRUE(shownBoxes.empty());
    EXPECT_EQ(TakeQuietError(), 0);
}

TEST_F(RecordsetTest, EditsAreWrittenByUpdateAndDroppedByAMove) {
    Rows rows(m_db, "Select Name, AX, RECNO From Shape ORDER BY Name");
    EXPECT_EQ(ErrorOf([&] { rows->Update(); }), 3020);
    EXPECT_EQ(ErrorOf([&] { rows->SetFieldValue(0, "Q"); }), 3020);
    rows->Edit();
    rows->SetFieldValue(0, "lost");
    EXPECT_EQ(TextAt(rows, 0), "lost");
    rows->MoveNext();
    EXPECT_EQ(ErrorOf([&] { rows->Update(); }), 3020);
    SetValue(*rows, 0, "O'Brien \"2\" [x]; --");
    EXPECT_EQ(rows->GetAbsolutePosition(), 1);
    EXPECT_EQ(setRecordsetTo(rows.Address(), "Name = 'O''Brien \"2\" [x]; --'", First), 1);
    EXPECT_EQ(NamesInFile(), "AO'Brien \"2\" [x]; --CDE");
    rows->AddNew();
    EXPECT_EQ(rows->GetFieldValue(0).vt, VT_NULL);
    rows->SetFieldValue(0, "N");
    rows->Update();
    EXPECT_EQ(rows->GetAbsolutePosition(), 1) << "the current row stays";
    rows->MoveLast();
    EXPECT_EQ(TextAt(rows, 0), "N");
    EXPECT_EQ(rows->GetFieldValue(1).vt, VT_NULL);
    EXPECT_EQ(rows->GetFieldValue(2).lVal, 6) << "numbered by the engine";
    SetValue(*rows, 2, "77"); // the identifier itself
    EXPECT_EQ(rows->GetFieldValue(2).lVal, 77);
    rows->Delete();
    rows->MovePrev();
    EXPECT_EQ(TextAt(rows, 0), "E");
    rows->MoveNext();
    AddShape(*Rows(m_db, "Shape", 1), "behind", "", 1);
    EXPECT_TRUE(rows->IsEOF()) << "rows of others are seen after Requery only";
    EXPECT_EQ(getRecordCount(rows.Address()), 0);
    rows->Requery();
    EXPECT_EQ(getRecordCount(rows.Address()), 6);
}

TEST_F(RecordsetTest, RefusedEditsChangeNothing) {
    const std::string before = NamesInFile();
    Rows rows(m_db, "Shape", 1);
    const struct {
        int column;
        COleVariant value;
        int number;
    } refused[] = {
        {1, COleVariant::Null(), 3314},  {0, COleVariant(3), 3022},
        {3, COleVariant("12 in"), 3421}, {3, COleVariant::Bytes("x"), 3421},
        {0, COleVariant("1.5"), 3421},   {0, COleVariant(3e9), 3421},
        {7, COleVariant(1), 3265},
    };
    for (const auto& c : refused) {
        rows->Edit();
        EXPECT_EQ(ErrorOf([&] {
                      rows->SetFieldValue(c.column, c.value);
                      rows->Update();
                  }),
                  c.number);
        rows->MoveFirst();
    }
    rows->AddNew();
    EXPECT_EQ(ErrorOf([&] { rows->Update(); }), 3314) << "Name has no value";
    EXPECT_EQ(NamesInFile(), before);
}

TEST_F(RecordsetTest, OnlyRowsOfOneTableCanBeEdited) {
    CreateShapeTable(m_db.Get(), "Other");
    const std::pair<const char*, int> readOnly[] = {
        {"Select * From Shape", 4},
        {"Select A.Name From Shape AS A, Shape AS B", 2},
        {"Select A.Name, B.Name From Shape A JOIN Other B ON A.RECNO = B.RECNO", 2},
        {"Select A.Name From Shape A, (Select Name From Other) B", 2},
        {"Select Name From (Select Name From Shape)", 2},
        {"Select count(*) From Shape", 2},
        {"Select DISTINCT Name From Shape", 2},
        {"Select Name From Shape GROUP BY Name", 2},
        {"Select Name, AX + 1 From Shape", 2},
        {"Select Name From Shape UNION Select Name From Other", 2},
    };
    for (const auto& [sql, type] : readOnly) {
        Rows rows(m_db, sql, type);
        EXPECT_EQ(ErrorOf([&] { rows->Edit(); }), 3027) << sql;
        EXPECT_EQ(ErrorOf([&] { rows->AddNew(); }), 3027) << sql;
        EXPECT_EQ(ErrorOf([&] { rows->Delete(); }), 3027) << sql;
    }
    for (const char* sql : {"Select Name From Shape ORDER BY UPPER(Name) LIMIT 2",
                            "Select * From Shape WHERE RECNO IN (Select RECNO From Shape)"})
        EXPECT_EQ(ErrorOf([&] { Rows(m_db, sql)->Edit(); }), 0) << sql;
}

TEST_F(RecordsetTest, NamesAndRestrictionsOfStatements) {
    const struct {
        const char* sql;
        const char* firstName;
    } statements[] = {
        {"Select Name From Shape WHERE ID = 3", "C"},
        {"Select Name From Shape WHERE [Id] > 3 AND Shape.RECNO < 5", "D"},
        {"Select Name From Shape ORDER BY [ID] DESC", "E"},
        {"Select Name From Shape WHERE ", "A"},
        {"select name from SHAPE where VessaName = 'B' ; -- done", "B"},
        {"Select Name From Shape WHERE x'42' = CAST(Name AS BLOB)", "B"},
        {"Select Name From Shape WHERE Name IN ('c', 'D', 'it''s')", "D"},
    };
    for (const int type : {2, 4})
        for (const auto& [sql, name] : statements) {
            Rows rows(m_db, sql, type);
            EXPECT_EQ(TextAt(rows, 0), name) << sql;
        }
    const std::pair<const char*, int> failures[] = {
        {"Select Name From Shape WHERE Nonsense = 1", 3061},
        {"Select Name From Nowhere", 3078},
        {"Nowhere", 3075},
        {"", 3075},
        {"Select Name From Shape WHERE Name = 'open", 3075},
        {"Select Name From Shape WHERE AX = ?", 3075}};
    for (const auto& [sql, number] : failures) {
        RecordsetHandle rows;
        EXPECT_EQ(Query(m_db, rows, sql), -1) << sql;
        EXPECT_EQ(TakeQuietError(), number) << sql;
        EXPECT_EQ(rows.Get(), nullptr);
    }
}

TEST_F(RecordsetTest, ChangesOfOthersAreSeenAfterRequery) {
    DatabaseHandle other;
    ASSERT_EQ(Open(other, m_path), 1);
    Rows theirs(other, "Shape", 1);
    Rows ours(m_db, "Shape", 1);
    ours->SetAbsolutePosition(4);
    EXPECT_EQ(deleteRecord(theirs.Address(), "Name = 'E'"), 1);
    theirs->SetAbsolutePosition(0);
    SetValue(*theirs, 1, "new");
    EXPECT_EQ(TextAt(ours, 1), "E");
    EXPECT_EQ(ErrorOf([&] { ours->Delete(); }), 3021) << "it was deleted meanwhile";
    ours->Requery();
    EXPECT_EQ(TextAt(ours, 1), "new");
    EXPECT_EQ(getRecordCount(ours.Address()), 4);
    ASSERT_EQ(deleteTable(other.Get(), "Shape"), 1) << "open recordsets hold no lock";
    EXPECT_EQ(ErrorOf([&] { ours->Requery(); }), 3078);
    EXPECT_EQ(TextAt(ours, 1), "new") << "a failed query leaves the rows";
    EXPECT_EQ(IsExistentTable(m_db.Get(), "Shape"), 0);
    closeDatabase(m_db.Address(), 0);
    EXPECT_EQ(getFieldCount(ours.Address()), 0) << "closed with its database";
    EXPECT_EQ(ErrorOf([&] { ours->MoveFirst(); }), 3420);
}

TEST_F(RecordsetTest, WorkspaceWritesAllOrNothing) {
    CSectionWorkspace workspace;
    DatabaseHandle db;
    ASSERT_EQ(openDatabase(db.Address(), m_path.c_str(), 1, 0, 0, "", &workspace), 1);
    Rows rows(db, "Shape", 1);
    workspace.BeginTrans();
    EXPECT_NE(ErrorOf([&] { workspace.BeginTrans(); }), 0);
    EXPECT_EQ(deleteAllRecords(rows.Address()), 5);
    EXPECT_EQ(NamesInFile(), "ABCDE");
    workspace.Rollback();
    rows->Requery();
    EXPECT_EQ(getRecordCount(rows.Address()), 5);
    workspace.BeginTrans();
    EXPECT_EQ(deleteRecord(rows.Address(), "Name = 'A'"), 1);
    workspace.CommitTrans();
    EXPECT_EQ(NamesInFile(), "BCDE");
}

} // namespace
