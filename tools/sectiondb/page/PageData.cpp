#include "page/PageData.h"

#include "drawing/Drawing.h"
#include "files/SectionColumns.h"
#include "output/Figure.h"
#include "page/UnitSystems.h"
#include "records/SectionLayout.h"
#include "sections/Error.h"

#include <algorithm>
#include <fmt/format.h>

namespace dbsection {
namespace {

std::string CellJson(const Table::Cell& cell) {
    if (const auto* text = std::get_if<std::string>(&cell))
        return JsonText(*text);
    const auto* figure = std::get_if<Figure>(&cell);
    return figure == nullptr ? "null" : ExactText(*figure, "null");
}

/// Its path and centroid in mm, and the angle of its principal axis; null where the figures do not
/// tell the shape.
std::string OutlineJson(const sections::Section& section) {
    try {
        const Outline outline = section.agreedShape().outline;
        JsonList parts;
        parts.Add(JsonText(SvgPath(outline)));
        for (const double figure : {outline.MinorAxis().centroid, outline.MajorAxis().centroid,
                                    PrincipalAngleOf(outline)})
            parts.Add(fmt::format("{:.3f}", figure));
        return parts.Array();
    } catch (const sections::Error&) {
        return "null";
    }
}

template <class Range, class Text>
std::string ArrayOf(const Range& items, Text text) {
    JsonList list;
    for (const auto& item : items)
        list.Add(text(item));
    return list.Array();
}

/// The other names of those rows that have some, by the places of the rows.
std::string AliasesJson(const sections::Sections& rows) {
    JsonList members;
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (const auto aliases = rows[i].aliases(); !aliases.empty())
            members.AddMember(std::to_string(i), ArrayOf(aliases, [](const sections::Alias& alias) {
                                  return JsonText(alias.name);
                              }));
    return members.Object();
}

/// Whether the figures of a column are computed rather than published: all of them, or the places
/// of those that are.
std::string ComputedJson(const sections::Sections& rows, const std::string& column) {
    JsonList places;
    std::size_t count = 0;
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i].source(column) == sections::FigureSource::Computed) {
            places.Add(std::to_string(i));
            ++count;
        }
    return count > 0 && count == rows.size() ? "true" : places.Array();
}

std::string UnitJson(const std::string& stored) {
    return ArrayOf(GetUnitSystems(), [&](const UnitSystem& system) {
        const PrintedUnit unit = InChosenUnits(stored, ChoiceFor(system, stored));
        return fmt::format("[{}, {}]", JsonText(unit.label), unit.factor);
    });
}

} // namespace

void PageData::Add(const sections::Catalogue& catalogue, bool isProtected) {
    JsonList members;
    members.AddMember("name", JsonText(catalogue.name()));
    members.AddMember("standard", JsonText(catalogue.standard()));
    members.AddMember("isProtected", isProtected ? "true" : "false");
    JsonList families;
    for (const sections::Family& family : catalogue.families())
        if (family.size() > 0)
            families.Add(FamilyJson(family));
    members.AddMember("families", families.Array());
    m_catalogues.Add(members.Object());
}

std::string PageData::FamilyJson(const sections::Family& family) {
    const auto rows = family.sections();
    JsonList columns;
    for (std::size_t i = 0; i < family.columns().size(); ++i)
        columns.Add(ColumnJson(family, i));
    JsonList members;
    members.AddMember("name", JsonText(family.name()));
    members.AddMember("shape", JsonText(GetSectionLayout(family.layout()).name));
    members.AddMember("columns", columns.Array());
    members.AddMember("names",
                      ArrayOf(rows, [](const auto& section) { return JsonText(section.name()); }));
    members.AddMember("programNames", ArrayOf(rows, [](const auto& section) {
                          return JsonText(section.programName());
                      }));
    members.AddMember("aliases", AliasesJson(rows));
    members.AddMember("outlines", ArrayOf(rows, [this](const auto& section) {
                          m_advance();
                          return OutlineJson(section);
                      }));
    return members.Object();
}

std::string PageData::ColumnJson(const sections::Family& family, std::size_t place) {
    const sections::Column& column = family.columns()[place];
    const std::vector<SectionColumn> columns = ColumnsOf(family);
    JsonList members;
    members.AddMember("name", JsonText(column.name));
    members.AddMember("meaning", JsonText(column.meaning));
    if (column.quantity != Quantity::Text)
        members.AddMember("unit", fmt::format("{}", UnitPlace(column.unit)));
    members.AddMember("values", ArrayOf(family.sections(), [&](const sections::Section& section) {
                          return CellJson(CellAt(section, columns, BookkeepingColumns + place));
                      }));
    members.AddMember("computed", ComputedJson(family.sections(), column.name));
    return members.Object();
}

std::size_t PageData::UnitPlace(const std::string& stored) {
    const auto place = std::ranges::find(m_units, stored);
    const auto index = static_cast<std::size_t>(place - m_units.begin());
    if (place == m_units.end())
        m_units.push_back(stored);
    return index;
}

std::string PageData::Json() const {
    JsonList members;
    members.AddMember("systems", ArrayOf(GetUnitSystems(), [](const UnitSystem& system) {
                          return JsonText(system.name);
                      }));
    members.AddMember("units", ArrayOf(m_units, UnitJson));
    members.AddMember("catalogues", m_catalogues.Array());
    return members.Object();
}

} // namespace dbsection
