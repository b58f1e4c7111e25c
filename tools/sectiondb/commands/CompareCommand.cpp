#include "commands/Command.h"
#include "commands/Options.h"
#include "commands/TypedNames.h"
#include "files/SectionColumns.h"
#include "output/Messages.h"
#include "platform/Text.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <optional>

namespace dbsection {
namespace {

/// What a person names: "W12X26", "American:W12X26", or "American:W Shape:W12X26".
struct TypedSection {
    std::string catalogue; ///< empty: of any
    std::string family;    ///< empty: of any
    std::string name;

    explicit TypedSection(const std::string& typed) {
        const std::size_t first = typed.find(':');
        const std::size_t last = typed.rfind(':');
        name = typed.substr(last + 1); // npos + 1 is 0
        if (first == std::string::npos)
            return;
        catalogue = typed.substr(0, first);
        if (first != last)
            family = typed.substr(first + 1, last - first - 1);
    }
};

/// Whether two sections have the same figures, but for the rounding of a catalogue that keeps other
/// units.
bool HaveSameFigures(const sections::Section& left, const sections::Section& right) {
    constexpr double Rounding = 1e-4;
    const Figures a = left.figures();
    const Figures b = right.figures();
    return std::ranges::equal(a, b, [](const auto& one, const auto& other) {
        return one.first == other.first &&
               std::abs(one.second - other.second) <= Rounding * std::abs(one.second);
    });
}

std::string LabelOf(const sections::Section& section) {
    return CatalogueOf(section) + ":" + section.name();
}

std::string FullLabelOf(const sections::Section& section) {
    return CatalogueOf(section) + ":" + section.family().name() + ":" + section.name();
}

/// The first of the sections that have a name, where all have the same figures; of several
/// catalogues it is told which one is taken.
sections::Section TheOneOf(const std::vector<sections::Section>& named, const std::string& typed) {
    const sections::Section& first = named.front();
    std::string known;
    for (const sections::Section& section : named)
        known += (known.empty() ? "\"" : ", \"") + FullLabelOf(section) + '"';
    if (!std::ranges::all_of(named, [&](const sections::Section& section) {
            return HaveSameFigures(section, first);
        }))
        throw CommandError(
            fmt::format("Several sections are called \"{}\"; name one of {}.", typed, known));
    if (named.size() > 1)
        Tell(fmt::format("\"{}\" has the same figures in {}; the first one is taken.", typed,
                         known));
    return first;
}

/// The section of a name in any catalogue.
sections::Section FindAnywhere(const sections::NameIndex& names, const std::string& typed) {
    const std::vector<sections::Hit> hits = names.find(typed);
    if (hits.empty())
        throw CommandError(
            fmt::format("There is no section \"{}\"; {}", typed, Suggestion(names.nearest(typed))));
    std::vector<sections::Section> named;
    for (const sections::Hit& hit : hits)
        if (hit.match == hits.front().match)
            named.push_back(hit.section);
    return TheOneOf(named, typed);
}

/// A property in the unit of the first section that has it.
struct ComparedRow {
    std::string name;
    std::string storedUnit;
    PrintedUnit unit;
    std::string meaning;
};

class Compare : public Command {
    void Declare(CommandLine& line) override {
        line.Add("sections", m_typed, "Names of two or more sections")
            .Value("[CATALOGUE:[FAMILY:]]NAME ...")
            .Required();
        m_units.Declare(line);
        m_form.Declare(line);
        m_catalogues.Declare(line);
    }

    void Run() const override {
        const UnitChoice units = m_units.Choice();
        if (m_typed.size() < 2)
            throw UsageError("Name two sections or more to compare.");
        Print(TableOf(Sections(), units), m_form.Form());
    }

    std::vector<sections::Section> Sections() const {
        const CatalogueFolder folder = m_catalogues.Folder();
        std::optional<sections::NameIndex> everywhere; // read where a name needs it
        std::vector<sections::Section> found;
        for (const std::string& typed : m_typed) {
            const TypedSection wanted(typed);
            if (!wanted.catalogue.empty()) {
                found.push_back(SectionNamed(folder, wanted.catalogue, wanted.name, wanted.family,
                                             "CATALOGUE:FAMILY:NAME"));
                continue;
            }
            if (!everywhere) {
                CatalogueFaults faults;
                everywhere.emplace(OpenAll(folder, faults));
                faults.ThrowIfAny();
            }
            found.push_back(FindAnywhere(*everywhere, wanted.name));
        }
        return found;
    }

    static std::vector<ComparedRow> RowsOf(const std::vector<sections::Section>& found,
                                           const UnitChoice& units) {
        std::vector<ComparedRow> rows;
        const auto add = [&](const sections::Column& column) {
            const bool isKnown =
                std::ranges::find(rows, column.name, &ComparedRow::name) != rows.end();
            if (!isKnown && column.quantity != Quantity::Text)
                rows.push_back(
                    {column.name, column.unit, InChosenUnits(column.unit, units), column.meaning});
        };
        for (const sections::Section& section : found)
            std::ranges::for_each(section.family().columns(), add);
        for (const sections::Section& section : found)
            std::ranges::for_each(section.family().derivedColumns(), add);
        return rows;
    }

    /// The figure of a section in the stored unit of a row.
    static std::optional<double> FigureOf(const sections::Section& section,
                                          const ComparedRow& row) {
        auto quantity = section.find(row.name);
        if (!quantity)
            quantity = section.findDerived(row.name);
        if (!quantity)
            return std::nullopt;
        if (EqualNoCase(quantity->unit(), row.storedUnit))
            return quantity->figure();
        return quantity->figure() * SizeOf(quantity->unit()) / SizeOf(row.storedUnit);
    }

    static Table TableOf(const std::vector<sections::Section>& found, const UnitChoice& units) {
        Table table({{"property"}, {"unit"}});
        for (const sections::Section& section : found)
            table.columns.push_back({LabelOf(section)});
        for (std::size_t i = 1; i < found.size(); ++i)
            table.columns.push_back({found.size() == 2 ? "ratio" : fmt::format("ratio {}", i + 1)});
        for (const ComparedRow& row : RowsOf(found, units)) {
            Table::Row cells{row.name, row.unit.label};
            std::vector<std::optional<double>> figures;
            for (const sections::Section& section : found) {
                figures.push_back(FigureOf(section, row));
                cells.push_back(CellOf(section, row, figures.back()));
            }
            for (std::size_t i = 1; i < found.size(); ++i)
                cells.push_back(RatioOf(figures[i], figures[0]));
            if (std::ranges::any_of(figures, &std::optional<double>::has_value))
                table.rows.push_back(std::move(cells));
        }
        return table;
    }

    static Table::Cell CellOf(const sections::Section& section, const ComparedRow& row,
                              const std::optional<double>& figure) {
        if (!figure)
            return {};
        const auto kept = section.find(row.name);
        const bool isAsKept = kept && EqualNoCase(kept->unit(), row.storedUnit);
        return isAsKept ? Figure{*figure, row.unit.factor}
                        : Figure{WithoutNoise(*figure), row.unit.factor, true};
    }

    static Table::Cell RatioOf(const std::optional<double>& figure,
                               const std::optional<double>& first) {
        if (!figure || !first || *first == 0)
            return {};
        return fmt::format("{:.3f}", *figure / *first);
    }

    std::vector<std::string> m_typed;
    UnitOptions m_units;
    FormOptions m_form;
    CatalogueOptions m_catalogues;
};

const CommandEntry entry("compare", "Print sections side by side", Make<Compare>);

} // namespace
} // namespace dbsection
