// The section tables of a catalogue: walking them, and asking one for rows and columns.
#pragma once

#include "catalogues/SectionDBBase.h"
#include "dataaccess/DatabaseTransaction.h"
#include "dataaccess/Guard.h"
#include "dataaccess/Handles.h"
#include "dataaccess/NameSearch.h"
#include "platform/Text.h"
#include "records/SectionLayout.h"

namespace dbsection {

/// Whether a user table of a catalogue keeps sections.
inline bool IsSectionTable(const CString& table) {
    return table != "Field Units" && table != "DBInfo";
}

inline constexpr int NoSectionType = -1;

/// The section type of a table, or of the catalogue's last table.
inline int SectionTypeOf(const SectionDBBase& catalogue, const CString& tableName) {
    int visited = NoSectionType;
    for (const auto& [type, table] : catalogue.TableNames()) {
        visited = type;
        if (table == tableName)
            break;
    }
    return visited;
}

/// Calls `visit` with the name of each section table in the database's table order, until it
/// returns true. The database is read as it is at one moment. False where the tables could not be
/// walked.
template <class Visit>
bool ForEachSectionTable(CSectionDatabase* database, Visit visit) {
    if (database == nullptr)
        return false;
    const FailureRule rule{"getTableInfo()", "Failed to get information on table."};
    return Completes(rule, [&] {
        const DatabaseTransaction oneMoment(*database, Purpose::Reading);
        for (const CString& table : database->GetUserTableNames())
            if (IsSectionTable(table) && visit(table))
                break;
    });
}

/// Calls `visit` with the name of each section table that has rows of a name and true, where the
/// rows that are kept in memory tell that; else of all tables, and false.
template <class Visit>
bool ForEachSectionTable(CSectionDatabase* database, const QuestionFor& questionFor, Visit visit) {
    if (database == nullptr)
        return false;
    const FailureRule rule{"getTableInfo()", "Failed to get information on table."};
    bool isTold = false;
    const bool isWhole = Completes(rule, [&] {
        const auto found = KeptNames::Find(*database, questionFor);
        isTold = found.has_value();
        if (!isTold)
            return;
        for (const NameRows& rows : *found)
            if (IsSectionTable(rows.table) && visit(rows.table, true))
                break;
    });
    const auto visitAny = [&](const CString& table) { return visit(table, false); };
    return isTold || !isWhole ? isWhole : ForEachSectionTable(database, visitAny);
}

inline bool HasColumn(CSectionDatabase* database, const CString& table, const char* column) {
    TableDefHandle definition;
    return openTableDef(database, definition.Address(), table) == 1 &&
           IsExistentField(definition.Get(), column) == 1;
}

/// How many columns of its layout an open section table has: one of an older file lacks those that
/// were added since. What else may stand in their place is not taken for them.
inline int CountPresentColumns(const CSectionRecordset& rows, LayoutId layout) {
    int present = 0;
    for (const LayoutColumn& column : GetSectionLayout(layout).columns) {
        if (column.isAdded) {
            const int index = BookkeepingColumns + present;
            CSectionFieldInfo field;
            if (index < rows.GetFieldCount())
                rows.GetFieldInfo(index, field);
            if (!EqualNoCase(field.m_strName.View(), column.name))
                break;
        }
        ++present;
    }
    return present;
}

} // namespace dbsection
