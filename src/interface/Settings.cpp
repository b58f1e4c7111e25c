// Settings, paths of the catalogue files, and the table-index file.
#include "interface/SectionDBInterface.h"

#include "platform/FileSystem.h"
#include "platform/HostDefaults.h"
#include "platform/PrivateProfile.h"

#include <array>
#include <vector>

using dbsection::ComposePath;
using dbsection::IsRegularFile;
using dbsection::PathParts;
using dbsection::SplitPath;

CString SectionDBInterface::m_szPassword;
CString SectionDBInterface::m_szDBIFileName;
CString SectionDBInterface::m_szIniFileName;
CString SectionDBInterface::m_szUserTableFileName;
CString SectionDBInterface::m_szGenericTableFileName;
CString SectionDBInterface::m_szSectionDBFolder;

namespace {

bool IsCatalogue(int index) { return index >= 1 && index <= LastCatalogueIndex; }

/// The file of a customised catalogue beside the settings file.
CString BesideSettingsFile(const CString& path) {
    const PathParts settings = SplitPath(SectionDBInterface::GetINIFileName());
    const PathParts file = SplitPath(path);
    return ComposePath({settings.drive, settings.folder, file.name, file.extension});
}

} // namespace

void SectionDBInterface::SetProfileDBFolder(CString folder) {
    if (!folder.IsEmpty() && folder.ReverseFind('\\') != folder.GetLength() - 1)
        folder += '\\';
    m_szSectionDBFolder = folder;
}

CString SectionDBInterface::GetDatabaseDirectoryName() {
    return m_szSectionDBFolder.IsEmpty() ? DirectoryConfig::GetVessaSectionDatabaseDirectory()
                                         : m_szSectionDBFolder;
}

CString SectionDBInterface::GetDBIFileName() {
    return m_szDBIFileName.IsEmpty() ? IniConfig::GetDbSectionCustomDbiPath() : m_szDBIFileName;
}

CString SectionDBInterface::GetINIFileName() {
    return m_szIniFileName.IsEmpty() ? IniConfig::GetDbSectionCustomIniPath() : m_szIniFileName;
}

CString SectionDBInterface::GetDatabaseUpdateLogFileName() {
    return GetDatabaseDirectoryName() + "secdblog.mdb";
}

CString SectionDBInterface::GetDatabaseFileName(int index) {
    CString path;
    bool customised = false;
    if (IsCatalogue(index)) {
        const CString stem = m_saSectionFile[index];
        CString replacement;
        customised = IsCustomized(stem, replacement) != 0;
        path =
            ComposePath({"", GetDatabaseDirectoryName(), customised ? replacement : stem, ".db3"});
    } else if (index == UserTableIndex) {
        path = GetUserTableFileName();
    } else if (index == GenericTableIndex) {
        path = GetGenericTableFileName();
    }
    if (path.IsEmpty() || IsRegularFile(path))
        return path;
    if (!customised)
        return {};
    path = BesideSettingsFile(path);
    return IsRegularFile(path) ? path : CString();
}

int SectionDBInterface::IsCustomized(CString fileStem, CString& customName) {
    CString settings = GetINIFileName();
    if (settings.IsEmpty())
        settings = GetDatabaseDirectoryName() + "Custom.Ini";
    if (GetPrivateProfileIntA("CustomDBFlags", fileStem, 0, settings) == 0)
        return 0;
    std::array<char, 256> name{};
    GetPrivateProfileStringA("CustomDBNames", fileStem, "", name.data(), name.size(), settings);
    customName = name.data();
    return customName.IsEmpty() ? 0 : 1;
}

int SectionDBInterface::IsCustomized(int index) {
    CString scratch;
    return IsCatalogue(index) ? IsCustomized(m_saSectionFile[index], scratch) : 0;
}

void SectionDBInterface::InitialiseDBIFile() {
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
    const CString file = GetDBIFileName();
    WritePrivateProfileEntries(entries, file);
    if (!IsRegularFile(file)) // without a catalogue there is nothing to write
        dbsection::ReplaceFile(file, "");
}
