// Changes to the text of SQL statements that need no understanding beyond their tokens.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace dbsection {

/// What becomes of the literals and decimal numbers behind a statement's first WHERE; elsewhere a
/// literal can name a result column. Lifted ones are replaced by parameters, so that the next
/// statement of the same form finds the prepared one.
enum class Literals { Keep, Lift };

struct LiftedLiteral {
    std::string text;
    bool isNumber;
};

/// A caller's statement as it is made ready. Names in double quotes come in others: older engines
/// take an unknown one for a text.
struct CallersSql {
    std::string text;
    std::vector<LiftedLiteral> literals;
    int parameters = 0; ///< that the statement had itself
};

CallersSql MakeReady(std::string_view sql, Literals literals);

/// The statement without a WHERE that nothing follows.
std::string WithoutDanglingWhere(std::string_view sql);

/// The statement with every identifier equal to `from` (letter case aside) replaced by `to`.
std::string WithIdentifier(std::string_view sql, std::string_view from, std::string_view to);

/// Whether a token of the statement can name `name` (letter case aside); older statements name
/// tables and columns with literals, too.
bool Mentions(std::string_view sql, std::string_view name);

/// A plain single SELECT over one table.
struct TableSelect {
    std::size_t from; ///< the place of its FROM
    bool isWhole;     ///< nothing follows the table
};

/// Nothing where the statement is not of that form.
std::optional<TableSelect> FindTableSelect(std::string_view sql);

/// Whether the statement begins with SELECT.
bool IsReading(std::string_view sql);

/// Whether the text holds nothing but blanks, comments and semicolons.
bool IsNothing(std::string_view sql);

/// Whether the text stays whole between parentheses: it closes what it opens, and nothing else.
bool IsClosed(std::string_view expression);

/// Whether two texts are alike but for blanks, comments and letter case.
bool SameTokens(std::string_view left, std::string_view right);

/// An identifier in quotes, which the engine takes as it is, and never for a text.
std::string Quoted(std::string_view identifier);

/// A text as a literal, and the text that a literal stands for.
std::string Literal(std::string_view text);
std::string LiteralText(std::string_view literal);

} // namespace dbsection
