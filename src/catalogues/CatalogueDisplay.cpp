// Display values: a section's numbers for the property grids of a front end.
#include "catalogues/CatalogueSectionDB.h"

#include "catalogues/SectionTables.h"
#include "dataaccess/CCrack.h"
#include "platform/Numbers.h"
#include "units/FieldUnits.h"

using dbsection::Operation;

/// A column of display values and what converts them.
struct DisplayColumn {
    int column; ///< of the table; -1: it lacks the column, and the value is 0
    double factor;
};

namespace {

constexpr const char* FailedToRead = "Failed to read the section.";

void Display(const CSectionRecordset& row, const std::vector<DisplayColumn>& columns,
             float* values) {
    for (const auto& [column, factor] : columns)
        *values++ =
            column < 0
                ? 0
                : dbsection::ToSingle(dbsection::AsNumber(row.GetFieldValue(column)) * factor);
}

} // namespace

/// The columns of the open rows, which are of the family; false when their units cannot be read. A
/// column without a unit is not converted.
bool CatalogueSectionDB::FindDisplayColumns(const SectionFamily& family, const DisplayUnits* units,
                                            std::vector<DisplayColumn>& columns) const {
    CStringArray kept;
    if (units != nullptr && dbsection::ReadFieldUnits(m_pDatabase, m_szTableName, kept) ==
                                dbsection::FieldUnits::Unreadable)
        return false;
    const int present = dbsection::CountPresentColumns(*m_pRecordset, family.layout);
    for (const int i : GetDisplayOrder(family.layout)) {
        const int column = BookkeepingColumns + i;
        const double factor = units == nullptr
                                  ? 1
                                  : UNIT::ConvertUnitTo(1, dbsection::UnitOf(kept, column),
                                                        units->force, units->length);
        columns.push_back({i < present ? column : -1, factor});
    }
    return true;
}

void CatalogueSectionDB::GetAllSectionDataForGUI(int /*sectionType*/, CStringArray* names,
                                                 float (*values)[16], unsigned int unit1,
                                                 unsigned int unit2) {
    Operation("GetAllSectionDataForGUI()", [&] {
        const SectionFamily* family = RecordFamily(m_szTableName);
        if (family == nullptr ||
            OpenSql("SELECT * FROM [" + m_szTableName + "]", CSectionRecordset::Snapshot) != 1)
            return;
        const int count = getRecordCount(&m_pRecordset);
        dbsection::Guarded({"GetAllSectionDataForGUI()", FailedToRead}, [&] {
            const DisplayUnits units{unit1, unit2};
            std::vector<DisplayColumn> columns;
            if (!FindDisplayColumns(*family, &units, columns))
                return 0;
            names->SetSize(count);
            if (count != 0)
                m_pRecordset->MoveFirst();
            for (int i = 0; i < count; ++i, m_pRecordset->MoveNext()) {
                names->SetAt(i, CCrack::strVARIANT(m_pRecordset->GetFieldValue(VessaNameColumn)));
                Display(*m_pRecordset, columns, values[i]);
            }
            return 1;
        });
        closeRecordset(&m_pRecordset);
    });
}

int CatalogueSectionDB::GetSectionDataForGUI(int /*index*/, int /*sectionType*/, int recordNo,
                                             CString* name, float* values, const char* /*unitText*/,
                                             unsigned int unit1, unsigned int unit2) {
    return Operation("GetSectionDataForGUI()", [&] {
        const SectionFamily* family = RecordFamily(m_szTableName);
        CString sql;
        sql.Format("SELECT * FROM [%s] WHERE [RECNO] =%d", static_cast<const char*>(m_szTableName),
                   recordNo);
        if (family == nullptr || OpenSql(sql, CSectionRecordset::Snapshot) != 1)
            return 0;
        const int result = dbsection::Guarded({"GetSectionDataForGUI()", FailedToRead}, [&] {
            const DisplayUnits units{unit1, unit2};
            std::vector<DisplayColumn> columns;
            if (m_pRecordset->IsEOF() || !FindDisplayColumns(*family, &units, columns))
                return 0;
            *name = CCrack::strVARIANT(m_pRecordset->GetFieldValue(VessaNameColumn));
            Display(*m_pRecordset, columns, values);
            return 1;
        });
        closeRecordset(&m_pRecordset);
        return result;
    });
}

int CatalogueSectionDB::GetSectionDataForGUI(int /*index*/, const char* name, int* sectionType,
                                             int* recordNo, float* values, unsigned int unit1,
                                             unsigned int unit2) {
    return Operation("GetSectionDataForGUI()", [&] {
        const DisplayUnits units{unit1, unit2};
        return DisplaySection(name, sectionType, recordNo, values, &units);
    });
}

int CatalogueSectionDB::DisplaySection(const char* name, int* sectionType, int* recordNo,
                                       float* values, const DisplayUnits* units) {
    const SectionFamily* family = OpenSection(name);
    if (family == nullptr)
        return 0;
    const int result = dbsection::Guarded({"GetSectionDataForGUI()", FailedToRead}, [&] {
        std::vector<DisplayColumn> columns;
        if (!FindDisplayColumns(*family, units, columns))
            return 0;
        Display(*m_pRecordset, columns, values);
        *recordNo = dbsection::WholeNumber<int>(
            dbsection::AsNumber(m_pRecordset->GetFieldValue(IdentifierColumn)));
        // That of the table itself, of which the user selects, whatever family it is read as.
        const SectionFamily* own = FindFamily(m_szTableName);
        *sectionType = (own == nullptr ? family : own)->sectionType;
        return 1;
    });
    closeRecordset(&m_pRecordset);
    return result;
}
