#include "files/SectionColumns.h"

#include "records/SectionLayout.h"
#include "units/UNIT.h"

namespace dbsection {

PrintedUnit InChosenUnits(const std::string& stored, const UnitChoice& choice) {
    // by the factors of the façade
    return {LabelOf(stored, choice),
            UNIT::ConvertUnitTo(1, CString(stored), choice.force, choice.length)};
}

std::vector<SectionColumn> ColumnsOf(const sections::Family& family, const UnitChoice& units) {
    std::vector<SectionColumn> columns{
        {.name = "RECNO"}, {.name = "Name", .isText = true}, {.name = "VessaName", .isText = true}};
    for (const sections::Column& column : family.columns()) {
        const bool isText = column.quantity == Quantity::Text;
        const auto& [label, factor] = InChosenUnits(isText ? "" : column.unit, units);
        columns.push_back({column.name, label, factor, isText, column.meaning});
    }
    return columns;
}

Table::Cell CellAt(const sections::Section& section, std::span<const SectionColumn> columns,
                   std::size_t index) {
    switch (index) {
    case IdentifierColumn:
        return Figure{static_cast<double>(section.recordNumber())};
    case NameColumn:
        return section.name();
    case VessaNameColumn:
        return section.programName();
    default:
        break;
    }
    const auto& [name, unit, factor, isText, meaning] = columns[index];
    if (isText) {
        const auto text = section.findText(name);
        return text ? Table::Cell(std::string(*text)) : Table::Cell();
    }
    const auto quantity = section.find(name);
    return quantity ? Table::Cell(Figure{quantity->figure(), factor}) : Table::Cell();
}

Table TableOf(std::span<const sections::Section> sections, std::span<const SectionColumn> columns) {
    Table table;
    for (const SectionColumn& column : columns.subspan(NameColumn))
        table.columns.push_back({column.name, column.unit});
    for (const sections::Section& section : sections) {
        Table::Row& row = table.rows.emplace_back();
        for (std::size_t i = NameColumn; i < columns.size(); ++i)
            row.push_back(CellAt(section, columns, i));
    }
    return table;
}

} // namespace dbsection
