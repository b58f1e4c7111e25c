// Settings, paths of the catalogue files, and the table-index file.
#include "interface/PublicCall.h"
#include "interface/SectionDBInterface.h"
#include "interface/SettingsFile.h"

#include "platform/FileSystem.h"
#include "platform/HostDefaults.h"
#include "platform/PrivateProfile.h"
#include "platform/ProfileRevision.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <utility>
#include <vector>

using dbsection::ComposePath;
using dbsection::PathParts;
using dbsection::PublicCall;
using dbsection::SettingsWereRead;
using dbsection::SettingsWereWritten;
using dbsection::SplitPath;

CString SectionDBInterface::m_szDBIFileName;
CString SectionDBInterface::m_szIniFileName;
CString SectionDBInterface::m_szUserTableFileName;
CString SectionDBInterface::m_szGenericTableFileName;
CString SectionDBInterface::m_szSectionDBFolder;

namespace {

bool IsCatalogue(int index) { return index >= 1 && index <= LastCatalogueIndex; }

/// The settings file, as the host or else the environment names it.
const CString& NamedSettingsFile() {
    static CString environments;
    const CString& hosts = SectionDBInterface::m_szIniFileName;
    return hosts.IsEmpty() ? environments = IniConfig::GetDbSectionCustomIniPath() : hosts;
}

/// The folder of the catalogues, as the host names it or the library was installed.
const CString& CatalogueFolder() {
    static CString installed;
    const CString& hosts = SectionDBInterface::m_szSectionDBFolder;
    return hosts.IsEmpty() ? installed = DirectoryConfig::GetVessaSectionDatabaseDirectory()
                           : hosts;
}

/// The file of a customised catalogue beside the settings file.
CString BesideSettingsFile(const CString& path) {
    const PathParts settings = SplitPath(NamedSettingsFile());
    const PathParts file = SplitPath(path);
    return ComposePath({settings.drive, settings.folder, file.name, file.extension});
}

/// Whether there is a database file; that it cannot be told is reported.
bool IsThere(const CString& path) {
    const int error = dbsection::LookForFile(path);
    if (error != 0 && error != ENOENT)
        dbsection::Report({"GetDatabaseFileName()", "Failed to look for the database file."},
                          new CFileException(error, path), HandleFileException);
    return error == 0;
}

const CString& NoFile() {
    static const CString none;
    return none;
}

/// The path of a database file that there is, else none.
const CString& ThereOrNone(const CString& path) {
    return path.IsEmpty() || IsThere(path) ? path : NoFile();
}

enum class Customisation { None, Replaced, Unreadable };

CString CustomisationFile() {
    const CString& file = NamedSettingsFile();
    return file.IsEmpty() ? CatalogueFolder() + "Custom.Ini" : file;
}

/// What the settings file says of a catalogue. Where it cannot be read, none of the two files that
/// the catalogue may have is the right one.
Customisation ReadCustomisation(const CString& fileStem, CString& customName) {
    const dbsection::FailureRule rule{"IsCustomized()", "Failed to read the settings."};
    const CString settings = CustomisationFile();
    const unsigned flag = GetPrivateProfileIntA("CustomDBFlags", fileStem, 0, settings);
    if (!SettingsWereRead(settings, rule))
        return Customisation::Unreadable;
    if (flag == 0)
        return Customisation::None;
    std::array<char, 256> name{};
    GetPrivateProfileStringA("CustomDBNames", fileStem, "", name.data(), name.size(), settings);
    if (!SettingsWereRead(settings, rule))
        return Customisation::Unreadable;
    customName = name.data();
    return customName.IsEmpty() ? Customisation::None : Customisation::Replaced;
}

/// Where the settings put the file of a catalogue.
struct Placement {
    CString iniFile; ///< as the host has set it, maybe empty
    CString folder;
    CString settings{}; ///< the file that follows from them, and its revision
    std::uint64_t revision = 0;
    CString path{};
    CString pathBesideSettings{}; ///< of a replaced catalogue
    Customisation customisation = Customisation::None;
};

/// It is told anew where the settings have changed.
const Placement& PlaceOf(int index) {
    static std::array<Placement, LastCatalogueIndex + 1> known;
    Placement& place = known[static_cast<std::size_t>(index)];
    const CString& iniFile = NamedSettingsFile();
    const CString& folder = CatalogueFolder();
    if (place.revision != 0 && iniFile == place.iniFile && folder == place.folder &&
        dbsection::ProfileRevision(place.settings) == place.revision)
        return place;
    Placement now{.iniFile = iniFile, .folder = folder};
    now.settings = CustomisationFile();
    now.revision = dbsection::ProfileRevision(now.settings);
    CString stem = SectionDBInterface::m_saSectionFile[index];
    CString replacement;
    now.customisation = ReadCustomisation(stem, replacement);
    if (now.customisation == Customisation::Replaced)
        stem = std::move(replacement);
    if (now.customisation == Customisation::Unreadable)
        now.revision = 0; // to be tried again
    else
        now.path = ComposePath({"", now.folder, stem, ".db3"});
    if (now.customisation == Customisation::Replaced)
        now.pathBesideSettings = BesideSettingsFile(now.path);
    return place = std::move(now);
}

} // namespace

void SectionDBInterface::SetSectionDBPassword(const char* connect) {
    PublicCall("SetSectionDBPassword()", [&] { m_szPassword = connect; });
}

void SectionDBInterface::SetDBIFileName(const char* path) {
    PublicCall("SetDBIFileName()", [&] { m_szDBIFileName = path; });
}

void SectionDBInterface::SetINIFileName(const char* path) {
    PublicCall("SetINIFileName()", [&] { m_szIniFileName = path; });
}

void SectionDBInterface::SetGenericTableFileName(const char* path) {
    PublicCall("SetGenericTableFileName()", [&] { m_szGenericTableFileName = path; });
}

void SectionDBInterface::SetUserTableFileName(const char* path) {
    PublicCall("SetUserTableFileName()", [&] { m_szGenericTableFileName = path; });
}

CString SectionDBInterface::GetUserTableFileName() {
    return PublicCall("GetUserTableFileName()", [] { return m_szUserTableFileName; });
}

CString SectionDBInterface::GetGenericTableFileName() {
    return PublicCall("GetGenericTableFileName()", [] { return m_szGenericTableFileName; });
}

CString SectionDBInterface::GetProfileDBFolder() {
    return PublicCall("GetProfileDBFolder()", [] { return m_szSectionDBFolder; });
}

void SectionDBInterface::SetProfileDBFolder(CString folder) {
    PublicCall("SetProfileDBFolder()", [&] {
        if (!folder.IsEmpty() && folder.ReverseFind('\\') != folder.GetLength() - 1)
            folder += '\\';
        m_szSectionDBFolder = folder;
    });
}

CString SectionDBInterface::GetDatabaseDirectoryName() {
    return PublicCall("GetDatabaseDirectoryName()", [] { return CatalogueFolder(); });
}

CString SectionDBInterface::GetDBIFileName() {
    return PublicCall("GetDBIFileName()", [] { return dbsection::SelectionsFile(); });
}

CString SectionDBInterface::GetINIFileName() {
    return PublicCall("GetINIFileName()", [] { return NamedSettingsFile(); });
}

CString SectionDBInterface::GetDatabaseUpdateLogFileName() {
    return PublicCall("GetDatabaseUpdateLogFileName()",
                      [&] { return GetDatabaseDirectoryName() + "secdblog.mdb"; });
}

CString SectionDBInterface::GetDatabaseFileName(int index) {
    return PublicCall("GetDatabaseFileName()", [&] { return dbsection::DatabaseFile(index); });
}

const CString& dbsection::SelectionsFile() {
    static CString environments;
    const CString& hosts = SectionDBInterface::m_szDBIFileName;
    return hosts.IsEmpty() ? environments = IniConfig::GetDbSectionCustomDbiPath() : hosts;
}

const CString& dbsection::DatabaseFile(int index) {
    if (index == UserTableIndex)
        return ThereOrNone(SectionDBInterface::m_szUserTableFileName);
    if (index == GenericTableIndex)
        return ThereOrNone(SectionDBInterface::m_szGenericTableFileName);
    if (!IsCatalogue(index))
        return NoFile();
    const FailureWatch watch;
    const Placement& place = PlaceOf(index);
    const CString& file = ThereOrNone(place.path);
    return file.IsEmpty() && !watch.HasSeenAny() ? ThereOrNone(place.pathBesideSettings) : file;
}

int SectionDBInterface::IsCustomized(CString fileStem, CString& customName) {
    return PublicCall("IsCustomized()", [&] {
        return ReadCustomisation(fileStem, customName) == Customisation::Replaced ? 1 : 0;
    });
}

int SectionDBInterface::IsCustomized(int index) {
    return PublicCall("IsCustomized()", [&] {
        CString scratch;
        return IsCatalogue(index) ? IsCustomized(m_saSectionFile[index], scratch) : 0;
    });
}

bool SectionDBInterface::MakeTableIndex(bool resetsExisting) {
    constexpr int LastSectionType = 50;
    std::vector<CString> tables;
    std::vector<ProfileEntry> entries;
    tables.reserve(static_cast<std::size_t>(LastCatalogueIndex) * LastSectionType);
    for (int index = 1; index <= LastCatalogueIndex; ++index) {
        // The types of one catalogue are looked up in one opening of it.
        const SectionDBBase* catalogue = OpenCatalogue(index);
        for (int type = 1; catalogue != nullptr && type <= LastSectionType; ++type) {
            const CString& table = tables.emplace_back(catalogue->GetTableName(type));
            if (!table.IsEmpty())
                entries.push_back({m_saSectionFile[index], table, "0"});
        }
    }
    dbsection::RequireMemory(); // a table may have been passed over
    const CString file = GetDBIFileName();
    if (resetsExisting && !entries.empty())
        WritePrivateProfileEntries(entries, file);
    else // even without entries there is a file afterwards
        CreatePrivateProfile(entries, file);
    return SettingsWereWritten(
        file, {"InitialiseDBIFile()", "Failed to write the file of the selections."});
}

void SectionDBInterface::InitialiseDBIFile() {
    PublicCall("InitialiseDBIFile()", [&] { MakeTableIndex(true); });
}
