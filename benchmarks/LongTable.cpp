#include "LongTable.h"

#include "EngineCalls.h"

#include <filesystem>

namespace sectionbench {

LongTable::LongTable(const Catalogues& catalogues, int count) : m_count(count) {
    std::filesystem::copy_file(catalogues.Plain(), Path());
    const EngineDatabase database(Path(), nullptr);
    // The areas come in no order, and none twice.
    database.Execute("PRAGMA synchronous = OFF; DELETE FROM [W Shape];"
                     "WITH RECURSIVE N(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM N LIMIT " +
                     std::to_string(count) +
                     ") INSERT INTO [W Shape] SELECT 65536 + i, 'N' || i, 'V' || i, "
                     "i * 7919 % 1000003 / 16.0, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11 FROM N");
}

} // namespace sectionbench
