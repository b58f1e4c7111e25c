#include "commands/Command.h"
#include "commands/UserSection.h"
#include "files/CatalogueFolder.h"

namespace dbsection {
namespace {

/// The section with what it keeps, as a draft.
sections::Draft WithKept(const sections::Section& section, sections::Draft draft) {
    for (const sections::Column& column : section.family().columns())
        if (const auto kept = section.find(column.name))
            draft.figures.try_emplace(column.name, *kept);
    return draft;
}

class UserUpdate : public Command {
    void Declare(CommandLine& line) override {
        m_file.Declare(line);
        m_section.Declare(line);
        line.Add("--rename", m_newName, "New name");
    }

    void Run() const override {
        sections::Change change = m_file.File().change();
        const sections::Family family = FindFamily(change.read(), m_section.family);
        const sections::Section section = FindSection(family, m_section.name);
        const sections::Draft draft = m_section.Draft(family, m_newName);
        const sections::Completion whole = completed(family, draft, &section);
        RequireAll(family, WithKept(section, whole.draft));
        change.update(section, whole.draft);
        const sections::Catalogue changed = change.read();
        change.commit();
        PrintSection(changed.family(family.name()), section.recordNumber(), draft, whole);
    }

    UserFileOptions m_file;
    UserSectionOptions m_section;
    std::string m_newName; // empty: kept
};

const CommandEntry entry("user update", "Change a section", Make<UserUpdate>);

} // namespace
} // namespace dbsection
