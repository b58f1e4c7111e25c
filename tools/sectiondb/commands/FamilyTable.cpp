#include "commands/FamilyTable.h"

namespace dbsection {

const char* RemarkOn(std::size_t sections) { return sections == 0 ? "no figures" : ""; }

std::string StandardsOf(const sections::Family& family) {
    std::string text;
    for (const std::string& standard : family.standards())
        text += (text.empty() ? "" : "; ") + standard;
    return text;
}

Table FamilyTable(const sections::Catalogue& catalogue) {
    Table table({{"family"}, {"type"}, {"sections"}, {"remark"}, {"standard"}});
    for (const sections::Family& family : catalogue.families())
        table.rows.push_back({family.name(), family.sectionType(), static_cast<int>(family.size()),
                              RemarkOn(family.size()), StandardsOf(family)});
    return table;
}

} // namespace dbsection
