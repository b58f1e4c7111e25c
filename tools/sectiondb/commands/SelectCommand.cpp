#include "commands/Commands.h"
#include "files/CatalogueAccess.h"
#include "files/LibraryFailure.h"
#include "output/Listing.h"
#include "output/UnitLabels.h"
#include "sources/CsvTable.h"

#include "dataaccess/Handles.h"
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

struct TableColumn {
    std::string name;
    std::string storedUnit;
    LabelledValue one; ///< of the stored unit, in the chosen one
    bool isText;

    double Chosen(double stored, const UnitChoice& choice) const {
        return InChosenUnits(stored, storedUnit, choice).value;
    }
};

/// The table of a family: what its columns are, in its own order.
struct Table {
    const OpenCatalogue& open;
    const SectionFamily& family;
    UnitChoice choice;
    std::vector<TableColumn> columns;
};

std::vector<TableColumn> ReadColumns(const OpenCatalogue& open, const SectionFamily& family,
                                     const UnitChoice& choice) {
    std::vector<std::string> units = UnitsOf(open, family);
    std::vector<TableColumn> columns;
    ReadTable(family, [&] {
        CSectionTableDef table(open.database);
        table.Open(family.table);
        units.resize(static_cast<std::size_t>(table.GetFieldCount()));
        for (int i = 0; i < table.GetFieldCount(); ++i) {
            CSectionFieldInfo field;
            table.GetFieldInfo(i, field);
            const bool isText =
                field.m_nType == SectionField::Text || field.m_nType == SectionField::Memo;
            const std::string unit = isText ? "" : units[static_cast<std::size_t>(i)];
            columns.push_back({std::string(field.m_strName.View()), unit,
                               InChosenUnits(1, unit, choice), isText});
        }
    });
    RequireBookkeeping(open, family, static_cast<int>(columns.size()));
    return columns;
}

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
int FindColumn(const Table& table, const std::string& field) {
    if (EqualNoCase(field, "name"))
        return VessaNameColumn;
    std::string known = "name";
    for (int i = 0; i < std::ssize(table.columns); ++i) {
        const std::string& name = table.columns[static_cast<std::size_t>(i)].name;
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

    /// Conversion leaves a rounding error: a bound as it is printed counts as reached.
    bool Holds(double value) const {
        constexpr double Rounding = 1e-12;
        return value >= low - Rounding * std::abs(low) && value <= high + Rounding * std::abs(high);
    }
};

Range ParseRange(const Table& table, const std::string& text) {
    const auto parts = Split(text, ':');
    const auto low = parts.size() == 3 ? ParseNumber(parts[1]) : std::nullopt;
    const auto high = parts.size() == 3 ? ParseNumber(parts[2]) : std::nullopt;
    if (!low || !high)
        throw CommandError(fmt::format(
            "The range \"{}\" is not FIELD:LOW:HIGH with two numbers, e.g. D:12:14.", text));
    if (*low > *high)
        throw CommandError(fmt::format(
            "The range \"{}\" is empty: its lower bound is above the upper one.", text));
    const int column = FindColumn(table, parts[0]);
    if (table.columns[static_cast<std::size_t>(column)].isText)
        throw CommandError(
            fmt::format("The range \"{}\" is of a field of texts; give one of numbers.", text));
    return {column, *low, *high};
}

/// Sort keys as the queries take them. The last one keeps the catalogue's order among equals.
std::unique_ptr<int[][2]> ParseSort(const Table& table, const std::string& text) {
    const auto fields = text.empty() ? std::vector<std::string>() : Split(text, ',');
    auto keys = std::make_unique<int[][2]>(fields.size() + 2);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const auto parts = Split(fields[i], ':');
        const bool isDescending = parts.size() == 2 && EqualNoCase(parts[1], "desc");
        if (parts.size() > 1 && !isDescending)
            throw CommandError(fmt::format(
                "\"{}\" is no order; give FIELD, or FIELD:desc for the largest first.", fields[i]));
        keys[i][0] = FindColumn(table, parts[0]);
        keys[i][1] = isDescending ? 1 : 0;
    }
    keys[fields.size()][0] = IdentifierColumn;
    keys[fields.size() + 1][0] = -1;
    return keys;
}

/// What is asked for.
struct Criteria {
    std::string prefix;
    std::optional<Range> range;
    std::unique_ptr<int[][2]> keys;
};

Criteria ParseCriteria(const Table& table, const SelectOptions& options) {
    if (options.prefix.find('\'') != std::string::npos)
        throw CommandError(fmt::format(
            "The prefix \"{}\" holds a quote, which no section's name can; leave it out.",
            options.prefix));
    Criteria criteria{options.prefix, std::nullopt, ParseSort(table, options.sort)};
    if (options.range)
        criteria.range = ParseRange(table, *options.range);
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
void Query(const Table& table, const Criteria& criteria, RecordsetHandle& rows) {
    const int catalogue = table.open.index;
    const int type = table.family.sectionType;
    const auto* keys = criteria.keys.get();
    ForgetFailure();
    if (!criteria.prefix.empty()) {
        SectionDBInterface::GetLikeSortedSectionRecords(
            catalogue, type, keys, criteria.prefix.c_str(), &gblSectionDatabase, rows.Address());
    } else if (criteria.range) {
        const auto& [column, low, high] = *criteria.range;
        const double unit = table.columns[static_cast<std::size_t>(column)].one.value;
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

Listing::Cell ReadCell(const Table& table, const CSectionRecordset& rows, int column) {
    const COleVariant value = rows.GetFieldValue(column);
    if (value.vt == VT_NULL)
        return {};
    if (value.vt == VT_BSTR)
        return std::string(value.strVal.View());
    return table.columns[static_cast<std::size_t>(column)].Chosen(NumberIn(value).value_or(0),
                                                                  table.choice);
}

/// Whether the current row is asked for: a prefix is meant letter by letter, where the query takes
/// "%" and "_" for any letters.
bool Meets(const Criteria& criteria, const Table& table, const CSectionRecordset& rows) {
    const std::string name = TextAt(rows, VessaNameColumn);
    if (!EqualNoCase(name.substr(0, criteria.prefix.size()), criteria.prefix))
        return false;
    if (!criteria.range)
        return true;
    const Listing::Cell cell = ReadCell(table, rows, criteria.range->column);
    const auto* number = std::get_if<double>(&cell);
    return number != nullptr && criteria.range->Holds(*number);
}

Listing Collect(const Table& table, const Criteria& criteria, CSectionRecordset& rows) {
    Listing listing;
    for (int i = NameColumn; i < std::ssize(table.columns); ++i) {
        const TableColumn& column = table.columns[static_cast<std::size_t>(i)];
        listing.columns.push_back(
            {column.name, column.one.unit, column.isText, column.one.value != 1});
    }
    for (; !rows.IsEOF(); rows.MoveNext()) {
        if (!Meets(criteria, table, rows))
            continue;
        auto& row = listing.rows.emplace_back();
        for (int i = NameColumn; i < std::ssize(table.columns); ++i)
            row.push_back(ReadCell(table, rows, i));
    }
    return listing;
}

} // namespace

void Select(const SelectOptions& options) {
    const UnitChoice choice = ChooseUnits(options.length, "");
    const OpenCatalogue open = Open(FindCatalogue(options.catalogue));
    const SectionFamily& family = FindFamily(open, options.family);
    if (!HasSectionTable(family))
        throw CommandError(fmt::format("The family {} holds joists, which are chosen by span and "
                                       "load; name a catalogue of sections.",
                                       family.table));
    const Table table{open, family, choice, ReadColumns(open, family, choice)};
    const Criteria criteria = ParseCriteria(table, options);
    Listing listing;
    ReadTable(family, [&] {
        RecordsetHandle rows;
        Query(table, criteria, rows);
        listing = Collect(table, criteria, *rows);
    });
    const auto print = options.csv ? PrintCsv : options.json ? PrintJson : PrintAligned;
    print(listing);
}

} // namespace dbsection
