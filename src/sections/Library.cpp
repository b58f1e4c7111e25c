#include "sections/Library.h"

#include "dataaccess/CSectionException.h"
#include "platform/Installation.h"
#include "records/CatalogueList.h"
#include "sections/Error.h"

#include <system_error>

namespace sections {
namespace {

bool isInstalled(const SectionCatalogue& catalogue) { return *catalogue.stem != '\0'; }

const SectionCatalogue& require(int number) {
    const SectionCatalogue* catalogue = FindCatalogue(number);
    if (catalogue == nullptr || !isInstalled(*catalogue))
        throw Error(SectionError::NoSuchItem, "There is no catalogue " + std::to_string(number) +
                                                  "; give a number from 1 to " +
                                                  std::to_string(LastCatalogueIndex) + ".");
    return *catalogue;
}

std::filesystem::path fileOf(const std::filesystem::path& folder,
                             const SectionCatalogue& catalogue) {
    return folder / (std::string(catalogue.stem) + ".db3");
}

} // namespace

Library::Library() : Library(dbsection::DefaultCatalogueFolder()) {}

Library::Library(std::filesystem::path folder, std::string password)
    : m_folder(std::move(folder)),
      m_password(std::move(password)) {}

std::vector<int> Library::numbers() const {
    std::vector<int> numbers;
    std::error_code ignored;
    for (const SectionCatalogue& catalogue : GetCatalogues())
        if (isInstalled(catalogue) &&
            std::filesystem::is_regular_file(fileOf(m_folder, catalogue), ignored))
            numbers.push_back(catalogue.index);
    return numbers;
}

std::string Library::nameOf(int number) { return require(number).name; }

int Library::numberOf(std::string_view name) {
    if (const SectionCatalogue* catalogue = FindCatalogue(name))
        return catalogue->index;
    throw Error(SectionError::NoSuchItem, "There is no catalogue \"" + std::string(name) +
                                              "\"; give its number (1 to " +
                                              std::to_string(LastCatalogueIndex) +
                                              "), display name, file stem or usual name, such "
                                              "as \"American\" or \"US\".");
}

Catalogue Library::open(int number) const {
    return Catalogue::read(fileOf(m_folder, require(number)).string(), number, m_password);
}

} // namespace sections
