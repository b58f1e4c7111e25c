#include "platform/HostDefaults.h"

#include "platform/FileSystem.h"
#include "platform/Installation.h"

#include <cstdlib>

CString DirectoryConfig::GetVessaSectionDatabaseDirectory() {
    return dbsection::ComposePath({.folder = CString(dbsection::DefaultCatalogueFolder())});
}

CString IniConfig::GetDbSectionCustomIniPath() { return std::getenv("SECTIONDB_INI"); }

CString IniConfig::GetDbSectionCustomDbiPath() { return std::getenv("SECTIONDB_DBI"); }
