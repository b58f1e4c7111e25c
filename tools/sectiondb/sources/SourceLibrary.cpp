#include "sources/SourceLibrary.h"

#include <algorithm>

namespace dbsection {
namespace {

std::filesystem::path Parent(const std::filesystem::path& folder) {
    return (folder / "").parent_path().parent_path();
}

std::vector<std::filesystem::path> CataloguesIn(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> catalogues;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (std::filesystem::exists(entry.path() / "_catalogue.csv"))
            catalogues.push_back(entry.path());
    std::ranges::sort(catalogues);
    return catalogues;
}

} // namespace

std::vector<std::filesystem::path>
CatalogueFolders(const std::vector<std::filesystem::path>& named) {
    std::vector<std::filesystem::path> folders;
    for (const auto& folder : named) {
        if (!std::filesystem::is_directory(folder))
            throw SourceError({folder.string(), 0, "", ""},
                              "there is no such folder; name one of text sources");
        if (std::filesystem::is_directory(folder / SourceFamilies::FolderName))
            std::ranges::copy(CataloguesIn(folder), std::back_inserter(folders));
        else if ((folder / "").parent_path().filename() != SourceFamilies::FolderName)
            folders.push_back(folder);
    }
    return folders;
}

SourceFamilies& SourceLibrary::FamiliesBeside(const std::filesystem::path& catalogue) {
    const auto folder = Parent(catalogue) / SourceFamilies::FolderName;
    return m_families.try_emplace(folder, folder).first->second;
}

} // namespace dbsection
