#include "page/PageData.h"

#include "drawing/Drawing.h"
#include "files/SectionColumns.h"
#include "output/Figure.h"
#include "page/DisplayUnits.h"
#include "platform/Numbers.h"
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

/// The figure with the digits that a person is told in any unit, and two more: all of them would
/// double the size of the page.
Table::Cell Shortened(const Table::Cell& cell) {
    constexpr int Digits = 7;
    const auto* figure = std::get_if<Figure>(&cell);
    return figure == nullptr ? cell : Figure{RoundedTo(figure->stored, Digits)};
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

/// The standard of each row, by its place in the family's list; null where the file does not tell.
std::string StandardsJson(const sections::Sections& rows,
                          const std::vector<std::string>& standards) {
    return ArrayOf(rows, [&](const sections::Section& section) {
        const sections::Origin* const origin = section.origin();
        return origin == nullptr ? std::string("null")
                                 : std::to_string(std::ranges::find(standards, origin->standard) -
                                                  standards.begin());
    });
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
    return ArrayOf(GetDisplayUnits(), [&](const DisplayUnits& system) {
        const PrintedUnit unit = InChosenUnits(stored, ChoiceFor(system, stored));
        return fmt::format("[{}, {}]", JsonText(unit.label), unit.factor);
    });
}

} // namespace

void PageData::Add(const sections::Catalogue& catalogue, bool isProtected) {
    JsonList members;
    members.AddMember("name", JsonText(catalogue.name()));
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
    const std::vector<SectionColumn> all = AllColumnsOf(family);
    JsonList columns;
    for (std::size_t i = BookkeepingColumns; i < all.size(); ++i)
        columns.Add(ColumnJson(family, all, i));
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
    const std::vector<std::string> standards = family.standards();
    members.AddMember("standards", ArrayOf(standards, JsonText));
    members.AddMember("standardOf", StandardsJson(rows, standards));
    members.AddMember("outlines", ArrayOf(rows, [this](const auto& section) {
                          m_advance();
                          return OutlineJson(section);
                      }));
    return members.Object();
}

std::string PageData::ColumnJson(const sections::Family& family,
                                 std::span<const SectionColumn> columns, std::size_t place) {
    const SectionColumn& column = columns[place];
    JsonList members;
    members.AddMember("name", JsonText(column.name));
    members.AddMember("meaning", JsonText(column.meaning));
    members.AddMember("isDetail", column.isDetail ? "true" : "false");
    if (!column.isText)
        members.AddMember("unit", fmt::format("{}", UnitPlace(column.storedUnit)));
    members.AddMember("values", ArrayOf(family.sections(), [&](const sections::Section& section) {
                          const Table::Cell cell = CellAt(section, columns, place);
                          return CellJson(column.isDerived ? Shortened(cell) : cell);
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
    members.AddMember("systems", ArrayOf(GetDisplayUnits(), [](const DisplayUnits& system) {
                          return JsonText(system.name);
                      }));
    members.AddMember("units", ArrayOf(m_units, UnitJson));
    members.AddMember("catalogues", m_catalogues.Array());
    return members.Object();
}

} // namespace dbsection
