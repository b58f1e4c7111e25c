#include "sources/SourceFamilies.h"

#include "files/Sha256.h"
#include "sources/FamilyReader.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <set>
#include <sstream>

namespace dbsection {
namespace {

constexpr const char* ListName = "_families.csv";

std::vector<std::string> Words(const std::string& text) {
    std::istringstream words(text);
    return {std::istream_iterator<std::string>(words), {}};
}

/// "slope=0 toe=0.4"; lengths in mm.
Figures ReadParameters(const CsvTable& csv, const CsvTable::Record& record,
                       const GeometryModel* model) {
    Figures parameters;
    for (const std::string& word : Words(csv.Text(record, "Parameters"))) {
        const std::size_t equals = std::min(word.find('='), word.size() - 1);
        const std::string name = word.substr(0, equals);
        const std::optional<double> value = ParseNumber(word.substr(equals + 1));
        if (!value || model == nullptr ||
            std::ranges::find(model->parameters, name, &GeometryParameter::name) ==
                model->parameters.end())
            throw csv.Error(record, "Parameters",
                            "\"" + word + "\" is not a parameter of the geometry and its value");
        parameters[name] = *value;
    }
    return parameters;
}

/// Lists of families may do without the column.
std::string ReadProduction(const CsvTable& csv, const CsvTable::Record& record) {
    constexpr const char* Column = "Production";
    constexpr std::array Known{"",         "rolled", "hot-finished", "cold-formed",
                               "seamless", "welded", "sawn",         "glued laminated"};
    std::string production = csv.Has(Column) ? csv.Text(record, Column) : "";
    if (std::ranges::find(Known, production) == Known.end())
        throw csv.Error(record, Column, "no kind of production");
    return production;
}

std::vector<std::string> ReadNameSizes(const CsvTable& csv, const CsvTable::Record& record,
                                       const SectionLayout& layout) {
    std::vector<std::string> columns = Words(csv.Text(record, "NameSizes"));
    for (const std::string& column : columns)
        if (std::ranges::find(layout.columns, column, &LayoutColumn::name) == layout.columns.end())
            throw csv.Error(record, "NameSizes", "\"" + column + "\" is not a column");
    return columns;
}

} // namespace

SourceFamilies::SourceFamilies(const std::filesystem::path& folder)
    : m_folder(folder),
      m_list(m_folder.Read(ListName)),
      m_rules(m_folder),
      m_corrections(m_folder) {
    std::set<std::string, std::less<>> names;
    for (const CsvTable::Record& record : m_list.Records()) {
        const std::string& name = m_list.RequiredText(record, "Family");
        m_list.RequiredText(record, "Standard");
        m_list.RequiredText(record, "Remark");
        if (!m_plans.try_emplace(name, &record).second)
            throw m_list.Error(record, "Family", "the family is named twice");
        names.insert(name);
    }
    m_rules.RequireFamilies(names);
    m_corrections.RequireFamilies(names);
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string name = entry.path().stem().string();
        if (entry.path().extension() == ".csv" && !name.starts_with('_') && !names.contains(name))
            throw SourceError({entry.path().string(), 0, "", ""},
                              "_families.csv does not name this family");
    }
}

std::vector<std::string> SourceFamilies::Names() const {
    std::vector<std::string> names;
    for (const CsvTable::Record& record : m_list.Records())
        names.push_back(m_list.Text(record, "Family"));
    return names;
}

const SourceFamily& SourceFamilies::Get(const std::string& name, const SectionLayout& layout) {
    const CsvTable::Record& record = *m_plans.at(name);
    auto place = m_read.find(name);
    if (place == m_read.end()) {
        SourceFamily family = Plan(record, layout);
        RequireLayout(record, family, layout);
        ReadFamily(m_folder.Read(name + ".csv"), m_rules, family);
        m_corrections.RequireTrue(family);
        Sha256 hash;
        hash.Add(m_folder.HashOf(name + ".csv"));
        for (const std::string& field : record.fields)
            hash.Add(field + "\n");
        hash.Add(m_rules.TextOf(name));
        for (const Correction& correction : family.corrections)
            hash.Add(correction.name + "\n" + correction.column + "\n" + correction.printed + "\n" +
                     correction.kept + "\n" + correction.reason + "\n");
        family.hash = hash.Hex();
        place = m_read.emplace(name, std::move(family)).first;
    }
    RequireLayout(record, place->second, layout);
    return place->second;
}

void SourceFamilies::RequireLayout(const CsvTable::Record& record, const SourceFamily& family,
                                   const SectionLayout& layout) const {
    if (family.layout != &layout)
        throw m_list.Error(record, "Family",
                           std::string("not a family of the layout \"") + layout.name + "\"");
}

SourceFamily SourceFamilies::Plan(const CsvTable::Record& record,
                                  const SectionLayout& layout) const {
    SourceFamily family;
    family.name = m_list.Text(record, "Family");
    family.standard = m_list.Text(record, "Standard");
    family.remark = m_list.Text(record, "Remark");
    family.layout = &layout;
    const std::string& geometry = m_list.Text(record, "Geometry");
    if (!geometry.empty()) {
        family.model = FindGeometryModel(geometry);
        if (family.model == nullptr)
            throw m_list.Error(record, "Geometry", "no geometry has this name");
        family.layout = &GetSectionLayout(family.model->layout);
    }
    family.parameters = ReadParameters(m_list, record, family.model);
    family.production = ReadProduction(m_list, record);
    family.nameSizes = ReadNameSizes(m_list, record, *family.layout);
    family.corrections = m_corrections.Of(family.name);
    return family;
}

} // namespace dbsection
