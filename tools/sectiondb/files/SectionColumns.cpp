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
        columns.push_back({.name = column.name,
                           .unit = label,
                           .storedUnit = column.unit,
                           .factor = factor,
                           .isText = isText,
                           .meaning = column.meaning});
    }
    return columns;
}

std::vector<SectionColumn> AllColumnsOf(const sections::Family& family, const UnitChoice& units) {
    std::vector<SectionColumn> columns = ColumnsOf(family, units);
    for (const sections::DerivedColumn& column : family.derivedColumns()) {
        const auto& [label, factor] = InChosenUnits(column.unit, units);
        columns.push_back({.name = column.name,
                           .unit = label,
                           .storedUnit = column.unit,
                           .factor = factor,
                           .meaning = column.meaning,
                           .isDerived = true,
                           .isDetail = column.isDetail});
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
    const SectionColumn& column = columns[index];
    if (column.isText) {
        const auto text = section.findText(column.name);
        return text ? Table::Cell(std::string(*text)) : Table::Cell();
    }
    const auto quantity =
        column.isDerived ? section.findDerived(column.name) : section.find(column.name);
    if (!quantity)
        return {};
    const bool isComputed = section.source(column.name) == sections::FigureSource::Computed;
    return Figure{column.isDerived ? WithoutNoise(quantity->figure()) : quantity->figure(),
                  column.factor, isComputed};
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
