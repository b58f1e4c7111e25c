#include "commands/Commands.h"
#include "files/CatalogueAccess.h"
#include "output/OutputText.h"

#include "interface/SectionDBInterface.h"
#include "platform/FileSystem.h"

#include <fmt/format.h>

namespace dbsection {

void Find(const std::string& name) {
    std::string found;
    CatalogueFaults faults;
    int catalogues = 0;
    for (int index = 1; index <= LastCatalogueIndex; ++index) {
        const auto print = [&](const SectionFamily& family, const CSectionRecordset& rows) {
            found +=
                fmt::format("{:<28} {:<20} {:<20} {}\n", SectionDBInterface::m_saCountryName[index],
                            family.table, PlainText(TextAt(rows, VessaNameColumn)),
                            PlainText(TextAt(rows, NameColumn)));
        };
        faults.Try([&] {
            if (!HasFile(index))
                return;
            ++catalogues;
            VisitSections(Open(index), name, print);
        });
    }
    fmt::print("{}", found);
    faults.ThrowIfAny();
    if (found.empty())
        throw CommandError(fmt::format(
            "There is no section \"{}\" in the {} catalogues in the folder \"{}\"; \"sectiondb "
            "list CATALOGUE FAMILY\" prints the names.",
            name, catalogues, NativePath(SectionDBInterface::GetDatabaseDirectoryName().View())));
}

} // namespace dbsection
