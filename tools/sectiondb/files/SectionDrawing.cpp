#include "files/SectionDrawing.h"

#include "files/SectionColumns.h"
#include "output/Escapes.h"
#include "records/CatalogueList.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <sstream>

namespace dbsection {
namespace {

/// What stands beside a drawing of the columns that are not in the table.
constexpr const char* Beside[] = {"Weight", "SZ", "SY", "RZ", "RY"};

bool IsBeside(const SectionColumn& column) {
    return !column.isText &&
           (!column.isDerived || std::ranges::find(Beside, column.name) != std::end(Beside));
}

/// Superscripts in place of "^2" and others.
std::string Printed(std::string unit) {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 4> Powers{
        {{"^2", "²"}, {"^3", "³"}, {"^4", "⁴"}, {"^6", "⁶"}}};
    for (const auto& [written, printed] : Powers)
        for (std::size_t at = 0; (at = unit.find(written)) != std::string::npos;)
            unit.replace(at, written.size(), printed);
    return unit;
}

/// Of the unit of a family's lengths: as it is printed, and a mm in it.
PrintedUnit LengthUnitOf(const sections::Family& family, const UnitChoice& units) {
    for (const sections::Column& column : family.columns())
        if (column.quantity == Quantity::Length && DimensionOf(column.unit)) {
            const PrintedUnit unit = InChosenUnits(column.unit, units);
            return {unit.label, unit.factor / SizeOf(column.unit)};
        }
    return {"mm", 1};
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream input(text);
    for (std::string line; std::getline(input, line);)
        lines.push_back(line);
    return lines;
}

std::vector<std::string> LinesOf(const Legend& legend) {
    std::vector<std::string> lines{legend.title, legend.subtitle, ""};
    for (const auto& [symbol, figure] : legend.values)
        lines.push_back(fmt::format("{:<7}{}", symbol, figure));
    lines.insert(lines.end(), legend.remarks.begin(), legend.remarks.end());
    return lines;
}

} // namespace

Legend LegendOf(const sections::Section& section, const SectionGeometry& shape,
                const UnitChoice& units) {
    const sections::Family family = section.family();
    const sections::Origin* const origin = section.origin();
    Legend legend{.title = section.name(),
                  .subtitle = fmt::format("{}, {}", family.catalogue().name(),
                                          origin == nullptr ? family.name() : origin->standard)};
    const PrintedUnit length = LengthUnitOf(family, units);
    legend.lengthUnit = length.label;
    legend.lengthFactor = length.factor;
    const std::vector<SectionColumn> columns = AllColumnsOf(family, units);
    bool hasComputed = false;
    for (std::size_t i = BookkeepingColumns; i < columns.size(); ++i) {
        const Table::Cell cell = CellAt(section, columns, i);
        const auto* figure = std::get_if<Figure>(&cell);
        if (figure == nullptr || !IsBeside(columns[i]))
            continue;
        hasComputed = hasComputed || figure->isComputed;
        legend.values.emplace_back(columns[i].name, fmt::format("{}{}{}{}", ReadableText(*figure),
                                                                columns[i].unit.empty() ? "" : " ",
                                                                Printed(columns[i].unit),
                                                                figure->isComputed ? " *" : ""));
    }
    if (hasComputed)
        legend.remarks.emplace_back("* computed");
    if (shape.assumedRadius)
        legend.remarks.push_back(
            fmt::format("Fillets assumed: {:.1f} mm, as the area has it", *shape.assumedRadius));
    return legend;
}

std::string PictureWithLegend(const Outline& outline, const Legend& legend) {
    constexpr int Columns = 36;
    constexpr std::size_t Between = 3;
    const std::vector<std::string> left = LinesOf(Picture(outline, Columns));
    const std::vector<std::string> right = LinesOf(legend);
    std::string text;
    for (std::size_t i = 0; i < std::max(left.size(), right.size()); ++i) {
        std::string line = i < left.size() ? left[i] : "";
        if (i < right.size()) {
            line.append(Columns + Between - WidthOf(line), ' ');
            line += PlainText(right[i]);
        }
        line.erase(line.find_last_not_of(' ') + 1);
        text += line + '\n';
    }
    return text;
}

} // namespace dbsection
