#include "dataaccess/CSectionTableDef.h"

#include "dataaccess/CSectionDatabase.h"
#include "dataaccess/sqlite/DatabaseReference.h"
#include "dataaccess/sqlite/FieldTypes.h"
#include "platform/Text.h"

#include <algorithm>

using dbsection::Activity;
using dbsection::Connection;
using dbsection::Fail;
using dbsection::Quoted;
using dbsection::WithMemoryErrors;

namespace {

std::string TextOf(sqlite3_stmt* statement, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return text == nullptr ? "" : text;
}

CSectionFieldInfo FieldOfRow(sqlite3_stmt* row) {
    CSectionFieldInfo field;
    field.m_nOrdinalPosition = static_cast<std::int16_t>(sqlite3_column_int(row, 0));
    field.m_strName = CString(TextOf(row, 1));
    const std::string declared = TextOf(row, 2);
    field.m_nType = dbsection::FieldTypeOf(declared);
    field.m_lSize = dbsection::FieldSizeOf(declared);
    const bool isKey = sqlite3_column_int(row, 5) != 0;
    field.m_bRequired = sqlite3_column_int(row, 3) != 0 || isKey ? 1 : 0;
    if (isKey && dbsection::EqualNoCase(declared, "INTEGER"))
        field.m_lAttributes = SectionField::AutoIncrement;
    const std::string defaultValue = TextOf(row, 4);
    field.m_strDefaultValue = CString(dbsection::LiteralText(defaultValue));
    return field;
}

std::string ListOf(const std::vector<CSectionFieldInfo>& fields,
                   std::string (*render)(const CSectionFieldInfo&)) {
    std::string list;
    for (const CSectionFieldInfo& field : fields)
        list += (list.empty() ? "" : ", ") + render(field);
    return list;
}

std::string NameOf(const CSectionFieldInfo& field) { return Quoted(field.m_strName.View()); }

/// The statements that make the indexes of a table, but for those that mention a column.
std::string IndexStatements(Connection& connection, const CString& table, const CString& without) {
    std::string statements;
    const auto lease = connection.Own("SELECT sql FROM sqlite_master WHERE type = 'index' AND "
                                      "sql IS NOT NULL AND tbl_name = ?");
    sqlite3_bind_text(lease.Get(), 1, table, table.GetLength(), SQLITE_TRANSIENT);
    while (connection.Step(lease.Get(), connection.Path(), Activity::Reading)) {
        const std::string sql = TextOf(lease.Get(), 0);
        if (dbsection::WithIdentifier(sql, without.View(), "") == sql)
            statements += ";" + sql;
    }
    return statements;
}

} // namespace

CSectionTableDef::CSectionTableDef(CSectionDatabase* database) {
    if (database != nullptr)
        m_database = database->m_reference;
}

bool CSectionTableDef::IsOpen() const {
    return m_state != State::Closed && m_session && m_session->IsOpen();
}

Connection& CSectionTableDef::OpenConnection() const {
    if (!m_session)
        Fail(SectionError::ObjectClosed, "The table was not opened; open or create it first.");
    return m_session->Get();
}

void CSectionTableDef::RequireOpen() const {
    OpenConnection();
    if (!IsOpen())
        Fail(SectionError::ObjectClosed, "The table was closed; open or create it first.");
}

void CSectionTableDef::Create(const char* name) {
    WithMemoryErrors([&] {
        Close();
        m_session = dbsection::SessionOf(m_database);
        Connection& connection = OpenConnection();
        if (connection.FindTable(name))
            Fail(SectionError::TableExists,
                 connection.Path() + ": table \"" + name + "\" exists; choose another name.");
        m_name = name;
        m_state = State::UnderConstruction;
    });
}

void CSectionTableDef::Append() {
    WithMemoryErrors([&] {
        Connection& connection = OpenConnection();
        connection.RequireWritable();
        RequireOpen();
        if (m_state == State::InDatabase || connection.FindTable(m_name.View()))
            Fail(SectionError::TableExists,
                 connection.Path() + ": table \"" + std::string(m_name.View()) + "\" exists.");
        if (m_fields.empty())
            Fail(SectionError::NoSuchItem, connection.Path() + ": table \"" +
                                               std::string(m_name.View()) +
                                               "\" has no columns; create its fields first.");
        connection.ChangeSchema("CREATE TABLE " + Quoted(m_name.View()) + " (" +
                                ListOf(m_fields, dbsection::ColumnDefinition) + ")");
        Reload();
    });
}

void CSectionTableDef::Open(const char* name) {
    WithMemoryErrors([&] {
        Close();
        m_session = dbsection::SessionOf(m_database);
        Connection& connection = OpenConnection();
        const std::string table = connection.RequireTable(name);
        m_name = CString(table);
        auto& kept = connection.KeptFields();
        const auto place = kept.find(table);
        if (place == kept.end()) {
            Reload();
            kept.emplace(table, m_fields);
            return;
        }
        m_fields = place->second;
        m_state = State::InDatabase;
    });
}

void CSectionTableDef::Close() {
    m_state = State::Closed;
    m_fields.clear();
}

void CSectionTableDef::Reload() {
    Connection& connection = OpenConnection();
    m_fields.clear();
    const auto lease = connection.Own("PRAGMA table_info(" + Quoted(m_name.View()) + ")");
    while (connection.Step(lease.Get(), connection.Path(), Activity::Reading))
        m_fields.push_back(FieldOfRow(lease.Get()));
    m_state = State::InDatabase;
}

int CSectionTableDef::FindField(const char* name) const {
    const auto place = std::ranges::find_if(m_fields, [name](const CSectionFieldInfo& field) {
        return dbsection::EqualNoCase(field.m_strName.View(), name);
    });
    return place == m_fields.end() ? -1 : static_cast<int>(place - m_fields.begin());
}

void CSectionTableDef::CreateField(const CSectionFieldInfo& field) {
    WithMemoryErrors([&] {
        RequireOpen();
        const std::string definition = dbsection::ColumnDefinition(field);
        if (FindField(field.m_strName) >= 0)
            Fail(SectionError::DuplicateKey, std::string(m_name.View()) + ": column \"" +
                                                 std::string(field.m_strName.View()) +
                                                 "\" exists; choose another name.");
        if (m_state == State::UnderConstruction) {
            m_fields.push_back(field);
            m_fields.back().m_nOrdinalPosition = static_cast<std::int16_t>(m_fields.size() - 1);
            return;
        }
        Connection& connection = OpenConnection();
        connection.RequireWritable();
        connection.ChangeSchema("ALTER TABLE " + Quoted(m_name.View()) + " ADD COLUMN " +
                                definition);
        Reload();
    });
}

void CSectionTableDef::DeleteField(const char* name) {
    WithMemoryErrors([&] {
        RequireOpen();
        const int index = FindField(name);
        if (index < 0)
            Fail(SectionError::NoSuchItem,
                 std::string(m_name.View()) + ": there is no column \"" + name + "\" to delete.");
        std::vector<CSectionFieldInfo> remaining = m_fields;
        remaining.erase(remaining.begin() + index);
        if (m_state == State::UnderConstruction) {
            m_fields = std::move(remaining);
            return;
        }
        Connection& connection = OpenConnection();
        connection.RequireWritable();
        if (remaining.empty())
            Fail(SectionError::NoSuchItem, std::string(m_name.View()) +
                                               ": the only column cannot be deleted; delete the "
                                               "table instead.");
        // The engine cannot drop a column; the table is made anew without it.
        const std::string table = Quoted(m_name.View());
        const std::string fresh = Quoted("~" + std::string(m_name.View()));
        const std::string columns = ListOf(remaining, NameOf);
        const std::string indexes = IndexStatements(
            connection, m_name, m_fields[static_cast<std::size_t>(index)].m_strName);
        connection.ChangeSchema("CREATE TABLE " + fresh + " (" +
                                ListOf(remaining, dbsection::ColumnDefinition) + ");INSERT INTO " +
                                fresh + " SELECT " + columns + " FROM " + table + ";DROP TABLE " +
                                table + ";ALTER TABLE " + fresh + " RENAME TO " + table + indexes);
        Reload();
    });
}

void CSectionTableDef::CreateIndex(const char* name, const char* columns, bool isUnique) {
    WithMemoryErrors([&] {
        RequireOpen();
        Connection& connection = OpenConnection();
        connection.RequireWritable();
        connection.ChangeSchema((isUnique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") +
                                Quoted(name) + " ON " + Quoted(m_name.View()) + " (" + columns +
                                ")");
    });
}

int CSectionTableDef::GetFieldCount() const {
    RequireOpen();
    return static_cast<int>(m_fields.size());
}

void CSectionTableDef::GetFieldInfo(int index, CSectionFieldInfo& field,
                                    unsigned long /*level*/) const {
    WithMemoryErrors([&] {
        RequireOpen();
        if (index < 0 || index >= GetFieldCount())
            Fail(SectionError::NoSuchItem, std::string(m_name.View()) +
                                               ": there is no column number " +
                                               std::to_string(index) + ".");
        field = m_fields[static_cast<std::size_t>(index)];
    });
}

void CSectionTableDef::GetFieldInfo(const char* name, CSectionFieldInfo& field,
                                    unsigned long level) const {
    WithMemoryErrors([&] {
        RequireOpen();
        const int index = FindField(name);
        if (index < 0)
            Fail(SectionError::NoSuchItem,
                 std::string(m_name.View()) + ": there is no column \"" + name + "\".");
        GetFieldInfo(index, field, level);
    });
}
