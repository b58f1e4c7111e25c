#include "commands/Command.h"
#include "commands/Options.h"
#include "records/CatalogueList.h"

namespace dbsection {
namespace {

Table::Row FileRow(const CatalogueFolder& folder, const SectionCatalogue& catalogue,
                   const std::string& file, CatalogueFaults& faults) {
    Table::Row row{"file", catalogue.name, file, {}, "at fault"};
    faults.Try([&] {
        row[3] = folder.Open(catalogue.index).layoutVersion();
        row[4] = file.ends_with(std::string("/") + catalogue.stem + ".db3")
                     ? ""
                     : "replaced by the settings";
    });
    return row;
}

class Where : public Command {
    void Declare(CommandLine& line) override {
        m_form.Declare(line);
        m_catalogues.Declare(line);
    }

    void Run() const override {
        const CatalogueFolder folder = m_catalogues.Folder();
        Table table({{"what"}, {"name"}, {"path"}, {"layoutVersion"}, {"remark"}});
        for (const FolderChoice& choice : folder.Choices())
            table.rows.push_back({"folder",
                                  choice.setting,
                                  choice.path.empty() ? Table::Cell() : choice.path,
                                  {},
                                  choice.remark});
        CatalogueFaults faults;
        for (int number = 1; number <= LastCatalogueIndex; ++number)
            faults.Try([&] {
                const std::string file = folder.FileOf(number);
                if (!file.empty())
                    table.rows.push_back(FileRow(folder, *FindCatalogue(number), file, faults));
            });
        Print(table, m_form.Form());
        faults.ThrowIfAny();
    }

    FormOptions m_form;
    CatalogueOptions m_catalogues;
};

const CommandEntry entry("where", "Tell where the catalogue files are looked for", Make<Where>);

} // namespace
} // namespace dbsection
