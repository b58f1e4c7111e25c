#include "platform/Installation.h"

#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <link.h>
#include <system_error>

namespace dbsection {
namespace {

std::filesystem::path OwnFile() {
    static const char mark = 0;
    Dl_info place{};
    void* found = nullptr;
    if (::dladdr1(&mark, &place, &found, RTLD_DL_LINKMAP) == 0 || found == nullptr)
        return {};
    const auto* module = static_cast<const link_map*>(found);
    return *module->l_name == '\0' ? "/proc/self/exe" : module->l_name; // a program has no name
}

/// Told once: it is asked for with every look-up.
const std::string& FolderOfTheInstallation() {
    static const std::string folder = [] {
        const std::string path = InstalledCatalogueFolder();
        std::error_code ignored;
        return std::filesystem::is_directory(path, ignored) ? path : std::string();
    }();
    return folder;
}

} // namespace

std::string InstalledCatalogueFolder() {
    std::error_code error;
    const auto file = std::filesystem::canonical(OwnFile(), error);
    if (error)
        return {};
    return (file.parent_path() / CATALOGUES_FROM_LIBRARY).lexically_normal().string();
}

std::string DefaultCatalogueFolder() {
    const char* folder = std::getenv("SECTIONDB_FOLDER");
    return folder != nullptr && *folder != '\0' ? folder : FolderOfTheInstallation();
}

} // namespace dbsection
