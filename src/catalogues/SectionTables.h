// The section tables of a catalogue: walking them, and asking one for rows and columns.
#pragma once

#include "dataaccess/DatabaseTransaction.h"
#include "dataaccess/Guard.h"
#include "dataaccess/Handles.h"
#include "platform/Text.h"
#include "records/SectionLayout.h"

namespace dbsection {

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
            if (table != "Field Units" && table != "DBInfo" && visit(table))
                break;
    });
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
