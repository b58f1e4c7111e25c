// The data-access functions of databases, tables and fields.
#include "faults/PublicCall.h"
#include "faults/World.h"

#include "platform/FileSystem.h"

namespace faults {
namespace {

/// The tables of "Shapes.db3" that are there.
std::string Tables() {
    CSectionDatabase* file = nullptr;
    std::string names;
    if (openDatabase(&file, "Shapes.db3", 1, 0, 1, Connect(), nullptr) != 1)
        return "unreadable";
    for (const char* name : {"Shape", "A table with a long name", "New"})
        if (IsExistentTable(file, name) == 1)
            names += std::string(name) + ";";
    closeDatabase(&file, 1);
    return names;
}

/// The columns of the table of shapes.
std::string Columns() {
    CSectionDatabase* file = nullptr;
    CSectionTableDef* shape = nullptr;
    std::string names;
    if (openDatabase(&file, "Shapes.db3", 1, 0, 1, Connect(), nullptr) != 1 ||
        openTableDef(file, &shape, "Shape") != 1)
        names = "unreadable";
    CSectionFieldInfo field;
    for (int i = 0; getFieldInfo(shape, &field, i, 0) == 1; ++i)
        names += std::string(field.m_strName) + ";";
    closeTableDef(&shape);
    closeDatabase(&file, 1);
    return names;
}

void OpenShapeTable() {
    OpenShapes();
    openTableDef(db, &table, "Shape");
}

CSectionFieldInfo NewField() {
    CSectionFieldInfo field;
    field.m_strName = "IX";
    field.m_nType = SectionField::Double;
    return field;
}

int IsOpen(const CSectionDatabase* database) {
    return database != nullptr && database->IsOpen() ? 1 : 0;
}

/// Whether the file that was to be created is one.
std::string StateOfNewFile(const char* connect) {
    closeDatabase(&db, 1);
    const int opened = openDatabase(&db, "New.db3", 0, 0, 0, connect, nullptr);
    closeDatabase(&db, 1);
    return opened == 1 ? "opens" : std::filesystem::exists("New.db3") ? "unfinished" : "missing";
}

/// Another one for each call: its key is derived in the call.
std::string& NewPassword() {
    static std::string password = ";PWD=x";
    return password;
}

PublicCalls OfDatabases() {
    return {
        Call("createDatabase", "1 -> opens", {"-1 -> missing"},
             [] { return createDatabase(&db, "New.db3", Connect(), 0, nullptr); })
            .Leaving([] { return StateOfNewFile(Connect()); }),
        Call("createDatabase, with a key of its own", "1 -> opens", {"-1 -> missing"},
             [] { return createDatabase(&db, "New.db3", NewPassword().c_str(), 0, nullptr); })
            .On([] { NewPassword() += 'x'; })
            .Leaving([] { return StateOfNewFile(NewPassword().c_str()); }),
        Call("openDatabase", "1", {"-1", "0"},
             [] { return openDatabase(&db, "Shapes.db3", 1, 0, 0, Connect(), nullptr); }),
        Call("openDatabase, exclusively", "1", {"-1", "0"},
             [] { return openDatabase(&db, "Shapes.db3", 1, 1, 0, Connect(), nullptr); }),
        Call("openDatabase, marked read-only", "1", {"-1", "0"},
             [] { return openDatabase(&db, "Shapes.db3", 1, 0, 1, Connect(), nullptr); })
            .On([] { SetFileAttributesA("Shapes.db3", FILE_ATTRIBUTE_READONLY); }),
        Call("closeDatabase", "0", {},
             [] {
                 closeDatabase(&db, 0);
                 return IsOpen(db);
             })
            .On(OpenShapes),
        Call("destroyDatabase", "0", {},
             [] {
                 destroyDatabase(&db);
                 return IsOpen(db);
             })
            .On(OpenShapes),
        Call("modifyFileReadOnlyAttribute", "free", {"marked"},
             [] {
                 Under([] { modifyFileReadOnlyAttribute("Custom.Ini", 1); });
                 const unsigned attributes = GetFileAttributesA("Custom.Ini");
                 return std::string((attributes & FILE_ATTRIBUTE_READONLY) != 0 ? "marked"
                                                                                : "free");
             })
            .On([] { SetFileAttributesA("Custom.Ini", FILE_ATTRIBUTE_READONLY); })
            .Quietly(),
        Call("terminateDAOEngine", "done", {}, terminateDAOEngine).On([] {
            OpenShapes();
            closeDatabase(&db, 1);
        }),
        Call("getTableCount", "2", {"0"}, [] { return getTableCount(&db); }).On(OpenShapes),
        Call("getTableFromRecord", "Shape", {"empty"},
             [] { return getTableFromRecord("Shapes.db3", "AX = 3", Connect()); }),
    };
}

PublicCalls OfTables() {
    return {
        Call("createNewTableDef", "1", {"0"}, [] { return createNewTableDef(db, &table, "New"); })
            .On(OpenShapes),
        Call("openTableDef", "1", {"0"}, [] { return openTableDef(db, &table, "Shape"); })
            .On(OpenShapes),
        Call("appendTableDef", "1 -> Shape;A table with a long name;New;",
             {"0 -> Shape;A table with a long name;"}, [] { return appendTableDef(db, table); })
            .On([] {
                OpenShapes();
                createNewTableDef(db, &table, "New");
                CSectionFieldInfo field = NewField();
                createNewField(table, &field);
            })
            .Leaving(Tables),
        Call("closeTableDef", "done", {}, [] { closeTableDef(&table); }).On(OpenShapeTable),
        Call("deleteTable", "1 -> Shape;", {"0 -> Shape;A table with a long name;"},
             [] {
                 CString name("A table with a long name");
                 return Tell(Under([&] { return deleteTable(db, std::move(name)); }));
             })
            .On(OpenShapes)
            .Leaving(Tables),
        Call("IsExistentTable", "1", {"0"}, [] { return IsExistentTable(db, "Shape"); })
            .Quietly()
            .On(OpenShapes),
        Call("getTableInfo", "A table with a long name", {"0"},
             [] {
                 CSectionTableDefInfo info;
                 const int result = Under([&] { return getTableInfo(db, &info, 1, 1); });
                 return result == 1 ? Tell(info.m_strName) : "0";
             })
            .On(OpenShapes),
    };
}

PublicCalls OfFields() {
    return {
        Call("createNewField", "1 -> RECNO;Name;VessaName;AX;IX;",
             {"0 -> RECNO;Name;VessaName;AX;"},
             [] {
                 CSectionFieldInfo field = NewField();
                 return Tell(Under([&] { return createNewField(table, &field); }));
             })
            .On(OpenShapeTable)
            .Leaving(Columns),
        Call("deleteField", "1 -> RECNO;Name;VessaName;", {"0 -> RECNO;Name;VessaName;AX;"},
             [] { return deleteField(table, "AX"); })
            .On(OpenShapeTable)
            .Leaving(Columns),
        Call("IsExistentField", "1", {"0"}, [] { return IsExistentField(table, "AX"); })
            .Quietly()
            .On(OpenShapeTable),
        Call("getFieldInfo", "AX 7", {"0"},
             [] {
                 CSectionFieldInfo field;
                 const int result = Under([&] { return getFieldInfo(table, &field, 3, 1); });
                 return result == 1 ? Tell(field.m_strName, int{field.m_nType}) : "0";
             })
            .On(OpenShapeTable),
        Call("getFieldCount of a table", "4", {"0"}, [] { return getFieldCount(table); })
            .On(OpenShapeTable),
    };
}

} // namespace

PublicCalls DatabaseCalls() { return AllOf({OfDatabases(), OfTables(), OfFields()}); }

} // namespace faults
