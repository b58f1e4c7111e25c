#include "output/Listing.h"

#include "output/OutputText.h"

#include <algorithm>
#include <cstdio>
#include <fmt/format.h>

namespace dbsection {
namespace {

using Column = Listing::Column;
using Cell = Listing::Cell;

/// A cell as text: `number` writes numbers, `text` texts.
template <class Number, class Text>
std::string CellText(const Cell& cell, const char* nothing, Number number, Text text) {
    if (const auto* value = std::get_if<double>(&cell))
        return number(*value);
    if (const auto* value = std::get_if<std::string>(&cell))
        return text(*value);
    return nothing;
}

/// All lines that are printed, the two header lines first.
std::vector<std::vector<std::string>> ReadableLines(const Listing& listing) {
    std::vector<std::vector<std::string>> lines(2);
    for (const Column& column : listing.columns) {
        lines[0].push_back(PlainText(column.name));
        lines[1].push_back(PlainText(column.unit));
    }
    for (const auto& row : listing.rows) {
        auto& line = lines.emplace_back();
        for (std::size_t i = 0; i < row.size(); ++i)
            line.push_back(ReadableText(row[i], listing.columns[i].isConverted));
    }
    return lines;
}

} // namespace

std::string ReadableText(const Cell& cell, bool isConverted) {
    return CellText(
        cell, "", [&](double number) { return FigureText(number, isConverted); }, PlainText);
}

std::string JsonValue(const Cell& cell) {
    return CellText(
        cell, "null", [](double number) { return ExactText(number, "null"); }, JsonText);
}

void PrintAligned(const Listing& listing) {
    const auto lines = ReadableLines(listing);
    std::vector<std::size_t> widths(listing.columns.size());
    for (const auto& line : lines)
        for (std::size_t i = 0; i < line.size(); ++i)
            widths[i] = std::max(widths[i], line[i].size());
    for (const auto& line : lines) {
        std::string printed;
        for (std::size_t i = 0; i < line.size(); ++i)
            printed += listing.columns[i].isText ? fmt::format("{:<{}}  ", line[i], widths[i])
                                                 : fmt::format("{:>{}}  ", line[i], widths[i]);
        printed.erase(printed.find_last_not_of(' ') + 1);
        fmt::print("{}\n", printed);
    }
}

void PrintCsv(const Listing& listing) {
    std::string names;
    std::string units;
    const char* separator = "";
    for (const Column& column : listing.columns) {
        names += separator + CsvText(column.name);
        units += separator + CsvText(column.unit);
        separator = ",";
    }
    fmt::print("{}\n{}\n", names, units);
    for (const auto& row : listing.rows) {
        std::string line;
        for (const Cell& cell : row)
            line += CellText(
                        cell, "", [](double number) { return ExactText(number); }, CsvText) +
                    ',';
        line.back() = '\n';
        fmt::print("{}", line);
    }
}

void PrintJson(const Listing& listing) {
    std::string units;
    for (const Column& column : listing.columns)
        if (!column.unit.empty())
            units += fmt::format("{}{}: {}", units.empty() ? "" : ", ", JsonText(column.name),
                                 JsonText(column.unit));
    fmt::print("[");
    const char* separator = "\n";
    for (const auto& row : listing.rows) {
        fmt::print("{}  {{", separator);
        for (std::size_t i = 0; i < row.size(); ++i)
            fmt::print("{}: {}, ", JsonText(listing.columns[i].name), JsonValue(row[i]));
        fmt::print("\"units\": {{{}}}}}", units);
        separator = ",\n";
    }
    fmt::print("\n]\n");
}

} // namespace dbsection
