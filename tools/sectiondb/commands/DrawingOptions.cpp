#include "commands/DrawingOptions.h"

#include "files/SectionDrawing.h"
#include "files/WholeFile.h"
#include "output/Escapes.h"

#include <fmt/format.h>

namespace dbsection {

void DrawingOptions::Declare(CommandLine& line) {
    auto svg = line.Add("--svg", m_svg, "Draw into a file for browsers");
    svg.Value("FILE.svg");
    line.Add("--dxf", m_dxf, "Draw into a file for CAD programs, in mm")
        .Value("FILE.dxf")
        .Excludes(svg);
    m_units.Declare(line);
}

void DrawingOptions::Draw(const sections::Section& section) const {
    const UnitChoice units = m_units.Choice();
    if (!m_svg.empty())
        RequireEnding(m_svg, ".svg", "a drawing for browsers");
    if (!m_dxf.empty())
        RequireEnding(m_dxf, ".dxf", "a drawing for CAD programs");
    const SectionGeometry shape = section.agreedShape();
    const Legend legend = LegendOf(section, shape, units);
    if (m_svg.empty() && m_dxf.empty()) {
        fmt::print("{}", PictureWithLegend(shape.outline, legend));
        return;
    }
    const Drawing drawing = DrawSection(shape.outline, legend);
    const std::string& path = m_svg.empty() ? m_dxf : m_svg;
    WriteWholeFile(path, m_svg.empty() ? Dxf(drawing) : Svg(drawing), "the drawing");
    fmt::print("{}: {}\n", PlainText(path), PlainText(section.name()));
}

} // namespace dbsection
