#include "dataaccess/sqlite/AskedRows.h"

#include <string_view>
#include <utility>

namespace dbsection {
namespace {

/// Whether the statement asks what the rows say: nothing else is asked, and the table's name does
/// not end before its end; a searchable name does not, either.
bool IsPlain(const RowsOfName& rows) {
    return rows.restriction.empty() && rows.table.find(']') == std::string_view::npos;
}

} // namespace

AskedRows::AskedRows(std::string statement)
    : m_statement(std::move(statement)),
      m_question(TableQuestion::Parse(*m_statement)) {}

AskedRows::AskedRows(const RowsOfName& rows)
    : m_statement(IsPlain(rows) ? std::nullopt : std::optional(StatementFor(rows))),
      m_table(rows.table),
      m_column(rows.question.column),
      m_name(rows.question.name),
      m_match(rows.question.match),
      m_question(m_statement ? TableQuestion::Parse(*m_statement)
                             : TableQuestion::Of(m_table, m_column, m_match, m_name)) {}

const std::string& AskedRows::Statement() const {
    if (!m_statement)
        m_statement = StatementFor({m_table, {m_column.c_str(), m_match, m_name.c_str()}});
    return *m_statement;
}

} // namespace dbsection
