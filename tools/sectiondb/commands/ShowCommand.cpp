#include "commands/Commands.h"
#include "files/CatalogueAccess.h"
#include "interface/SectionDBInterface.h"
#include "output/Listing.h"
#include "output/OutputText.h"
#include "output/UnitLabels.h"
#include "platform/Text.h"

#include <algorithm>
#include <fmt/format.h>

namespace dbsection {
namespace {

struct Property {
    std::string column;
    std::string meaning;
    Listing::Cell value;
    std::string unit;
    bool isConverted;
};

struct Section {
    std::string table;
    std::string publicName;
    std::string vessaName;
    std::vector<Property> properties;
};

const char* MeaningOf(LayoutId layout, std::string_view column) {
    for (const LayoutColumn& candidate : GetSectionLayout(layout).columns)
        if (EqualNoCase(candidate.name, column))
            return candidate.meaning;
    return "";
}

Property ReadProperty(const CSectionRecordset& rows, int column, LayoutId layout,
                      std::string_view unit, const UnitChoice& choice) {
    CSectionFieldInfo field;
    rows.GetFieldInfo(column, field);
    const std::string name(field.m_strName.View());
    const COleVariant value = rows.GetFieldValue(column);
    Property property{name, MeaningOf(layout, name), {}, "", false};
    if (value.vt == VT_BSTR)
        property.value = TextAt(rows, column);
    if (value.vt == VT_BSTR || value.vt == VT_NULL)
        return property;
    const double stored = NumberIn(value).value_or(0);
    const LabelledValue labelled = InChosenUnits(stored, unit, choice);
    property.value = labelled.value;
    property.unit = labelled.unit;
    property.isConverted = labelled.value != stored;
    return property;
}

Section ReadSection(const OpenCatalogue& open, const SectionFamily& family,
                    const CSectionRecordset& rows, const UnitChoice& choice) {
    Section section{family.table, TextAt(rows, NameColumn), TextAt(rows, VessaNameColumn), {}};
    std::vector<std::string> units = UnitsOf(open, family);
    units.resize(static_cast<std::size_t>(rows.GetFieldCount()));
    for (int column = BookkeepingColumns; column < rows.GetFieldCount(); ++column)
        section.properties.push_back(ReadProperty(rows, column, family.layout,
                                                  units[static_cast<std::size_t>(column)], choice));
    return section;
}

std::vector<Section> FindSections(const OpenCatalogue& open, const std::string& name,
                                  const UnitChoice& choice) {
    std::vector<Section> sections;
    VisitSections(open, name, [&](const SectionFamily& family, const CSectionRecordset& rows) {
        sections.push_back(ReadSection(open, family, rows, choice));
    });
    return sections;
}

void PrintTable(const Section& section, const std::string& catalogue) {
    fmt::print("{} ({}, {})\n", PlainText(section.publicName), catalogue, section.table);
    std::vector<std::pair<std::string, std::string>> texts; // value and unit
    std::size_t valueWidth = 0;
    std::size_t unitWidth = 0;
    for (const Property& property : section.properties) {
        const auto& [value, unit] = texts.emplace_back(
            ReadableText(property.value, property.isConverted), PlainText(property.unit));
        valueWidth = std::max(valueWidth, value.size());
        unitWidth = std::max(unitWidth, unit.size());
    }
    auto text = texts.begin();
    for (const Property& property : section.properties) {
        const auto& [value, unit] = *text++;
        fmt::print("  {:<9} {:>{}} {:<{}}  {}\n", PlainText(property.column), value, valueWidth,
                   unit, unitWidth, property.meaning);
    }
}

std::string JsonObject(const Section& section, const std::string& catalogue) {
    std::string properties;
    for (const Property& property : section.properties)
        properties += fmt::format(
            "{}\n    {{\"column\": {}, \"value\": {}, \"unit\": {}, \"meaning\": {}}}",
            properties.empty() ? "" : ",", JsonText(property.column), JsonValue(property.value),
            JsonText(property.unit), JsonText(property.meaning));
    return fmt::format("  {{\"catalogue\": {}, \"table\": {}, \"name\": {}, \"programName\": {}, "
                       "\"properties\": [{}\n  ]}}",
                       JsonText(catalogue), JsonText(section.table), JsonText(section.publicName),
                       JsonText(section.vessaName), properties);
}

/// An array, since a name may stand in several tables.
void PrintJson(const std::vector<Section>& sections, const std::string& catalogue) {
    std::string objects;
    for (const Section& section : sections)
        objects += (objects.empty() ? "" : ",\n") + JsonObject(section, catalogue);
    fmt::print("[\n{}\n]\n", objects);
}

} // namespace

void Show(const ShowOptions& options) {
    const UnitChoice choice = ChooseUnits(options.length, options.force);
    const int index = FindCatalogue(options.catalogue);
    const std::string catalogue = SectionDBInterface::m_saCountryName[index];
    const auto sections = FindSections(Open(index), options.name, choice);
    if (sections.empty())
        throw CommandError(
            fmt::format("There is no section \"{}\" in the catalogue {}; \"sectiondb "
                        "list {} FAMILY\" prints the names.",
                        options.name, catalogue, index));
    if (options.json)
        PrintJson(sections, catalogue);
    else
        for (const Section& section : sections)
            PrintTable(section, catalogue);
}

} // namespace dbsection
