#include "commands/Command.h"
#include "commands/FamilyTable.h"
#include "commands/Options.h"
#include "commands/UserSection.h"
#include "files/SectionColumns.h"

namespace dbsection {
namespace {

class UserList : public Command {
    void Declare(CommandLine& line) override {
        m_file.Declare(line);
        line.Add("family", m_family, "Shape family, e.g. \"Wide Flange\"");
        m_form.Declare(line);
    }

    void Run() const override {
        const sections::Catalogue catalogue = m_file.File().read();
        Print(m_family.empty() ? FamilyTable(catalogue)
                               : SectionsOf(FindFamily(catalogue, m_family)),
              m_form.Form());
    }

    static Table SectionsOf(const sections::Family& family) {
        const sections::Sections all = family.sections();
        return TableOf(std::vector(all.begin(), all.end()), ColumnsOf(family));
    }

    UserFileOptions m_file;
    std::string m_family; // empty: all families
    FormOptions m_form;
};

const CommandEntry entry("user list", "List families, or the sections of one", Make<UserList>);

} // namespace
} // namespace dbsection
