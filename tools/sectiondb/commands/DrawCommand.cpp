#include "commands/Command.h"
#include "commands/DrawingOptions.h"
#include "commands/Options.h"
#include "commands/TypedNames.h"

namespace dbsection {
namespace {

class Draw : public Command {
    void Declare(CommandLine& line) override {
        line.Add("catalogue", m_catalogue, "Number, file stem or name").Required();
        line.Add("name", m_name, "Section name, e.g. W12X26").Required();
        line.Add("--family", m_family, "Shape family, where several have the name");
        m_drawing.Declare(line);
        m_catalogues.Declare(line);
    }

    void Run() const override {
        m_drawing.Draw(SectionNamed(m_catalogues.Folder(), m_catalogue, m_name, m_family));
    }

    std::string m_catalogue;
    std::string m_name;
    std::string m_family;
    DrawingOptions m_drawing;
    CatalogueOptions m_catalogues;
};

const CommandEntry entry("draw", "Draw a section to scale", Make<Draw>);

} // namespace
} // namespace dbsection
