#include "commands/Command.h"
#include "commands/Options.h"
#include "files/SectionColumns.h"
#include "interface/SectionDBInterface.h"
#include "output/Messages.h"
#include "platform/Text.h"

#include <fmt/format.h>

namespace dbsection {
namespace {

const char* MeaningOf(LayoutId layout, std::string_view column) {
    for (const LayoutColumn& candidate : GetSectionLayout(layout).columns)
        if (EqualNoCase(candidate.name, column))
            return candidate.meaning;
    return "";
}

Table TableOf(const char* catalogue, const SectionFamily& family, const CSectionRecordset& rows,
              const std::vector<SectionColumn>& columns) {
    const std::string name = TextAt(rows, NameColumn);
    Table table({{"column"}, {"value"}, {"unit"}, {"meaning"}});
    table.subject = {fmt::format("{} ({}, {})", name, catalogue, family.table),
                     {{"catalogue", catalogue},
                      {"table", family.table},
                      {"name", name},
                      {"programName", TextAt(rows, VessaNameColumn)}},
                     "properties"};
    for (int i = BookkeepingColumns; i < std::ssize(columns); ++i) {
        const SectionColumn& column = columns[static_cast<std::size_t>(i)];
        table.rows.push_back({column.name, CellAt(rows, i, column), column.unit,
                              MeaningOf(family.layout, column.name)});
    }
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
        m_catalogues.Apply();
        const UnitChoice units = m_units.Choice();
        const int index = FindCatalogue(m_catalogue);
        const char* catalogue = SectionDBInterface::m_saCountryName[index];
        const OpenCatalogue open = Open(index);
        std::vector<Table> sections; // a name may stand in several families
        VisitSections(open, m_name,
                      [&](const SectionFamily& family, const CSectionRecordset& rows) {
                          const auto columns = ReadColumns(open, family, units);
                          sections.push_back(TableOf(catalogue, family, rows, columns));
                      });
        if (sections.empty())
            throw CommandError(fmt::format("There is no section \"{}\" in the catalogue {}; "
                                           "\"sectiondb list {} FAMILY\" prints the names.",
                                           m_name, catalogue, index));
        Print(sections, m_form.Form());
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
