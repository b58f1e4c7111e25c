// What the data-access functions tell: message boxes, exception kinds, labels and texts, also where
// memory runs out.
#include "DataAccessSupport.h"

#include "dataaccess/ExceptionHandlers.h"
#include "faults/Injector.h"

#include <functional>

using namespace testsupport;

namespace {

/// The host has memory of its own.
int RecordBoxWithMemory(const char* text, const char* caption, unsigned flags) {
    const faults::Unarmed unarmed;
    return RecordBox(text, caption, flags);
}

/// Runs `body` with its `at`-th allocation failing; false when it needed fewer.
template <class Body>
bool FailAllocation(long at, Body body) {
    faults::Expect({faults::Failure::Memory, at});
    faults::Under(body);
    return faults::Events() >= at;
}

class ReportTest : public DataAccessTest {
protected:
    ReportTest() {
        SetMessageBoxHandler(RecordBoxWithMemory);
        CreateCatalogue(m_path, 3, Password);
        EXPECT_EQ(Open(m_db, m_path, Password), 1);
        EXPECT_EQ(Query(m_db, m_rows, "Shape", 1), 1);
        EXPECT_EQ(openTableDef(m_db.Get(), m_table.Address(), "Shape"), 1);
        EXPECT_TRUE(shownBoxes.empty());
    }

    static constexpr const char* Password = ";PWD=se'cret";
    std::string m_path = m_folder.File("a file name beyond the small-text limit.db3");
    DatabaseHandle m_db;
    RecordsetHandle m_rows;
    TableDefHandle m_table;
};

TEST_F(ReportTest, MissingArgumentsShowABoxInEveryMode) {
    CSectionDatabase* db = nullptr;
    CSectionRecordset* none = nullptr;
    CSectionTableDef* table = nullptr;
    RecordsetHandle empty;
    ASSERT_EQ(Query(m_db, empty, "Select * From Shape WHERE AX < 0"), 1);
    CSectionFieldInfo name;
    name.m_strName = "NAME";
    CSectionDatabase* open = m_db.Get();
    CSectionRecordset** rows = m_rows.Address();
    const struct {
        std::function<int()> call;
        const char* text;
        const char* caption;
        int result = 0;
    } cases[] = {
        {[&] { return createDatabase(&db, "", "", 0, nullptr); },
         "Failed to create database. Filename not provided", "Error - createDatabase()"},
        {[&] { return openDatabase(&db, "", 1, 0, 0, "", nullptr); },
         "Failed to open database. Filename not provided", "Error - openDatabase()"},
        {[&] { return createNewTableDef(open, &table, ""); },
         "Failed to create table. No Table name specified.", "Error - createNewTableDef()"},
        {[&] { return createNewTableDef(open, &table, "SHAPE"); },
         "Duplicate Table name. Failed to create table.", "Error - createNewTableDef()"},
        {[&] { return openTableDef(open, &table, ""); },
         "Failed to open table. No Table name specified.", "Error - openTableDef()"},
        {[&] { return deleteTable(open, ""); }, "Failed to open table. No Table name specified.",
         "Error - openTableDef()"},
        {[&] { return getTableCount(&db); },
         "Failed to get table count. Database does not exist or is not opened.",
         "Error - getTableCount()"},
        {[&] { return createNewField(m_table.Get(), &name); },
         "Duplicate field name. Failed to create field.", "Error - createNewField()"},
        {[&] { return deleteField(nullptr, ""); },
         "Failed to delete the field. No Field name specified.", "Error - deleteField()"},
        {[&] { return IsExistentField(nullptr, ""); },
         "Failed to check existence. Field name not specified.", "Error - IsExistentField()"},
        {[&] { return openRecordset(m_db.Address(), &none, nullptr, 4, 0); },
         "Failed to open Recordset. SQL statement not provided.", "Error - openRecordset()", -1},
        {[&] { return IsExistentRecord(&none, ""); },
         "Failed to check existence. SQL WHERE statement not provided.",
         "Error - IsExistentRecord()"},
        {[&] { return deleteRecord(&none, "AX = 1"); },
         "Failed to delete Recordset. Recordset does not exist or is not opened.",
         "Error - deleteRecordset()"},
        {[&] { return deleteRecord(empty.Address(), ""); },
         "Failed to delete Recordset. No records in database.", "Error - deleteRecordset()"},
        {[&] { return deleteRecord(rows, "AX = 99"); },
         "Failed to delete Recordset. Specified record not found.", "Error - deleteRecordset()"},
        {[&] { return deleteAllRecords(&none); },
         "Failed to delete records. Recordset does not exist or is not opened.",
         "Error - deleteAllRecords()"},
        {[&] { return deleteAllRecords(empty.Address()); },
         "Failed to delete records. No records in database.", "Error - deleteAllRecords()"},
    };
    for (const int engineMode : {0, 1}) {
        SectionLibraryState::SetEngineMode(engineMode);
        for (const auto& c : cases) {
            shownBoxes.clear();
            EXPECT_EQ(c.call(), c.result) << c.caption;
            EXPECT_EQ(shownBoxes, (std::vector<Box>{{c.text, c.caption}}));
        }
    }
    EXPECT_EQ(SectionLibraryState::GetExceptionType(), 0);
    EXPECT_TRUE(db == nullptr && none == nullptr && table == nullptr);
}

TEST_F(ReportTest, NothingGivenIsNothingDoneWithoutABox) {
    CSectionDatabase* db = nullptr;
    CSectionRecordset* rows = nullptr;
    CSectionTableDef* table = nullptr;
    CSectionFieldInfo field;
    CSectionTableDefInfo info;
    closeDatabase(&db, 1);
    destroyDatabase(&db);
    closeRecordset(&rows);
    closeTableDef(&table);
    modifyFileReadOnlyAttribute(nullptr, 1);
    terminateDAOEngine();
    EXPECT_EQ(createNewTableDef(nullptr, &table, ""), 0);
    EXPECT_EQ(openTableDef(nullptr, &table, ""), 0);
    EXPECT_EQ(appendTableDef(m_db.Get(), nullptr), 0);
    EXPECT_EQ(deleteTable(nullptr, "") + IsExistentTable(nullptr, ""), 0);
    EXPECT_EQ(getTableInfo(nullptr, &info, 0, 1), 0);
    EXPECT_EQ(createNewField(nullptr, &field) + getFieldInfo(nullptr, &field, 0, 1), 0);
    EXPECT_EQ(deleteField(nullptr, "x") + IsExistentField(nullptr, "x"), 0);
    EXPECT_EQ(getFieldCount(table) + getFieldCount(&rows) + getRecordCount(&rows), 0);
    EXPECT_EQ(setRecordsetTo(&rows, "AX = 1", 1) + setRecordsetToFirst(&rows), 0);
    EXPECT_EQ(IsExistentRecord(&rows, "AX = 1"), 0);
    EXPECT_TRUE(shownBoxes.empty());
    EXPECT_EQ(SectionLibraryState::GetExceptionType(), 0);
}

TEST_F(ReportTest, HandlersStoreTheKindAndShowTheCause) {
    const struct {
        std::function<void()> handle;
        int kind;
        const char* caption;
        const char* cause;
    } cases[] = {
        {[] { HandleMemoryException(CMemoryException::Instance(), "What failed.", "f()"); }, 1,
         "CMemoryException occurred - f()", "Out of memory."},
        {[] { HandleFileException(new CFileException(2, "x.db3"), "What failed.", "f()"); }, 2,
         "CFileException occurred - f()", "x.db3: No such file or directory"},
        {[] { HandleResourceException(new CFileException(13), "What failed.", "f()"); }, 3,
         "CResourceException occurred - f()", "Permission denied"},
        {[] { HandleOleException(new COleException(-2147467259), "What failed.", "f()"); }, 5,
         "COleException occurred - f()", "A component failed with status 0x80004005."},
        {[] {
             HandleArchiveException(new CArchiveException(3, std::string(300, 'x').c_str()),
                                    "What failed.", "f()");
         },
         6, "CArchiveException occurred - f()", nullptr},
        {[] {
             HandleDaoException(new CSectionException(static_cast<int>(0x80004005)), "What failed.",
                                "f()");
         },
         4, "CDaoException occurred - f()", ""},
    };
    for (const int engineMode : {0, 1})
        for (const auto& c : cases) {
            SCOPED_TRACE(c.caption);
            SectionLibraryState::SetEngineMode(engineMode);
            shownBoxes.clear();
            c.handle();
            EXPECT_EQ(SectionLibraryState::GetExceptionType(), c.kind);
            ASSERT_EQ(shownBoxes.size(), engineMode == 0 ? 1U : 0U);
            if (engineMode != 0)
                continue;
            EXPECT_EQ(shownBoxes[0].caption, c.caption);
            const std::string begin = "What failed.\n\nCAUSE:\n";
            if (c.kind == 4)
                EXPECT_EQ(shownBoxes[0].text,
                          "What failed.\n\nERROR:CDaoException\n\nSCODE_CODE =16389\n"
                          "SCODE_FACILITY =0\nSCODE_SEVERITY =1\nResultFromScode =-2147467259\n");
            else if (c.cause != nullptr)
                EXPECT_EQ(shownBoxes[0].text, begin + c.cause);
            else // the cause is cut to a buffer of 255 with its end
                EXPECT_EQ(shownBoxes[0].text.size(), begin.size() + 254);
        }
}

TEST_F(ReportTest, NumberedErrorsAreQuietAndTheirRepeatsCounted) {
    const auto fail = [](int number) {
        HandleDaoException(new CSectionException(number, "x"), "What failed.", "f()");
        return std::pair(SectionLibraryState::m_nLastDaoError,
                         SectionLibraryState::m_nDaoErrorRepeats);
    };
    EXPECT_EQ(fail(3049), std::pair(3049, 0));
    EXPECT_EQ(fail(3049), std::pair(3049, 1));
    EXPECT_EQ(fail(3049), std::pair(3049, 2));
    EXPECT_EQ(fail(3027), std::pair(3027, 0));
    SectionLibraryState::SetEngineMode(1);
    SectionLibraryState::SetExceptionType(0);
    EXPECT_EQ(fail(3027), std::pair(3027, 0)) << "not counted in engine mode";
    EXPECT_EQ(SectionLibraryState::GetExceptionType(), 4);
    EXPECT_TRUE(shownBoxes.empty());
}

TEST_F(ReportTest, MemoryExhaustionIsReportedUnderTheFunctionsLabel) {
    const CString longName("a name beyond the small-text limit");
    CSectionDatabase* db = nullptr;
    CSectionTableDef* table = nullptr;
    CSectionFieldInfo field;
    field.m_strName = "F";
    CSectionTableDefInfo info;
    RecordsetHandle atEnd;
    ASSERT_EQ(Query(m_db, atEnd, "Shape", 1), 1);
    AddShape(*atEnd, "D", "D", 4); // counting must read the rows anew
    atEnd->MoveLast();
    atEnd->MoveNext();
    RecordsetHandle empty;
    ASSERT_EQ(Query(m_db, empty, "Select * From Shape WHERE AX < 0"), 1);
    TableDefHandle fresh;
    ASSERT_EQ(createNewTableDef(m_db.Get(), fresh.Address(), longName), 1);
    CSectionTableDef closed(m_db.Get());
    CSectionRecordset* rows = nullptr;
    const struct {
        const char* label;
        const char* message;
        int result;
        std::function<int(CString)> call; ///< its text must come without an allocation of its own
    } cases[] = {
        {"getRecordCount()", "Failed to get record count.", 0,
         [&](CString) { return getRecordCount(m_rows.Address()); }},
        {"createDatabase()", "Failed to create database.", -1,
         [&](CString name) { return createDatabase(&db, std::move(name), "", 0, nullptr); }},
        {"openDatabase()", "Failed to open database.", -1,
         [&](CString name) { return openDatabase(&db, std::move(name), 0, 0, 1, "", nullptr); }},
        {"createNewTableDef()", "Failed to create table.", 0,
         [&](CString) {
             const int created = createNewTableDef(m_db.Get(), &table, "T");
             closeTableDef(&table);
             return created;
         }},
        {"openTableDef()", "Failed to open table.", 0,
         [&](CString) { return openTableDef(m_db.Get(), &table, "T"); }},
        {"appendTableDef()", "Failed to append TableDef.", 0,
         [&](CString) { return appendTableDef(m_db.Get(), fresh.Get()); }},
        {"deleteTable()", "Failed to delete table.", 0,
         [&](CString name) { return deleteTable(m_db.Get(), std::move(name)); }},
        {"getTableInfo()", "Failed to get information on table.", 0,
         [&](CString) { return getTableInfo(m_db.Get(), &info, 0, 0); }},
        {"createNewField()", "Failed to create field.", 0,
         [&](CString) { return createNewField(&closed, &field); }},
        {"deleteField()", "Failed to delete the field.", 0,
         [&](CString) { return deleteField(&closed, "F"); }},
        {"getFieldInfo()", "Couldn't get information on field", 0,
         [&](CString) { return getFieldInfo(&closed, &field, 0, 0); }},
        {"getFieldCount()", "Failed to get field count.", 0,
         [&](CString) { return getFieldCount(&closed); }},
        {"openRecordset()", "Failed to open Recordset.", -1,
         [&](CString) { return openRecordset(m_db.Address(), &rows, "Shape", 2, 0); }},
        {"setRecordsetTo()", "Failed to set Recordset pointer.", 0,
         [&](CString) { return setRecordsetTo(m_rows.Address(), "AX = 9", 1); }},
        {"setRecordsetToFirst()", "Failed to set Recordset pointer.", 0,
         [&](CString) { return setRecordsetToFirst(empty.Address()); }},
        {"setRecordsetToLast()", "Failed to set Recordset pointer.", 0,
         [&](CString) { return setRecordsetToLast(empty.Address()); }},
        {"setRecordsetToNext()", "Failed to set Recordset pointer.", 0,
         [&](CString) { return setRecordsetToNext(atEnd.Address()); }},
        {"setRecordsetToPrevious()", "Failed to set Recordset pointer.", 0,
         [&](CString) { return setRecordsetToPrevious(empty.Address()); }},
        {"IsExistentRecord()", "Failed to check existence.", 0,
         [&](CString) { return IsExistentRecord(m_rows.Address(), "AX = 9"); }},
        {"deleteRecordset()", "Failed to delete Recordset.", 0,
         [&](CString name) { return deleteRecord(m_rows.Address(), std::move(name)); }},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.label);
        const Box expected{std::string(c.message) + "\n\nCAUSE:\nOut of memory.",
                           std::string("CMemoryException occurred - ") + c.label};
        int result = 1;
        // Functions that this one calls may report an earlier allocation.
        for (long n = 1; shownBoxes != std::vector{expected}; ++n) {
            shownBoxes.clear();
            SectionLibraryState::SetExceptionType(0);
            CString name = longName;
            ASSERT_TRUE(FailAllocation(n, [&] { result = c.call(std::move(name)); }));
        }
        EXPECT_EQ(result, c.result);
        EXPECT_EQ(SectionLibraryState::GetExceptionType(), 1);
    }
    shownBoxes.clear();
    FailAllocation(1, [&] { EXPECT_EQ(IsExistentTable(m_db.Get(), "Shape"), 0); });
    FailAllocation(1, [&] { EXPECT_EQ(IsExistentField(&closed, "Shape"), 0); });
    EXPECT_TRUE(shownBoxes.empty());
}

} // namespace
