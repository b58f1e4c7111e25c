#include "dataaccess/sqlite/ColumnRemoval.h"

#include "dataaccess/sqlite/Connection.h"
#include "dataaccess/sqlite/SqlTokens.h"
#include "dataaccess/sqlite/TableDefinition.h"
#include "dataaccess/sqlite/Transaction.h"
#include "dataaccess/sqlite/Values.h"

#include <algorithm>
#include <utility>

namespace dbsection {
namespace {

/// The part of a CREATE INDEX statement that tells what is indexed.
std::string_view IndexedColumns(std::string_view sql) {
    auto token = NextToken(sql, 0);
    while (token && !token->IsSymbol('('))
        token = NextToken(sql, token->End());
    return token ? sql.substr(token->begin) : std::string_view();
}

/// The statements that make the indexes of a table, but for those over a column.
std::string IndexStatements(Connection& connection, const std::string& table,
                            std::string_view column) {
    std::string statements;
    const auto lease = connection.Own("SELECT sql FROM sqlite_master WHERE type = 'index' AND "
                                      "sql IS NOT NULL AND tbl_name = ?");
    Bind(lease.Get(), 1, table);
    while (connection.Step(lease.Get(), connection.Path(), Activity::Reading)) {
        const std::string sql = TextAt(lease.Get(), 0);
        if (!Mentions(IndexedColumns(sql), column))
            statements += ";" + sql;
    }
    return statements;
}

bool HasTriggers(Connection& connection, const std::string& table) {
    const auto lease =
        connection.Own("SELECT 1 FROM sqlite_master WHERE type = 'trigger' AND tbl_name = ?");
    Bind(lease.Get(), 1, table);
    return connection.Step(lease.Get(), connection.Path(), Activity::Reading);
}

/// The table's definition without a column. Refused where more than the column would be lost.
TableDefinition DefinitionWithout(Connection& connection, const std::string& table,
                                  const char* column) {
    auto definition = TableDefinition::Read(connection, table);
    const auto refuse = [&](const char* reason) {
        Fail(SectionError::NoSuchItem, table + ", column \"" + column +
                                           "\": it cannot be deleted: " + reason +
                                           "; delete it with the program that made the table.");
    };
    if (!definition || !definition->Remove(column))
        refuse("the table's definition is not understood");
    if (definition->Mentions(column))
        refuse("a constraint of the table uses it");
    if (definition->HasWord("AUTOINCREMENT"))
        refuse("the table keeps the numbers of deleted rows");
    if (HasTriggers(connection, table))
        refuse("the table has triggers");
    return *std::move(definition);
}

/// The columns but one, and the identifier of the row where it has one of its own.
std::string CopiedColumns(const std::vector<CSectionFieldInfo>& fields, const char* without,
                          const TableDefinition& definition) {
    const auto rowId = definition.HasWord("WITHOUT") ? std::nullopt : RowIdName(fields);
    std::string list = rowId.value_or("");
    for (const CSectionFieldInfo& field : fields)
        if (field.m_strName != without)
            list += (list.empty() ? "" : ", ") + Quoted(field.m_strName.View());
    return list;
}

} // namespace

void RemoveColumn(Connection& connection, const std::string& table, const char* column) {
    Transaction transaction(connection); // nobody adds to the table what is not seen here
    const FieldList fields = connection.Fields(connection.RequireTable(table));
    const TableDefinition definition = DefinitionWithout(connection, table, column);
    std::string fresh = "~" + table;
    while (connection.FindTable(fresh))
        fresh.insert(0, 1, '~');
    const std::string columns = CopiedColumns(*fields, column, definition);
    // Views of the table, which it lacks for a moment, are left as they are.
    connection.ChangeSchema("PRAGMA legacy_alter_table = ON;" + definition.Text(fresh) +
                            ";INSERT INTO " + Quoted(fresh) + " (" + columns + ") SELECT " +
                            columns + " FROM " + Quoted(table) + ";DROP TABLE " + Quoted(table) +
                            ";ALTER TABLE " + Quoted(fresh) + " RENAME TO " + Quoted(table) +
                            IndexStatements(connection, table, column));
    transaction.Commit();
}

} // namespace dbsection
