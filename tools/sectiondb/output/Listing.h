// Sections in rows and columns, as a command prints them.
#pragma once

#include <string>
#include <variant>
#include <vector>

namespace dbsection {

struct Listing {
    struct Column {
        std::string name;
        std::string unit; ///< empty for texts and plain numbers
        bool isText;
        bool isConverted; ///< to another unit than the table's
    };
    using Cell = std::variant<std::monostate, double, std::string>; ///< nothing, number or text

    std::vector<Column> columns;
    std::vector<std::vector<Cell>> rows; ///< a cell per column
};

/// A cell to be read by a person, and as a JSON value.
std::string ReadableText(const Listing::Cell& cell, bool isConverted);
std::string JsonValue(const Listing::Cell& cell);

/// Columns side by side, names and units above them.
void PrintAligned(const Listing& listing);

/// Comma-separated text: a line of names, a line of units, the rows.
void PrintCsv(const Listing& listing);

/// An array of objects: the cells by column name, and the units by column name under "units".
void PrintJson(const Listing& listing);

} // namespace dbsection
