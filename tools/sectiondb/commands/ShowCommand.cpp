#include "commands/Command.h"
#include "commands/Options.h"
#include "commands/TypedNames.h"
#include "files/SectionColumns.h"

#include <fmt/format.h>

namespace dbsection {
namespace {

/// Empty where the file does not tell.
const char* TextOf(sections::FigureSource source) {
    return source == sections::FigureSource::Unknown ? "" : sections::nameOf(source);
}

/// The other spellings of its name.
std::string AliasesOf(const sections::Section& section) {
    std::string text;
    for (const sections::Alias& alias : section.aliases())
        text +=
            (text.empty() ? "" : "; ") + alias.name + (alias.isSuperseded ? " (superseded)" : "");
    return text;
}

/// What a person may read of where the section comes from.
std::vector<std::string> NotesOn(const sections::Section& section) {
    std::vector<std::string> notes;
    if (const sections::Origin* origin = section.origin())
        notes.push_back(origin->standard + ": " + origin->remark);
    if (const auto* origin = section.origin(); origin != nullptr && !origin->production.empty())
        notes.push_back("Production: " + origin->production + ".");
    if (section.isChanged())
        notes.emplace_back("Changed since the catalogue was built.");
    if (const std::string aliases = AliasesOf(section); !aliases.empty())
        notes.push_back("Also called " + aliases + ".");
    return notes;
}

Table TableOf(const sections::Section& section, const UnitChoice& units) {
    const std::string catalogue = CatalogueOf(section);
    const std::string& family = section.family().name();
    const sections::Origin* const origin = section.origin();
    Table table({{"column"}, {"value"}, {"unit"}, {"meaning"}, {"source"}});
    table.subject = {fmt::format("{} ({}, {})", section.name(), catalogue, family),
                     {{"catalogue", catalogue},
                      {"table", family},
                      {"name", section.name()},
                      {"programName", section.programName()},
                      {"standard", origin == nullptr ? "" : origin->standard},
                      {"production", origin == nullptr ? "" : origin->production},
                      {"aliases", AliasesOf(section)}},
                     "properties",
                     NotesOn(section)};
    const std::vector<SectionColumn> columns = AllColumnsOf(section.family(), units);
    for (std::size_t i = BookkeepingColumns; i < columns.size(); ++i) {
        Table::Cell cell = CellAt(section, columns, i);
        if (columns[i].isDerived && std::holds_alternative<std::monostate>(cell))
            continue; // it does not follow from what the section keeps
        table.rows.push_back({columns[i].name, std::move(cell), columns[i].unit, columns[i].meaning,
                              TextOf(section.source(columns[i].name))});
    }
    return table;
}

/// How a standard calls the properties.
void AddSymbols(Table& table, Symbols symbols) {
    table.columns.insert(table.columns.begin() + 1, {"symbol"});
    for (Table::Row& row : table.rows)
        row.emplace(row.begin() + 1,
                    std::string(SymbolOf(std::get<std::string>(row.front()), symbols)));
    table.subject.facts.emplace_back("axes", AxesOf(symbols));
    table.subject.notes.push_back(fmt::format("Axes: {}.", AxesOf(symbols)));
}

class Show : public Command {
    void Declare(CommandLine& line) override {
        line.Add("catalogue", m_catalogue, "Number, file stem or name").Required();
        line.Add("name", m_name, "Section name, e.g. W12X26").Required();
        m_units.Declare(line);
        m_symbols.Declare(line);
        m_form.Declare(line);
        m_catalogues.Declare(line);
    }

    void Run() const override {
        const UnitChoice units = m_units.Choice();
        const Symbols symbols = m_symbols.Choice();
        std::vector<Table> found; // a name may stand in several families
        for (const sections::Section& section :
             SectionsNamed(m_catalogues.Folder(), m_catalogue, m_name)) {
            found.push_back(TableOf(section, units));
            if (symbols != Symbols::Program)
                AddSymbols(found.back(), symbols);
        }
        Print(found, m_form.Form());
    }

    std::string m_catalogue;
    std::string m_name;
    UnitOptions m_units;
    SymbolOptions m_symbols;
    FormOptions m_form;
    CatalogueOptions m_catalogues;
};

const CommandEntry entry("show", "Print every property of a section", Make<Show>);

} // namespace
} // namespace dbsection
