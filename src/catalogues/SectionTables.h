// The section tables of a catalogue.
#pragma once

#include "dataaccess/DatabaseTransaction.h"
#include "dataaccess/Guard.h"
#include "dataaccess/Handles.h"

namespace dbsection {

/// Calls `visit` with the name of each section table in the database's table order, until it
/// returns true. The database is read as it is at one moment.
template <class Visit>
void ForEachSectionTable(CSectionDatabase* database, Visit visit) {
    if (database == nullptr)
        return;
    Guarded({"getTableInfo()", "Failed to get information on table."}, [&] {
        const DatabaseTransaction oneMoment(*database, Purpose::Reading);
        for (const CString& table : database->GetUserTableNames())
            if (table != "Field Units" && table != "DBInfo" && visit(table))
                break;
        return 1;
    });
}

inline bool HasColumn(CSectionDatabase* database, const CString& table, const char* column) {
    TableDefHandle definition;
    return openTableDef(database, definition.Address(), table) == 1 &&
           IsExistentField(definition.Get(), column) == 1;
}

} // namespace dbsection
