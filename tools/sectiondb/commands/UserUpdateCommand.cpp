#include "commands/Command.h"
#include "commands/UserSection.h"
#include "files/CatalogueFolder.h"
#include "platform/Text.h"

#include <algorithm>
#include <fmt/format.h>

namespace dbsection {
namespace {

sections::Section FindSection(const sections::Family& family, const std::string& name) {
    const sections::Sections all = family.sections();
    const auto isNamed = [&name](const std::string& candidate) {
        return EqualNoCase(candidate, name);
    };
    for (const auto names : {&sections::Section::name, &sections::Section::programName})
        if (const auto place = std::ranges::find_if(all, isNamed, names); place != all.end())
            return *place; // a public name goes before
    throw TableError(family, fmt::format("there is no section \"{}\".", name));
}

class UserUpdate : public Command {
    void Declare(CLI::App& app) override {
        m_file.Declare(app);
        m_section.Declare(app);
        app.add_option("--rename", m_newName, "New name");
    }

    void Run() const override {
        sections::Change change = m_file.File().change();
        const sections::Family family = FindFamily(change.read(), m_section.family);
        const sections::Section section = FindSection(family, m_section.name);
        const sections::Draft draft{.name = m_newName,
                                    .programName = m_section.vessaName,
                                    .figures = ParseValues(family, m_section.values)};
        Quantities figures = draft.figures;
        for (const sections::Column& column : family.columns())
            if (const auto kept = section.find(column.name))
                figures.try_emplace(column.name, *kept);
        RequireAll(family, figures);
        change.update(section, draft);
        const sections::Catalogue changed = change.read();
        change.commit();
        PrintSection(changed.family(family.name()), section.recordNumber());
    }

    UserFileOptions m_file;
    UserSectionOptions m_section;
    std::string m_newName; // empty: kept
};

const CommandEntry entry("user update", "Change a section", Make<UserUpdate>);

} // namespace
} // namespace dbsection
