#include "Values.h"

#include "Catalogue.h"
#include "Text.h"

#include <sections/Error.h>

#include <string>

namespace browser {
namespace {

std::string givenPassword; // empty: that of SECTIONDB_PASSWORD

} // namespace

void UsePassword(const char* password) {
    givenPassword = password;
    SectionDBInterface::SetSectionDBPassword(CString(";PWD=") + password);
}

sections::Catalogue ReadCatalogue(int catalogue) {
    RequireCatalogue(catalogue);
    const std::string file(SectionDBInterface::GetDatabaseFileName(catalogue).View());
    try {
        return sections::Catalogue::read(file, catalogue, givenPassword);
    } catch (const sections::Error& error) {
        throw Refusal(error.what());
    }
}

std::vector<sections::Catalogue> ReadCatalogues(std::vector<CString>& faults) {
    std::vector<sections::Catalogue> catalogues;
    for (int index = 1; index <= LastCatalogueIndex; ++index)
        try {
            if (!SectionDBInterface::GetDatabaseFileName(index).IsEmpty())
                catalogues.push_back(ReadCatalogue(index));
        } catch (const Refusal& refusal) {
            faults.emplace_back(refusal.what());
        }
    return catalogues;
}

} // namespace browser
