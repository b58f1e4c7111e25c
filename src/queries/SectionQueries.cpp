// Sorted and filtered queries over one section table. All honour the user's selection.
#include "interface/SectionDBInterface.h"

#include "dataaccess/CCrack.h"
#include "dataaccess/Guard.h"
#include "dataaccess/Handles.h"
#include "dataaccess/NameSearch.h"
#include "interface/RequireOpen.h"
#include "interface/Selection.h"
#include "queries/QueryCall.h"
#include "queries/QueryText.h"

#include <optional>

using dbsection::Fixed;
using dbsection::NameMatch;
using dbsection::NameQuestion;
using dbsection::QueryCall;
using dbsection::SelectionForm;

namespace {

/// A table to be queried, and the selection of its rows. There is none where the selection cannot
/// be read: the recordset is then closed, as after a statement that failed.
struct Target {
    Target(int catalogue, int type, CSectionDatabase** db, CSectionRecordset** rs) {
        if (!dbsection::RequireOpen(db))
            return;
        table = SectionDBInterface::GetTableFromSectionType(catalogue, type);
        if (table.IsEmpty() || dbsection::ReadSelection(catalogue, table, selection))
            return;
        table = {};
        closeRecordset(rs);
    }

    explicit operator bool() const { return !table.IsEmpty(); }
    CString Rows() const { return "Select * From [" + table + "]"; }
    CString Selected(SelectionForm form) const {
        return dbsection::SelectionClause(selection, form);
    }

    CString table;
    CDWordArray selection;
};

/// The name of a column by its number; empty where the table has no such column.
CString ColumnName(const TableDefHandle& table, int column) {
    CString name;
    dbsection::Guarded({"getFieldInfo()", "Couldn't get information on field"}, [&] {
        CSectionFieldInfo field;
        table->GetFieldInfo(column, field);
        name = field.m_strName;
        return 1;
    });
    return name;
}

/// The order of sort keys {column, direction}, which end at column -1. A direction other than 0 and
/// 1 has no word and no comma.
CString OrderBy(const TableDefHandle& table, int const (*keys)[2]) {
    if (keys[0][0] == -1)
        return {};
    CString clause = " ORDER BY";
    for (; (*keys)[0] != -1; ++keys) {
        clause += " [" + ColumnName(table, (*keys)[0]) + "] ";
        clause += (*keys)[1] == 0 ? "ASC," : (*keys)[1] == 1 ? "DESC," : "";
    }
    return clause.Left(clause.GetLength() - 1);
}

/// Opens the rows of a table that satisfy `condition`, which is given the table's definition, and
/// may contain `name`; sorted by the keys.
template <class Condition>
void OpenSorted(const Target& target, int const (*keys)[2], CSectionDatabase** db,
                CSectionRecordset** rs, Condition condition, const char* name = "") {
    TableDefHandle table;
    if (!target || openTableDef(*db, table.Address(), target.table) != 1)
        return;
    const CString sql = target.Rows() + condition(table) + OrderBy(table, keys);
    dbsection::OpenByName(db, rs, name, sql, CSectionRecordset::Snapshot);
}

/// The column of areas by which a section is chosen in place of an unknown one.
const char* AreaColumnOf(int catalogue) {
    return catalogue >= 1 && catalogue < AmericanColdFormedIndex ? "AX"
           : catalogue == AmericanColdFormedIndex                ? "Area"
                                                                 : "";
}

/// The average of a column over the selected sections; nothing where it cannot be read.
std::optional<double> Average(const Target& target, const CString& column, CSectionDatabase** db) {
    RecordsetHandle rows;
    const CString sql = "Select MAX(" + column + "), MIN(" + column + "), AVG(" + column +
                        ") From [" + target.table + "] WHERE " +
                        target.Selected(SelectionForm::Bare);
    if (openRecordset(db, rows.Address(), sql, CSectionRecordset::Dynaset, 1) != 1)
        return std::nullopt;
    std::optional<double> average;
    dbsection::Guarded({"GetAssignSectionRecords()", "Failed to read the average."}, [&] {
        average =
            dbsection::LeadingNumber<double>(CCrack::strVARIANT(rows->GetFieldValue(2)).View());
        return 1;
    });
    return average;
}

/// Opens the selected rows of a name.
int OpenByName(const Target& target, const NameQuestion& question, CSectionDatabase** db,
               CSectionRecordset** rs, int openType) {
    const CString selected = target.Selected(SelectionForm::And);
    return dbsection::OpenByName(db, rs, {target.table.View(), question, selected.View()},
                                 openType);
}

} // namespace

void SectionDBInterface::GetSortedSectionRecords(int catalogue, int type, int const (*keys)[2],
                                                 CSectionDatabase** db, CSectionRecordset** rs) {
    QueryCall("GetSortedSectionRecords()", rs, [&] {
        const Target target(catalogue, type, db, rs);
        OpenSorted(target, keys, db, rs,
                   [&](const TableDefHandle&) { return target.Selected(SelectionForm::Where); });
    });
}

void SectionDBInterface::GetLikeSortedSectionRecords(int catalogue, int type, int const (*keys)[2],
                                                     const char* pattern, CSectionDatabase** db,
                                                     CSectionRecordset** rs) {
    QueryCall("GetLikeSortedSectionRecords()", rs, [&] {
        const Target target(catalogue, type, db, rs);
        const auto condition = [&](const TableDefHandle&) {
            return CString(" WHERE [VessaName] LIKE '") + pattern + "%'" +
                   target.Selected(SelectionForm::And);
        };
        OpenSorted(target, keys, db, rs, condition, pattern);
    });
}

void SectionDBInterface::GetRangeSortedSectionRecords(int catalogue, int type, int const (*keys)[2],
                                                      int column, float upper, float lower,
                                                      CSectionDatabase** db,
                                                      CSectionRecordset** rs) {
    QueryCall("GetRangeSortedSectionRecords()", rs, [&] {
        const Target target(catalogue, type, db, rs);
        OpenSorted(target, keys, db, rs, [&](const TableDefHandle& table) {
            const CString name = "[" + ColumnName(table, column) + "]";
            return " WHERE " + name + " >= " + Fixed(lower) + " AND " + name +
                   " <= " + Fixed(upper) + target.Selected(SelectionForm::And);
        });
    });
}

void SectionDBInterface::GetSectionRecord(int catalogue, int type, const char* name,
                                          CSectionDatabase** db, CSectionRecordset** rs) {
    QueryCall("GetSectionRecord()", rs, [&] {
        const Target target(catalogue, type, db, rs);
        if (!target)
            return;
        const CString wanted(name);
        const NameQuestion question = catalogue == SteelJoistIndex
                                          ? NameQuestion{"Designation", NameMatch::Exactly, wanted}
                                          : NameQuestion{"VessaName", NameMatch::InAnyCase, wanted};
        OpenByName(target, question, db, rs, CSectionRecordset::Snapshot);
    });
}

void SectionDBInterface::GetAssignSectionRecords(int catalogue, int type, const char* name,
                                                 CSectionDatabase** db, CSectionRecordset** rs) {
    QueryCall("GetAssignSectionRecords()", rs, [&] {
        const Target target(catalogue, type, db, rs);
        if (!target)
            return;
        const CString selected = target.Selected(SelectionForm::Bare);
        if (name != nullptr &&
            OpenByName(target, {"VessaName", NameMatch::InAnyCase, name}, db, rs,
                       CSectionRecordset::Dynaset) == 1 &&
            getRecordCount(rs) == 1)
            return;
        const CString area = AreaColumnOf(catalogue);
        const auto average = Average(target, area, db);
        if (!average) { // which sections reach it is not known
            closeRecordset(rs);
            return;
        }
        const CString atLeast =
            "[" + area + "] >= " + Fixed(*average) + " ORDER BY [" + area + "] ASC";
        const CString condition = selected.IsEmpty() ? " WHERE " : " WHERE " + selected + " AND ";
        openRecordset(db, rs, target.Rows() + condition + atLeast, CSectionRecordset::Dynaset, 1);
    });
}
