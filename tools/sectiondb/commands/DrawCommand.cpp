#include "commands/Command.h"
#include "commands/Options.h"
#include "commands/TypedNames.h"
#include "files/SectionDrawing.h"
#include "files/WholeFile.h"
#include "output/Escapes.h"
#include "output/Messages.h"

#include <fmt/format.h>

namespace dbsection {
namespace {

class Draw : public Command {
    void Declare(CLI::App& app) override {
        app.add_option("catalogue", m_catalogue, "Number, file stem or name")->required();
        app.add_option("name", m_name, "Section name, e.g. W12X26")->required();
        auto* svg = app.add_option("--svg", m_svg, "Draw into a file for browsers");
        svg->option_text("FILE.svg");
        app.add_option("--dxf", m_dxf, "Draw into a file for CAD programs, in mm")
            ->option_text("FILE.dxf")
            ->excludes(svg);
        app.add_option("--family", m_family, "Shape family, where several have the name");
        m_units.DeclareLength(app);
        m_units.DeclareForce(app);
        m_catalogues.Declare(app);
    }

    void Run() const override {
        const UnitChoice units = m_units.Choice();
        if (!m_svg.empty())
            RequireEnding(m_svg, ".svg", "a drawing for browsers");
        if (!m_dxf.empty())
            RequireEnding(m_dxf, ".dxf", "a drawing for CAD programs");
        const sections::Section section = FindSection();
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

    sections::Section FindSection() const {
        const sections::Catalogue catalogue = m_catalogues.Folder().Open(m_catalogue);
        const std::vector<sections::Section> named = SectionsNamed(catalogue, m_name);
        std::string families;
        for (const sections::Section& section : named) {
            const std::string family = section.family().name();
            if (named.size() == 1 ||
                (!m_family.empty() && family == FindFamily(catalogue, m_family).name()))
                return section;
            families += (families.empty() ? "" : ", ") + family;
        }
        throw CommandError(fmt::format("\"{}\" stands in several families: {}; name one of them "
                                       "with --family.",
                                       m_name, families));
    }

    std::string m_catalogue;
    std::string m_name;
    std::string m_svg;
    std::string m_dxf;
    std::string m_family;
    UnitOptions m_units;
    CatalogueOptions m_catalogues;
};

const CommandEntry entry("draw", "Draw a section to scale", Make<Draw>);

} // namespace
} // namespace dbsection
