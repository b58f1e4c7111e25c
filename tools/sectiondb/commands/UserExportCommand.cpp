#include "commands/Command.h"
#include "commands/UserSection.h"
#include "files/CatalogueFolder.h"
#include "files/WholeFile.h"

namespace dbsection {
namespace {

/// Nothing is converted, so that nothing is rounded.
Table TableOf(const sections::Family& family) {
    Table table({{"Name", "TEXT"}, {"VessaName", "TEXT"}});
    for (const sections::Column& column : family.columns())
        table.columns.push_back({column.name, column.unit});
    for (const sections::Section& section : family.sections()) {
        Table::Row& row =
            table.rows.emplace_back(Table::Row{section.name(), section.programName()});
        for (const sections::Column& column : family.columns())
            if (const auto figure = section.find(column.name))
                row.emplace_back(Figure{figure->figure()});
            else
                row.emplace_back(std::string(section.findText(column.name).value_or("")));
    }
    return table;
}

class UserExport : public Command {
    void Declare(CommandLine& line) override {
        m_file.Declare(line);
        line.Add("family", m_family, "Shape family, e.g. \"Wide Flange\"").Required();
        line.Add("-o,--output", m_output, "Name of the file (default: standard output)")
            .Value("FILE.csv");
    }

    void Run() const override {
        if (!m_output.empty())
            RequireEnding(m_output, ".csv", "a list of sections");
        const Table table = TableOf(FindFamily(m_file.File().read(), m_family));
        if (m_output.empty())
            Print(table, TableForm::Csv);
        else
            WriteWholeFile(m_output, CsvOf({&table, 1}), "the list of sections");
    }

    UserFileOptions m_file;
    std::string m_family;
    std::string m_output; // empty: standard output
};

const CommandEntry entry("user export", "Write the sections of a family, to be read back",
                         Make<UserExport>);

} // namespace
} // namespace dbsection
