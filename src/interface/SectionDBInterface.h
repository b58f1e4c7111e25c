// The façade for graphical front ends.
//
//     SectionDBInterface::SetProfileDBFolder("/usr/share/sections/");
//     SectionDBInterface::SetSectionDBPassword(";PWD=secret");
//     int shapes = SectionDBInterface::GetSectionCount(1, 1); // W shapes of the American catalogue
//     SectionDBInterface::ExitSectionDBInterface();
//
// All members are static: the state is that of the process, and the library is called from one
// thread at a time. A catalogue index names a catalogue: 1 to 37, 1001 the user tables, 1010 the
// generic shapes; 0 is "Untitled", which has no file. Nothing is thrown.
#pragma once

#include "catalogues/SectionDBDriver.h"
#include "dataaccess/LibraryState.h"
#include "platform/CString.h"
#include "platform/Collections.h"
#include "platform/Export.h"

class CSectionDatabase;

/// The library-wide database handle, null when closed. It belongs to the library.
extern DBSECTION_API CSectionDatabase* gblSectionDatabase;

class DBSECTION_API SectionDBInterface : public SectionLibraryState {
public:
    // Lifecycle.

    /// Fills the enumeration maps and creates the catalogue objects, once.
    static void InitSectionDBInterface();

    /// Releases the catalogue objects.
    static void UnInitSectionDBInterface();

    /// Releases everything, the library-wide database included.
    static void ExitSectionDBInterface();

    /// Closes the library-wide database; its object goes too when `flag` is 1.
    static void CloseGblSectionDBObject(int flag);

    // Settings, kept for the process.

    static void SetBaseUnitNo(int number) { m_nBaseUnitNo = number; }
    static int GetBaseUnitNo() { return m_nBaseUnitNo; }
    static void SetClearToWriteIniFile(int flag) { m_bClearToWriteIniFile = flag; }
    static int IsClearToWriteIniFile() { return m_bClearToWriteIniFile; }
    static void AllowSectionDelete(int allow) { m_bAllowDeleteSection = allow; }
    static int IsDeleteSectionAllowed() { return m_bAllowDeleteSection; }

    /// Connect text passed on every open of a database: ";PWD=secret", or the bare password.
    static void SetSectionDBPassword(const char* connect) { m_szPassword = connect; }

    static void SetDBIFileName(const char* path) { m_szDBIFileName = path; }
    static void SetINIFileName(const char* path) { m_szIniFileName = path; }
    static void SetGenericTableFileName(const char* path) { m_szGenericTableFileName = path; }

    /// Sets the file of index 1010, as SetGenericTableFileName does.
    static void SetUserTableFileName(const char* path) { m_szGenericTableFileName = path; }
    static CString GetUserTableFileName() { return m_szUserTableFileName; }
    static CString GetGenericTableFileName() { return m_szGenericTableFileName; }

    /// Sets the folder of the catalogue files; a trailing backslash is added where it is missing.
    static void SetProfileDBFolder(CString folder);
    static CString GetProfileDBFolder() { return m_szSectionDBFolder; }

    // Paths.

    /// The folder of the catalogue files, by default that of the host's environment.
    static CString GetDatabaseDirectoryName();
    static CString GetDBIFileName();
    static CString GetINIFileName();
    static CString GetDatabaseUpdateLogFileName();

    /// The path of the existing database file of a catalogue, or empty.
    static CString GetDatabaseFileName(int index);

    /// Whether the settings file redirects a catalogue to another file, and to which file stem.
    static int IsCustomized(CString fileStem, CString& customName);
    static int IsCustomized(int index);

    // Opening and counting.

    /// Opens a catalogue's database into `*ppDb`, or keeps the one that is open for this index.
    /// Returns 1, or 0 when the index has no file or it cannot be opened.
    static int OpenSectionDatabase(int index, CSectionDatabase** ppDb);
    static void CloseSectionDatabase(CSectionDatabase** ppDb);

    /// The library-wide database, opened on the catalogue; null when that fails.
    static CSectionDatabase* GetDatabasePtr(int index);

    /// The number of sections, and of property columns, of a section type; 0 when anything is
    /// missing. The forms with a database count in one that the caller opened.
    static int GetSectionCount(int index, int sectionType);
    static int GetSectionCount(int index, int sectionType, CSectionDatabase** ppDb);
    static int GetSectionFieldCount(int index, int sectionType);
    static int GetSectionFieldCount(int index, int sectionType, CSectionDatabase** ppDb);

    /// Reads the information record of a database file: its five fields, in the order 2, 0, 3, 1,
    /// 4 of the arguments. Returns 1 when the record was read.
    static int GetDBInfo(CString fileName, CString& info2, CString& info0, CString& info3,
                         CString& info1, CString& info4);

    /// Writes the table-index file: a section per catalogue, a key per table, each "0".
    static void InitialiseDBIFile();

    // Catalogue tables.

    /// Fill the maps from symbolic names to catalogue indices and section types, once.
    static void InitialiseCountryEnumMap();
    static void InitialiseSectionTypeEnumMap();

    /// The table that holds a section type, or empty.
    static CString GetTableFromSectionType(int index, int sectionType);

    static int m_bInit;
    static int m_nCountry; ///< catalogue index of the database opened last
    static int m_nBaseUnitNo;
    static int m_bClearToWriteIniFile;
    static int m_bAllowDeleteSection;
    static int m_bStartTransaction;
    static CString m_szPassword;
    static CString m_szDBIFileName;
    static CString m_szIniFileName;
    static CString m_szUserTableFileName;
    static CString m_szGenericTableFileName;
    static CString m_szSectionDBFolder;
    static SectionDBDriverImpl m_SectionDBDrv;
    static CMap<const char*, const char*, int, int> m_mapCountryEnums;
    static CMap<const char*, const char*, int, int> m_mapSectionTypeEnums;

    /// File stems and display names of the catalogues, by catalogue index. Callers match on the
    /// display names: they stay letter for letter.
    static const char* const m_saSectionFile[38];
    static const char* const m_saCountryName[38];

private:
    static SectionDBBase* AttachedCatalogue(int index, CSectionDatabase* db);
};
