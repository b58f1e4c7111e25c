// Default folder and settings files, as the host's environment names them.
#pragma once

#include "platform/CString.h"
#include "platform/Export.h"

class DBSECTION_API DirectoryConfig {
public:
    /// Folder of the catalogue files with its trailing separator, from SECTIONDB_FOLDER; empty when
    /// unset.
    static CString GetVessaSectionDatabaseDirectory();
};

class DBSECTION_API IniConfig {
public:
    /// Path of the customisation settings file, from SECTIONDB_INI; empty when unset.
    static CString GetDbSectionCustomIniPath();

    /// Path of the table-index file, from SECTIONDB_DBI; empty when unset.
    static CString GetDbSectionCustomDbiPath();
};
