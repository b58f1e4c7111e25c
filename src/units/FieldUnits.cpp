// The "Field Units" table of a catalogue.
#include "units/FieldUnits.h"

#include "dataaccess/CCrack.h"
#include "dataaccess/Guard.h"
#include "dataaccess/Handles.h"
#include "dataaccess/NameSearch.h"
#include "platform/Text.h"

#include <algorithm>
#include <memory>
#include <utility>

using dbsection::FieldUnits;
using dbsection::ReadFieldUnits;

using dbsection::Operation;

namespace {

constexpr const char* FailedToWrite = "Failed to write the field units.";

CString RowCondition(const CString& table) { return "[TableName] = '" + table + "'"; }

/// Opens the units of all tables, to look for those of one.
bool OpenFieldUnits(CSectionDatabase* db, const CString& table, RecordsetHandle& rows) {
    return dbsection::OpenByName(&db, rows.Address(), table, "Select * From [Field Units]",
                                 CSectionRecordset::Dynaset) == 1;
}

/// Makes the row of a table current; false when it has none.
bool MoveToRow(RecordsetHandle& rows, const CString& table) {
    const CString condition = RowCondition(table);
    return IsExistentRecord(rows.Address(), condition) == 1 &&
           setRecordsetTo(rows.Address(), condition, CSectionRecordset::FindFirst) == 1;
}

/// Changes the current row: `set` sets its columns.
template <class Set>
void Change(const char* label, CSectionRecordset& rows, Set set) {
    dbsection::Guarded({label, FailedToWrite}, [&] {
        rows.Edit();
        set();
        rows.Update();
        return 1;
    });
}

void SetAll(CSectionRecordset& rows, const CStringArray& units) {
    for (int i = 0; i < units.GetSize(); ++i)
        rows.SetFieldValue(i, units[i]);
}

constexpr dbsection::FailureRule FailedToRead{"GetFieldUnitList()",
                                              "Failed to read the field units."};

/// Also when that cannot be found out.
bool MayHaveFieldUnits(const CSectionDatabase& db) {
    bool mayHave = true;
    dbsection::Guarded(FailedToRead, [&] {
        mayHave = std::ranges::any_of(db.GetUserTableNames(), [](const CString& table) {
            return dbsection::EqualNoCase(table.View(), "Field Units");
        });
        return 1;
    });
    return mayHave;
}

bool IsOneRow(CSectionRecordset& rows) {
    if (rows.IsEOF())
        return false;
    rows.MoveLast();
    return rows.GetRecordCount() == 1;
}

} // namespace

void UNIT::WriteFieldUnits(CSectionDatabase* db, const CStringArray* units) {
    Operation("WriteFieldUnits()", [&] {
        if (units == nullptr)
            return;
        const CString& table = units->GetAt(0);
        RecordsetHandle rows;
        if (!OpenFieldUnits(db, table, rows))
            return;
        dbsection::Guarded({"WriteFieldUnits()", FailedToWrite}, [&] {
            if (rows->Find(CSectionRecordset::FindFirst, RowCondition(table)) != 0)
                return 0;
            rows->AddNew();
            SetAll(*rows, *units);
            rows->Update();
            return 1;
        });
    });
}

void UNIT::UpdateFieldUnits(CSectionDatabase* db, const CStringArray* units) {
    Operation("UpdateFieldUnits()", [&] {
        if (units == nullptr)
            return;
        const CString& table = units->GetAt(0);
        RecordsetHandle rows;
        if (OpenFieldUnits(db, table, rows) && MoveToRow(rows, table))
            Change("UpdateFieldUnits()", *rows, [&] { SetAll(*rows, *units); });
    });
}

void UNIT::UpdateFieldUnit(CSectionDatabase* db, CString tableName, int fieldIndex, CString unit) {
    Operation("UpdateFieldUnit()", [&] {
        RecordsetHandle rows;
        if (OpenFieldUnits(db, tableName, rows) && MoveToRow(rows, tableName))
            Change("UpdateFieldUnit()", *rows, [&] { rows->SetFieldValue(fieldIndex + 1, unit); });
    });
}

void UNIT::DeleteFieldUnits(CSectionDatabase* db, const CString& tableName) {
    Operation("DeleteFieldUnits()", [&] {
        if (tableName.IsEmpty())
            return;
        RecordsetHandle rows;
        const CString condition = RowCondition(tableName);
        if (OpenFieldUnits(db, tableName, rows) && IsExistentRecord(rows.Address(), condition) == 1)
            deleteRecord(rows.Address(), condition);
    });
}

dbsection::FieldUnits dbsection::ReadFieldUnits(CSectionDatabase* db, const CString& table,
                                                CStringArray& units) {
    if (db == nullptr || !db->IsOpen())
        return FieldUnits::None;
    const RowsOfName wanted{"Field Units", {"TableName", NameMatch::InAnyCase, table}};
    RecordsetHandle rows;
    if (OpenByName(&db, rows.Address(), wanted, CSectionRecordset::Dynaset) != 1)
        return MayHaveFieldUnits(*db) ? FieldUnits::Unreadable : FieldUnits::None;
    FieldUnits found = FieldUnits::Unreadable;
    Guarded(FailedToRead, [&] {
        if (!IsOneRow(*rows)) {
            found = FieldUnits::None;
            return 1;
        }
        CStringArray filled = units;
        for (int i = 0; i < rows->GetFieldCount() - 1; ++i) {
            const CString text = CCrack::strVARIANT(rows->GetFieldValue(i + 1));
            if (text != "NULL")
                filled.SetAtGrow(i, text);
        }
        units = std::move(filled);
        found = FieldUnits::Kept;
        return 1;
    });
    return found;
}

CStringArray* UNIT::GetFieldUnitList(CSectionDatabase* db, const CString& tableName) {
    return Operation("GetFieldUnitList()", [&]() -> CStringArray* {
        auto units = std::make_unique<CStringArray>();
        const bool isKept = ReadFieldUnits(db, tableName, *units) == FieldUnits::Kept;
        return isKept ? dbsection::HandOver(std::move(units)) : nullptr;
    });
}

void UNIT::GetFieldUnitArray(CSectionDatabase* db, const CString& tableName, CStringArray* units) {
    Operation("GetFieldUnitArray()", [&] {
        CStringArray whole = *units;
        if (ReadFieldUnits(db, tableName, whole) == FieldUnits::Kept) {
            dbsection::RequireMemory();
            *units = std::move(whole);
        }
    });
}
