#include "commands/Command.h"
#include "commands/UserSection.h"
#include "platform/Text.h"

#include <fmt/format.h>

namespace dbsection {
namespace {

using Row = UserTable::Row;

Row FindRow(const UserTable& table, const std::string& name) {
    const std::vector<Row> rows = table.Rows();
    for (const auto kind : {&Row::name, &Row::vessaName}) // a public name goes before
        for (const Row& row : rows)
            if (EqualNoCase(row.*kind, name))
                return row;
    throw table.Error(fmt::format("there is no section \"{}\".", name));
}

class UserUpdate : public Command {
    void Declare(CLI::App& app) override {
        m_file.Declare(app);
        m_section.Declare(app);
        app.add_option("--rename", m_newName, "New name");
    }

    void Run() const override {
        SetPassword(m_file.password);
        UserFile file(m_file.path, UserFile::Purpose::Change);
        const UserTable table(file, m_section.family);
        const Row row = Changed(table, FindRow(table, m_section.name));
        table.Update(row);
        file.Commit();
        Print(TableOf(table, {row}), TableForm::Text);
    }

    /// The row with what is given in place of what it has.
    Row Changed(const UserTable& table, Row row) const {
        if (!m_newName.empty())
            row.name = m_newName;
        if (!m_section.vessaName.empty())
            row.vessaName = m_section.vessaName;
        auto values = ParseValues(table, m_section.values);
        for (std::size_t i = 0; i < row.values.size(); ++i)
            if (row.values[i])
                values.try_emplace(table.Properties()[i].column->name, *row.values[i]);
        row.values = RequireAll(table, values);
        return row;
    }

    UserFileOptions m_file;
    UserSectionOptions m_section;
    std::string m_newName; // empty: kept
};

const CommandEntry entry("user update", "Change a section", Make<UserUpdate>);

} // namespace
} // namespace dbsection
