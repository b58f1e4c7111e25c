#include "commands/Command.h"
#include "commands/UserSection.h"
#include "files/CatalogueFolder.h"

namespace dbsection {
namespace {

class UserAdd : public Command {
    void Declare(CommandLine& line) override {
        m_file.Declare(line);
        m_section.Declare(line);
    }

    void Run() const override {
        sections::Change change = m_file.File().change();
        const sections::Family family = FindFamily(change.read(), m_section.family);
        const sections::Draft draft = m_section.Draft(family, m_section.name);
        RequireVessaName(draft);
        const sections::Completion whole = completed(family, draft);
        RequireAll(family, whole.draft);
        const std::int64_t number = change.add(family.name(), whole.draft);
        const sections::Catalogue changed = change.read();
        change.commit();
        PrintSection(changed.family(family.name()), number, draft, whole);
        TellOfNumber(number);
    }

    UserFileOptions m_file;
    UserSectionOptions m_section;
};

const CommandEntry entry("user add", "Add a section", Make<UserAdd>);

} // namespace
} // namespace dbsection
