#include "sources/CatalogueSource.h"

#include "files/Sha256.h"
#include "interface/SectionDBInterface.h"
#include "sources/SourceTableReader.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <utility>

namespace dbsection {

namespace {

/// Reads the texts of a folder, each once; their hash follows the order of reading.
class SourceFolder {
public:
    explicit SourceFolder(std::filesystem::path path) : m_path(std::move(path)) {}

    bool Has(const std::string& name) const { return std::filesystem::exists(m_path / name); }

    CsvTable Read(const std::string& name) {
        const std::string path = (m_path / name).string();
        std::ifstream file(path, std::ios::binary);
        const std::string text{std::istreambuf_iterator<char>(file), {}};
        if (!file)
            throw SourceError({path, 0, "", ""}, "the file cannot be read");
        m_names.insert(name);
        m_hash.Add(name + "\n" + std::to_string(text.size()) + "\n" + text);
        return {path, text};
    }

    void RequireAllRead() const {
        for (const auto& entry : std::filesystem::directory_iterator(m_path))
            if (entry.path().extension() == ".csv" &&
                !m_names.contains(entry.path().filename().string()))
                throw SourceError({entry.path().string(), 0, "", ""},
                                  "_tables.csv does not name this table");
    }

    std::string Hash() { return m_hash.Hex(); }

private:
    std::filesystem::path m_path;
    std::set<std::string> m_names;
    Sha256 m_hash;
};

/// The value of each key, all of which must occur.
void ReadTitles(const CsvTable& csv, CatalogueSource& source) {
    std::string units;
    std::map<std::string, std::string*> wanted{{"Title", &source.title},
                                               {"Standard", &source.standard},
                                               {"Source", &source.sourceNote},
                                               {"Units", &units}};
    for (const CsvTable::Record& record : csv.Records()) {
        const auto place = wanted.find(csv.RequiredText(record, "Key"));
        if (place == wanted.end())
            throw csv.Error(record, "Key", "not a key of a catalogue, or given twice");
        *place->second = csv.RequiredText(record, "Value");
        wanted.erase(place);
    }
    if (!wanted.empty())
        throw csv.LineError(0, "the key " + wanted.begin()->first + " is missing");
    source.units = FindUnitSystem(units);
    if (source.units == nullptr)
        throw csv.LineError(0, "\"" + units + "\" is no system of units; give metric or US");
}

/// The catalogue whose file has the stem; one with text sources is known by it.
const CatalogueSectionDB& CatalogueOf(const std::string& stem, const std::string& path) {
    SectionDBInterface::InitSectionDBInterface();
    std::string known;
    for (int index = 1; index <= LastCatalogueIndex; ++index) {
        const std::string name = SectionDBInterface::m_saSectionFile[index];
        if (name == stem)
            return dynamic_cast<const CatalogueSectionDB&>(
                *SectionDBInterface::m_SectionDBDrv.GetSectionDBObject(static_cast<WORD>(index)));
        known += (known.empty() ? "" : ", ") + name;
    }
    throw SourceError({path, 0, "", ""},
                      "the folder must have the file stem of a catalogue: " + known);
}

/// "slope=0 toe=0.4"; lengths in mm.
Figures ReadParameters(const CsvTable& csv, const CsvTable::Record& record,
                       const GeometryModel& model) {
    Figures parameters;
    std::istringstream words(csv.Text(record, "Parameters"));
    for (std::string word; words >> word;) {
        const std::size_t equals = std::min(word.find('='), word.size() - 1);
        const std::string name = word.substr(0, equals);
        const std::optional<double> value = ParseNumber(word.substr(equals + 1));
        if (!value || std::ranges::find(model.parameters, name, &GeometryParameter::name) ==
                          model.parameters.end())
            throw csv.Error(record, "Parameters",
                            "\"" + word + "\" is not a parameter of the geometry and its value");
        parameters[name] = *value;
    }
    return parameters;
}

TablePlan ReadPlan(const CsvTable& csv, const CsvTable::Record& record,
                   const CatalogueSectionDB& catalogue) {
    const std::string& table = csv.RequiredText(record, "Table");
    const SectionFamily* family = catalogue.FindFamily(table.c_str());
    if (family == nullptr)
        throw csv.Error(record, "Table", "the catalogue has no table of this name");
    TablePlan plan{table,
                   &GetSectionLayout(family->layout),
                   catalogue.AreaColumn(),
                   FindGeometryModel(csv.RequiredText(record, "Geometry")),
                   {}};
    if (plan.model == nullptr)
        throw csv.Error(record, "Geometry", "no geometry has this name");
    if (plan.model->layout != plan.layout->id)
        throw csv.Error(record, "Geometry",
                        std::string("not a geometry of the layout \"") + plan.layout->name + "\"");
    plan.parameters = ReadParameters(csv, record, *plan.model);
    return plan;
}

/// Replaces the empty tables of those that have figures.
void ReadTables(SourceFolder& texts, const CatalogueSectionDB& catalogue,
                std::vector<SourceTable>& tables) {
    const CsvTable plans = texts.Read("_tables.csv");
    CsvTable tolerances = texts.Read("_tolerances.csv");
    SourceRules rules(std::move(tolerances), texts.Read("_exceptions.csv"));
    std::set<std::string> names;
    for (const CsvTable::Record& record : plans.Records()) {
        const TablePlan plan = ReadPlan(plans, record, catalogue);
        if (!names.insert(plan.name).second)
            throw plans.Error(record, "Table", "the table is named twice");
        *std::ranges::find(tables, plan.name, &SourceTable::name) =
            ReadSourceTable(plan, texts.Read(plan.name + ".csv"), rules);
    }
    rules.RequireAllUsed();
}

} // namespace

CatalogueSource CatalogueSource::Load(const std::filesystem::path& folder) {
    CatalogueSource source;
    source.stem = (folder / "").parent_path().filename().string();
    const CatalogueSectionDB& catalogue = CatalogueOf(source.stem, folder.string());
    SourceFolder texts(folder);
    ReadTitles(texts.Read("_catalogue.csv"), source);
    source.tables = MakeEmptyTables(catalogue, *source.units);
    if (texts.Has("_tables.csv"))
        ReadTables(texts, catalogue, source.tables);
    texts.RequireAllRead();
    source.sourceHash = texts.Hash();
    return source;
}

} // namespace dbsection
