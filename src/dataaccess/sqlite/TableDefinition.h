// Table definitions as the file keeps them: the text of the statement that made the table.
#pragma once

#include "dataaccess/CSectionTableDef.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dbsection {

class Connection;

/// The text of a CREATE TABLE statement in its parts, each as it was written.
class TableDefinition {
public:
    /// A column with its type and constraints, or constraints of the table.
    struct Part {
        std::string column; ///< empty for constraints of the table
        std::string text;
    };

    /// A CHECK of a column.
    struct Check {
        std::string name;
        std::string condition;
    };

    /// Nothing where the text is not understood.
    static std::optional<TableDefinition> Parse(std::string_view sql);

    /// The definition kept in the file; nothing where it is not understood.
    static std::optional<TableDefinition> Read(Connection& connection, const std::string& table);

    /// The CHECKs of a column.
    std::vector<Check> Checks(std::string_view column) const;

    /// Takes a column out; false, and nothing changed, where there is none of that name.
    bool Remove(std::string_view column);

    /// Whether a constraint can name the column.
    bool Mentions(std::string_view column) const;

    /// Whether a keyword stands in the definition.
    bool HasWord(std::string_view word) const;

    /// The statement that makes such a table of another name.
    std::string Text(std::string_view table) const;

private:
    std::vector<Part> m_parts;
    std::string m_end; ///< from the closing parenthesis on
};

/// The columns of a table, with what their definition tells of them.
FieldList ReadFields(Connection& connection, const std::string& table);

/// What statements can call the identifier of a table's rows, unless a column is called so.
inline constexpr std::array RowIdNames{"_rowid_", "rowid", "oid"};

/// The name by which statements can call the identifier of a table's rows: one that is no column's.
/// Nothing where all of them are.
std::optional<std::string> RowIdName(const std::vector<CSectionFieldInfo>& fields);

} // namespace dbsection
