// The tables of the steel joist catalogue: joists, girders, and their loads, joined on JoistID.
//
// The tables of joists and girders begin with the bookkeeping columns of section tables. Name and
// VessaName are the designation; that of a girder without the load, such as "30S24G5N", since its
// loads stand in a table of their own.
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
