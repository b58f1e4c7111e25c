// A cell as text, for the writers of tables.
#pragma once

#include "output/Table.h"

#include <algorithm>
#include <fmt/format.h>
#include <string_view>

namespace dbsection {

/// How a form writes what a cell may hold; counts are the same in all.
struct CellWriter {
    const char* nothing;
    std::string (*text)(std::string_view);
    std::string (*figure)(const Figure&);

    std::string operator()(std::monostate) const { return nothing; }
    std::string operator()(const std::string& value) const { return text(value); }
    std::string operator()(int count) const { return fmt::format("{}", count); }
    std::string operator()(const Figure& value) const { return figure(value); }
};

inline std::string CellText(const Table::Cell& cell, const CellWriter& writer) {
    return std::visit(writer, cell);
}

inline bool IsComputed(const Table::Cell& cell) {
    const auto* figure = std::get_if<Figure>(&cell);
    return figure != nullptr && figure->isComputed;
}

/// The names of the columns of a row whose figures are computed, separated by blanks.
inline std::string ComputedColumns(const Table& table, const Table::Row& row) {
    std::string names;
    for (std::size_t i = 0; i < row.size(); ++i)
        if (IsComputed(row[i]))
            names.append(names.empty() ? "" : " ").append(table.columns[i].name);
    return names;
}

/// Whether a column has a unit, so that units are to be written.
inline bool HasUnits(const Table& table) {
    return std::ranges::any_of(table.columns,
                               [](const auto& column) { return !column.unit.empty(); });
}

} // namespace dbsection
