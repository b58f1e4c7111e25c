#include "sectiondb/CatalogueAccess.h"
#include "sectiondb/Commands.h"

#include "dataaccess/CCrack.h"
#include "dataaccess/Handles.h"
#include "interface/SectionDBInterface.h"
#include "platform/Text.h"

#include <cstdio>
#include <fmt/format.h>

namespace dbsection {
namespace {

struct FamilyCount {
    const SectionFamily* family;
    int sections;
};

std::vector<FamilyCount> CountFamilies(const OpenCatalogue& open) {
    std::vector<FamilyCount> counts;
    for (const SectionFamily& family : open.catalogue->Families())
        if (IsExistentTable(open.database, family.table) == 1)
            counts.push_back({&family, open.catalogue->GetSectionCount(family.sectionType)});
    return counts;
}

int Total(const std::vector<FamilyCount>& counts) {
    int total = 0;
    for (const FamilyCount& count : counts)
        total += count.sections;
    return total;
}

std::string SectionsText(int sections) {
    return sections == 0 ? "no figures" : fmt::format("{}", sections);
}

void ListCatalogues() {
    CatalogueFaults faults;
    fmt::print("{:>3}  {:<28} {:<30} {:>8} {:>10}\n", "No", "Name", "File", "Families", "Sections");
    for (int index = 1; index <= LastCatalogueIndex; ++index) {
        fmt::print("{:>3}  {:<28} {:<30} ", index, SectionDBInterface::m_saCountryName[index],
                   SectionDBInterface::m_saSectionFile[index]);
        if (!HasFile(index)) {
            fmt::print("{:>8} {:>10}\n", "-", "no file");
            continue;
        }
        std::vector<FamilyCount> counts;
        if (faults.Try([&] { counts = CountFamilies(Open(index)); }))
            fmt::print("{:>8} {:>10}\n", counts.size(), SectionsText(Total(counts)));
        else
            fmt::print("{:>8} {:>10}\n", "-", "at fault");
    }
    faults.ThrowIfAny();
}

void ListSections(const OpenCatalogue& open, const SectionFamily& family) {
    CStringList names;
    CStringList publicNames;
    open.catalogue->GetSectionNameList(family.sectionType, &names, nullptr, 1, 0);
    open.catalogue->GetSectionNameList(family.sectionType, &publicNames, nullptr, 1, 1);
    fmt::print("{:<30} {}\n", "Name", "Name in the analysis program");
    auto name = names.begin();
    for (const CString& publicName : publicNames)
        fmt::print("{:<30} {}\n", publicName.View(), (name++)->View());
}

} // namespace

void ListFamilies(const OpenCatalogue& open) {
    const auto counts = CountFamilies(open);
    fmt::print("{:<30} {:>4} {:>10}\n", "Family", "Type", "Sections");
    for (const FamilyCount& count : counts)
        fmt::print("{:<30} {:>4} {:>10}\n", count.family->table, count.family->sectionType,
                   SectionsText(count.sections));
    fmt::print("{:<30} {:>4} {:>10}\n", "Total", "", SectionsText(Total(counts)));
}

void List(const ListOptions& options) {
    if (options.catalogue.empty()) {
        ListCatalogues();
        return;
    }
    const OpenCatalogue open = Open(FindCatalogue(options.catalogue));
    if (options.family.empty())
        ListFamilies(open);
    else
        ListSections(open, FindFamily(open, options.family));
}

} // namespace dbsection
