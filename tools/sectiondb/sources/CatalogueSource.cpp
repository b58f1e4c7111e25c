#include "sources/CatalogueSource.h"

#include "files/Sha256.h"
#include "platform/Numbers.h"
#include "records/SectionNames.h"
#include "sources/Provenance.h"
#include "sources/SectionNameIndex.h"
#include "sources/SourceLibrary.h"
#include "sources/TablePlans.h"
#include "units/UnitText.h"

#include <algorithm>
#include <fmt/format.h>
#include <map>

namespace dbsection {
namespace {

// Computed figures have as many digits as published ones at most do; converted ones lose none.
constexpr int ComputedDigits = 5;
constexpr int ConvertedDigits = 6;

struct Titles {
    std::string title;
    std::string standard; ///< empty: what the families say
    std::string sourceNote;
    const UnitSystem* units = nullptr;
};

/// The value of each key: all must occur, but a catalogue with figures has no Standard of its own.
Titles ReadTitles(const CsvTable& csv, bool hasFigures) {
    Titles titles;
    std::string units;
    std::map<std::string, std::string*> wanted{
        {"Title", &titles.title}, {"Source", &titles.sourceNote}, {"Units", &units}};
    if (!hasFigures)
        wanted["Standard"] = &titles.standard;
    for (const CsvTable::Record& record : csv.Records()) {
        const auto place = wanted.find(csv.RequiredText(record, "Key"));
        if (place == wanted.end())
            throw csv.Error(record, "Key", "not a key of this catalogue, or given twice");
        *place->second = csv.RequiredText(record, "Value");
        wanted.erase(place);
    }
    if (!wanted.empty())
        throw csv.LineError(0, "the key " + wanted.begin()->first + " is missing");
    titles.units = FindUnitSystem(units);
    if (titles.units == nullptr)
        throw csv.LineError(0, "\"" + units + "\" is no system of units; give metric or US");
    return titles;
}

/// The standards of all families in their order, each once.
std::string StandardsOf(const std::vector<TablePlan>& plans) {
    std::vector<std::string> standards;
    for (const TablePlan& plan : plans)
        for (const SourceFamily* family : plan.families)
            if (std::ranges::find(standards, family->standard) == standards.end())
                standards.push_back(family->standard);
    std::string text;
    for (const std::string& standard : standards)
        text += (text.empty() ? "" : "; ") + standard;
    return text;
}

/// Names of a section in a catalogue.
struct SectionNames {
    std::string name;
    std::string vessaName;
    std::vector<SourceAlias> aliases;
};

/// Those of the family, or with an alias that begins with a word as the name.
SectionNames NamesOf(const FamilyRow& row, const std::string& nameFrom, const std::string& file) {
    if (nameFrom.empty())
        return {row.name, row.vessaName, row.aliases};
    const auto isName = [&](const SourceAlias& alias) {
        return alias.name.starts_with(nameFrom + " ");
    };
    if (std::ranges::count_if(row.aliases, isName) != 1)
        throw SourceError({file, 0, "", ""}, "the section " + row.name + " must have one alias \"" +
                                                 nameFrom + " ...\"");
    const std::string name = std::ranges::find_if(row.aliases, isName)->name;
    SectionNames names{name, VessaNameOf(name), {{row.name, false}}};
    std::ranges::copy_if(row.aliases, std::back_inserter(names.aliases),
                         [&](const SourceAlias& alias) { return alias.name != name; });
    return names;
}

/// Fills the tables of a catalogue from the families that they show.
class TableFiller {
public:
    TableFiller(CatalogueSource& source, std::string file)
        : m_source(source),
          m_file(std::move(file)) {}

    void Fill(const TablePlan& plan) {
        SourceTable& table = *std::ranges::find(m_source.tables, plan.table, &SourceTable::name);
        for (const SourceFamily* family : plan.families) {
            for (const FamilyRow& row : family->rows)
                AddRow(table, *family, row, plan.nameFrom);
            m_source.figures += plan.table + ": " + DescribeFigures(*family) + "\n";
        }
    }

    void Finish() {
        m_names.RequireUnambiguous(m_file);
        m_source.hidden = std::move(m_provenance).Tables();
    }

private:
    void AddRow(SourceTable& table, const SourceFamily& family, const FamilyRow& row,
                const std::string& nameFrom) {
        const SectionNames names = NamesOf(row, nameFrom, m_file);
        PlacedRow placed{table.name, table.rows.size() + 1, family, row, {}, names.aliases};
        SourceRow values{names.name, names.vessaName};
        for (std::size_t i = 0; i < family.units.size(); ++i)
            values.push_back(ValueOf(table.columns[BookkeepingColumns + i], placed, i));
        if (family.layout->id != LayoutId::AluminiumAlloy) // which rows share
            m_names.Add(table.name, names.name, names.vessaName, names.aliases);
        m_provenance.Add(placed, values);
        table.rows.push_back(std::move(values));
    }

    static SourceValue ValueOf(const SourceColumn& target, PlacedRow& row, std::size_t place) {
        const LayoutColumn& column = row.family.layout->columns[place];
        const std::string& printed = row.source.printed[place];
        const std::string& unit = row.family.units[place];
        if (column.quantity == Quantity::Text)
            return printed;
        if (const auto number = ParseNumber(printed))
            return unit == target.unit
                       ? *number
                       : RoundedTo(*number * SizeOf(unit) / SizeOf(target.unit), ConvertedDigits);
        const auto computed = row.source.computed.find(column.name);
        if (computed == row.source.computed.end())
            return {};
        row.computed.emplace_back(column.name);
        return RoundedTo(computed->second / SizeOf(target.unit), ComputedDigits);
    }

    CatalogueSource& m_source;
    std::string m_file;
    SectionNameIndex m_names;
    Provenance m_provenance;
};

std::string HashOf(const SourceFolder& folder, const std::vector<TablePlan>& plans) {
    Sha256 hash;
    for (const auto& [name, textHash] : folder.Hashes())
        hash.Add(fmt::format("{} {}\n", name, textHash));
    for (const TablePlan& plan : plans)
        for (const SourceFamily* family : plan.families)
            hash.Add(fmt::format("{} {}\n", family->name, family->hash));
    return hash.Hex();
}

} // namespace

std::size_t CatalogueSource::CountSections() const {
    std::size_t sections = 0;
    for (const SourceTable& table : tables)
        sections += table.rows.size();
    return sections;
}

CatalogueSource CatalogueSource::Load(const std::filesystem::path& folder, SourceLibrary& library) {
    const CatalogueSectionDB& catalogue = CatalogueOf(folder);
    SourceFolder texts(folder);
    const std::vector<TablePlan> plans = ReadTablePlans(texts, catalogue, library);
    const Titles titles = ReadTitles(texts.Read("_catalogue.csv"), !plans.empty());
    texts.RequireAllRead("not a text of a catalogue; figures stand in the folder of families");

    const std::string tables = texts.File("_tables.csv");
    CatalogueUnits units(*titles.units);
    for (const TablePlan& plan : plans)
        units.Add(plan, tables);
    CatalogueSource source;
    source.stem = (folder / "").parent_path().filename().string();
    source.title = titles.title;
    source.standard = plans.empty() ? titles.standard : StandardsOf(plans);
    source.sourceNote = titles.sourceNote;
    source.tables =
        MakeEmptyTables(catalogue, [&units](Quantity quantity) { return units.UnitOf(quantity); });
    TableFiller filler(source, tables);
    for (const TablePlan& plan : plans)
        filler.Fill(plan);
    filler.Finish();
    source.sourceHash = HashOf(texts, plans);
    return source;
}

CatalogueSource CatalogueSource::Load(const std::filesystem::path& folder) {
    SourceLibrary library;
    return Load(folder, library);
}

} // namespace dbsection
