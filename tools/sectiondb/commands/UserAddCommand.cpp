#include "commands/Command.h"
#include "commands/UserSection.h"
#include "records/SectionNames.h"

#include <algorithm>
#include <fmt/format.h>

namespace dbsection {
namespace {

double FreeIdentifier(const UserTable& table) {
    double last = 0;
    for (const UserTable::Row& row : table.Rows())
        last = std::max(last, row.id);
    if (last >= UserTable::LastIdentifier)
        throw table.Error(fmt::format("its last record number is {}, and no section can be added "
                                      "beyond {}; begin another file.",
                                      last, UserTable::LastIdentifier));
    return last + 1;
}

class UserAdd : public Command {
    void Declare(CLI::App& app) override {
        m_file.Declare(app);
        m_section.Declare(app);
    }

    void Run() const override {
        SetPassword(m_file.password);
        UserFile file(m_file.path, UserFile::Purpose::Change);
        const UserTable table(file, m_section.family);
        const UserTable::Row row{FreeIdentifier(table), m_section.name,
                                 m_section.vessaName.empty() ? VessaNameOf(m_section.name)
                                                             : m_section.vessaName,
                                 RequireAll(table, ParseValues(table, m_section.values))};
        table.Add(row);
        file.Commit();
        Print(TableOf(table, {row}), TableForm::Text);
    }

    UserFileOptions m_file;
    UserSectionOptions m_section;
};

const CommandEntry entry("user add", "Add a section", Make<UserAdd>);

} // namespace
} // namespace dbsection
