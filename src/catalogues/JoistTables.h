// The tables of the steel joist catalogue. They are not section tables: they have no bookkeeping
// columns, and are joined on JoistID.
#pragma once

#include "dataaccess/CSectionFieldInfo.h"
#include "platform/Export.h"

#include <span>

struct JoistColumn {
    const char* name;
    SectionField::Type type;
    const char* unit; ///< as "Field Units" keeps it
};

struct JoistTable {
    const char* name;
    std::span<const JoistColumn> columns;
};

namespace dbsection {

DBSECTION_API std::span<const JoistTable> JoistTables();

} // namespace dbsection
