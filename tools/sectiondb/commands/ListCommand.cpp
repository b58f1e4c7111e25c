#include "commands/Commands.h"
#include "files/CatalogueAccess.h"
#include "interface/SectionDBInterface.h"
#include "output/OutputText.h"

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
    for (const SectionFamily* family : PresentFamilies(open)) {
        CSectionTableDefInfo info;
        ReadTable(*family,
                  [&] { open.database->GetTableDefInfo(family->table, info, AllInformation); });
        counts.push_back({family, info.m_lRecordCount});
    }
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
        bool hasFile = false;
        std::vector<FamilyCount> counts;
        const auto count = [&] {
            hasFile = HasFile(index);
            if (hasFile)
                counts = CountFamilies(Open(index));
        };
        if (!faults.Try(count))
            fmt::print("{:>8} {:>10}\n", "-", "at fault");
        else if (!hasFile)
            fmt::print("{:>8} {:>10}\n", "-", "no file");
        else
            fmt::print("{:>8} {:>10}\n", counts.size(), SectionsText(Total(counts)));
    }
    faults.ThrowIfAny();
}

void ListSections(const OpenCatalogue& open, const SectionFamily& family) {
    std::string lines = fmt::format("{:<30} {}\n", "Name", "Name in the analysis program");
    VisitRows(open, family, " ORDER BY 1", [&](const CSectionRecordset& rows) {
        lines += fmt::format("{:<30} {}\n", PlainText(TextAt(rows, NameColumn)),
                             PlainText(TextAt(rows, VessaNameColumn)));
    });
    fmt::print("{}", lines);
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
