#include "files/FolderChoices.h"

#include "platform/Installation.h"

#include <cstdlib>
#include <filesystem>
#include <fmt/format.h>
#include <system_error>

namespace dbsection {
namespace {

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

} // namespace

std::vector<FolderChoice> FolderChoices(const std::string& given) {
    std::vector<FolderChoice> choices{{"--folder", given, "not given"},
                                      {"SECTIONDB_FOLDER", Variable("SECTIONDB_FOLDER"), "not set"},
                                      {"installation", InstalledCatalogueFolder(), "unknown"}};
    bool isMade = false; // a name that leads nowhere is not passed over
    for (FolderChoice& choice : choices) {
        if (choice.path.empty())
            continue;
        std::error_code ignored;
        const bool isThere = std::filesystem::is_directory(choice.path, ignored);
        choice.remark = isMade ? "not needed" : isThere ? "used" : "no such folder";
        isMade = true;
    }
    return choices;
}

std::string ListOf(const std::vector<FolderChoice>& choices) {
    std::string list;
    for (const FolderChoice& choice : choices)
        list += fmt::format("{}{}: {}{}", list.empty() ? "" : "; ", choice.setting,
                            choice.path.empty() ? "" : choice.path + ", ", choice.remark);
    return list;
}

} // namespace dbsection
