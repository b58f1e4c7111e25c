#include "drawing/Drawing.h"

#include "drawing/DrawingText.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace dbsection {
namespace {

constexpr double Degree = std::numbers::pi / 180;

/// Puts the parts of a drawing around an outline, in sizes that go with it.
class Draughtsman {
public:
    Draughtsman(const Outline& outline, Drawing& drawing)
        : m_drawing(drawing),
          m_extent(outline.GetExtent()),
          m_size(std::max(m_extent.high.z - m_extent.low.z, m_extent.high.y - m_extent.low.y)),
          m_letter(m_size / 28) {}

    void DrawAxes(const Outline& outline) {
        const Point centroid{outline.MinorAxis().centroid, outline.MajorAxis().centroid};
        const double angle = PrincipalAngleOf(outline);
        const bool isTurned = std::fmod(angle, 90) != 0;
        const double turned = isTurned ? angle * Degree : 0;
        DrawAxis(outline, centroid, turned, isTurned ? "u" : "Z");
        DrawAxis(outline, centroid, turned + std::numbers::pi / 2, isTurned ? "v" : "Y");
    }

    void DrawDimensions(const Legend& legend) {
        const auto length = [&](double millimetres) {
            return DrawnNumber(millimetres * legend.lengthFactor) +
                   (legend.lengthUnit.empty() ? "" : " ") + legend.lengthUnit;
        };
        const auto& [low, high] = m_extent;
        const double left = low.z - 0.28 * m_size;
        const double below = low.y - 0.28 * m_size;
        Dimension({left, low.y}, {left, high.y}, {0.22 * m_size, 0});
        Text(Layer::Dimensions, {left - 0.5 * m_letter, (low.y + high.y) / 2},
             length(high.y - low.y), 90);
        Dimension({low.z, below}, {high.z, below}, {0, 0.22 * m_size});
        const std::string width = length(high.z - low.z);
        const double room = high.z - low.z - m_letter; // between the strokes
        const bool fits = LengthOf(width) < room;
        Text(Layer::Dimensions,
             {fits ? (low.z + high.z) / 2 : high.z + m_letter + LengthOf(width) / 2,
              below + 0.5 * m_letter},
             width, 0);
    }

    void Write(const Legend& legend) {
        constexpr double LineSpacing = 1.7;
        const double left = m_extent.high.z + 0.3 * m_size;
        double y = m_extent.high.y - m_letter;
        const auto write = [&](double indent, const std::string& text, double height) {
            m_drawing.texts.push_back({Layer::Text, {left + indent, y}, height, text});
        };
        write(0, legend.title, 1.4 * m_letter);
        y -= LineSpacing * m_letter;
        const auto writeLine = [&](const std::string& text) {
            write(0, text, m_letter);
            y -= LineSpacing * m_letter;
        };
        if (!legend.subtitle.empty())
            writeLine(legend.subtitle);
        y -= 0.5 * m_letter;
        for (const auto& [symbol, figure] : legend.values) {
            write(6 * m_letter, figure, m_letter);
            writeLine(symbol);
        }
        std::ranges::for_each(legend.remarks, writeLine);
    }

private:
    void Line(Layer layer, Point from, Point to) { m_drawing.lines.push_back({layer, from, to}); }

    /// The axis through the centroid at an angle in radians, named at its end.
    void DrawAxis(const Outline& outline, Point centroid, double angle, const char* name) {
        const Point along{std::cos(angle), std::sin(angle)};
        const auto [low, high] = Reach(outline, centroid, along);
        const auto at = [&](double distance) {
            return Point{centroid.z + distance * along.z, centroid.y + distance * along.y};
        };
        Line(Layer::Axes, at(low), at(high));
        const Point middle = at(high + m_letter);
        Text(Layer::Axes, {middle.z, middle.y - 0.35 * m_letter}, name, 0); // on its base line
    }

    /// How far an axis goes both ways from the centroid: a little beyond the section.
    std::pair<double, double> Reach(const Outline& outline, Point centroid, Point along) const {
        const double beyond = 0.07 * m_size;
        std::pair<double, double> reach{0, 0};
        for (const Outline::Loop& loop : outline.Loops())
            for (const Vertex& vertex : loop) {
                const double place =
                    (vertex.at.z - centroid.z) * along.z + (vertex.at.y - centroid.y) * along.y;
                reach = {std::min(reach.first, place), std::max(reach.second, place)};
            }
        return {reach.first - beyond, reach.second + beyond};
    }

    /// How long a text is, nearly.
    double LengthOf(const std::string& text) const {
        return 0.7 * m_letter * static_cast<double>(LettersIn(text));
    }

    void Text(Layer layer, Point at, const std::string& text, double angle) {
        m_drawing.texts.push_back({layer, at, m_letter, text, DrawnText::Anchor::Middle, angle});
    }

    /// A line between two ends, each with a stroke and a line towards the section.
    void Dimension(Point from, Point to, Point towards) {
        Line(Layer::Dimensions, from, to);
        const double stroke = 0.5 * m_letter;
        for (const Point end : {from, to}) {
            Line(Layer::Dimensions, {end.z - stroke, end.y - stroke},
                 {end.z + stroke, end.y + stroke});
            Line(Layer::Dimensions, end, {end.z + towards.z, end.y + towards.y});
        }
    }

    Drawing& m_drawing;
    Extent m_extent;
    double m_size;
    double m_letter; ///< height of texts
};

/// Widens the extent so that it holds all lines and, nearly, all texts.
Extent ExtentOf(const Drawing& drawing) {
    Extent extent = drawing.outline.GetExtent();
    const auto add = [&](Point point) {
        extent.low = {std::min(extent.low.z, point.z), std::min(extent.low.y, point.y)};
        extent.high = {std::max(extent.high.z, point.z), std::max(extent.high.y, point.y)};
    };
    for (const DrawnLine& line : drawing.lines) {
        add(line.from);
        add(line.to);
    }
    for (const DrawnText& text : drawing.texts) {
        const double length = 0.8 * text.height * static_cast<double>(LettersIn(text.text));
        add({text.at.z - 1.5 * text.height, text.at.y - text.height});
        add({text.at.z, text.at.y + 1.5 * text.height});
        if (text.anchor == DrawnText::Anchor::Left)
            add({text.at.z + length, text.at.y + text.height});
    }
    return extent;
}

} // namespace

const char* NameOf(Layer layer) {
    switch (layer) {
    case Layer::Outline:
        return "OUTLINE";
    case Layer::Axes:
        return "AXES";
    case Layer::Dimensions:
        return "DIMENSIONS";
    case Layer::Text:
        break;
    }
    return "TEXT";
}

double PrincipalAngleOf(const Outline& outline) {
    const double major = outline.MajorAxis().inertia;
    const double minor = outline.MinorAxis().inertia;
    const double product = outline.ProductOfInertia();
    constexpr double Nothing = 1e-9; // beside the inertias: they are computed in floating point
    if (std::abs(product) < Nothing * (major + minor))
        return major + Nothing * major >= minor ? 0 : 90;
    return std::atan2(-2 * product, major - minor) / 2 / Degree;
}

Drawing DrawSection(const Outline& outline, const Legend& legend) {
    Drawing drawing{outline, {}, {}, {}};
    Draughtsman draughtsman(outline, drawing);
    draughtsman.DrawAxes(outline);
    draughtsman.DrawDimensions(legend);
    draughtsman.Write(legend);
    drawing.extent = ExtentOf(drawing);
    return drawing;
}

} // namespace dbsection
