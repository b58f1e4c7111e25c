#include "catalogues/SectionDBBase.h"

#include "catalogues/SectionTables.h"
#include "dataaccess/CCrack.h"
#include "dataaccess/LibraryState.h"
#include "dataaccess/NameSearch.h"
#include "platform/Numbers.h"
#include "units/UNIT.h"

#include <utility>

namespace {

using dbsection::ForEachSectionTable;
using dbsection::Guarded;
using dbsection::NameMatch;
using dbsection::NameQuestion;
using dbsection::Operation;
using dbsection::QuestionFor;

/// Finds the first section table with a row of that name. `questionFor` tells what a table is
/// asked.
int FindTableOf(CSectionDatabase* database, const char* name, CString& table,
                const QuestionFor& questionFor) {
    table = {};
    if (!dbsection::IsSearchable(name))
        return 0;
    const auto hasRows = [&](const CString& candidate) {
        const NameQuestion question = questionFor(candidate.View());
        RecordsetHandle rows;
        return dbsection::HasColumn(database, candidate, question.column) &&
               dbsection::OpenRows(&database, rows.Address(), {candidate.View(), question},
                                   CSectionRecordset::Snapshot) == 1 &&
               !rows->IsEOF();
    };
    ForEachSectionTable(database, questionFor, [&](const CString& candidate, bool isToldToHave) {
        if (!isToldToHave && !hasRows(candidate))
            return false;
        dbsection::RequireMemory(); // a table before it may have been passed over
        table = candidate;
        return true;
    });
    return table.IsEmpty() ? 0 : 1;
}

/// Asks every table for a VessaName.
QuestionFor ForVessaName(NameMatch match, const char* name) {
    return [=](std::string_view) { return NameQuestion{"VessaName", match, name}; };
}

unsigned int IdentifierIn(const COleVariant& value) {
    const double number = dbsection::AsNumber(value);
    return number < 0 ? static_cast<unsigned int>(dbsection::WholeNumber<int>(number))
                      : dbsection::WholeNumber<unsigned int>(number);
}

CString OrderClause(const CStringArray& columns) {
    CString clause;
    for (int i = 0; i < columns.GetSize(); ++i)
        clause += " [" + columns[i] + "] ASC" + (i + 1 < columns.GetSize() ? "," : "");
    return " ORDER BY" + clause;
}

} // namespace

SectionDBBase::~SectionDBBase() {
    closeRecordset(&m_pRecordset);
    ReleaseDatabase();
}

int SectionDBBase::FindSectionTableExact(const char* name, CString& table) {
    return Operation("FindSectionTableExact()", [&] {
        return FindTableOf(m_pDatabase, name, table, ForVessaName(NameMatch::Exactly, name));
    });
}

int SectionDBBase::GetTableNameFromSection(const char* name, CString& table) {
    return Operation("GetTableNameFromSection()", [&] {
        return FindTableOf(m_pDatabase, name, table, [name](std::string_view candidate) {
            const char* column = candidate == "OWJoistMaster" ? "Designation" : "VessaName";
            return NameQuestion{column, NameMatch::InCapitals, name};
        });
    });
}

int SectionDBBase::FindSectionTable(const char* name, CString& table) {
    return Operation("FindSectionTable()", [&] {
        return FindTableOf(m_pDatabase, name, table, ForVessaName(NameMatch::InAnyCase, name));
    });
}

void SectionDBBase::GetAllSectionDataForGUI(int, CStringArray*, float (*)[16], unsigned int,
                                            unsigned int) {}

int SectionDBBase::GetSectionDataForGUI(int, int, int, CString*, float*, const char*, unsigned int,
                                        unsigned int) {
    return 0;
}

int SectionDBBase::GetSectionDataForGUI(int, const char*, int*, int*, float*, unsigned int,
                                        unsigned int) {
    return 0;
}

int SectionDBBase::GetSectionDataForGUIAllValues(int, const char*, int*, int*, float*) { return 0; }

SectionRecord* SectionDBBase::GetSectionData(const char*, int*) { return nullptr; }

SECTIONINFO* SectionDBBase::GetSectionStructProperty(const char*, unsigned int, unsigned int,
                                                     int*) {
    return nullptr;
}

int SectionDBBase::AddSectionData(WORD, SECTIONINFO*) { return 0; }

int SectionDBBase::UpdateSectionData(WORD, SECTIONINFO*) { return 0; }

int SectionDBBase::GetSectionTypeList(CStringList* list) {
    return Operation("GetSectionTypeList()", [&] {
        CStringList names = *list;
        const auto append = [&](const CString& table) {
            for (const auto& [type, known] : m_mapTableNames)
                if (known == table) {
                    names.AddTail(known);
                    break;
                }
            return false;
        };
        if (!ForEachSectionTable(m_pDatabase, append))
            return 0;
        *list = std::move(names);
        return 1;
    });
}

int SectionDBBase::OpenSql(const CString& sql, int openType) {
    m_szSQL = sql;
    return openRecordset(&m_pDatabase, &m_pRecordset, m_szSQL, openType, 1);
}

int SectionDBBase::OpenTable(int sectionType, const CString& orderBy) {
    return OpenSql("SELECT * FROM [" + GetTableName(sectionType) + "]" + orderBy,
                   CSectionRecordset::Snapshot);
}

/// Lists a column of the open recordset, or nothing, and closes it.
int SectionDBBase::ListNames(CStringList* list, CUIntArray* ids, int nameColumn) {
    CStringList names = *list;
    CUIntArray identifiers;
    const int result = Guarded({"GetSectionNameList()", "Failed to list the sections."}, [&] {
        for (; !m_pRecordset->IsEOF(); m_pRecordset->MoveNext()) {
            identifiers.Add(IdentifierIn(m_pRecordset->GetFieldValue(IdentifierColumn)));
            names.AddTail(CCrack::strVARIANT(m_pRecordset->GetFieldValue(nameColumn)));
        }
        return 1;
    });
    closeRecordset(&m_pRecordset);
    if (result == 1 && !identifiers.IsEmpty()) {
        *list = std::move(names);
        if (ids != nullptr)
            *ids = std::move(identifiers);
    }
    return result;
}

int SectionDBBase::GetSectionNameList(int sectionType, CStringList* list, CUIntArray* ids,
                                      int sorted, int publicName) {
    return Operation("GetSectionNameList()", [&] {
        CString orderBy;
        CStringArray columns;
        if (sorted != 0 && GetSectionFieldNameArray(sectionType, &columns) == 1)
            orderBy = " ORDER BY [" + columns.GetAt(IdentifierColumn) + "] ASC";
        dbsection::RequireMemory(); // or the order would be lost
        if (OpenTable(sectionType, orderBy) == -1)
            return 0;
        return ListNames(list, ids, publicName != 0 ? NameColumn : VessaNameColumn);
    });
}

int SectionDBBase::GetSortedSectionNameList(int sectionType, CStringList* list, CUIntArray* ids,
                                            const CStringArray* sortFields, int /*flag*/) {
    return Operation("GetSortedSectionNameList()", [&] {
        const CString orderBy =
            sortFields == nullptr || sortFields->IsEmpty() ? CString() : OrderClause(*sortFields);
        if (OpenTable(sectionType, orderBy) == -1)
            return 0;
        return ListNames(list, ids, VessaNameColumn);
    });
}

int SectionDBBase::GetSectionFieldNameArray(int sectionType, CStringArray* names) {
    return Operation("GetSectionFieldNameArray()", [&] {
        if (OpenTable(sectionType) == -1)
            return 0;
        const int result = Guarded({"getFieldInfo()", "Couldn't get information on field"}, [&] {
            CStringArray found;
            found.SetSize(m_pRecordset->GetFieldCount());
            for (int i = 0; i < found.GetSize(); ++i) {
                CSectionFieldInfo field;
                m_pRecordset->GetFieldInfo(i, field);
                found.SetAt(i, field.m_strName);
            }
            *names = std::move(found);
            return 1;
        });
        closeRecordset(&m_pRecordset);
        return result;
    });
}

int SectionDBBase::GetSectionFieldUnitsArray(int sectionType, CStringArray* units) {
    return Operation("GetSectionFieldUnitsArray()", [&] {
        UNIT::GetFieldUnitArray(m_pDatabase, GetTableName(sectionType), units);
        return 1;
    });
}

int SectionDBBase::GetSectionCount(int sectionType) {
    return Operation("GetSectionCount()", [&] {
        if (OpenTable(sectionType) == -1)
            return 0;
        const int count = getRecordCount(&m_pRecordset);
        closeRecordset(&m_pRecordset);
        return count;
    });
}

int SectionDBBase::GetSectionFieldCount(int sectionType) {
    return Operation("GetSectionFieldCount()", [&] {
        if (OpenTable(sectionType) == -1)
            return 0;
        const int count = getFieldCount(&m_pRecordset);
        closeRecordset(&m_pRecordset);
        return count > 0 ? count - BookkeepingColumns : count;
    });
}

void SectionDBBase::SetDatabase(CSectionDatabase* database) {
    Operation("SetDatabase()", [&] {
        closeRecordset(&m_pRecordset);
        if (database == nullptr || m_bShared == 0)
            ReleaseDatabase();
        m_bShared = 1;
        if (database == nullptr) {
            m_szFileName = {};
        } else {
            if (m_pDatabase == nullptr)
                m_pDatabase = new CSectionDatabase;
            m_szFileName = database->GetName();
            m_pDatabase->ReferTo(*database);
        }
        m_szTableName = {};
        m_szSQL = {};
    });
}

int SectionDBBase::OpenSectionDatabase() {
    return Operation("OpenSectionDatabase()", [&] {
        if (m_pDatabase != nullptr && m_pDatabase->IsOpen())
            return 1;
        if (m_szFileName.IsEmpty()) {
            dbsection::Report({"OpenSectionDatabase()", "Database filename not provided."},
                              new CFileException, HandleFileException);
            return 0;
        }
        ReleaseDatabase();
        m_bShared = 0;
        const int result = openDatabase(&m_pDatabase, m_szFileName, 1, 0, 0,
                                        SectionLibraryState::m_szPassword, nullptr);
        return result == 1 ? 1 : 0;
    });
}

void SectionDBBase::CloseDB() {
    FreeSectionRecords();
    closeRecordset(&m_pRecordset);
    if (m_bShared == 0)
        ReleaseDatabase();
}

/// Lets the database go; an attached one stays open.
void SectionDBBase::ReleaseDatabase() {
    if (m_bShared == 0)
        closeDatabase(&m_pDatabase, 1);
    delete m_pDatabase;
    m_pDatabase = nullptr;
}

CString SectionDBBase::GetTableName(int sectionType) const {
    return Operation("GetTableName()", [&] {
        CString table;
        m_mapTableNames.Lookup(sectionType, table);
        return table;
    });
}

void SectionDBBase::SetWorkingTable(const CString& table) {
    Operation("SetWorkingTable()", [&] { m_szTableName = table; });
}

int SectionDBBase::GetShapeType(int sectionType) const {
    int shapeType = 0;
    m_mapShapeTypes.Lookup(sectionType, shapeType);
    return shapeType;
}
