#include "commands/Command.h"
#include "commands/FamilyTable.h"
#include "commands/Options.h"
#include "records/CatalogueList.h"

namespace dbsection {
namespace {

Table::Row CatalogueRow(const CatalogueFolder& folder, int number, CatalogueFaults& faults) {
    Table::Cell families;
    Table::Cell sections;
    std::string standard;
    const char* remark = "at fault";
    faults.Try([&] {
        if (folder.FileOf(number).empty()) {
            remark = "no file";
            return;
        }
        const sections::Catalogue catalogue = folder.Open(number);
        families = static_cast<int>(catalogue.families().size());
        sections = static_cast<int>(catalogue.size());
        remark = RemarkOn(catalogue.size());
        standard = catalogue.standard();
    });
    const SectionCatalogue& catalogue = *FindCatalogue(number);
    return {number, catalogue.name, catalogue.stem, families, sections, remark, standard};
}

/// The sections of all families that have the family's table.
Table SectionTable(const sections::Catalogue& catalogue, const sections::Family& wanted) {
    Table table({{"name"}, {"programName"}});
    for (const sections::Family& family : catalogue.families())
        if (family.name() == wanted.name())
            for (const sections::Section& section : family.sections())
                table.rows.push_back({section.name(), section.programName()});
    return table;
}

class List : public Command {
    void Declare(CLI::App& app) override {
        app.add_option("catalogue", m_catalogue, "Number, file stem or name");
        app.add_option("family", m_family, "Shape family, e.g. \"W Shape\"");
        m_form.Declare(app);
        m_catalogues.Declare(app);
    }

    void Run() const override {
        const CatalogueFolder folder = m_catalogues.Folder();
        if (m_catalogue.empty()) {
            ListCatalogues(folder);
            return;
        }
        const sections::Catalogue catalogue = folder.Open(sections::Library::numberOf(m_catalogue));
        Print(m_family.empty() ? FamilyTable(catalogue)
                               : SectionTable(catalogue, FindFamily(catalogue, m_family)),
              m_form.Form());
    }

    void ListCatalogues(const CatalogueFolder& folder) const {
        CatalogueFaults faults;
        Table table(
            {{"number"}, {"name"}, {"file"}, {"families"}, {"sections"}, {"remark"}, {"standard"}});
        for (int number = 1; number <= LastCatalogueIndex; ++number)
            table.rows.push_back(CatalogueRow(folder, number, faults));
        Print(table, m_form.Form());
        faults.ThrowIfAny();
    }

    std::string m_catalogue; // empty: all catalogues
    std::string m_family;    // empty: all families
    FormOptions m_form;
    CatalogueOptions m_catalogues;
};

const CommandEntry entry("list", "List catalogues, families or sections", Make<List>);

} // namespace
} // namespace dbsection
