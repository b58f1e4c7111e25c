#include "drawing/Drawing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace dbsection {
namespace {

using Polygon = std::vector<Point>;

/// A loop whose arcs are short straight lines.
Polygon Straightened(const Outline::Loop& loop) {
    constexpr double Step = 0.1; // radians
    Polygon polygon;
    for (std::size_t i = 0; i < loop.size(); ++i) {
        polygon.push_back(loop[i].at);
        if (loop[i].bulge == 0)
            continue;
        const Arc arc = ArcBetween(loop[i].at, loop[(i + 1) % loop.size()].at, loop[i].bulge);
        const int steps = static_cast<int>(std::ceil(std::abs(arc.sweep) / Step));
        for (int k = 1; k < steps; ++k) {
            const double angle = arc.start + arc.sweep * k / steps;
            polygon.push_back({arc.center.z + arc.radius * std::cos(angle),
                               arc.center.y + arc.radius * std::sin(angle)});
        }
    }
    return polygon;
}

/// Where the line at a height crosses the polygons, from left to right: inside lies between the
/// first and the second crossing, the third and the fourth, and so on.
std::vector<double> Crossings(const std::vector<Polygon>& polygons, double height) {
    std::vector<double> crossings;
    for (const Polygon& polygon : polygons)
        for (std::size_t i = 0; i < polygon.size(); ++i) {
            const Point from = polygon[i];
            const Point to = polygon[(i + 1) % polygon.size()];
            if ((from.y <= height) != (to.y <= height))
                crossings.push_back(from.z + (height - from.y) / (to.y - from.y) * (to.z - from.z));
        }
    std::ranges::sort(crossings);
    return crossings;
}

/// Cells that the outline fills, by rows from the top.
using Raster = std::vector<std::vector<bool>>;

/// A cell is filled where any part of the outline lies in its middle line, so that thin walls that
/// stand upright never vanish.
Raster Rasterised(const Outline& outline, std::size_t width, std::size_t height) {
    const Extent extent = outline.GetExtent();
    const double cellWidth = (extent.high.z - extent.low.z) / static_cast<double>(width);
    const double cellHeight = (extent.high.y - extent.low.y) / static_cast<double>(height);
    std::vector<Polygon> polygons;
    for (const Outline::Loop& loop : outline.Loops())
        polygons.push_back(Straightened(loop));

    Raster raster(height, std::vector<bool>(width, false));
    constexpr int Lines = 8; // in a row of cells: thin flanges do not vanish either
    for (std::size_t row = 0; row < height; ++row)
        for (int line = 0; line < Lines; ++line) {
            const double part = static_cast<double>(row) + (line + 0.5) / Lines;
            const auto crossings = Crossings(polygons, extent.high.y - part * cellHeight);
            for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
                const auto cell = [&](double z) {
                    const auto place = (z - extent.low.z) / cellWidth;
                    return std::clamp(place, 0.0, static_cast<double>(width));
                };
                const auto first = static_cast<std::size_t>(cell(crossings[i]) + 0.25);
                const auto last = static_cast<std::size_t>(cell(crossings[i + 1]) + 0.75);
                for (std::size_t at = first; at < std::min(std::max(last, first + 1), width); ++at)
                    raster[row][at] = true;
            }
        }
    return raster;
}

} // namespace

std::string Picture(const Outline& outline, int columns) {
    // Quarters by their bits: 1 upper left, 2 upper right, 4 lower left, 8 lower right.
    static constexpr std::array<std::string_view, 16> Blocks{
        " ", "▘", "▝", "▀", "▖", "▌", "▞", "▛", "▗", "▚", "▐", "▜", "▄", "▙", "▟", "█"};
    const Extent extent = outline.GetExtent();
    const double width = extent.high.z - extent.low.z;
    const double depth = extent.high.y - extent.low.y;
    const double widest = 2.0 * std::max(columns, 2); // in quarters, which are as high as two wide
    const double tallest = widest / 2;
    const double scale = std::min(widest / width, 2 * tallest / depth);
    const auto rows = static_cast<std::size_t>(std::max(1.0, std::round(depth * scale / 4))) * 2;
    const auto cells = static_cast<std::size_t>(std::max(1.0, std::round(width * scale / 2))) * 2;
    const Raster raster = Rasterised(outline, cells, rows);

    std::string picture;
    for (std::size_t row = 0; row < rows; row += 2) {
        std::string line;
        for (std::size_t cell = 0; cell < cells; cell += 2) {
            const unsigned block =
                (raster[row][cell] ? 1U : 0U) | (raster[row][cell + 1] ? 2U : 0U) |
                (raster[row + 1][cell] ? 4U : 0U) | (raster[row + 1][cell + 1] ? 8U : 0U);
            line += Blocks[block];
        }
        line.erase(line.find_last_not_of(' ') + 1);
        picture += line + "\n";
    }
    return picture;
}

} // namespace dbsection
