#include "commands/Command.h"
#include "commands/FamilyTable.h"
#include "commands/Options.h"
#include "records/CatalogueList.h"

#include <filesystem>
#include <functional>
#include <optional>

namespace dbsection {
namespace {

/// What there is to say of a catalogue, as `open` finds it.
Table::Row CatalogueRow(int number, const std::string& file, CatalogueFaults& faults,
                        const std::function<std::optional<sections::Catalogue>()>& open) {
    Table::Row row{number, FindCatalogue(number)->name, file, {}, {}, "at fault", ""};
    faults.Try([&] {
        const auto catalogue = open();
        if (!catalogue) {
            row[5] = "no file";
            return;
        }
        row = {catalogue->number(),
               FindCatalogue(catalogue->number())->name,
               file,
               static_cast<int>(catalogue->families().size()),
               static_cast<int>(catalogue->size()),
               RemarkOn(catalogue->size()),
               catalogue->standard()};
    });
    return row;
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
    void Declare(CommandLine& line) override {
        line.Add("catalogue", m_catalogue, "Number, file stem or name");
        line.Add("family", m_family, "Shape family, e.g. \"W Shape\"");
        m_form.Declare(line);
        m_catalogues.Declare(line);
    }

    void Run() const override {
        const CatalogueFolder folder = m_catalogues.Folder();
        if (m_catalogue.empty()) {
            ListCatalogues(folder);
            return;
        }
        const sections::Catalogue catalogue = folder.Open(m_catalogue);
        Print(m_family.empty() ? FamilyTable(catalogue)
                               : SectionTable(catalogue, FindFamily(catalogue, m_family)),
              m_form.Form());
    }

    void ListCatalogues(const CatalogueFolder& folder) const {
        CatalogueFaults faults;
        faults.Try([&] { folder.RequireThere(); });
        Table table(
            {{"number"}, {"name"}, {"file"}, {"families"}, {"sections"}, {"remark"}, {"standard"}});
        for (int number = 1; number <= LastCatalogueIndex; ++number)
            table.rows.push_back(
                CatalogueRow(number, FindCatalogue(number)->stem, faults, [&, number] {
                    return folder.FileOf(number).empty() ? std::nullopt
                                                         : std::optional(folder.Open(number));
                }));
        if (const std::string& own = folder.UserFile(); !own.empty())
            table.rows.push_back(
                CatalogueRow(UserTableIndex, std::filesystem::path(own).filename().string(), faults,
                             [&] { return std::optional(folder.OpenUserFile()); }));
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
