// Tables as comma-separated text.
#include "output/CellText.h"
#include "output/Escapes.h"

namespace dbsection {
namespace {

constexpr CellWriter Writer{"", CsvText, [](const Figure& figure) { return ExactText(figure); }};

class CsvLine {
public:
    CsvLine& Add(const std::string& field) {
        m_text += m_separator + field;
        m_separator = ",";
        return *this;
    }
    std::string End() const { return m_text + '\n'; }

private:
    std::string m_text;
    const char* m_separator = "";
};

std::string HeadOf(const Table& table) {
    CsvLine names;
    CsvLine units;
    for (const auto& [name, value] : table.subject.facts) {
        names.Add(CsvText(name));
        units.Add("");
    }
    for (const Table::Column& column : table.columns) {
        names.Add(CsvText(column.name));
        units.Add(CsvText(column.unit));
    }
    if (table.marksComputed) {
        names.Add("computed");
        units.Add("");
    }
    return names.End() + (HasUnits(table) ? units.End() : "");
}

} // namespace

std::string CsvOf(std::span<const Table> tables) {
    std::string text = HeadOf(tables.front());
    for (const Table& table : tables)
        for (const Table::Row& row : table.rows) {
            CsvLine line;
            for (const auto& [name, value] : table.subject.facts)
                line.Add(CsvText(value));
            for (const Table::Cell& cell : row)
                line.Add(CellText(cell, Writer));
            if (table.marksComputed)
                line.Add(CsvText(ComputedColumns(table, row)));
            text += line.End();
        }
    return text;
}

} // namespace dbsection
