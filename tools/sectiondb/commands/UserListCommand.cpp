#include "commands/Command.h"
#include "commands/FamilyTable.h"
#include "commands/Options.h"
#include "commands/UserSection.h"

namespace dbsection {
namespace {

class UserList : public Command {
    void Declare(CLI::App& app) override {
        m_file.Declare(app);
        app.add_option("family", m_family, "Shape family, e.g. \"Wide Flange\"");
        m_form.Declare(app);
    }

    void Run() const override {
        SetPassword(m_file.password);
        const UserFile file(m_file.path, UserFile::Purpose::Read);
        Print(m_family.empty() ? FamilyTable(file.Catalogue()) : SectionsOf(file), m_form.Form());
    }

    Table SectionsOf(const UserFile& file) const {
        const UserTable table(file, m_family);
        return TableOf(table, table.Rows());
    }

    UserFileOptions m_file;
    std::string m_family; // empty: all families
    FormOptions m_form;
};

const CommandEntry entry("user list", "List families, or the sections of one", Make<UserList>);

} // namespace
} // namespace dbsection
