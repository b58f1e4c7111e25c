#include "commands/Command.h"
#include "commands/DrawingOptions.h"
#include "commands/UserSection.h"
#include "files/CatalogueFolder.h"

namespace dbsection {
namespace {

class UserDraw : public Command {
    void Declare(CommandLine& line) override {
        m_file.Declare(line);
        line.Add("family", m_family, "Shape family, e.g. \"Wide Flange\"").Required();
        line.Add("name", m_name, "Section name").Required();
        m_drawing.Declare(line);
    }

    void Run() const override {
        m_drawing.Draw(FindSection(FindFamily(m_file.File().read(), m_family), m_name));
    }

    UserFileOptions m_file;
    std::string m_family;
    std::string m_name;
    DrawingOptions m_drawing;
};

const CommandEntry entry("user draw", "Draw a section to scale", Make<UserDraw>);

} // namespace
} // namespace dbsection
