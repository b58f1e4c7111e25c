// The tables of a connection's file, and changes to them.
#include "dataaccess/sqlite/Connection.h"
#include "dataaccess/sqlite/TableDefinition.h"
#include "dataaccess/sqlite/Transaction.h"
#include "platform/Text.h"

#include <algorithm>

namespace dbsection {

const std::vector<std::string>& Connection::Tables() {
    const KeptFile* file = Kept(); // before the tables are read: a change meanwhile is one since
    const std::int64_t number = file == nullptr ? 0 : file->Number();
    if (number != 0 && number == m_tablesFile)
        return m_tables;
    const std::int64_t version = SchemaVersion();
    if (version != m_tablesVersion)
        ReadTables(version);
    m_tablesFile = number;
    return m_tables;
}

void Connection::ReadTables(std::int64_t version) {
    ForgetTables();
    // Virtual tables have no page of their own; neither their code nor that of views is run.
    const StatementLease lease = Own("SELECT name, type = 'table' AND rootpage > 0 FROM "
                                     "sqlite_master WHERE type IN ('table', 'view') AND "
                                     "name IS NOT NULL ORDER BY rowid");
    while (Step(lease.Get(), m_path, Activity::Reading)) {
        const auto* name = reinterpret_cast<const char*>(sqlite3_column_text(lease.Get(), 0));
        (sqlite3_column_int(lease.Get(), 1) != 0 ? m_tables : m_notRun).emplace_back(name);
    }
    m_tablesVersion = version;
}

void Connection::ForgetTables() {
    m_tables.clear();
    m_notRun.clear();
    m_fields.clear();
    m_tablesVersion = -1;
    m_tablesFile = 0;
}

bool Connection::IsTable(std::string_view name) const {
    return std::ranges::any_of(
        m_tables, [name](const std::string& table) { return EqualNoCase(table, name); });
}

std::optional<std::string> Connection::FindTable(std::string_view name) {
    for (const std::string& table : Tables())
        if (EqualNoCase(table, name))
            return table;
    return std::nullopt;
}

std::string Connection::RequireTable(std::string_view name) {
    const auto table = FindTable(name);
    if (!table)
        Fail(SectionError::NoSuchItem,
             m_path + ": there is no table \"" + std::string(name) + "\"; check its name.");
    return *table;
}

FieldList Connection::Fields(const std::string& table) {
    if (const auto place = m_fields.find(table); place != m_fields.end())
        return place->second;
    return m_fields.emplace(table, ReadFields(*this, table)).first->second;
}

void Connection::ChangeSchema(const std::string& sql) {
    m_kept.Clear();
    Transaction transaction(*this);
    m_work.Renew();
    const int code = sqlite3_exec(m_database, sql.c_str(), nullptr, nullptr, nullptr);
    if (code == SQLITE_ERROR)
        FailFromStatement(code, sqlite3_errmsg(m_database), sql, m_path,
                          SectionError::UnknownNameInStatement);
    if (code != SQLITE_OK)
        FailFromEngine(code, m_database, m_path, Activity::Writing);
    transaction.Commit();
    ++m_ownChanges;
    ForgetTables();
}

} // namespace dbsection
