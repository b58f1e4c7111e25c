#include "commands/FamilyTable.h"

namespace dbsection {

std::vector<FamilyCount> CountFamilies(const OpenCatalogue& open) {
    std::vector<FamilyCount> counts;
    for (const SectionFamily* family : PresentFamilies(open)) {
        CSectionTableDefInfo info;
        ReadTable(*family,
                  [&] { open.database->GetTableDefInfo(family->table, info, AllInformation); });
        counts.push_back({family, info.m_lRecordCount});
    }
    return counts;
}

const char* RemarkOn(int sections) { return sections == 0 ? "no figures" : ""; }

Table FamilyTable(const OpenCatalogue& open) {
    Table table({{"family"}, {"type"}, {"sections"}, {"remark"}});
    for (const auto& [family, sections] : CountFamilies(open))
        table.rows.push_back({family->table, family->sectionType, sections, RemarkOn(sections)});
    return table;
}

} // namespace dbsection
