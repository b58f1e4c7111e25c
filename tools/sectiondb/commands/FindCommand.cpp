#include "commands/Command.h"
#include "commands/Options.h"
#include "commands/TypedNames.h"
#include "output/Messages.h"

#include <fmt/format.h>

namespace dbsection {
namespace {

class Find : public Command {
    void Declare(CommandLine& line) override {
        auto name = line.Add("name", m_name, "Section name, e.g. W12X26");
        line.Add("--like", m_beginning, "Beginning of the names, in place of a whole one")
            .Value("PREFIX")
            .Excludes(name);
        m_form.Declare(line);
        m_catalogues.Declare(line);
    }

    void Run() const override {
        if (m_name.empty() && m_beginning.empty())
            throw UsageError("Name a section, or the beginning of names with --like.");
        const CatalogueFolder folder = m_catalogues.Folder();
        CatalogueFaults faults;
        faults.Try([&] { folder.RequireThere(); });
        const std::vector<sections::Catalogue> catalogues = OpenAll(folder, faults);
        const sections::NameIndex names(catalogues);
        const bool isWhole = m_beginning.empty();
        const std::vector<sections::Hit> hits =
            isWhole ? names.find(m_name) : names.beginning(m_beginning);
        if (!hits.empty())
            Print(TableOf(hits), m_form.Form());
        faults.ThrowIfAny();
        if (catalogues.empty())
            folder.RequireNamed();
        if (hits.empty())
            throw CommandError(fmt::format(
                R"(There is no section "{}{}" in the {} catalogues in the folder "{}"; {})",
                isWhole ? m_name : m_beginning, isWhole ? "" : "...", catalogues.size(),
                folder.Path(), Suggestion(names.nearest(isWhole ? m_name : m_beginning))));
    }

    static Table TableOf(const std::vector<sections::Hit>& hits) {
        Table table({{"catalogue"}, {"family"}, {"programName"}, {"name"}, {"match"}});
        for (const auto& [section, match, name] : hits)
            table.rows.push_back({CatalogueOf(section), section.family().name(),
                                  section.programName(), section.name(), sections::nameOf(match)});
        return table;
    }

    std::string m_name;      // empty: by its beginning
    std::string m_beginning; // empty: by the whole name
    FormOptions m_form;
    CatalogueOptions m_catalogues;
};

const CommandEntry entry("find", "Find a name in all catalogues", Make<Find>);

} // namespace
} // namespace dbsection
