#include "sectiondb/CatalogueAccess.h"
#include "sectiondb/Commands.h"
#include "sectiondb/OutputText.h"
#include "sectiondb/UnitLabels.h"

#include "dataaccess/CCrack.h"
#include "interface/SectionDBInterface.h"
#include "platform/Text.h"
#include "units/UNIT.h"

#include <algorithm>
#include <cstdio>
#include <fmt/format.h>
#include <memory>

namespace dbsection {
namespace {

struct Property {
    std::string column;
    std::string meaning;
    std::string value;
    std::string unit;
    bool isText;
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
                      const CStringArray& units, const UnitChoice& choice) {
    CSectionFieldInfo field;
    rows.GetFieldInfo(column, field);
    const std::string name(field.m_strName.View());
    const COleVariant value = rows.GetFieldValue(column);
    Property property{name, MeaningOf(layout, name), "", "", value.vt == VT_BSTR};
    if (property.isText || value.vt == VT_NULL) {
        property.value = value.vt == VT_NULL ? "" : std::string(value.strVal.View());
        property.isText = true;
        return property;
    }
    const std::string_view unit =
        column < units.GetSize() ? units[column].View() : std::string_view();
    const double stored = NumberIn(value).value_or(0);
    const LabelledValue labelled = InChosenUnits(stored, unit, choice);
    property.value = FigureText(labelled.value, labelled.value != stored);
    property.unit = labelled.unit;
    return property;
}

Section ReadSection(const OpenCatalogue& open, const SectionFamily& family,
                    const CSectionRecordset& rows, const UnitChoice& choice) {
    Section section{family.table,
                    std::string(CCrack::strVARIANT(rows.GetFieldValue(1)).View()),
                    std::string(CCrack::strVARIANT(rows.GetFieldValue(2)).View()),
                    {}};
    const std::unique_ptr<CStringArray> list(UNIT::GetFieldUnitList(open.database, family.table));
    const CStringArray units = list ? *list : CStringArray();
    for (int column = BookkeepingColumns; column < rows.GetFieldCount(); ++column)
        section.properties.push_back(ReadProperty(rows, column, family.layout, units, choice));
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
    fmt::print("{} ({}, {})\n", section.publicName, catalogue, section.table);
    std::size_t valueWidth = 0;
    std::size_t unitWidth = 0;
    for (const Property& property : section.properties) {
        valueWidth = std::max(valueWidth, property.value.size());
        unitWidth = std::max(unitWidth, property.unit.size());
    }
    for (const Property& property : section.properties)
        fmt::print("  {:<9} {:>{}} {:<{}}  {}\n", property.column, property.value, valueWidth,
                   property.unit, unitWidth, property.meaning);
}

void PrintJson(const Section& section, const std::string& catalogue) {
    fmt::print("{{\"catalogue\": {}, \"table\": {}, \"name\": {}, \"programName\": {}, "
               "\"properties\": [",
               JsonText(catalogue), JsonText(section.table), JsonText(section.publicName),
               JsonText(section.vessaName));
    const char* separator = "";
    for (const Property& property : section.properties) {
        fmt::print("{}\n  {{\"column\": {}, \"value\": {}, \"unit\": {}, \"meaning\": {}}}",
                   separator, JsonText(property.column),
                   property.isText ? JsonText(property.value) : property.value,
                   JsonText(property.unit), JsonText(property.meaning));
        separator = ",";
    }
    fmt::print("\n]}}\n");
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
    for (const Section& section : sections)
        options.json ? PrintJson(section, catalogue) : PrintTable(section, catalogue);
}

} // namespace dbsection
