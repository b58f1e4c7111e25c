#include "drawing/Drawing.h"
#include "drawing/DrawingText.h"

#include <cmath>
#include <numbers>
#include <string_view>

namespace dbsection {
namespace {

/// In the picture y goes downwards.
std::string At(Point point) { return DrawnNumber(point.z) + " " + DrawnNumber(-point.y); }

std::string Attribute(const char* name, double value) {
    return " " + std::string(name) + "=\"" + DrawnNumber(value) + "\"";
}

std::string EdgeTo(Point from, Point to, double bulge) {
    if (bulge == 0)
        return "L" + At(to);
    const Arc arc = ArcBetween(from, to, bulge);
    const std::string radius = DrawnNumber(arc.radius);
    const char* large = std::abs(arc.sweep) > std::numbers::pi ? "1 " : "0 ";
    const char* sweep = bulge > 0 ? "0 " : "1 ";
    return "A" + radius + " " + radius + " 0 " + large + sweep + At(to);
}

std::string LineElement(const DrawnLine& line) {
    return "<line" + Attribute("x1", line.from.z) + Attribute("y1", -line.from.y) +
           Attribute("x2", line.to.z) + Attribute("y2", -line.to.y) + "/>\n";
}

std::string TextElement(const DrawnText& text) {
    std::string element = "<text" + Attribute("x", text.at.z) + Attribute("y", -text.at.y) +
                          Attribute("font-size", 1.3 * text.height);
    if (text.anchor == DrawnText::Anchor::Middle)
        element += " text-anchor=\"middle\"";
    if (text.angle != 0)
        element += " transform=\"rotate(" + DrawnNumber(-text.angle) + " " + At(text.at) + ")\"";
    return element + ">" + SvgText(text.text) + "</text>\n";
}

} // namespace

std::string SvgText(std::string_view text) {
    std::string escaped;
    for (const char c : text)
        switch (c) {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        default: // a control character has no place in the format
            escaped += c >= 0 && c < ' ' ? ' ' : c;
        }
    return escaped;
}

std::string SvgPath(const Outline& outline) {
    std::string path;
    for (const Outline::Loop& loop : outline.Loops()) {
        path += "M" + At(loop.front().at);
        for (std::size_t i = 0; i < loop.size(); ++i)
            path += EdgeTo(loop[i].at, loop[(i + 1) % loop.size()].at, loop[i].bulge);
        path += "Z";
    }
    return path;
}

std::string Svg(const Drawing& drawing) {
    const Extent& extent = drawing.extent;
    const double width = extent.high.z - extent.low.z;
    const double height = extent.high.y - extent.low.y;
    const double stroke = std::max(width, height) / 600;
    std::string svg = R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox=")" +
                      At({extent.low.z, extent.high.y}) + " " + DrawnNumber(width) + " " +
                      DrawnNumber(height) +
                      R"(" fill="currentColor" stroke="none" font-family="sans-serif")" +
                      Attribute("stroke-width", stroke) + ">\n";
    svg += "<g id=\"OUTLINE\" fill-opacity=\"0.25\" fill-rule=\"evenodd\" stroke=\"currentColor\">"
           "<path d=\"" +
           SvgPath(drawing.outline) + "\"/></g>\n";
    for (const Layer layer : {Layer::Axes, Layer::Dimensions, Layer::Text}) {
        svg += "<g id=\"" + std::string(NameOf(layer)) + "\">\n<g stroke=\"currentColor\"";
        if (layer == Layer::Axes)
            svg += " stroke-dasharray=\"" + DrawnNumber(12 * stroke) + " " +
                   DrawnNumber(3 * stroke) + " " + DrawnNumber(3 * stroke) + " " +
                   DrawnNumber(3 * stroke) + "\"";
        svg += ">\n";
        for (const DrawnLine& line : drawing.lines)
            if (line.layer == layer)
                svg += LineElement(line);
        svg += "</g>\n";
        for (const DrawnText& text : drawing.texts)
            if (text.layer == layer)
                svg += TextElement(text);
        svg += "</g>\n";
    }
    return svg + "</svg>\n";
}

} // namespace dbsection
