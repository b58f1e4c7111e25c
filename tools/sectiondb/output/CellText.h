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

/// Whether a column has a unit, so that units are to be written.
inline bool HasUnits(const Table& table) {
    return std::ranges::any_of(table.columns,
                               [](const auto& column) { return !column.unit.empty(); });
}

} // namespace dbsection
