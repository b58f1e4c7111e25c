#include "dataaccess/sqlite/AskedRows.h"

#include <string_view>
#include <utility>

namespace dbsection {
namespace {

/// Whether the statement asks what the rows say: no text in it ends where it should not, and
/// nothing else is asked.
bool IsPlain(const RowsOfName& rows) {
    return rows.restriction.empty() && rows.table.find(']') == std::string_view::npos &&
           std::string_view(rows.question.name).find('\'') == std::string_view::npos;
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
      m_question(m_statement
                     ? TableQuestion::Parse(*m_statement)
                     : TableQuestion::Of(m_table, {m_column.c_str(), m_match, m_name.c_str()})) {}

const std::string& AskedRows::Statement() const {
    if (!m_statement)
        m_statement = StatementFor({m_table, {m_column.c_str(), m_match, m_name.c_str()}});
    return *m_statement;
}

} // namespace dbsection
