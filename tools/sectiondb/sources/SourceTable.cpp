#include "sources/SourceTable.h"

#include "catalogues/AISCSteelJoistSectionDB.h"
#include "catalogues/JoistTables.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

namespace dbsection {
namespace {

constexpr std::string_view LayoutAreaColumn = "AX";

SourceTable MakeJoistTable(const JoistTable& joists) {
    static constexpr std::array Searched{"Name", "JoistID", "Designation"};
    SourceTable table{joists.name, {}, {}, {}};
    for (const JoistColumn& column : joists.columns) {
        const std::string_view name = column.name;
        table.columns.push_back({column.name, column.type, column.unit, name == "RECNO"});
        if (name == "VessaName")
            table.indexes.push_back({"UPPER([VessaName])"});
        else if (std::ranges::find(Searched, name) != Searched.end())
            table.indexes.push_back({"[" + std::string(name) + "]"});
    }
    return table;
}

} // namespace

SourceTable MakeSectionTable(const std::string& name, const SectionLayout& layout,
                             const char* areaColumn, const UnitsByQuantity& units) {
    // An alloy has a row for each product and range of thickness.
    const bool isUnique = layout.id != LayoutId::AluminiumAlloy;
    // What the fixed statements search and sort by.
    SourceTable table{name,
                      {{"RECNO", SectionField::Long, "NUMBER", true},
                       {"Name", SectionField::Text, "TEXT"},
                       {"VessaName", SectionField::Text, "TEXT"}},
                      {{"UPPER([VessaName])"}, {"[Name]", isUnique}},
                      {}};
    for (const LayoutColumn& column : layout.columns) {
        const bool isArea = column.name == LayoutAreaColumn;
        const std::string title = isArea ? areaColumn : column.name;
        const bool isText = column.quantity == Quantity::Text;
        table.columns.push_back({title, isText ? SectionField::Text : SectionField::Double,
                                 units(column.quantity), false, !column.MayBeNull()});
        if (isArea)
            table.indexes.push_back({"[" + title + "]"});
    }
    return table;
}

std::vector<SourceTable> MakeEmptyTables(const CatalogueSectionDB& catalogue,
                                         const UnitsByQuantity& units) {
    std::vector<SourceTable> tables;
    if (dynamic_cast<const AISCSteelJoistSectionDB*>(&catalogue) != nullptr) {
        std::ranges::transform(JoistTables(), std::back_inserter(tables), MakeJoistTable);
        return tables;
    }
    for (const SectionFamily& family : catalogue.Families())
        tables.push_back(MakeSectionTable(family.table, GetSectionLayout(family.layout),
                                          catalogue.AreaColumn(), units));
    return tables;
}

} // namespace dbsection
