// Initialisation, the library-wide database, and counting.
#include "interface/SectionDBInterface.h"

#include "dataaccess/CCrack.h"
#include "dataaccess/Handles.h"
#include "interface/CatalogueTransaction.h"
#include "interface/PublicCall.h"
#include "interface/RequireOpen.h"
#include "interface/SettingsFile.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"
#include "platform/PrivateProfile.h"

#include <array>
#include <utility>

using dbsection::PublicCall;

CSectionDatabase* gblSectionDatabase = nullptr;

int SectionDBInterface::m_bInit = 0;
int SectionDBInterface::m_nCountry = 0;
int SectionDBInterface::m_nBaseUnitNo = 1;
int SectionDBInterface::m_bClearToWriteIniFile = 1;
int SectionDBInterface::m_bAllowDeleteSection = 1;
int SectionDBInterface::m_bStartTransaction = 0;
SectionDBDriverImpl SectionDBInterface::m_SectionDBDrv;

namespace {

/// Opening another catalogue would undo what was written.
int RefuseToLeaveTransaction() {
    return dbsection::Guarded({"OpenSectionDatabase()", "Failed to open database."}, []() -> int {
        throw new CSectionException(SectionError::InUse,
                                    "A transaction is under way on another catalogue; commit it, "
                                    "or roll it back.");
    });
}

/// Opens a catalogue, unless `*ppDb` has it open. Returns 1, or 0 where it cannot be opened.
int Open(int index, CSectionDatabase** ppDb) {
    const CString& path = dbsection::DatabaseFile(index);
    if (path.IsEmpty())
        return 0;
    const int held = ppDb == &gblSectionDatabase ? dbsection::CatalogueInTransaction() : 0;
    if (held != 0 && held != index)
        return RefuseToLeaveTransaction();
    int result = 1;
    if (held == 0 &&
        (index != SectionDBInterface::m_nCountry || *ppDb == nullptr || !(*ppDb)->IsOpen())) {
        const CString file = path; // a host that is told of a failure may change the settings
        SectionDBInterface::CloseSectionDatabase(ppDb);
        result = openDatabase(ppDb, file, 1, 0, 0, SectionDBInterface::m_szPassword, nullptr);
    }
    SectionDBInterface::m_nCountry = index;
    SectionDBInterface::InitSectionDBInterface();
    return result == 1 ? 1 : 0;
}

/// The library-wide database, on a catalogue; null where that cannot be opened.
CSectionDatabase* LibraryWide(int index) {
    return Open(index, &gblSectionDatabase) == 1 ? gblSectionDatabase : nullptr;
}

} // namespace

void SectionDBInterface::InitSectionDBInterface() {
    PublicCall("InitSectionDBInterface()", [&] {
        if (m_bInit == 0)
            InitialiseAllMaps();
        if (m_mapCountryEnums.IsEmpty()) // memory was too short for a map at first
            InitialiseCountryEnumMap();
        if (m_mapSectionTypeEnums.IsEmpty())
            InitialiseSectionTypeEnumMap();
    });
}

void SectionDBInterface::UnInitSectionDBInterface() {
    PublicCall("UnInitSectionDBInterface()", [&] {
        if (m_bInit != 0)
            m_SectionDBDrv.DeleteSectionDBObjects();
        m_bInit = 0;
    });
}

void SectionDBInterface::ExitSectionDBInterface() {
    PublicCall("ExitSectionDBInterface()", [&] {
        UnInitSectionDBInterface();
        CloseSectionDatabase(&gblSectionDatabase);
        m_nCountry = 0;
        terminateDAOEngine();
    });
}

void SectionDBInterface::CloseGblSectionDBObject(int flag) {
    PublicCall("CloseGblSectionDBObject()", [&] {
        closeDatabase(&gblSectionDatabase, flag);
        m_nCountry = 0;
    });
}

int SectionDBInterface::OpenSectionDatabase(int index, CSectionDatabase** ppDb) {
    return PublicCall("OpenSectionDatabase()", [&] { return Open(index, ppDb); });
}

void SectionDBInterface::CloseSectionDatabase(CSectionDatabase** ppDb) {
    PublicCall("CloseSectionDatabase()", [&] { closeDatabase(ppDb, 1); });
}

CSectionDatabase* SectionDBInterface::GetDatabasePtr(int index) {
    return PublicCall("GetDatabasePtr()", [&] { return LibraryWide(index); });
}

SectionDBBase* SectionDBInterface::AttachedCatalogue(int index, CSectionDatabase* db) {
    SectionDBBase* catalogue = std::in_range<WORD>(index)
                                   ? m_SectionDBDrv.GetSectionDBObject(static_cast<WORD>(index))
                                   : nullptr;
    if (db == nullptr || catalogue == nullptr)
        return nullptr;
    catalogue->SetDatabase(db);
    return catalogue;
}

SectionDBBase* SectionDBInterface::OpenCatalogue(int index) {
    return AttachedCatalogue(index, LibraryWide(index));
}

SectionDBBase* SectionDBInterface::OpenCatalogue(int index, int workingType) {
    SectionDBBase* catalogue = OpenCatalogue(index);
    if (catalogue != nullptr)
        catalogue->SetWorkingTable(catalogue->GetTableName(workingType));
    return catalogue;
}

bool dbsection::RequireOpen(CSectionDatabase** ppDb) {
    if (*ppDb != nullptr && (*ppDb)->IsOpen())
        return true;
    ShowMessageBox("Error: Database not open", "");
    return false;
}

int SectionDBInterface::GetSectionCount(int index, int sectionType) {
    return PublicCall("GetSectionCount()", [&] {
        SectionDBBase* catalogue = OpenCatalogue(index);
        return catalogue == nullptr ? 0 : catalogue->GetSectionCount(sectionType);
    });
}

int SectionDBInterface::GetSectionFieldCount(int index, int sectionType) {
    return PublicCall("GetSectionFieldCount()", [&] {
        SectionDBBase* catalogue = OpenCatalogue(index);
        return catalogue == nullptr ? 0 : catalogue->GetSectionFieldCount(sectionType);
    });
}

int SectionDBInterface::GetSectionCount(int index, int sectionType, CSectionDatabase** ppDb) {
    return PublicCall("GetSectionCount()", [&] {
        SectionDBBase* catalogue =
            dbsection::RequireOpen(ppDb) ? AttachedCatalogue(index, *ppDb) : nullptr;
        return catalogue == nullptr ? 0 : catalogue->GetSectionCount(sectionType);
    });
}

int SectionDBInterface::GetSectionFieldCount(int index, int sectionType, CSectionDatabase** ppDb) {
    return PublicCall("GetSectionFieldCount()", [&] {
        SectionDBBase* catalogue =
            dbsection::RequireOpen(ppDb) ? AttachedCatalogue(index, *ppDb) : nullptr;
        return catalogue == nullptr ? 0 : catalogue->GetSectionFieldCount(sectionType);
    });
}

int SectionDBInterface::GetDBInfo(CString fileName, CString& info2, CString& info0, CString& info3,
                                  CString& info1, CString& info4) {
    return PublicCall("GetDBInfo()", [&] {
        // Destroyed, not closed: closing would mark this file as another one was marked that is
        // open.
        dbsection::Handle<CSectionDatabase, destroyDatabase> db;
        RecordsetHandle rows;
        if (openDatabase(db.Address(), fileName, 1, 0, 1, "", nullptr) != 1 ||
            openRecordset(db.Address(), rows.Address(), "Select * From [DBInfo]",
                          CSectionRecordset::Snapshot, 1) != 1)
            return 0;
        const std::array targets{&info0, &info1, &info2, &info3, &info4};
        std::array<CString, targets.size()> fields;
        for (std::size_t i = 0; i < fields.size(); ++i)
            fields[i] = CCrack::strVARIANT(rows->GetFieldValue(static_cast<int>(i)));
        for (std::size_t i = 0; i < fields.size(); ++i)
            *targets[i] = std::move(fields[i]);
        return 1;
    });
}
