#include "commands/FamilyTable.h"

namespace dbsection {

const char* RemarkOn(std::size_t sections) { return sections == 0 ? "no figures" : ""; }

Table FamilyTable(const sections::Catalogue& catalogue) {
    Table table({{"family"}, {"type"}, {"sections"}, {"remark"}});
    for (const sections::Family& family : catalogue.families())
        table.rows.push_back({family.name(), family.sectionType(), static_cast<int>(family.size()),
                              RemarkOn(family.size())});
    return table;
}

} // namespace dbsection
