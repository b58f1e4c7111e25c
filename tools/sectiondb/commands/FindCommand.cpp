#include "commands/Command.h"
#include "commands/Options.h"
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
        Table found({{"catalogue"}, {"family"}, {"programName"}, {"name"}});
        CatalogueFaults faults;
        int catalogues = 0;
        for (int number = 1; number <= LastCatalogueIndex; ++number)
            faults.Try([&] {
                if (folder.FileOf(number).empty())
                    return;
                ++catalogues;
                for (const sections::Section& section : folder.Open(number).findAll(m_name))
                    found.rows.push_back({sections::Library::nameOf(number),
                                          section.family().name(), section.programName(),
                                          section.name()});
            });
        if (!found.rows.empty())
            Print(found, m_form.Form());
        faults.ThrowIfAny();
        if (found.rows.empty())
            throw CommandError(fmt::format(
                "There is no section \"{}\" in the {} catalogues in the folder \"{}\"; \"sectiondb "
                "list CATALOGUE FAMILY\" prints the names.",
                m_name, catalogues, folder.Path()));
    }

    std::string m_name;
    FormOptions m_form;
    CatalogueOptions m_catalogues;
};

const CommandEntry entry("find", "Find a name in all catalogues", Make<Find>);

} // namespace
} // namespace dbsection
