#include "commands/Command.h"
#include "commands/Options.h"
#include "files/SectionColumns.h"
#include "output/Messages.h"
#include "records/CatalogueList.h"

#include <fmt/format.h>

namespace dbsection {
namespace {

Table TableOf(const char* catalogue, const sections::Section& section, const UnitChoice& units) {
    const std::string& family = section.family().name();
    Table table({{"column"}, {"value"}, {"unit"}, {"meaning"}});
    table.subject = {fmt::format("{} ({}, {})", section.name(), catalogue, family),
                     {{"catalogue", catalogue},
                      {"table", family},
                      {"name", section.name()},
                      {"programName", section.programName()}},
                     "properties"};
    const std::vector<SectionColumn> columns = ColumnsOf(section.family(), units);
    for (std::size_t i = BookkeepingColumns; i < columns.size(); ++i)
        table.rows.push_back(
            {columns[i].name, CellAt(section, columns, i), columns[i].unit, columns[i].meaning});
    return table;
}

class Show : public Command {
    void Declare(CLI::App& app) override {
        app.add_option("catalogue", m_catalogue, "Number, file stem or name")->required();
        app.add_option("name", m_name, "Section name, e.g. W12X26")->required();
        m_units.DeclareLength(app);
        m_units.DeclareForce(app);
        m_form.Declare(app);
        m_catalogues.Declare(app);
    }

    void Run() const override {
        const UnitChoice units = m_units.Choice();
        const int number = sections::Library::numberOf(m_catalogue);
        const char* catalogue = FindCatalogue(number)->name;
        std::vector<Table> found; // a name may stand in several families
        for (const sections::Section& section : m_catalogues.Folder().Open(number).findAll(m_name))
            found.push_back(TableOf(catalogue, section, units));
        if (found.empty())
            throw CommandError(fmt::format("There is no section \"{}\" in the catalogue {}; "
                                           "\"sectiondb list {} FAMILY\" prints the names.",
                                           m_name, catalogue, number));
        Print(found, m_form.Form());
    }

    std::string m_catalogue;
    std::string m_name;
    UnitOptions m_units;
    FormOptions m_form;
    CatalogueOptions m_catalogues;
};

const CommandEntry entry("show", "Print every property of a section", Make<Show>);

} // namespace
} // namespace dbsection
