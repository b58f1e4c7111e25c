// Tables for a person.
#include "output/CellText.h"
#include "output/Escapes.h"

#include <algorithm>

namespace dbsection {
namespace {

using Line = std::vector<std::string>;

constexpr CellWriter Writer{"-", PlainText, ReadableText};

/// The columns of which figures are marked, so that the others leave room for the mark.
std::vector<bool> MarkedColumns(const Table& table) {
    std::vector<bool> isMarked(table.columns.size(), false);
    if (table.marksComputed)
        for (const Table::Row& row : table.rows)
            for (std::size_t i = 0; i < row.size(); ++i)
                isMarked[i] = isMarked[i] || IsComputed(row[i]);
    return isMarked;
}

std::vector<Line> LinesOf(const Table& table) {
    std::vector<Line> lines(HasUnits(table) ? 2 : 1);
    for (const Table::Column& column : table.columns) {
        lines[0].push_back(PlainText(column.name));
        if (lines.size() > 1)
            lines[1].push_back(PlainText(column.unit));
    }
    const std::vector<bool> isMarked = MarkedColumns(table);
    for (const Table::Row& row : table.rows) {
        Line& line = lines.emplace_back();
        for (std::size_t i = 0; i < row.size(); ++i)
            line.push_back(CellText(row[i], Writer) + (!isMarked[i]         ? ""
                                                       : IsComputed(row[i]) ? "*"
                                                                            : " "));
    }
    return lines;
}

/// Numbers stand under each other by their last digits.
bool IsOfNumbers(const Table& table, std::size_t column) {
    return std::ranges::any_of(table.rows, [column](const Table::Row& row) {
        return std::holds_alternative<int>(row[column]) ||
               std::holds_alternative<Figure>(row[column]);
    });
}

std::string Aligned(const Table& table) {
    const std::vector<Line> lines = LinesOf(table);
    std::vector<std::size_t> widths(table.columns.size());
    for (const Line& line : lines)
        for (std::size_t i = 0; i < line.size(); ++i)
            widths[i] = std::max(widths[i], WidthOf(line[i]));
    std::vector<bool> isOfNumbers;
    for (std::size_t i = 0; i < widths.size(); ++i)
        isOfNumbers.push_back(IsOfNumbers(table, i));
    const std::string indent(table.subject.title.empty() ? 0 : 2, ' ');
    std::string text;
    for (const Line& line : lines) {
        text += indent;
        for (std::size_t i = 0; i < line.size(); ++i) {
            const std::string blanks(widths[i] - WidthOf(line[i]), ' ');
            text += (isOfNumbers[i] ? blanks + line[i] : line[i] + blanks) + "  ";
        }
        text.erase(text.find_last_not_of(' ') + 1);
        text += '\n';
    }
    return text;
}

} // namespace

std::string TextOf(std::span<const Table> tables) {
    std::string text;
    for (const Table& table : tables) {
        if (!table.subject.title.empty())
            text += PlainText(table.subject.title) + '\n';
        text += Aligned(table);
        for (const std::string& note : table.subject.notes)
            text += "  " + PlainText(note) + '\n';
        const std::vector<bool> isMarked = MarkedColumns(table);
        if (std::ranges::find(isMarked, true) != isMarked.end())
            text += "* computed\n";
    }
    return text;
}

} // namespace dbsection
