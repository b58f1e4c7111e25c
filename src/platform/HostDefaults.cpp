#include "platform/HostDefaults.h"

#include "platform/FileSystem.h"

#include <cstdlib>

CString DirectoryConfig::GetVessaSectionDatabaseDirectory() {
    return dbsection::ComposePath({.folder = std::getenv("SECTIONDB_FOLDER")});
}

CString IniConfig::GetDbSectionCustomIniPath() { return std::getenv("SECTIONDB_INI"); }

CString IniConfig::GetDbSectionCustomDbiPath() { return std::getenv("SECTIONDB_DBI"); }
