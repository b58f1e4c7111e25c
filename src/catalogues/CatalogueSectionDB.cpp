#include "catalogues/CatalogueSectionDB.h"

#include "catalogues/SectionSummary.h"
#include "dataaccess/CCrack.h"
#include "dataaccess/Guard.h"
#include "records/LayoutRecords.h"
#include "units/UNIT.h"

#include <algorithm>

CatalogueSectionDB::CatalogueSectionDB(std::span<const SectionFamily> families)
    : m_families(families),
      m_records(families.size()) {
    CatalogueSectionDB::InitTableNameMap();
}

void CatalogueSectionDB::InitSectionRecords() {
    for (auto& record : m_records)
        record.reset();
}

void CatalogueSectionDB::InitTableNameMap() {
    m_mapTableNames.RemoveAll();
    m_mapShapeTypes.RemoveAll();
    for (const SectionFamily& family : m_families) {
        m_mapTableNames.SetAt(family.sectionType, family.table);
        m_mapShapeTypes.SetAt(family.sectionType, family.shapeType);
    }
}

const SectionFamily* CatalogueSectionDB::FindFamily(const CString& table) const {
    const auto place = std::ranges::find_if(
        m_families, [&](const SectionFamily& family) { return table == family.table; });
    return place == m_families.end() ? nullptr : &*place;
}

std::unique_ptr<SectionRecord> CatalogueSectionDB::ReadCurrentRow(LayoutId layout) const {
    auto record = dbsection::MakeSectionRecord(layout);
    const int read = dbsection::Guarded({"GetSectionData()", "Failed to read the section."}, [&] {
        if (!record)
            return 0;
        record->RecordNumber =
            static_cast<int>(dbsection::NumberIn(m_pRecordset->GetFieldValue(0)).value_or(0));
        record->PublicName = CCrack::strVARIANT(m_pRecordset->GetFieldValue(1));
        record->VessaName = CCrack::strVARIANT(m_pRecordset->GetFieldValue(2));
        for (int column = BookkeepingColumns; column < m_pRecordset->GetFieldCount(); ++column)
            record->SetColumn(column, m_pRecordset->GetFieldValue(column));
        return 1;
    });
    return read == 1 ? std::move(record) : nullptr;
}

const SectionFamily* CatalogueSectionDB::OpenSection(const char* name) {
    if (OpenSectionDatabase() != 1)
        return nullptr;
    FindSectionTable(name, m_szTableName);
    if (m_szTableName.IsEmpty()) {
        closeRecordset(&m_pRecordset);
        return nullptr;
    }
    const CString sql =
        "Select * From [" + m_szTableName + "] WHERE UPPER([VessaName]) = UPPER('" + name + "')";
    if (OpenSql(sql, CSectionRecordset::Snapshot) != 1)
        return nullptr;
    // Two sections of one name cannot be told apart: neither is read.
    if (getRecordCount(&m_pRecordset) != 1 || setRecordsetToFirst(&m_pRecordset) != 1) {
        closeRecordset(&m_pRecordset);
        return nullptr;
    }
    return RecordFamily(m_szTableName);
}

SectionRecord* CatalogueSectionDB::GetSectionData(const char* name, int* sectionType) {
    const SectionFamily* family = OpenSection(name);
    if (family == nullptr)
        return nullptr;
    auto record = ReadCurrentRow(family->layout);
    if (record)
        *sectionType = family->sectionType;
    return record.release();
}

SECTIONINFO* CatalogueSectionDB::GetSectionStructProperty(const char* name, unsigned int unit1,
                                                          unsigned int unit2, int* sectionType) {
    InitSectionRecords();
    std::unique_ptr<SectionRecord> record(GetSectionData(name, sectionType));
    if (!record)
        return nullptr;
    const std::unique_ptr<CStringArray> units(UNIT::GetFieldUnitList(m_pDatabase, m_szTableName));
    if (!units)
        return nullptr;
    const SectionFamily& family = *RecordFamily(m_szTableName);
    auto info =
        dbsection::SummariseSection(*record, family.layout, Density(), *units, unit2, unit1);
    m_records[static_cast<std::size_t>(&family - m_families.data())] = std::move(record);
    return info.release();
}
