#include "sources/FamiliesPage.h"

#include "drawing/Drawing.h"

#include <algorithm>
#include <fmt/format.h>
#include <optional>

namespace dbsection {
namespace {

/// A section that stands for its family.
struct Example {
    const FamilyRow* row;
    Outline outline;
};

std::optional<Example> ExampleOf(const SourceFamily& family) {
    if (family.model == nullptr || family.rows.empty())
        return std::nullopt;
    const FamilyRow& row = family.rows[family.rows.size() / 2];
    const auto geometry = family.GeometryOf(row, family.PublishedFigures(row));
    return Example{&row, geometry->outline};
}

std::string SizeOf(const Outline& outline) {
    const auto& [low, high] = outline.GetExtent();
    return fmt::format("{:.4g} x {:.4g} mm", high.y - low.y, high.z - low.z);
}

constexpr int CellWidth = 180;
constexpr int CellHeight = 160;
constexpr int CellsInRow = 6;
constexpr double DrawnSize = 100;

/// A cell by its upper left corner.
std::string Cell(const SourceFamily& family, const Example& example, int x, int y) {
    const auto& [low, high] = example.outline.GetExtent();
    const double scale = DrawnSize / std::max(high.z - low.z, high.y - low.y);
    const double centerZ = (low.z + high.z) / 2;
    const double centerY = (low.y + high.y) / 2;
    const int middle = x + CellWidth / 2;
    return fmt::format("<path transform=\"translate({:.2f} {:.2f}) scale({:.5f})\" "
                       "stroke-width=\"{:.3f}\" d=\"{}\"/>\n"
                       "<text x=\"{}\" y=\"{}\" font-weight=\"bold\">{}</text>"
                       "<text x=\"{}\" y=\"{}\">{}</text><text x=\"{}\" y=\"{}\">{}</text>\n",
                       middle - scale * centerZ, y + 10 + DrawnSize / 2 + scale * centerY, scale,
                       1 / scale, SvgPath(example.outline), middle, y + 126, family.name, middle,
                       y + 138, SvgText(example.row->name), middle, y + 150,
                       SizeOf(example.outline));
}

} // namespace

std::string FamiliesPage(std::span<const SourceFamily* const> families) {
    std::string text =
        "# Families\n\n"
        "The families of sections of one standard and edition, and the middle section of each, as "
        "its\n"
        "geometry model draws it. `sectiondb sources families` writes this page, and with "
        "`--plot` the\n"
        "picture, in which every section has its own scale.\n\n"
        "![A section of each family](families.svg)\n\n"
        "| family | standard | rows | model | drawn | depth x width |\n"
        "|---|---|---|---|---|---|\n";
    for (const SourceFamily* family : families) {
        const auto example = ExampleOf(*family);
        text += fmt::format("| {} | {} | {} | {} | {} | {} |\n", family->name, family->standard,
                            family->rows.size(), family->model ? family->model->name : "-",
                            example ? example->row->name : "-",
                            example ? SizeOf(example->outline) : "-");
    }
    return text;
}

std::string FamiliesPlot(std::span<const SourceFamily* const> families) {
    std::string cells;
    int count = 0;
    for (const SourceFamily* family : families)
        if (const auto example = ExampleOf(*family)) {
            cells += Cell(*family, *example, count % CellsInRow * CellWidth,
                          count / CellsInRow * CellHeight);
            ++count;
        }
    const int rows = (count + CellsInRow - 1) / CellsInRow;
    return fmt::format(
        "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 {} {}\" "
        "font-family=\"sans-serif\" font-size=\"10\" text-anchor=\"middle\">\n"
        "<rect width=\"100%\" height=\"100%\" fill=\"#fff\"/>\n"
        "<style>path {{ fill: #cdd; fill-rule: evenodd; stroke: #245 }}</style>\n{}</svg>\n",
        CellsInRow * CellWidth, rows * CellHeight, cells);
}

} // namespace dbsection
