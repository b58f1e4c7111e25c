// The "Field Units" table of a catalogue.
#include "dataaccess/CCrack.h"
#include "dataaccess/Guard.h"
#include "dataaccess/Handles.h"
#include "dataaccess/NameSearch.h"
#include "units/UNIT.h"

#include <memory>

namespace {

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

/// Begins an edit, sets the columns by `set`, and stores the row.
template <class Set>
void Store(const char* label, CSectionRecordset& rows, void (CSectionRecordset::*begin)(),
           Set set) {
    dbsection::Guarded({label, "Failed to write the field units."}, [&] {
        (rows.*begin)();
        set();
        rows.Update();
        return 1;
    });
}

void SetAll(CSectionRecordset& rows, const CStringArray& units) {
    for (int i = 0; i < units.GetSize(); ++i)
        rows.SetFieldValue(i, units[i]);
}

/// Stores the units of a table's columns at their places, leaving out nulls; false when the table
/// has no row or more than one.
bool ReadUnits(CSectionDatabase* db, const CString& table, CStringArray& units) {
    if (db == nullptr || !db->IsOpen())
        return false;
    const CString sql =
        "Select * From [Field Units] WHERE UPPER([TableName]) = UPPER('" + table + "')";
    RecordsetHandle rows;
    if (dbsection::OpenByName(&db, rows.Address(), table, sql, CSectionRecordset::Dynaset) != 1 ||
        getRecordCount(rows.Address()) != 1)
        return false;
    const int count = getFieldCount(rows.Address());
    dbsection::Guarded({"GetFieldUnitList()", "Failed to read the field units."}, [&] {
        for (int i = 0; i < count - 1; ++i) {
            const CString text = CCrack::strVARIANT(rows->GetFieldValue(i + 1));
            if (text != "NULL")
                units.SetAtGrow(i, text);
        }
        return 1;
    });
    return count != 0;
}

} // namespace

void UNIT::WriteFieldUnits(CSectionDatabase* db, const CStringArray* units) {
    if (units == nullptr)
        return;
    const CString& table = units->GetAt(0);
    RecordsetHandle rows;
    if (!OpenFieldUnits(db, table, rows) ||
        IsExistentRecord(rows.Address(), RowCondition(table)) == 1)
        return;
    Store("WriteFieldUnits()", *rows, &CSectionRecordset::AddNew, [&] { SetAll(*rows, *units); });
}

void UNIT::UpdateFieldUnits(CSectionDatabase* db, const CStringArray* units) {
    if (units == nullptr)
        return;
    const CString& table = units->GetAt(0);
    RecordsetHandle rows;
    if (!OpenFieldUnits(db, table, rows) || !MoveToRow(rows, table))
        return;
    Store("UpdateFieldUnits()", *rows, &CSectionRecordset::Edit, [&] { SetAll(*rows, *units); });
}

void UNIT::UpdateFieldUnit(CSectionDatabase* db, CString tableName, int fieldIndex, CString unit) {
    RecordsetHandle rows;
    if (!OpenFieldUnits(db, tableName, rows) || !MoveToRow(rows, tableName))
        return;
    Store("UpdateFieldUnit()", *rows, &CSectionRecordset::Edit,
          [&] { rows->SetFieldValue(fieldIndex + 1, unit); });
}

void UNIT::DeleteFieldUnits(CSectionDatabase* db, const CString& tableName) {
    if (tableName.IsEmpty())
        return;
    RecordsetHandle rows;
    const CString condition = RowCondition(tableName);
    if (OpenFieldUnits(db, tableName, rows) && IsExistentRecord(rows.Address(), condition) == 1)
        deleteRecord(rows.Address(), condition);
}

CStringArray* UNIT::GetFieldUnitList(CSectionDatabase* db, const CString& tableName) {
    auto units = std::make_unique<CStringArray>();
    return ReadUnits(db, tableName, *units) ? units.release() : nullptr;
}

void UNIT::GetFieldUnitArray(CSectionDatabase* db, const CString& tableName, CStringArray* units) {
    ReadUnits(db, tableName, *units);
}
