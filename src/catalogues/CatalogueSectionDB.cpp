#include "catalogues/CatalogueSectionDB.h"

#include "catalogues/SectionSummary.h"
#include "catalogues/SectionTables.h"
#include "dataaccess/CCrack.h"
#include "dataaccess/Guard.h"
#include "dataaccess/NameSearch.h"
#include "platform/Numbers.h"
#include "records/LayoutRecords.h"
#include "units/UNIT.h"

#include <algorithm>
#include <utility>

using dbsection::HandOver;
using dbsection::Operation;

CatalogueSectionDB::CatalogueSectionDB(int index)
    : m_catalogue(*FindCatalogue(index)),
      m_records(m_catalogue.families.size()) {
    MapFamilies();
}

void CatalogueSectionDB::InitSectionRecords() {
    for (auto& record : m_records)
        record.reset();
}

void CatalogueSectionDB::InitTableNameMap() {
    Operation("InitTableNameMap()", [&] { MapFamilies(); });
}

void CatalogueSectionDB::MapFamilies() {
    CMap<int, int, CString, CString> tables;
    CMap<int, int, int, int> shapes;
    for (const SectionFamily& family : m_catalogue.families) {
        tables.SetAt(family.sectionType, family.table);
        shapes.SetAt(family.sectionType, family.shapeType);
    }
    m_mapTableNames = std::move(tables);
    m_mapShapeTypes = std::move(shapes);
}

const SectionFamily* CatalogueSectionDB::FindFamily(const CString& table) const {
    const auto place = std::ranges::find_if(
        m_catalogue.families, [&](const SectionFamily& family) { return table == family.table; });
    return place == m_catalogue.families.end() ? nullptr : &*place;
}

bool CatalogueSectionDB::ReadCurrentRow(SectionRecord& record, LayoutId layout) const {
    return dbsection::Guarded({"GetSectionData()", "Failed to read the section."}, [&] {
               record.RecordNumber = dbsection::WholeNumber<int>(
                   dbsection::AsNumber(m_pRecordset->GetFieldValue(IdentifierColumn)));
               record.PublicName = CCrack::strVARIANT(m_pRecordset->GetFieldValue(NameColumn));
               record.VessaName = CCrack::strVARIANT(m_pRecordset->GetFieldValue(VessaNameColumn));
               const int count = std::min(BookkeepingColumns +
                                              dbsection::CountPresentColumns(*m_pRecordset, layout),
                                          m_pRecordset->GetFieldCount());
               for (int column = BookkeepingColumns; column < count; ++column)
                   record.SetColumn(column, m_pRecordset->GetFieldValue(column));
               return 1;
           }) == 1;
}

/// Opens the row of a section of the working table, the only one of its VessaName.
bool CatalogueSectionDB::OpenRow(const char* name) {
    const CString sql =
        "Select * From [" + m_szTableName + "] WHERE UPPER([VessaName]) = UPPER('" + name + "')";
    if (OpenSql(sql, CSectionRecordset::Snapshot) != 1)
        return false;
    // Two sections of one name cannot be told apart: neither is read.
    if (getRecordCount(&m_pRecordset) == 1 && setRecordsetToFirst(&m_pRecordset) == 1)
        return true;
    closeRecordset(&m_pRecordset);
    return false;
}

int CatalogueSectionDB::ReadSection(const CString& table, const char* name, SectionRecord& record,
                                    LayoutId layout) {
    return Operation("ReadSection()", [&] {
        m_szTableName = table;
        const bool isRead = OpenSectionDatabase() == 1 && !table.IsEmpty() &&
                            dbsection::IsSearchable(name) && OpenRow(name) &&
                            ReadCurrentRow(record, layout);
        closeRecordset(&m_pRecordset);
        return isRead ? 1 : 0;
    });
}

const SectionFamily* CatalogueSectionDB::OpenSection(const char* name) {
    if (OpenSectionDatabase() != 1)
        return nullptr;
    FindSectionTable(name, m_szTableName);
    if (m_szTableName.IsEmpty()) {
        closeRecordset(&m_pRecordset);
        return nullptr;
    }
    return OpenRow(name) ? RecordFamily(m_szTableName) : nullptr;
}

SectionRecord* CatalogueSectionDB::GetSectionData(const char* name, int* sectionType) {
    return Operation("GetSectionData()", [&]() -> SectionRecord* {
        const SectionFamily* family = OpenSection(name);
        if (family == nullptr)
            return nullptr;
        auto record = dbsection::MakeSectionRecord(family->layout);
        if (!ReadCurrentRow(*record, family->layout))
            return nullptr;
        SectionRecord* read = HandOver(std::move(record));
        *sectionType = family->sectionType;
        return read;
    });
}

SECTIONINFO* CatalogueSectionDB::GetSectionStructProperty(const char* name, unsigned int unit1,
                                                          unsigned int unit2, int* sectionType) {
    return Operation("GetSectionStructProperty()", [&]() -> SECTIONINFO* {
        InitSectionRecords();
        std::unique_ptr<SectionRecord> record(GetSectionData(name, sectionType));
        if (!record)
            return nullptr;
        const std::unique_ptr<CStringArray> units(
            UNIT::GetFieldUnitList(m_pDatabase, m_szTableName));
        if (!units)
            return nullptr;
        const SectionFamily& family = *RecordFamily(m_szTableName);
        auto info = dbsection::SummariseSection(*record, family.layout, m_catalogue.density, *units,
                                                unit2, unit1);
        m_records[static_cast<std::size_t>(&family - m_catalogue.families.data())] =
            std::move(record);
        return HandOver(std::move(info));
    });
}
