#include "dataaccess/DataAccess.h"

#include "dataaccess/Guard.h"
#include "platform/MessageBox.h"

using dbsection::FailureRule;
using dbsection::Guarded;
using dbsection::ShowMessageBox;

namespace {

constexpr FailureRule Silent{nullptr, nullptr};

/// Constructs a definition into `*table` and runs `use` on it; a failure leaves `*table` null.
template <class Use>
int WithNewTableDef(const FailureRule& rule, CSectionDatabase* db, CSectionTableDef** table,
                    Use use) {
    *table = nullptr;
    const int result = Guarded(rule, [&] {
        *table = new CSectionTableDef(db);
        use(**table);
        return 1;
    });
    if (result != 1) {
        delete *table;
        *table = nullptr;
    }
    return result;
}

} // namespace

int createNewTableDef(CSectionDatabase* db, CSectionTableDef** table, CString name) {
    constexpr const char* Caption = "Error - createNewTableDef()";
    if (db == nullptr)
        return 0;
    if (name.IsEmpty()) {
        ShowMessageBox("Failed to create table. No Table name specified.", Caption);
        return 0;
    }
    const FailureRule rule{"createNewTableDef()", "Failed to create table."};
    if (Guarded(rule, [&] { return IsExistentTable(db, name); }) == 1) {
        ShowMessageBox("Duplicate Table name. Failed to create table.", Caption);
        return 0;
    }
    return WithNewTableDef(rule, db, table, [&](CSectionTableDef& fresh) { fresh.Create(name); });
}

int openTableDef(CSectionDatabase* db, CSectionTableDef** table, CString name) {
    if (db == nullptr)
        return 0;
    if (name.IsEmpty()) {
        ShowMessageBox("Failed to open table. No Table name specified.", "Error - openTableDef()");
        return 0;
    }
    const FailureRule rule{"openTableDef()", "Failed to open table."};
    return WithNewTableDef(rule, db, table, [&](CSectionTableDef& opened) { opened.Open(name); });
}

int appendTableDef(CSectionDatabase* db, CSectionTableDef* table) {
    if (db == nullptr || table == nullptr)
        return 0;
    return Guarded({"appendTableDef()", "Failed to append TableDef."}, [&] {
        table->Append();
        return 1;
    });
}

void closeTableDef(CSectionTableDef** table) {
    if (*table == nullptr)
        return;
    if ((*table)->IsOpen())
        (*table)->Close();
    delete *table;
    *table = nullptr;
}

int deleteTable(CSectionDatabase* db, CString name) {
    if (db == nullptr)
        return 0;
    if (name.IsEmpty()) {
        ShowMessageBox("Failed to open table. No Table name specified.", "Error - openTableDef()");
        return 0;
    }
    const FailureRule rule{
        "deleteTable()", "Failed to delete table.", 0, {SectionError::NoSuchItem}};
    return Guarded(rule, [&] {
        CSectionTableDefInfo info;
        db->GetTableDefInfo(name, info, PrimaryInformation);
        db->DeleteTableDef(name);
        return 1;
    });
}

int IsExistentTable(CSectionDatabase* db, CString name) {
    if (db == nullptr)
        return 0;
    return Guarded(Silent, [&] {
        CSectionTableDefInfo info;
        db->GetTableDefInfo(name, info, PrimaryInformation);
        return 1;
    });
}

int getTableInfo(CSectionDatabase* db, CSectionTableDefInfo* info, int index, int reportErrors) {
    if (db == nullptr)
        return 0;
    const FailureRule rule{
        "getTableInfo()", "Failed to get information on table.", 0, {}, reportErrors == 0};
    return Guarded(rule, [&] {
        db->GetTableDefInfo(index, *info, AllInformation);
        return info->m_strName.IsEmpty() ? 0 : 1;
    });
}

int getTableCount(CSectionDatabase** db) {
    if (*db == nullptr || !(*db)->IsOpen()) {
        ShowMessageBox("Failed to get table count. Database does not exist or is not opened.",
                       "Error - getTableCount()");
        return 0;
    }
    return Guarded({"getTableCount()", "Failed to get table count."},
                   [&] { return static_cast<int>((*db)->GetUserTableNames().size()); });
}

int createNewField(CSectionTableDef* table, CSectionFieldInfo* field) {
    if (table == nullptr)
        return 0;
    return Guarded({"createNewField()", "Failed to create field."}, [&] {
        if (IsExistentField(table, field->m_strName) == 1) {
            ShowMessageBox("Duplicate field name. Failed to create field.",
                           "Error - createNewField()");
            return 0;
        }
        table->CreateField(*field);
        return 1;
    });
}

int deleteField(CSectionTableDef* table, CString name) {
    if (name.IsEmpty()) {
        ShowMessageBox("Failed to delete the field. No Field name specified.",
                       "Error - deleteField()");
        return 0;
    }
    if (table == nullptr)
        return 0;
    return Guarded({"deleteField()", "Failed to delete the field."}, [&] {
        table->DeleteField(name);
        return 1;
    });
}

int IsExistentField(CSectionTableDef* table, CString name) {
    if (name.IsEmpty()) {
        ShowMessageBox("Failed to check existence. Field name not specified.",
                       "Error - IsExistentField()");
        return 0;
    }
    if (table == nullptr)
        return 0;
    return Guarded(Silent, [&] {
        CSectionFieldInfo info;
        table->GetFieldInfo(name, info, PrimaryInformation);
        return 1;
    });
}

int getFieldInfo(CSectionTableDef* table, CSectionFieldInfo* field, int index, int reportErrors) {
    if (table == nullptr)
        return 0;
    const FailureRule rule{
        "getFieldInfo()", "Couldn't get information on field", 0, {}, reportErrors == 0};
    return Guarded(rule, [&] {
        table->GetFieldInfo(index, *field, AllInformation);
        return 1;
    });
}

int getFieldCount(CSectionTableDef* table) {
    if (table == nullptr)
        return 0;
    return Guarded({"getFieldCount()", "Failed to get field count."},
                   [&] { return table->GetFieldCount(); });
}
