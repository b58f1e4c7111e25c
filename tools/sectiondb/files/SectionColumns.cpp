#include "files/SectionColumns.h"

namespace dbsection {

std::vector<SectionColumn> ReadColumns(const OpenCatalogue& open, const SectionFamily& family,
                                       const UnitChoice& units) {
    std::vector<std::string> stored = UnitsOf(open, family);
    std::vector<SectionColumn> columns;
    ReadTable(family, [&] {
        CSectionTableDef table(open.database);
        table.Open(family.table);
        stored.resize(static_cast<std::size_t>(table.GetFieldCount()));
        for (int i = 0; i < table.GetFieldCount(); ++i) {
            CSectionFieldInfo field;
            table.GetFieldInfo(i, field);
            const bool isText =
                field.m_nType == SectionField::Text || field.m_nType == SectionField::Memo;
            const auto& [factor, unit] =
                InChosenUnits(1, isText ? "" : stored[static_cast<std::size_t>(i)], units);
            columns.push_back({std::string(field.m_strName.View()), unit, factor, isText});
        }
    });
    RequireBookkeeping(open, family, static_cast<int>(columns.size()));
    return columns;
}

Table::Cell CellAt(const CSectionRecordset& rows, int index, const SectionColumn& column) {
    const COleVariant value = rows.GetFieldValue(index);
    if (value.vt == VT_NULL)
        return {};
    if (value.vt == VT_BSTR)
        return std::string(value.strVal.View());
    return Figure{NumberIn(value).value_or(0), column.factor};
}

} // namespace dbsection
