// What a command prints: rows of typed cells under named columns, the same in every form.
//
//     Table table({{"name"}, {"AX", "in^2"}});
//     table.rows.push_back({"W12X26", Figure{7.65}});
//     Print(table, TableForm::Text);
#pragma once

#include "output/Figure.h"

#include <span>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace dbsection {

struct Table {
    struct Column {
        std::string name;
        std::string unit = {}; ///< of its figures; empty for texts and plain numbers
    };

    /// Nothing (what is not known), a text, a count, or a figure.
    using Cell = std::variant<std::monostate, std::string, int, Figure>;
    using Row = std::vector<Cell>; ///< a cell per column

    /// What all rows are about, where they are the properties of one thing.
    struct Subject {
        std::string title;                                      ///< for a person
        std::vector<std::pair<std::string, std::string>> facts; ///< names and values, for a program
        std::string rows;                                       ///< what the rows are
        std::vector<std::string> notes = {};                    ///< for a person, below the rows
    };

    Table() = default;
    explicit Table(std::vector<Column> itsColumns) : columns(std::move(itsColumns)) {}

    Subject subject;
    bool marksComputed = false; ///< figures that are computed are told apart from published ones
    std::vector<Column> columns;
    std::vector<Row> rows;
};

enum class TableForm { Text, Csv, Json };

/// Prints a table, or several of the same columns that each have a subject, to stdout.
void Print(std::span<const Table> tables, TableForm form);
inline void Print(const Table& table, TableForm form) { Print({&table, 1}, form); }

/// For a person: columns side by side, their names and units above, "-" where nothing is known, "*"
/// behind a figure that is marked as computed.
std::string TextOf(std::span<const Table> tables);

/// Comma-separated text: a line of names, one of units where there are any, the rows, which begin
/// with the facts of their subject. Where computed figures are marked, a last column "computed" has
/// the names of their columns.
std::string CsvOf(std::span<const Table> tables);

/// An array of objects, the cells by column name, and the units by column name under "units" where
/// there are any; "computed" is as in CSV. Tables with a subject are objects themselves, of its
/// facts and their rows.
std::string JsonOf(std::span<const Table> tables);

} // namespace dbsection
