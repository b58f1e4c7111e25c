#include "commands/Command.h"
#include "commands/UserSection.h"
#include "files/CatalogueFolder.h"
#include "output/Escapes.h"
#include "output/Messages.h"

#include <fmt/format.h>

namespace dbsection {
namespace {

class UserDelete : public Command {
    void Declare(CommandLine& line) override {
        m_file.Declare(line);
        line.Add("family", m_family, "Shape family, e.g. \"Wide Flange\"").Required();
        line.Add("names", m_names, "Section names").Required();
    }

    void Run() const override {
        sections::Change change = m_file.File().change();
        const sections::Family family = FindFamily(change.read(), m_family);
        for (const std::string& name : m_names)
            change.remove(FindSection(family, name));
        change.commit();
        fmt::print("{}: {} of table \"{}\" deleted\n", PlainText(m_file.path.string()),
                   Counted(m_names.size(), "section"), family.name());
    }

    UserFileOptions m_file;
    std::string m_family;
    std::vector<std::string> m_names;
};

const CommandEntry entry("user delete", "Delete sections", Make<UserDelete>);

} // namespace
} // namespace dbsection
