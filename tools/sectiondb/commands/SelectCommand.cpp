#include "commands/Command.h"
#include "commands/Options.h"
#include "files/LibraryFailure.h"
#include "files/SectionColumns.h"
#include "interface/SectionDBInterface.h"
#include "interface/Selection.h"
#include "output/Messages.h"
#include "platform/Text.h"
#include "records/CatalogueList.h"
#include "sources/CsvTable.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <iterator>
#include <limits>
#include <optional>
#include <set>

namespace dbsection {
namespace {

/// A family, and what its columns are in the chosen unit.
struct SectionTable {
    sections::Family family;
    std::vector<SectionColumn> columns;
};

std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> parts(1);
    for (const char c : text)
        if (c == separator)
            parts.emplace_back();
        else
            parts.back() += c;
    return parts;
}

/// The number of the column that a person named.
std::size_t FindColumn(const SectionTable& table, const std::string& field) {
    if (EqualNoCase(field, "name"))
        return VessaNameColumn;
    std::string known = "name";
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        const std::string& name = table.columns[i].name;
        if (EqualNoCase(name, field))
            return i;
        if (i >= BookkeepingColumns)
            known += ", " + name;
    }
    throw CommandError(fmt::format("There is no field \"{}\" in the family {}; the fields are {}.",
                                   field, table.family.name(), known));
}

/// Bounds of a column in the chosen unit, both inclusive.
struct Range {
    std::size_t column;
    double low; ///< or an infinity, where there is none
    double high;

    /// Conversion leaves a rounding error: an exact text of the figure counts as reached.
    bool Holds(double value) const {
        constexpr double Rounding = 1e-12;
        return value >= low - Rounding * std::abs(value) &&
               value <= high + Rounding * std::abs(value);
    }
};

Range ParseRange(const SectionTable& table, const std::string& text) {
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    const auto parts = Split(text, ':');
    const auto bound = [&](std::size_t part, double otherwise) {
        return parts.size() != 3     ? std::nullopt
               : parts[part].empty() ? std::optional(otherwise)
                                     : ParseNumber(parts[part]);
    };
    const auto low = bound(1, -Infinity);
    const auto high = bound(2, Infinity);
    if (!low || !high || (parts[1].empty() && parts[2].empty()))
        throw UsageError(fmt::format("The range \"{}\" is not FIELD:LOW:HIGH with two numbers, one "
                                     "of which may be left out, e.g. D:12:14 or D:12:.",
                                     text));
    if (*low > *high)
        throw UsageError(fmt::format(
            "The range \"{}\" is empty: its lower bound is above the upper one.", text));
    const std::size_t column = FindColumn(table, parts[0]);
    if (table.columns[column].isText)
        throw UsageError(
            fmt::format("The range \"{}\" is of a field of texts; give one of numbers.", text));
    return {column, *low, *high};
}

struct SortKey {
    std::size_t column;
    bool isDescending;
};

std::vector<SortKey> ParseSort(const SectionTable& table, const std::string& text) {
    std::vector<SortKey> keys;
    for (const std::string& field : text.empty() ? std::vector<std::string>() : Split(text, ',')) {
        const auto parts = Split(field, ':');
        const bool isDescending = parts.size() == 2 && EqualNoCase(parts[1], "desc");
        if (parts.size() > 1 && !isDescending)
            throw UsageError(fmt::format(
                "\"{}\" is no order; give FIELD, or FIELD:desc for the largest first.", field));
        keys.push_back({FindColumn(table, parts[0]), isDescending});
    }
    return keys;
}

/// What is asked for, as a person writes it.
struct Wanted {
    std::string prefix;              // of the VessaName, empty: any
    std::vector<std::string> ranges; // "FIELD:LOW:HIGH"
    std::string sort;                // "FIELD[:desc],...", empty: as in the catalogue
    std::string columns;             // "FIELD,...", empty: all that are asked often
};

/// The same in terms of the table.
struct Criteria {
    std::string prefix;
    std::vector<Range> ranges;
    std::vector<SortKey> keys;
};

Criteria ParseCriteria(const SectionTable& table, const Wanted& wanted) {
    if (wanted.prefix.find('\'') != std::string::npos)
        throw UsageError(fmt::format(
            "The prefix \"{}\" holds a quote, which no section's name can; leave it out.",
            wanted.prefix));
    Criteria criteria{wanted.prefix, {}, ParseSort(table, wanted.sort)};
    for (const std::string& range : wanted.ranges)
        criteria.ranges.push_back(ParseRange(table, range));
    return criteria;
}

bool Meets(const Criteria& criteria, const SectionTable& table, const sections::Section& section) {
    const std::string_view name = section.programName();
    if (!EqualNoCase(name.substr(0, criteria.prefix.size()), criteria.prefix))
        return false;
    return std::ranges::all_of(criteria.ranges, [&](const Range& range) {
        const Table::Cell cell = CellAt(section, table.columns, range.column);
        const auto* figure = std::get_if<Figure>(&cell);
        return figure != nullptr && range.Holds(figure->Value());
    });
}

/// A section, and what it is sorted by.
struct Candidate {
    sections::Section section;
    std::vector<Table::Cell> keys;
};

/// Whether a section stands before another one. What is not known stands before all else.
bool Precedes(const Candidate& left, const Candidate& right, std::span<const SortKey> keys) {
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const Table::Cell& a = left.keys[i];
        const Table::Cell& b = right.keys[i];
        if (a != b)
            return keys[i].isDescending ? b < a : a < b;
    }
    return false;
}

/// The record numbers that the user's selection leaves of a family; nothing where it leaves all, as
/// of a file of the user's own.
std::optional<std::set<std::int64_t>> SelectionOf(const sections::Family& family) {
    const int number = family.catalogue().number();
    if (number > LastCatalogueIndex)
        return std::nullopt;
    CDWordArray numbers;
    AskLibrary([&] { return ReadSelection(number, CString(family.name()), numbers); });
    const DWORD first = numbers.GetAt(0);
    if (first == SectionDBInterface::EverySection)
        return std::nullopt;
    return std::set<std::int64_t>(numbers.begin(), numbers.end());
}

std::vector<sections::Section> Choose(const SectionTable& table, const Criteria& criteria,
                                      std::size_t limit) {
    const auto selection = SelectionOf(table.family);
    std::vector<Candidate> candidates;
    for (const sections::Section& section : table.family.sections()) {
        if ((selection && !selection->contains(section.recordNumber())) ||
            !Meets(criteria, table, section))
            continue;
        Candidate& candidate = candidates.emplace_back(Candidate{section, {}});
        for (const SortKey& key : criteria.keys)
            candidate.keys.push_back(CellAt(section, table.columns, key.column));
    }
    std::ranges::stable_sort(candidates, [&](const Candidate& left, const Candidate& right) {
        return Precedes(left, right, criteria.keys);
    });
    std::vector<sections::Section> chosen;
    for (std::size_t i = 0; i < std::min(limit, candidates.size()); ++i)
        chosen.push_back(candidates[i].section);
    return chosen;
}

/// Both names and the columns that a person named, or else those that are asked often.
std::vector<SectionColumn> PrintedColumns(const SectionTable& table, const std::string& named) {
    const auto bookkeeping = table.columns.begin() + BookkeepingColumns;
    std::vector<SectionColumn> columns(table.columns.begin(), bookkeeping);
    if (named.empty())
        std::copy_if(bookkeeping, table.columns.end(), std::back_inserter(columns),
                     [](const SectionColumn& column) { return !column.isDetail; });
    else
        for (const std::string& field : Split(named, ','))
            if (const std::size_t place = FindColumn(table, field); place >= BookkeepingColumns)
                columns.push_back(table.columns[place]);
    return columns;
}

class Select : public Command {
    void Declare(CommandLine& line) override {
        line.Add("catalogue", m_catalogue, "Number, file stem or name").Required();
        line.Add("family", m_family, "Shape family, e.g. \"W Shape\"").Required();
        line.Add("--like", m_wanted.prefix, "Beginning of the names").Value("PREFIX");
        line.Add("--range", m_wanted.ranges,
                 "Bounds of a field, both included; may stand several times")
            .Value("FIELD:LOW:HIGH")
            .OneEach();
        line.Add("--sort", m_wanted.sort, "Order of the rows").Value("FIELD[:desc],...");
        m_limit.Declare(line, "The first ones alone");
        line.Add("--columns", m_wanted.columns, "What is printed").Value("FIELD,...");
        m_units.DeclareLength(line);
        m_form.Declare(line);
        m_catalogues.Declare(line);
    }

    void Run() const override {
        const UnitChoice units = m_units.Choice();
        const std::size_t limit = m_limit.ValueOr(std::numeric_limits<std::size_t>::max());
        const sections::Catalogue catalogue = m_catalogues.Folder().Open(m_catalogue);
        const sections::Family family = FindFamily(catalogue, m_family);
        if (family.layout() == LayoutId::Joist || family.layout() == LayoutId::JoistGirder)
            throw CommandError(fmt::format("The family {} holds joists, which are chosen by span "
                                           "and load; name a catalogue of sections.",
                                           family.name()));
        const SectionTable table{family, AllColumnsOf(family, units)};
        const std::vector<SectionColumn> columns = PrintedColumns(table, m_wanted.columns);
        Table chosen = TableOf(Choose(table, ParseCriteria(table, m_wanted), limit), columns);
        chosen.marksComputed = true;
        Print(chosen, m_form.Form());
    }

    std::string m_catalogue;
    std::string m_family;
    Wanted m_wanted;
    LimitOption m_limit;
    UnitOptions m_units;
    FormOptions m_form;
    CatalogueOptions m_catalogues;
};

const CommandEntry entry("select", "Print the sections of a family by criteria", Make<Select>);

} // namespace
} // namespace dbsection
