// Changes to the text of SQL statements that need no understanding beyond their tokens.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dbsection {

/// A statement whose string literals were replaced by parameters, so that the next statement of the
/// same form finds the prepared one.
struct LiftedSql {
    std::string text;
    std::vector<std::string> parameters;
};

/// Lifts the literals behind the first WHERE; elsewhere a literal can name a result column.
LiftedSql LiftLiterals(std::string_view sql);

/// The statement without a WHERE that nothing follows.
std::string WithoutDanglingWhere(std::string_view sql);

/// The statement with every identifier equal to `from` (letter case aside) replaced by `to`.
std::string WithIdentifier(std::string_view sql, std::string_view from, std::string_view to);

/// A plain single SELECT with the row's identifier as one more result column at the end, or nothing
/// where the statement is not of that form.
std::optional<std::string> WithRowId(std::string_view sql);

/// Whether the statement begins with SELECT.
bool IsReading(std::string_view sql);

/// Whether the text holds nothing but blanks, comments and semicolons.
bool IsNothing(std::string_view sql);

/// An identifier in quotes, which the engine takes as it is.
std::string Quoted(std::string_view identifier);

/// A text as a literal, and the text that a literal stands for.
std::string Literal(std::string_view text);
std::string LiteralText(std::string_view literal);

} // namespace dbsection
