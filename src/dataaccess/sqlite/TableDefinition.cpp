#include "dataaccess/sqlite/TableDefinition.h"

#include "dataaccess/sqlite/Connection.h"
#include "dataaccess/sqlite/FieldTypes.h"
#include "dataaccess/sqlite/SqlTokens.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>

namespace dbsection {
namespace {

std::vector<Token> TokensOf(std::string_view sql) {
    std::vector<Token> tokens;
    ForEachToken(sql, [&](const Token& token) { tokens.push_back(token); });
    return tokens;
}

TableDefinition::Part MakePart(std::string_view text) {
    static constexpr std::array TableConstraints{"CONSTRAINT", "PRIMARY", "UNIQUE", "CHECK",
                                                 "FOREIGN"};
    const auto first = NextToken(text, 0);
    const auto begins = [&](const char* word) { return first->Is(word); };
    const bool isColumn = first && std::ranges::none_of(TableConstraints, begins);
    return {isColumn ? first->Value() : "", std::string(text)};
}

/// The place of the parenthesis that closes the one at a token.
std::size_t ClosingOf(const std::vector<Token>& tokens, std::size_t open) {
    int depth = 0;
    do
        depth = DepthBehind(tokens[open++], depth);
    while (depth > 0 && open < tokens.size());
    return tokens[open - 1].begin;
}

/// A row of "PRAGMA table_info" as a field.
CSectionFieldInfo FieldOf(sqlite3_stmt* row) {
    CSectionFieldInfo field;
    field.m_nOrdinalPosition = static_cast<std::int16_t>(sqlite3_column_int(row, 0));
    field.m_strName = CString(TextAt(row, 1));
    const std::string declared = TextAt(row, 2);
    field.m_nType = FieldTypeOf(declared);
    field.m_lSize = FieldSizeOf(declared);
    const bool isKey = sqlite3_column_int(row, 5) != 0;
    field.m_bRequired = sqlite3_column_int(row, 3) != 0 || isKey ? 1 : 0;
    if (isKey && EqualNoCase(declared, "INTEGER"))
        field.m_lAttributes = SectionField::AutoIncrement;
    field.m_strDefaultValue = CString(LiteralText(TextAt(row, 4)));
    return field;
}

/// Adds what the CHECKs of a column tell: a rule of our own, or those of another program together.
void ReadChecks(const TableDefinition& definition, CSectionFieldInfo& field) {
    const std::string_view name = field.m_strName.View();
    std::string rule;
    for (const auto& [checkName, condition] : definition.Checks(name)) {
        if (SameTokens(condition, NotEmptyCondition(name))) {
            field.m_bAllowZeroLength = 0;
            continue;
        }
        if (!rule.empty())
            rule.insert(0, "(").append(") AND (").append(condition).append(")");
        else
            rule = condition;
        field.m_strValidationText = CString(checkName);
    }
    field.m_strValidationRule = CString(rule);
}

} // namespace

std::optional<TableDefinition> TableDefinition::Parse(std::string_view sql) {
    TableDefinition definition;
    int depth = 0;
    std::size_t begin = 0;
    for (const Token& token : TokensOf(sql)) {
        if (token.kind == TokenKind::Unclosed)
            return std::nullopt;
        const int before = depth;
        depth = DepthBehind(token, depth);
        const bool isEnd = before == 1 && depth == 0;
        if (isEnd || (depth == 1 && token.IsSymbol(',')))
            definition.m_parts.push_back(MakePart(sql.substr(begin, token.begin - begin)));
        if (isEnd) {
            definition.m_end = sql.substr(token.begin);
            return definition;
        }
        if (depth == 1 && (before == 0 || token.IsSymbol(',')))
            begin = token.End();
    }
    return std::nullopt;
}

std::optional<TableDefinition> TableDefinition::Read(Connection& connection,
                                                     const std::string& table) {
    const auto lease = connection.Own("SELECT sql FROM sqlite_master WHERE type = 'table' AND "
                                      "name = ?");
    sqlite3_bind_text(lease.Get(), 1, table.data(), static_cast<int>(table.size()), SQLITE_STATIC);
    if (!connection.Step(lease.Get(), connection.Path(), Activity::Reading))
        return std::nullopt;
    return Parse(TextAt(lease.Get(), 0));
}

std::vector<TableDefinition::Check> TableDefinition::Checks(std::string_view column) const {
    std::vector<Check> checks;
    const auto isColumn = [column](const Part& part) { return EqualNoCase(part.column, column); };
    const auto part = std::ranges::find_if(m_parts, isColumn);
    if (part == m_parts.end())
        return checks;
    const std::vector<Token> tokens = TokensOf(part->text);
    int depth = 0;
    for (std::size_t i = 1; i + 1 < tokens.size(); ++i) { // the first one is the column's name
        depth = DepthBehind(tokens[i], depth);
        if (depth != 0 || !tokens[i].Is("CHECK") || !tokens[i + 1].IsSymbol('('))
            continue;
        const std::size_t begin = tokens[i + 1].End();
        const std::string_view condition =
            std::string_view(part->text).substr(begin, ClosingOf(tokens, i + 1) - begin);
        const bool isNamed = i > 2 && tokens[i - 2].Is("CONSTRAINT");
        checks.push_back({isNamed ? tokens[i - 1].Value() : "", std::string(Trim(condition))});
    }
    return checks;
}

bool TableDefinition::Remove(std::string_view column) {
    return std::erase_if(m_parts, [column](const Part& part) {
               return EqualNoCase(part.column, column);
           }) == 1;
}

bool TableDefinition::Mentions(std::string_view column) const {
    // Wherever a constraint names a column, it does so in parentheses.
    return std::ranges::any_of(m_parts, [column](const Part& part) {
        int depth = 0;
        return std::ranges::any_of(TokensOf(part.text), [&](const Token& token) {
            depth = DepthBehind(token, depth);
            return depth > 0 && EqualNoCase(token.Value(), column);
        });
    });
}

bool TableDefinition::HasWord(std::string_view word) const {
    return std::ranges::any_of(TokensOf(Text("")),
                               [word](const Token& token) { return token.Is(word); });
}

std::string TableDefinition::Text(std::string_view table) const {
    std::string list;
    for (const Part& part : m_parts)
        list += (list.empty() ? "" : ",") + part.text;
    return "CREATE TABLE " + Quoted(table) + " (" + list + m_end;
}

FieldList ReadFields(Connection& connection, const std::string& table) {
    std::vector<CSectionFieldInfo> fields;
    const auto definition = TableDefinition::Read(connection, table);
    const auto lease = connection.Own("PRAGMA table_info(" + Quoted(table) + ")");
    while (connection.Step(lease.Get(), connection.Path(), Activity::Reading)) {
        fields.push_back(FieldOf(lease.Get()));
        if (definition)
            ReadChecks(*definition, fields.back());
    }
    return std::make_shared<const std::vector<CSectionFieldInfo>>(std::move(fields));
}

std::optional<std::string> RowIdName(const std::vector<CSectionFieldInfo>& fields) {
    for (const char* name : RowIdNames)
        if (std::ranges::none_of(fields, [name](const CSectionFieldInfo& field) {
                return EqualNoCase(field.m_strName.View(), name);
            }))
            return name;
    return std::nullopt;
}

} // namespace dbsection
