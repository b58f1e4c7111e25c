// Display values: a section's numbers for the property grids of a front end.
#include "catalogues/CatalogueSectionDB.h"

#include "dataaccess/CCrack.h"
#include "dataaccess/Guard.h"
#include "units/FieldUnits.h"

#include <algorithm>

/// A column of display values and what converts them.
struct DisplayColumn {
    int column;
    double factor;
};

namespace {

constexpr const char* FailedToRead = "Failed to read the section.";

/// The columns of a layout in display order.
std::vector<int> DisplayOrder(LayoutId layout) {
    const auto& columns = GetSectionLayout(layout).columns;
    std::vector<int> order;
    order.reserve(columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (columns[i].quantity != Quantity::Text)
            order.push_back(static_cast<int>(i));
    const auto area = std::ranges::find_if(order, [&](int i) {
        return columns[static_cast<std::size_t>(i)].quantity == Quantity::Area;
    });
    if (area != order.end())
        std::rotate(order.begin(), area, area + 1);
    return order;
}

void Display(const CSectionRecordset& row, const std::vector<DisplayColumn>& columns,
             float* values) {
    for (const auto& [column, factor] : columns)
        *values++ = static_cast<float>(dbsection::AsNumber(row.GetFieldValue(column)) * factor);
}

} // namespace

/// Reads the units of the working table, whose rows are of the family; false when they cannot be
/// read. A column without a unit is not converted.
bool CatalogueSectionDB::ReadDisplayFactors(const SectionFamily& family, const DisplayUnits* units,
                                            std::vector<DisplayColumn>& columns) const {
    CStringArray kept;
    if (units != nullptr && dbsection::ReadFieldUnits(m_pDatabase, m_szTableName, kept) ==
                                dbsection::FieldUnits::Unreadable)
        return false;
    for (const int i : DisplayOrder(family.layout)) {
        const int column = BookkeepingColumns + i;
        const double factor = units == nullptr
                                  ? 1
                                  : UNIT::ConvertUnitTo(1, dbsection::UnitOf(kept, column),
                                                        units->force, units->length);
        columns.push_back({column, factor});
    }
    return true;
}

void CatalogueSectionDB::GetAllSectionDataForGUI(int /*sectionType*/, CStringArray* names,
                                                 float (*values)[16], unsigned int unit1,
                                                 unsigned int unit2) {
    const SectionFamily* family = RecordFamily(m_szTableName);
    const DisplayUnits units{unit1, unit2};
    std::vector<DisplayColumn> columns;
    if (family == nullptr || !ReadDisplayFactors(*family, &units, columns) ||
        OpenSql("SELECT * FROM [" + m_szTableName + "]", CSectionRecordset::Snapshot) != 1)
        return;
    const int count = getRecordCount(&m_pRecordset);
    dbsection::Guarded({"GetAllSectionDataForGUI()", FailedToRead}, [&] {
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
}

int CatalogueSectionDB::GetSectionDataForGUI(int /*index*/, int /*sectionType*/, int recordNo,
                                             CString* name, float* values, const char* /*unitText*/,
                                             unsigned int unit1, unsigned int unit2) {
    const SectionFamily* family = RecordFamily(m_szTableName);
    const DisplayUnits units{unit1, unit2};
    std::vector<DisplayColumn> columns;
    if (family == nullptr || !ReadDisplayFactors(*family, &units, columns))
        return 0;
    CString sql;
    sql.Format("SELECT * FROM [%s] WHERE [RECNO] =%d", static_cast<const char*>(m_szTableName),
               recordNo);
    if (OpenSql(sql, CSectionRecordset::Snapshot) != 1)
        return 0;
    const int result = dbsection::Guarded({"GetSectionDataForGUI()", FailedToRead}, [&] {
        if (m_pRecordset->IsEOF())
            return 0;
        *name = CCrack::strVARIANT(m_pRecordset->GetFieldValue(VessaNameColumn));
        Display(*m_pRecordset, columns, values);
        return 1;
    });
    closeRecordset(&m_pRecordset);
    return result;
}

int CatalogueSectionDB::GetSectionDataForGUI(int /*index*/, const char* name, int* sectionType,
                                             int* recordNo, float* values, unsigned int unit1,
                                             unsigned int unit2) {
    const DisplayUnits units{unit1, unit2};
    return DisplaySection(name, sectionType, recordNo, values, &units);
}

int CatalogueSectionDB::DisplaySection(const char* name, int* sectionType, int* recordNo,
                                       float* values, const DisplayUnits* units) {
    const SectionFamily* family = OpenSection(name);
    std::vector<DisplayColumn> columns;
    if (family == nullptr || !ReadDisplayFactors(*family, units, columns))
        return 0;
    const int result = dbsection::Guarded({"GetSectionDataForGUI()", FailedToRead}, [&] {
        Display(*m_pRecordset, columns, values);
        *recordNo =
            static_cast<int>(dbsection::AsNumber(m_pRecordset->GetFieldValue(IdentifierColumn)));
        *sectionType = family->sectionType;
        return 1;
    });
    closeRecordset(&m_pRecordset);
    return result;
}
