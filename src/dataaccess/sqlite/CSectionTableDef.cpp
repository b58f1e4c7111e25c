#include "dataaccess/CSectionTableDef.h"

#include "dataaccess/CSectionDatabase.h"
#include "dataaccess/sqlite/ColumnRemoval.h"
#include "dataaccess/sqlite/DatabaseReference.h"
#include "dataaccess/sqlite/FieldTypes.h"
#include "dataaccess/sqlite/TableDefinition.h"
#include "dataaccess/sqlite/Transaction.h"
#include "dataaccess/sqlite/Values.h"
#include "platform/Text.h"

#include <algorithm>
#include <utility>

using dbsection::Connection;
using dbsection::EqualNoCase;
using dbsection::Fail;
using dbsection::Quoted;
using dbsection::WithMemoryErrors;

namespace {

[[noreturn]] void FailOnColumn(const CString& table, const std::string& column,
                               SectionError::Number number, const std::string& fault) {
    Fail(number, std::string(table.View()) + ", column \"" + column + "\": " + fault);
}

void RequireName(const CString& table, const CSectionFieldInfo& field) {
    const std::string_view name = field.m_strName.View();
    const auto isName = [name](const char* taken) { return EqualNoCase(name, taken); };
    if (std::ranges::any_of(dbsection::RowIdNames, isName))
        FailOnColumn(table, std::string(name), SectionError::InvalidName,
                     "the database engine calls the identifier of every row so; choose another "
                     "name.");
}

/// A rule must be one condition over the column, which its default value satisfies.
void RequireRule(Connection& connection, const CString& table, const CSectionFieldInfo& field) {
    const std::string rule(field.m_strValidationRule.View());
    const std::string name(field.m_strName.View());
    if (rule.empty())
        return;
    if (!dbsection::IsClosed(rule))
        FailOnColumn(table, name, SectionError::BadStatement,
                     "the rule \"" + rule + "\" is not one condition; close what it opens.");
    const std::string_view cast = dbsection::CastOf(field.m_nType);
    const std::string sql = "SELECT 1 FROM (SELECT CAST(? AS " +
                            (cast.empty() ? "NUMERIC" : std::string(cast)) + ") AS " +
                            Quoted(name) + ") WHERE NOT (" + rule + "\n)";
    const auto query =
        connection.Query(sql, dbsection::Editing::No, SectionError::UnknownNameInCondition, 1);
    if (!field.m_strDefaultValue.IsEmpty())
        dbsection::Bind(query.lease.Get(), 1, field.m_strDefaultValue.View());
    if (connection.NextRow(query))
        FailOnColumn(table, name, SectionError::RuleBroken,
                     "the default value breaks the rule \"" + rule + "\"; choose another one.");
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
        m_fields = std::make_shared<const std::vector<CSectionFieldInfo>>();
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
        if (m_fields->empty())
            Fail(SectionError::NoSuchItem, connection.Path() + ": table \"" +
                                               std::string(m_name.View()) +
                                               "\" has no columns; create its fields first.");
        std::string columns;
        for (const CSectionFieldInfo& field : *m_fields)
            columns += (columns.empty() ? "" : ", ") + dbsection::ColumnDefinition(field);
        Change([&] {
            connection.ChangeSchema("CREATE TABLE " + Quoted(m_name.View()) + " (" + columns + ")");
        });
    });
}

void CSectionTableDef::Open(const char* name) {
    WithMemoryErrors([&] {
        Close();
        m_session = dbsection::SessionOf(m_database);
        Connection& connection = OpenConnection();
        m_name = CString(connection.RequireTable(name));
        m_fields = FieldsInFile();
        m_state = State::InDatabase;
    });
}

void CSectionTableDef::Close() {
    m_state = State::Closed;
    m_fields.reset();
}

dbsection::FieldList CSectionTableDef::FieldsInFile() const {
    Connection& connection = OpenConnection();
    return connection.Fields(connection.RequireTable(m_name.View()));
}

/// Changes the table in the file. What can fail comes before the commit, so that a change that is
/// told as failed is not there.
template <class Body>
void CSectionTableDef::Change(Body body) {
    dbsection::Transaction transaction(OpenConnection());
    body();
    dbsection::FieldList fields = FieldsInFile();
    transaction.Commit();
    m_fields = std::move(fields);
    m_state = State::InDatabase;
}

int CSectionTableDef::FindField(const char* name) const {
    const auto place = std::ranges::find_if(*m_fields, [name](const CSectionFieldInfo& field) {
        return EqualNoCase(field.m_strName.View(), name);
    });
    return place == m_fields->end() ? -1 : static_cast<int>(place - m_fields->begin());
}

void CSectionTableDef::CreateField(const CSectionFieldInfo& field) {
    WithMemoryErrors([&] {
        RequireOpen();
        Connection& connection = OpenConnection();
        RequireName(m_name, field);
        const std::string definition = dbsection::ColumnDefinition(field);
        if (FindField(field.m_strName) >= 0)
            FailOnColumn(m_name, std::string(field.m_strName.View()), SectionError::DuplicateKey,
                         "it exists; choose another name.");
        RequireRule(connection, m_name, field);
        if (m_state == State::UnderConstruction) {
            std::vector<CSectionFieldInfo> fields = *m_fields;
            fields.push_back(field);
            fields.back().m_nOrdinalPosition = static_cast<std::int16_t>(fields.size() - 1);
            m_fields = std::make_shared<const std::vector<CSectionFieldInfo>>(std::move(fields));
            return;
        }
        connection.RequireWritable();
        Change([&] {
            connection.ChangeSchema("ALTER TABLE " + Quoted(m_name.View()) + " ADD COLUMN " +
                                    definition);
        });
    });
}

void CSectionTableDef::DeleteField(const char* name) {
    WithMemoryErrors([&] {
        RequireOpen();
        const int index = FindField(name);
        if (index < 0)
            FailOnColumn(m_name, name, SectionError::NoSuchItem, "there is none to delete.");
        if (m_state == State::UnderConstruction) {
            std::vector<CSectionFieldInfo> remaining = *m_fields;
            remaining.erase(remaining.begin() + index);
            m_fields = std::make_shared<const std::vector<CSectionFieldInfo>>(std::move(remaining));
            return;
        }
        if (m_fields->size() == 1)
            FailOnColumn(m_name, name, SectionError::NoSuchItem,
                         "the only column cannot be deleted; delete the table instead.");
        Connection& connection = OpenConnection();
        connection.RequireWritable();
        const CString column = (*m_fields)[static_cast<std::size_t>(index)].m_strName;
        Change([&] { dbsection::RemoveColumn(connection, std::string(m_name.View()), column); });
    });
}

void CSectionTableDef::CreateIndex(const char* name, const char* columns, bool isUnique) {
    WithMemoryErrors([&] {
        RequireOpen();
        Connection& connection = OpenConnection();
        connection.RequireWritable();
        if (!dbsection::IsClosed(columns))
            Fail(SectionError::BadStatement, std::string(m_name.View()) + ", index \"" + name +
                                                 "\": \"" + columns +
                                                 "\" is no list of columns; close what it opens.");
        const dbsection::CallersSql list = dbsection::MakeReady(columns, dbsection::Literals::Keep);
        connection.ChangeSchema((isUnique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") +
                                Quoted(name) + " ON " + Quoted(m_name.View()) + " (" + list.text +
                                ")");
    });
}

int CSectionTableDef::GetFieldCount() const {
    RequireOpen();
    return static_cast<int>(m_fields->size());
}

void CSectionTableDef::GetFieldInfo(int index, CSectionFieldInfo& field,
                                    unsigned long /*level*/) const {
    WithMemoryErrors([&] {
        RequireOpen();
        if (index < 0 || index >= GetFieldCount())
            Fail(SectionError::NoSuchItem, std::string(m_name.View()) +
                                               ": there is no column number " +
                                               std::to_string(index) + ".");
        field = (*m_fields)[static_cast<std::size_t>(index)];
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
