#include "files/CatalogueFolder.h"

#include "files/LibraryFailure.h"
#include "files/Password.h"
#include "interface/SectionDBInterface.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"
#include "records/CatalogueList.h"
#include "sections/Error.h"
#include "sections/UserFile.h"

#include <cstdlib>
#include <filesystem>
#include <fmt/format.h>
#include <system_error>
#include <utility>

namespace dbsection {

CatalogueFolder::CatalogueFolder(std::string folder, std::string password, std::string userFile)
    : m_given(std::move(folder)),
      m_password(std::move(password)),
      m_userFile(std::move(userFile)) {
    if (const char* kept = std::getenv("SECTIONDB_USER"); kept != nullptr && m_userFile.empty())
        m_userFile = kept;
    if (!m_given.empty())
        SectionDBInterface::SetProfileDBFolder(CString(m_given + '\\'));
}

std::string CatalogueFolder::Path() const {
    return NativePath(SectionDBInterface::GetDatabaseDirectoryName().View());
}

void CatalogueFolder::RequireThere() const {
    const std::string path = Path();
    std::error_code ignored;
    if (!path.empty() && !std::filesystem::is_directory(path, ignored))
        throw CommandError(fmt::format("There is no folder \"{}\"; name another one with --folder. "
                                       "({})",
                                       path, ListOf(Choices())));
}

void CatalogueFolder::RequireNamed() const {
    if (Path().empty())
        throw CommandError(fmt::format(
            "No folder of catalogues is known; name one with --folder. ({})", ListOf(Choices())));
}

std::string CatalogueFolder::FileOf(int number) const {
    const CString path =
        AskLibrary([&] { return SectionDBInterface::GetDatabaseFileName(number); });
    return NativePath(path.View());
}

std::string CatalogueFolder::RequireFile(int number) const {
    std::string path = FileOf(number);
    if (!path.empty())
        return path;
    const char* stem = FindCatalogue(number)->stem;
    if (SectionDBInterface::IsCustomized(number) != 0)
        throw CommandError(fmt::format(
            "The settings file replaces {}.db3 by a file that there is not; mend its section "
            "\"CustomDBNames\", or put that file into the folder.",
            stem));
    RequireNamed();
    throw CommandError(
        fmt::format("{}.db3 is not in the folder \"{}\"; build it there, or name its "
                    "folder with --folder. ({})",
                    stem, Path(), ListOf(Choices())));
}

sections::Catalogue CatalogueFolder::Open(int number) const {
    return sections::Catalogue::read(RequireFile(number), number, m_password);
}

bool CatalogueFolder::IsUserFile(const std::string& name) const {
    const auto isKind = [&name](int number) {
        return name == std::to_string(number) || EqualNoCase(name, FindCatalogue(number)->name);
    };
    return !m_userFile.empty() &&
           (EqualNoCase(name, "own") || isKind(UserTableIndex) || isKind(GenericTableIndex) ||
            EqualNoCase(name, std::filesystem::path(m_userFile).stem().string()));
}

sections::Catalogue CatalogueFolder::Open(const std::string& name) const {
    return IsUserFile(name) ? OpenUserFile() : Open(sections::Library::numberOf(name));
}

std::vector<sections::Section> CatalogueFolder::SectionsNamed(const std::string& catalogue,
                                                              const std::string& typed) const {
    if (IsUserFile(catalogue))
        return OpenUserFile().findAll(typed);
    const int number = sections::Library::numberOf(catalogue);
    return sections::Catalogue::readNamed(typed, RequireFile(number), number, m_password)
        .findAll(typed);
}

sections::Catalogue CatalogueFolder::OpenUserFile() const {
    // a password of the catalogues is none of a file without one
    return sections::UserFile(m_userFile, IsProtected(m_userFile) ? m_password : "").read();
}

sections::Family FindFamily(const sections::Catalogue& catalogue, const std::string& name) {
    const std::string firstWords = name + " ";
    std::vector<sections::Family> beginning;
    for (const sections::Family& family : catalogue.families()) {
        if (EqualNoCase(family.name(), name))
            return family;
        if (EqualNoCase(family.name().substr(0, firstWords.size()), firstWords))
            beginning.push_back(family);
    }
    return beginning.size() == 1 ? beginning.front() : catalogue.family(name);
}

bool CatalogueFaults::Try(const std::function<void()>& visit) {
    std::string fault;
    try {
        visit();
        return true;
    } catch (const CommandError& error) {
        fault = error.what();
    } catch (const sections::Error& error) {
        fault = error.what();
    }
    if (m_faults.find(fault) == std::string::npos) // one settings file may keep all from being read
        m_faults += (m_faults.empty() ? "" : "\n") + fault;
    return false;
}

void CatalogueFaults::ThrowIfAny() const {
    if (!m_faults.empty())
        throw CommandError(m_faults);
}

std::vector<sections::Catalogue> OpenAll(const CatalogueFolder& folder, CatalogueFaults& faults) {
    std::vector<sections::Catalogue> catalogues;
    for (int number = 1; number <= LastCatalogueIndex; ++number)
        faults.Try([&] {
            if (!folder.FileOf(number).empty())
                catalogues.push_back(folder.Open(number));
        });
    if (!folder.UserFile().empty())
        faults.Try([&] { catalogues.push_back(folder.OpenUserFile()); });
    return catalogues;
}

} // namespace dbsection
