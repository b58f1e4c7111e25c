#include "commands/Command.h"
#include "commands/FamilyTable.h"
#include "commands/Options.h"
#include "interface/SectionDBInterface.h"

#include <numeric>

namespace dbsection {
namespace {

Table::Row CatalogueRow(int index, CatalogueFaults& faults) {
    Table::Cell families;
    Table::Cell sections;
    const char* remark = "at fault";
    faults.Try([&] {
        if (!HasFile(index)) {
            remark = "no file";
            return;
        }
        const auto counts = CountFamilies(Open(index));
        const int total =
            std::accumulate(counts.begin(), counts.end(), 0,
                            [](int sum, const FamilyCount& count) { return sum + count.sections; });
        families = static_cast<int>(counts.size());
        sections = total;
        remark = RemarkOn(total);
    });
    return {index,
            SectionDBInterface::m_saCountryName[index],
            SectionDBInterface::m_saSectionFile[index],
            families,
            sections,
            remark};
}

Table SectionTable(const OpenCatalogue& open, const SectionFamily& family) {
    Table table({{"name"}, {"programName"}});
    VisitRows(open, family, " ORDER BY 1", [&](const CSectionRecordset& rows) {
        table.rows.push_back({TextAt(rows, NameColumn), TextAt(rows, VessaNameColumn)});
    });
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
        m_catalogues.Apply();
        if (m_catalogue.empty()) {
            ListCatalogues();
            return;
        }
        const OpenCatalogue open = Open(FindCatalogue(m_catalogue));
        Print(m_family.empty() ? FamilyTable(open) : SectionTable(open, FindFamily(open, m_family)),
              m_form.Form());
    }

    void ListCatalogues() const {
        CatalogueFaults faults;
        Table table({{"number"}, {"name"}, {"file"}, {"families"}, {"sections"}, {"remark"}});
        for (int index = 1; index <= LastCatalogueIndex; ++index)
            table.rows.push_back(CatalogueRow(index, faults));
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
