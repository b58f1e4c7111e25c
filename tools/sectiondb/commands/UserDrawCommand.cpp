#include "commands/Command.h"
#include "commands/DrawingOptions.h"
#include "commands/UserSection.h"
#include "files/CatalogueFolder.h"

namespace dbsection {
namespace {

class UserDraw : public Command {
    void Declare(CLI::App& app) override {
        m_file.Declare(app);
        app.add_option("family", m_family, "Shape family, e.g. \"Wide Flange\"")->required();
        app.add_option("name", m_name, "Section name")->required();
        m_drawing.Declare(app);
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
