#include "commands/Command.h"
#include "commands/Options.h"
#include "dataaccess/Handles.h"
#include "files/LibraryFailure.h"
#include "files/SectionColumns.h"
#include "output/Messages.h"
#include "sources/CsvTable.h"

#include "interface/SectionDBInterface.h"
#include "platform/Text.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <limits>
#include <memory>
#include <optional>

namespace dbsection {
namespace {

/// The table of a family, and what its columns are in the chosen unit.
struct SectionTable {
    const OpenCatalogue& open;
    const SectionFamily& family;
    std::vector<SectionColumn> columns;

    const SectionColumn& At(int column) const { return columns[static_cast<std::size_t>(column)]; }
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
int FindColumn(const SectionTable& table, const std::string& field) {
    if (EqualNoCase(field, "name"))
        return VessaNameColumn;
    std::string known = "name";
    for (int i = 0; i < std::ssize(table.columns); ++i) {
        const std::string& name = table.At(i).name;
        if (EqualNoCase(name, field))
            return i;
        if (i >= BookkeepingColumns)
            known += ", " + name;
    }
    throw CommandError(fmt::format("There is no field \"{}\" in the family {}; the fields are {}.",
                                   field, table.family.table, known));
}

/// Bounds of a column in the chosen unit, both inclusive.
struct Range {
    int column;
    double low;
    double high;

    /// Conversion leaves a rounding error: an exact text of the figure counts as reached.
    bool Holds(double value) const {
        constexpr double Rounding = 1e-12;
        return value >= low - Rounding * std::abs(low) && value <= high + Rounding * std::abs(high);
    }
};

Range ParseRange(const SectionTable& table, const std::string& text) {
    const auto parts = Split(text, ':');
    const auto low = parts.size() == 3 ? ParseNumber(parts[1]) : std::nullopt;
    const auto high = parts.size() == 3 ? ParseNumber(parts[2]) : std::nullopt;
    if (!low || !high)
        throw UsageError(fmt::format(
            "The range \"{}\" is not FIELD:LOW:HIGH with two numbers, e.g. D:12:14.", text));
    if (*low > *high)
        throw UsageError(fmt::format(
            "The range \"{}\" is empty: its lower bound is above the upper one.", text));
    const int column = FindColumn(table, parts[0]);
    if (table.At(column).isText)
        throw UsageError(
            fmt::format("The range \"{}\" is of a field of texts; give one of numbers.", text));
    return {column, *low, *high};
}

/// Sort keys as the queries take them. The last one keeps the catalogue's order among equals.
std::unique_ptr<int[][2]> ParseSort(const SectionTable& table, const std::string& text) {
    const auto fields = text.empty() ? std::vector<std::string>() : Split(text, ',');
    auto keys = std::make_unique<int[][2]>(fields.size() + 2);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const auto parts = Split(fields[i], ':');
        const bool isDescending = parts.size() == 2 && EqualNoCase(parts[1], "desc");
        if (parts.size() > 1 && !isDescending)
            throw UsageError(fmt::format(
                "\"{}\" is no order; give FIELD, or FIELD:desc for the largest first.", fields[i]));
        keys[i][0] = FindColumn(table, parts[0]);
        keys[i][1] = isDescending ? 1 : 0;
    }
    keys[fields.size()][0] = IdentifierColumn;
    keys[fields.size() + 1][0] = -1;
    return keys;
}

/// What is asked for, as a person writes it.
struct Wanted {
    std::string prefix;               // of the VessaName, empty: any
    std::optional<std::string> range; // "FIELD:LOW:HIGH"
    std::string sort;                 // "FIELD[:desc],...", empty: as in the catalogue
};

/// The same in terms of the table.
struct Criteria {
    std::string prefix;
    std::optional<Range> range;
    std::unique_ptr<int[][2]> keys;
};

Criteria ParseCriteria(const SectionTable& table, const Wanted& wanted) {
    if (wanted.prefix.find('\'') != std::string::npos)
        throw UsageError(fmt::format(
            "The prefix \"{}\" holds a quote, which no section's name can; leave it out.",
            wanted.prefix));
    Criteria criteria{wanted.prefix, std::nullopt, ParseSort(table, wanted.sort)};
    if (wanted.range)
        criteria.range = ParseRange(table, *wanted.range);
    return criteria;
}

/// The nearest bound of a range query in a direction. The query writes single-precision bounds with
/// six decimals, which may lie on either side of the number.
float BoundTowards(double direction, double bound) {
    constexpr double Decimals = 1e-6;
    constexpr double BeyondAnyFigure = 1e30;
    const double outside =
        std::clamp(bound + direction * Decimals, -BeyondAnyFigure, BeyondAnyFigure);
    return std::nextafter(static_cast<float>(outside),
                          static_cast<float>(direction) * std::numeric_limits<float>::max());
}

/// Opens at least the rows that meet the criteria, sorted: by the prefix where there is one, or
/// else by the range.
void Query(const SectionTable& table, const Criteria& criteria, RecordsetHandle& rows) {
    const int catalogue = table.open.index;
    const int type = table.family.sectionType;
    const auto* keys = criteria.keys.get();
    ForgetFailure();
    if (!criteria.prefix.empty()) {
        SectionDBInterface::GetLikeSortedSectionRecords(
            catalogue, type, keys, criteria.prefix.c_str(), &gblSectionDatabase, rows.Address());
    } else if (criteria.range) {
        const auto& [column, low, high] = *criteria.range;
        const double unit = table.At(column).factor;
        SectionDBInterface::GetRangeSortedSectionRecords(
            catalogue, type, keys, column, BoundTowards(+1, high / unit),
            BoundTowards(-1, low / unit), &gblSectionDatabase, rows.Address());
    } else {
        SectionDBInterface::GetSortedSectionRecords(catalogue, type, keys, &gblSectionDatabase,
                                                    rows.Address());
    }
    if (rows.Get() == nullptr)
        throw CommandError(
            fmt::format("Table \"{}\" cannot be read: {}.", table.family.table, ReasonOfFailure()));
}

/// Whether the current row is asked for: a prefix is meant letter by letter, where the query takes
/// "%" and "_" for any letters.
bool Meets(const Criteria& criteria, const SectionTable& table, const CSectionRecordset& rows) {
    const std::string name = TextAt(rows, VessaNameColumn);
    if (!EqualNoCase(name.substr(0, criteria.prefix.size()), criteria.prefix))
        return false;
    if (!criteria.range)
        return true;
    const int column = criteria.range->column;
    const Table::Cell cell = CellAt(rows, column, table.At(column));
    const auto* figure = std::get_if<Figure>(&cell);
    return figure != nullptr && criteria.range->Holds(figure->Value());
}

Table Collect(const SectionTable& table, const Criteria& criteria, CSectionRecordset& rows) {
    Table selected;
    for (int i = NameColumn; i < std::ssize(table.columns); ++i)
        selected.columns.push_back({table.At(i).name, table.At(i).unit});
    for (; !rows.IsEOF(); rows.MoveNext()) {
        if (!Meets(criteria, table, rows))
            continue;
        Table::Row& row = selected.rows.emplace_back();
        for (int i = NameColumn; i < std::ssize(table.columns); ++i)
            row.push_back(CellAt(rows, i, table.At(i)));
    }
    return selected;
}

class Select : public Command {
    void Declare(CLI::App& app) override {
        app.add_option("catalogue", m_catalogue, "Number, file stem or name")->required();
        app.add_option("family", m_family, "Shape family, e.g. \"W Shape\"")->required();
        app.add_option("--like", m_wanted.prefix, "Beginning of the names")->option_text("PREFIX");
        app.add_option("--range", m_wanted.range, "Bounds of a field, both included")
            ->option_text("FIELD:LOW:HIGH");
        app.add_option("--sort", m_wanted.sort, "Order of the rows")
            ->option_text("FIELD[:desc],...");
        m_units.DeclareLength(app);
        m_form.Declare(app);
        m_catalogues.Declare(app);
    }

    void Run() const override {
        m_catalogues.Apply();
        const UnitChoice units = m_units.Choice();
        const OpenCatalogue open = Open(FindCatalogue(m_catalogue));
        const SectionFamily& family = FindFamily(open, m_family);
        if (!HasSectionTable(family))
            throw CommandError(fmt::format("The family {} holds joists, which are chosen by span "
                                           "and load; name a catalogue of sections.",
                                           family.table));
        const SectionTable table{open, family, ReadColumns(open, family, units)};
        const Criteria criteria = ParseCriteria(table, m_wanted);
        Table selected;
        ReadTable(family, [&] {
            RecordsetHandle rows;
            Query(table, criteria, rows);
            selected = Collect(table, criteria, *rows);
        });
        Print(selected, m_form.Form());
    }

    std::string m_catalogue;
    std::string m_family;
    Wanted m_wanted;
    UnitOptions m_units;
    FormOptions m_form;
    CatalogueOptions m_catalogues;
};

const CommandEntry entry("select", "Print the sections of a family by criteria", Make<Select>);

} // namespace
} // namespace dbsection
