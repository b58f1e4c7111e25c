#include "commands/Command.h"
#include "commands/Options.h"
#include "commands/Suggestion.h"
#include "output/Messages.h"
#include "records/CatalogueList.h"

#include <fmt/format.h>

namespace dbsection {
namespace {

class Find : public Command {
    void Declare(CLI::App& app) override {
        app.add_option("name", m_name, "Section name, e.g. W12X26")->required();
        m_form.Declare(app);
        m_catalogues.Declare(app);
    }

    void Run() const override {
        const CatalogueFolder folder = m_catalogues.Folder();
        std::vector<sections::Catalogue> catalogues;
        CatalogueFaults faults;
        for (int number = 1; number <= LastCatalogueIndex; ++number)
            faults.Try([&] {
                if (!folder.FileOf(number).empty())
                    catalogues.push_back(folder.Open(number));
            });
        const std::size_t count = catalogues.size();
        const sections::NameIndex names(std::move(catalogues));
        const std::vector<sections::Hit> hits = names.find(m_name);
        if (!hits.empty())
            Print(TableOf(hits), m_form.Form());
        faults.ThrowIfAny();
        if (hits.empty())
            throw CommandError(fmt::format(
                R"(There is no section "{}" in the {} catalogues in the folder "{}"; {})", m_name,
                count, folder.Path(), Suggestion(names.nearest(m_name))));
    }

    static Table TableOf(const std::vector<sections::Hit>& hits) {
        Table table({{"catalogue"}, {"family"}, {"programName"}, {"name"}, {"match"}});
        for (const auto& [section, match, name] : hits)
            table.rows.push_back({CatalogueOf(section), section.family().name(),
                                  section.programName(), section.name(), TextOf(match)});
        return table;
    }

    std::string m_name;
    FormOptions m_form;
    CatalogueOptions m_catalogues;
};

const CommandEntry entry("find", "Find a name in all catalogues", Make<Find>);

} // namespace
} // namespace dbsection
