// Tables as JSON.
#include "output/CellText.h"
#include "output/Escapes.h"
#include "output/JsonList.h"

namespace dbsection {
namespace {

constexpr CellWriter Writer{"null", JsonText,
                            [](const Figure& figure) { return ExactText(figure, "null"); }};

std::string UnitsOf(const Table& table) {
    JsonList units;
    for (const Table::Column& column : table.columns)
        if (!column.unit.empty())
            units.AddMember(column.name, JsonText(column.unit));
    return units.Object();
}

/// An array of its own lines, at a depth of indentation.
std::string ArrayOf(const std::vector<std::string>& items, const std::string& indent) {
    std::string text = "[";
    const char* separator = "\n";
    for (const std::string& item : items) {
        text.append(separator).append(indent).append("  ").append(item);
        separator = ",\n";
    }
    return text + '\n' + indent + ']';
}

std::string RowsOf(const Table& table, const std::string& indent) {
    const std::string units = HasUnits(table) ? UnitsOf(table) : "";
    std::vector<std::string> rows;
    for (const Table::Row& row : table.rows) {
        JsonList members;
        for (std::size_t i = 0; i < row.size(); ++i)
            members.AddMember(table.columns[i].name, CellText(row[i], Writer));
        if (table.marksComputed)
            members.AddMember("computed", JsonText(ComputedColumns(table, row)));
        if (!units.empty())
            members.AddMember("units", units);
        rows.push_back(members.Object());
    }
    return ArrayOf(rows, indent);
}

std::string ObjectOf(const Table& table, const std::string& indent) {
    JsonList members;
    for (const auto& [name, value] : table.subject.facts)
        members.AddMember(name, JsonText(value));
    members.AddMember(table.subject.rows, RowsOf(table, indent));
    return members.Object();
}

} // namespace

std::string JsonOf(std::span<const Table> tables) {
    if (tables.front().subject.facts.empty())
        return RowsOf(tables.front(), "") + '\n';
    std::vector<std::string> objects;
    for (const Table& table : tables)
        objects.push_back(ObjectOf(table, "  "));
    return ArrayOf(objects, "") + '\n';
}

} // namespace dbsection
