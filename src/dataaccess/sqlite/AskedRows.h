// What a recordset is opened for.
#pragma once

#include "dataaccess/NameSearch.h"
#include "dataaccess/sqlite/TableQuestion.h"

#include <optional>
#include <string>

namespace dbsection {

/// A statement, and what it asks of one table where that is all. The rows of a name, which mostly
/// are kept, ask the same without a statement: that is written when the engine is asked for them.
class AskedRows {
public:
    explicit AskedRows(std::string statement);
    explicit AskedRows(const RowsOfName& rows);
    AskedRows(const AskedRows&) = delete;
    AskedRows& operator=(const AskedRows&) = delete;

    const std::string& Statement() const;
    const std::optional<TableQuestion>& Question() const { return m_question; }

private:
    mutable std::optional<std::string> m_statement; ///< none before it is asked for
    std::string m_table;
    std::string m_column;
    std::string m_name;
    NameMatch m_match = NameMatch::Exactly;
    std::optional<TableQuestion> m_question; ///< of the texts above
};

} // namespace dbsection
