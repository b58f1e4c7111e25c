// Writing rows: never another row than the one that was read, and all of a change or nothing.
#include "DataAccessSupport.h"

#include "dataaccess/CCrack.h"

#include <functional>

using namespace testsupport;

namespace {

class WriteTest : public DataAccessTest {
protected:
    WriteTest() {
        CreateCatalogue(m_path);
        EXPECT_EQ(Open(m_db, m_path), 1);
    }

    /// Changes the file through another connection.
    void Elsewhere(const std::function<void(DatabaseHandle&)>& change) {
        DatabaseHandle other;
        ASSERT_EQ(Open(other, m_path), 1);
        change(other);
    }

    /// The values of all rows, as another connection sees them.
    CString Content(const char* table = "Shape") {
        DatabaseHandle other;
        EXPECT_EQ(Open(other, m_path, "", 1), 1);
        Rows rows(other, (std::string("Select * From ") + table).c_str(), 4);
        CString content;
        for (; !rows->IsEOF(); rows->MoveNext())
            for (int column = 0; column < rows->GetFieldCount(); ++column)
                content += CCrack::strVARIANT(rows->GetFieldValue(column));
        return content;
    }

    std::string m_path = m_folder.File("shapes.db3");
    DatabaseHandle m_db;
};

void DeleteNamed(DatabaseHandle& db, const char* name) {
    Rows rows(db, "Shape", 1);
    EXPECT_EQ(deleteRecord(rows.Address(), (std::string("Name = '") + name + "'").c_str()), 1);
}

TEST_F(WriteTest, ARowThatIsNoLongerWhatWasReadIsLeftAlone) {
    const auto change = [](int column, const char* text) {
        return [=](DatabaseHandle& db) {
            Rows rows(db, "Select * From Shape WHERE RECNO = 2");
            SetValue(*rows, column, text);
        };
    };
    const auto reuse = [](DatabaseHandle& db) {
        DeleteNamed(db, "B");
        Rows rows(db, "Shape", 1);
        rows->AddNew();
        rows->SetFieldValue(0, COleVariant(2));
        rows->SetFieldValue(1, "B");
        rows->Update();
    };
    const struct {
        const char* what;
        std::function<void(DatabaseHandle&)> meanwhile;
        int number;
    } cases[] = {
        {"nothing", [](DatabaseHandle&) {}, 0},
        {"another row", [](DatabaseHandle& db) { DeleteNamed(db, "C"); }, 0},
        {"the row is gone", [](DatabaseHandle& db) { DeleteNamed(db, "B"); }, 3021},
        {"its number is another row's", reuse, 3197},
        {"a name changed", change(1, "BB"), 3197},
        {"the case of a name changed", change(1, "b"), 3197},
        {"a value changed", change(3, "22"), 3197},
        {"a value to null",
         [](DatabaseHandle& db) {
             Rows rows(db, "Select * From Shape WHERE RECNO = 2");
             SetValue(*rows, 3, COleVariant::Null());
         },
         3197},
    };
    const std::string fresh = m_folder.File("fresh.db3");
    std::filesystem::copy_file(m_path, fresh);
    for (const char* sql : {"Shape", "Select Name From Shape ORDER BY Name"})
        for (const auto& c : cases)
            for (const bool isDeletion : {false, true}) {
                SCOPED_TRACE(std::string(sql) + ": " + c.what);
                closeDatabase(m_db.Address(), 1);
                std::filesystem::remove(m_path);
                std::filesystem::copy_file(fresh, m_path);
                ASSERT_EQ(Open(m_db, m_path), 1);
                Rows rows(m_db, sql);
                rows->SetAbsolutePosition(1);
                Elsewhere(c.meanwhile);
                const CString before = Content();
                const int column = rows->GetFieldCount() == 1 ? 0 : 1;
                EXPECT_EQ(
                    ErrorOf([&] { isDeletion ? rows->Delete() : SetValue(*rows, column, "new"); }),
                    c.number);
                EXPECT_EQ(Content() != before, c.number == 0);
                rows->Requery();
                EXPECT_EQ(ErrorOf([&] { SetValue(*rows, column, "queried again"); }), 0);
            }
}

TEST_F(WriteTest, DeletingAColumnKeepsTheRowsNumbers) {
    TableDefHandle table;
    ASSERT_EQ(createNewTableDef(m_db.Get(), table.Address(), "Loose"), 1);
    for (const char* column : {"Name", "Extra"})
        ASSERT_EQ(AddField(table.Get(), column, SectionField::Text), 1);
    ASSERT_EQ(appendTableDef(m_db.Get(), table.Get()), 1);
    Rows rows(m_db, "Select Name From Loose");
    for (const char* name : {"A", "B", "C"}) {
        rows->AddNew();
        rows->SetFieldValue(0, name);
        rows->Update();
    }
    rows->Requery();
    ASSERT_EQ(deleteRecord(rows.Address(), "Name = 'A'"), 1);
    Rows onB(m_db, "Select Name From Loose");
    EXPECT_EQ(TextAt(onB, 0), "B");
    ASSERT_EQ(deleteField(table.Get(), "Extra"), 1);
    EXPECT_NE(ErrorOf([&] { onB->Delete(); }), 0) << "it was read when there was another column";
    EXPECT_EQ(Content("Loose"), "BC");
    const Rows numbers(m_db, "Select rowid From Loose ORDER BY rowid");
    EXPECT_EQ(dbsection::AsNumber(numbers->GetFieldValue(0)), 2);
    onB->Requery();
    onB->Delete();
    EXPECT_EQ(Content("Loose"), "C");
}

TEST_F(WriteTest, ColumnsOfOtherProgramsDoNotMisleadIt) {
    for (const char* name : {"rowid", "OID", "_RowId_"}) {
        TableDefHandle table;
        ASSERT_EQ(createNewTableDef(m_db.Get(), table.Address(), "T"), 1);
        EXPECT_EQ(AddField(table.Get(), name, SectionField::Text), 0);
        EXPECT_EQ(TakeQuietError(), 3125);
    }
    if (!HasStockProgram())
        GTEST_SKIP() << "the sqlcipher program, which makes such tables, is missing";
    RunStockProgram(m_folder, m_path,
                    "CREATE TABLE One(_rowid_ TEXT, Name TEXT);"
                    "INSERT INTO One VALUES('x', 'A'), ('x', 'B'), ('x', 'C');"
                    "CREATE TABLE Key(Name TEXT, rowid INTEGER PRIMARY KEY);"
                    "INSERT INTO Key VALUES('A', 1), ('B', 2);"
                    "CREATE TABLE Every(rowid TEXT, oid TEXT, _rowid_ TEXT, Name TEXT);"
                    "INSERT INTO Every VALUES('x', 'x', 'x', 'A');"
                    "CREATE TABLE None(Name TEXT PRIMARY KEY) WITHOUT ROWID;"
                    "INSERT INTO None VALUES('A');"
                    "CREATE TABLE AnyCase(Name TEXT COLLATE NOCASE);"
                    "INSERT INTO AnyCase VALUES('a');");
    Rows one(m_db, "One", 1);
    one->MoveNext();
    one->Delete();
    EXPECT_EQ(Content("One"), "xAxC");
    Rows key(m_db, "Key", 1);
    SetValue(*key, 1, COleVariant(9));
    EXPECT_EQ(TextAt(key, 0), "A");
    EXPECT_EQ(key->GetFieldValue(1).lVal, 9);
    Rows anyCase(m_db, "Select * From AnyCase WHERE Name = 'A'");
    Elsewhere([](DatabaseHandle& db) { SetValue(*Rows(db, "AnyCase", 1), 0, "A"); });
    EXPECT_EQ(ErrorOf([&] { anyCase->Delete(); }), 3197) << "whatever the column takes for equal";
    for (const char* table : {"Every", "None"}) {
        Rows rows(m_db, table, 1);
        EXPECT_EQ(ErrorOf([&] { rows->Delete(); }), 3027) << table;
    }
}

TEST_F(WriteTest, RowsOfATableToBeEditedAreReadWhenTheyAreAskedFor) {
    Rows rows(m_db, "Shape", 1);
    AddShape(*rows, "F", "F", 6);
    Elsewhere([](DatabaseHandle& db) { AddShape(*Rows(db, "Shape", 1), "G", "G", 7); });
    rows->AddNew(); // before all others
    rows->SetFieldValue(0, COleVariant(-1));
    rows->SetFieldValue(1, "Z");
    rows->Update();
    EXPECT_EQ(TextAt(rows, 1), "A") << "the row that was the first is current still";
    EXPECT_EQ(rows->GetAbsolutePosition(), 1);
    EXPECT_EQ(getRecordCount(rows.Address()), 8);
    rows->AddNew();
    rows->SetFieldValue(1, "H");
    EXPECT_FALSE(rows->IsEOF());
    rows->Update();
    rows->MoveLast();
    EXPECT_EQ(TextAt(rows, 1), "H");
    ASSERT_EQ(deleteTable(m_db.Get(), "Shape"), 1);
    RecordsetHandle none;
    EXPECT_EQ(Query(m_db, none, "Select * From Shape", 2), -1)
        << "what cannot be read is not opened";
}

TEST_F(WriteTest, AValueTooLongForTheFileIsRefused) {
    Rows rows(m_db, "Shape", 1);
    const CString before = Content();
    constexpr std::size_t Length = 17'000'000;
    std::string text;
    text.resize(Length, 'x');
    const CString tooLong(text);
    EXPECT_EQ(ErrorOf([&] { SetValue(*rows, 2, tooLong); }), 3421);
    rows->AddNew();
    rows->SetFieldValue(1, "New");
    rows->SetFieldValue(2, tooLong);
    EXPECT_EQ(ErrorOf([&] { rows->Update(); }), 3421);
    EXPECT_EQ(Content(), before) << "nor is it stored as no value";
}

TEST_F(WriteTest, AllRowsGoAtOnceOrNone) {
    constexpr int Count = 400;
    constexpr int Rounds = 12;
    const std::string whole = m_folder.File("whole.db3");
    CreateCatalogue(whole, 0);
    {
        DatabaseHandle db;
        CSectionWorkspace workspace;
        ASSERT_EQ(openDatabase(db.Address(), whole.c_str(), 1, 0, 0, "", &workspace), 1);
        Rows rows(db, "Shape", 1);
        workspace.BeginTrans();
        for (int i = 0; i < Count; ++i)
            AddShape(*rows, "N", "N", i);
        workspace.CommitTrans();
    }
    int finished = 0;
    for (int round = 0; round < Rounds; ++round) {
        std::filesystem::copy_file(whole, m_path,
                                   std::filesystem::copy_options::overwrite_existing);
        std::filesystem::remove(m_path + "-journal");
        int ready[2];
        ASSERT_EQ(::pipe(ready), 0);
        const pid_t child = StartChild([&] {
            DatabaseHandle db;
            RecordsetHandle rows;
            const int opened = Open(db, m_path) + Query(db, rows, "Shape", 1);
            static_cast<void>(::write(ready[1], "x", 1) == 1);
            return opened == 2 && deleteAllRecords(rows.Address()) == Count ? 0 : 1;
        });
        char answer = 0;
        ASSERT_EQ(::read(ready[0], &answer, 1), 1);
        ::usleep(static_cast<useconds_t>(round * 1000));
        ::kill(child, SIGKILL);
        finished += WaitForChild(child) == 0 ? 1 : 0;
        ::close(ready[0]);
        ::close(ready[1]);
        DatabaseHandle db;
        ASSERT_EQ(Open(db, m_path), 1);
        Rows rows(db, "Shape", 4);
        const int left = getRecordCount(rows.Address());
        EXPECT_TRUE(left == 0 || left == Count) << left << " rows are left";
    }
    RecordProperty("finished before the kill", finished);
}

} // namespace
