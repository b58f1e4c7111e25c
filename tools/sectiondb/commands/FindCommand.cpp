#include "commands/Command.h"
#include "commands/Options.h"
#include "files/CatalogueAccess.h"
#include "interface/SectionDBInterface.h"
#include "output/Messages.h"
#include "platform/FileSystem.h"

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
        m_catalogues.Apply();
        Table found({{"catalogue"}, {"family"}, {"programName"}, {"name"}});
        CatalogueFaults faults;
        int catalogues = 0;
        for (int index = 1; index <= LastCatalogueIndex; ++index)
            faults.Try([&] {
                if (!HasFile(index))
                    return;
                ++catalogues;
                AddHits(index, found);
            });
        if (!found.rows.empty())
            Print(found, m_form.Form());
        faults.ThrowIfAny();
        if (found.rows.empty())
            throw CommandError(fmt::format(
                "There is no section \"{}\" in the {} catalogues in the folder \"{}\"; \"sectiondb "
                "list CATALOGUE FAMILY\" prints the names.",
                m_name, catalogues,
                NativePath(SectionDBInterface::GetDatabaseDirectoryName().View())));
    }

    void AddHits(int index, Table& found) const {
        VisitSections(
            Open(index), m_name, [&](const SectionFamily& family, const CSectionRecordset& rows) {
                found.rows.push_back({SectionDBInterface::m_saCountryName[index], family.table,
                                      TextAt(rows, VessaNameColumn), TextAt(rows, NameColumn)});
            });
    }

    std::string m_name;
    FormOptions m_form;
    CatalogueOptions m_catalogues;
};

const CommandEntry entry("find", "Find a name in all catalogues", Make<Find>);

} // namespace
} // namespace dbsection
