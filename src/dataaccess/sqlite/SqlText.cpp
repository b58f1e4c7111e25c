#include "dataaccess/sqlite/SqlText.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace dbsection {
namespace {

enum class TokenKind { Word, QuotedName, Literal, Symbol };

struct Token {
    TokenKind kind;
    std::size_t begin;
    std::size_t end;
};

constexpr bool IsWordCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '$' || static_cast<unsigned char>(c) >= 0x80;
}

/// Position behind blanks and comments.
std::size_t SkipBlanks(std::string_view sql, std::size_t at) {
    for (;;) {
        while (at < sql.size() && IsBlank(sql[at]))
            ++at;
        if (sql.substr(at, 2) == "--")
            at = std::min(sql.find('\n', at), sql.size());
        else if (sql.substr(at, 2) == "/*")
            at = std::min(sql.find("*/", at + 2), sql.size() - 2) + 2;
        else
            return at;
    }
}

/// Position behind a quoted text, in which a doubled quote stands for itself. A text that is not
/// closed ends with the statement.
std::size_t SkipQuoted(std::string_view sql, std::size_t at) {
    const char close = sql[at] == '[' ? ']' : sql[at];
    for (++at; at < sql.size(); ++at) {
        if (sql[at] != close)
            continue;
        if (close == ']' || at + 1 >= sql.size() || sql[at + 1] != close)
            return at + 1;
        ++at;
    }
    return sql.size();
}

std::optional<Token> NextToken(std::string_view sql, std::size_t at) {
    at = SkipBlanks(sql, at);
    if (at >= sql.size())
        return std::nullopt;
    const char c = sql[at];
    if (c == '\'')
        return Token{TokenKind::Literal, at, SkipQuoted(sql, at)};
    if (c == '[' || c == '"' || c == '`')
        return Token{TokenKind::QuotedName, at, SkipQuoted(sql, at)};
    if (!IsWordCharacter(c))
        return Token{TokenKind::Symbol, at, at + 1};
    std::size_t end = at;
    while (end < sql.size() && IsWordCharacter(sql[end]))
        ++end;
    const bool isBytes = end == at + 1 && ToUpper(c) == 'X' && end < sql.size() && sql[end] == '\'';
    if (isBytes)
        end = SkipQuoted(sql, end);
    return Token{TokenKind::Word, at, end};
}

template <class Visit>
void ForEachToken(std::string_view sql, Visit visit) {
    for (auto token = NextToken(sql, 0); token; token = NextToken(sql, token->end))
        visit(*token, sql.substr(token->begin, token->end - token->begin));
}

bool IsClosedLiteral(std::string_view literal) {
    return literal.size() >= 2 && literal.back() == '\'' &&
           std::ranges::count(literal, '\'') % 2 == 0;
}

std::string_view IdentifierOf(const Token& token, std::string_view text) {
    if (token.kind == TokenKind::Word)
        return text;
    return token.kind == TokenKind::QuotedName && text.size() >= 2 ? text.substr(1, text.size() - 2)
                                                                   : std::string_view();
}

std::string InQuotes(std::string_view text, char quote) {
    std::string quoted(1, quote);
    for (const char c : text)
        quoted.append(c == quote ? 2 : 1, c);
    return quoted += quote;
}

} // namespace

LiftedSql LiftLiterals(std::string_view sql) {
    LiftedSql lifted;
    std::size_t copied = 0;
    bool behindWhere = false;
    ForEachToken(sql, [&](const Token& token, std::string_view text) {
        if (token.kind == TokenKind::Word && EqualNoCase(text, "WHERE"))
            behindWhere = true;
        if (!behindWhere || token.kind != TokenKind::Literal || !IsClosedLiteral(text))
            return;
        // The blank keeps a digit behind the literal from naming a parameter.
        lifted.text.append(sql, copied, token.begin - copied).append("? ");
        lifted.parameters.push_back(LiteralText(text));
        copied = token.end;
    });
    lifted.text.append(sql, copied);
    return lifted;
}

std::string WithoutDanglingWhere(std::string_view sql) {
    std::size_t end = sql.size();
    ForEachToken(sql, [&](const Token& token, std::string_view text) {
        const bool isWhere = token.kind == TokenKind::Word && EqualNoCase(text, "WHERE");
        end = isWhere ? token.begin : sql.size();
    });
    return std::string(sql.substr(0, end));
}

std::string WithIdentifier(std::string_view sql, std::string_view from, std::string_view to) {
    std::string result;
    std::size_t copied = 0;
    ForEachToken(sql, [&](const Token& token, std::string_view text) {
        if (!EqualNoCase(IdentifierOf(token, text), from))
            return;
        result.append(sql, copied, token.begin - copied).append(Quoted(to));
        copied = token.end;
    });
    return result.append(sql, copied);
}

std::optional<std::string> WithRowId(std::string_view sql) {
    static constexpr std::array<std::string_view, 6> Unsuitable{"DISTINCT",  "GROUP",  "UNION",
                                                                "INTERSECT", "EXCEPT", "JOIN"};
    std::size_t from = std::string_view::npos;
    int depth = 0;
    bool suitable = true;
    bool behindFrom = false;
    ForEachToken(sql, [&](const Token& token, std::string_view text) {
        // Rows of a nested statement have no identifier.
        suitable = suitable && !(std::exchange(behindFrom, false) && text == "(");
        if (text == "(")
            ++depth;
        if (text == ")")
            --depth;
        if (token.kind != TokenKind::Word || depth != 0)
            return;
        const auto equals = [text](std::string_view word) { return EqualNoCase(text, word); };
        suitable = suitable && std::ranges::none_of(Unsuitable, equals);
        if (from == std::string_view::npos && equals("FROM")) {
            from = token.begin;
            behindFrom = true;
        }
    });
    if (!suitable || from == std::string_view::npos)
        return std::nullopt;
    return std::string(sql.substr(0, from)) + ", _rowid_ " + std::string(sql.substr(from));
}

bool IsReading(std::string_view sql) {
    const auto token = NextToken(sql, 0);
    if (!token)
        return false;
    return EqualNoCase(sql.substr(token->begin, token->end - token->begin), "SELECT");
}

bool IsNothing(std::string_view sql) {
    bool nothing = true;
    ForEachToken(sql,
                 [&](const Token&, std::string_view text) { nothing = nothing && text == ";"; });
    return nothing;
}

std::string Quoted(std::string_view identifier) { return InQuotes(identifier, '"'); }

std::string Literal(std::string_view text) { return InQuotes(text, '\''); }

std::string LiteralText(std::string_view literal) {
    if (!IsClosedLiteral(literal))
        return std::string(literal);
    std::string value;
    for (std::size_t i = 1; i + 1 < literal.size(); ++i) {
        value += literal[i];
        if (literal[i] == '\'')
            ++i;
    }
    return value;
}

} // namespace dbsection
