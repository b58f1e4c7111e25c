// What the data-access tests share: recorded message boxes, and a small catalogue.
#pragma once

#include "TestSupport.h"
#include "dataaccess/CSectionException.h"
#include "dataaccess/DataAccess.h"
#include "dataaccess/Handles.h"
#include "dataaccess/LibraryState.h"
#include "platform/MessageBox.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace testsupport {

struct Box {
    std::string text;
    std::string caption;
    bool operator==(const Box&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Box& box) {
    return out << '[' << box.caption << "] " << box.text;
}

inline std::vector<Box> shownBoxes;

inline int RecordBox(const char* text, const char* caption, unsigned flags) {
    EXPECT_EQ(flags, MB_ICONERROR);
    shownBoxes.push_back({text, caption});
    return 1;
}

/// Runs `body` and returns the error number that it throws, 0 without one, -1 for a bare status.
template <class Body>
int ErrorOf(Body body) {
    try {
        body();
    } catch (CSectionException* e) {
        const int number = e->m_errorInfo ? e->GetErrorNumber() : -1;
        e->Delete();
        return number;
    }
    return 0;
}

/// The number of the error that the free functions kept quiet about since the last call.
inline int TakeQuietError() { return std::exchange(SectionLibraryState::m_nLastDaoError, 0); }

inline int AddField(CSectionTableDef* table, const char* name, SectionField::Type type,
                    int required = 0, int attributes = 0) {
    CSectionFieldInfo field;
    field.m_strName = name;
    field.m_nType = type;
    field.m_bRequired = required;
    field.m_lAttributes = attributes;
    return createNewField(table, &field);
}

/// A table "Shape" with the columns RECNO, Name (required), VessaName and AX, indexed by AX.
inline void CreateShapeTable(CSectionDatabase* db, const char* name = "Shape") {
    TableDefHandle table;
    ASSERT_EQ(createNewTableDef(db, table.Address(), name), 1);
    ASSERT_EQ(AddField(table.Get(), "RECNO", SectionField::Long, 1, SectionField::AutoIncrement),
              1);
    ASSERT_EQ(AddField(table.Get(), "Name", SectionField::Text, 1), 1);
    ASSERT_EQ(AddField(table.Get(), "VessaName", SectionField::Text), 1);
    ASSERT_EQ(AddField(table.Get(), "AX", SectionField::Double), 1);
    ASSERT_EQ(appendTableDef(db, table.Get()), 1);
    table->CreateIndex((std::string("AX of ") + name).c_str(), "[AX]");
}

inline void AddShape(CSectionRecordset& rows, const char* name, const char* otherName,
                     double area) {
    rows.AddNew();
    rows.SetFieldValue(1, name);
    rows.SetFieldValue(2, otherName);
    rows.SetFieldValue(3, COleVariant(area));
    rows.Update();
}

/// Changes a value of the current row.
template <class Value>
void SetValue(CSectionRecordset& rows, int column, const Value& value) {
    rows.Edit();
    rows.SetFieldValue(column, value);
    rows.Update();
}

/// A file with `count` shapes "A", "B", ... with the areas 1, 2, ...
inline void CreateCatalogue(const std::string& path, int count = 5, const char* connect = "") {
    DatabaseHandle db;
    ASSERT_EQ(createDatabase(db.Address(), path.c_str(), connect, 0, nullptr), 1);
    CreateShapeTable(db.Get());
    RecordsetHandle rows;
    ASSERT_EQ(openRecordset(db.Address(), rows.Address(), "Shape", 1, 0), 1);
    for (int i = 0; i < count; ++i) {
        const std::string name(1, static_cast<char>('A' + i));
        AddShape(*rows, name.c_str(), name.c_str(), i + 1);
    }
}

/// Lets the files made so far grow older than the grain of their time stamps; a connection rests
/// only where a later change of its file is sure to show.
inline void LetSettle() { ::usleep(40'000); }

/// The rows of a statement that must succeed.
struct Rows : RecordsetHandle {
    Rows(DatabaseHandle& db, const char* sql, int type = 2) {
        EXPECT_EQ(openRecordset(db.Address(), Address(), sql, type, 0), 1) << sql;
    }
};

/// Silences and records message boxes, and works in a folder of its own.
class DataAccessTest : public ::testing::Test {
protected:
    DataAccessTest() {
        shownBoxes.clear();
        SetMessageBoxHandler(RecordBox);
        SectionLibraryState::SetEngineMode(0);
        SectionLibraryState::SetExceptionType(0);
        SectionLibraryState::m_nLastDaoError = 0;
        ::unsetenv("SECTIONDB_PASSWORD");
    }
    ~DataAccessTest() override {
        StopHolder();
        SetMessageBoxHandler(nullptr);
    }

    int Open(DatabaseHandle& db, const std::string& path, const char* connect = "",
             int readOnly = 0, int exclusive = 0) {
        return openDatabase(db.Address(), path.c_str(), 1, exclusive, readOnly, connect, nullptr);
    }
    static int Query(DatabaseHandle& db, RecordsetHandle& rows, const char* sql, int type = 2) {
        return openRecordset(db.Address(), rows.Address(), sql, type, 0);
    }
    static std::string TextAt(const RecordsetHandle& rows, int column) {
        return std::string(rows->GetFieldValue(column).strVal.View());
    }

    /// A child that runs `hold`, and then keeps what it holds until StopHolder.
    template <class Body>
    void StartHolder(Body hold) {
        int ready[2];
        ASSERT_EQ(::pipe(ready), 0);
        m_holder = StartChild([&] {
            hold();
            static_cast<void>(!::write(ready[1], "x", 1));
            for (;;)
                ::pause();
            return 0;
        });
        ::close(ready[1]);
        char answer = 0;
        EXPECT_EQ(::read(ready[0], &answer, 1), 1) << "the child failed";
        ::close(ready[0]);
    }
    void StopHolder() {
        if (m_holder == 0)
            return;
        ::kill(m_holder, SIGKILL);
        WaitForChild(std::exchange(m_holder, 0));
    }

    TempFolder m_folder;
    pid_t m_holder = 0;
};

/// Runs statements with the stock program of the database engine; its output, or nothing where the
/// program is missing.
inline std::string RunStockProgram(const TempFolder& folder, const std::string& path,
                                   const std::string& sql) {
    WriteFile(folder.File("in.sql"), sql);
    const std::string command = "sqlcipher '" + path + "' < '" + folder.File("in.sql") + "' > '" +
                                folder.File("out.txt") + "' 2>&1";
    if (std::system(command.c_str()) == -1)
        return {};
    return ReadFile(folder.File("out.txt"));
}

inline bool HasStockProgram() { return std::system("command -v sqlcipher > /dev/null 2>&1") == 0; }

/// Whether the library has the system's engine, as that program has, and not one of its own, whose
/// protected files may be newer than the program.
#ifdef DBSECTION_ENGINE_WITHIN
inline constexpr bool HasSystemsEngine = false;
#else
inline constexpr bool HasSystemsEngine = true;
#endif

} // namespace testsupport
