// Default folder and settings files, as the environment and the installation name them.
#pragma once

#include "platform/CString.h"
#include "platform/Export.h"

class DBSECTION_API DirectoryConfig {
public:
    /// Folder of the catalogue files with its trailing separator: from SECTIONDB_FOLDER, or else
    /// that of the catalogues installed with this library; empty where there are none.
    static CString GetVessaSectionDatabaseDirectory();
};

class DBSECTION_API IniConfig {
public:
    /// Path of the customisation settings file, from SECTIONDB_INI; empty when unset.
    static CString GetDbSectionCustomIniPath();

    /// Path of the table-index file, from SECTIONDB_DBI; empty when unset.
    static CString GetDbSectionCustomDbiPath();
};
