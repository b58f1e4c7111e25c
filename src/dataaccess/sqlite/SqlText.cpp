#include "dataaccess/sqlite/SqlText.h"

#include "dataaccess/sqlite/SqlTokens.h"

#include <algorithm>
#include <array>
#include <utility>

namespace dbsection {
namespace {

std::string InQuotes(std::string_view text, char quote) {
    std::string quoted(1, quote);
    for (const char c : text)
        quoted.append(c == quote ? 2 : 1, c);
    return quoted += quote;
}

bool IsParameter(const Token& token) {
    return token.IsSymbol('?') || token.IsSymbol(':') || token.IsSymbol('@') ||
           (token.kind == TokenKind::Word && token.text[0] == '$');
}

/// The decimal number that a token begins, as one token.
std::optional<Token> DecimalAt(std::string_view sql, const Token& token) {
    const auto isDigits = [](const Token& part) {
        return part.kind == TokenKind::Word && std::ranges::all_of(part.text, IsDigit);
    };
    if (!isDigits(token))
        return std::nullopt;
    const auto point = NextToken(sql, token.End());
    if (!point || point->begin != token.End() || !point->IsSymbol('.'))
        return std::nullopt;
    const auto fraction = NextToken(sql, point->End());
    if (!fraction || fraction->begin != point->End() || !isDigits(*fraction))
        return std::nullopt;
    return Token{TokenKind::Word, sql.substr(token.begin, fraction->End() - token.begin),
                 token.begin};
}

/// A text put together from the pieces of another one.
class Edited {
public:
    explicit Edited(std::string_view from) : m_from(from) {}

    /// The token is replaced.
    void Replace(const Token& token, std::string_view text) {
        m_text.append(m_from, m_copied, token.begin - m_copied).append(text);
        m_copied = token.End();
    }

    std::string Finish() { return std::move(m_text.append(m_from, m_copied)); }

private:
    std::string_view m_from;
    std::string m_text;
    std::size_t m_copied = 0;
};

} // namespace

CallersSql MakeReady(std::string_view sql, Literals literals) {
    CallersSql ready;
    Edited text(sql);
    bool lifts = false;
    const auto lift = [&](const Token& literal) {
        // The blank keeps a digit behind the literal from naming a parameter.
        text.Replace(literal, "? ");
        ready.literals.push_back({literal.Value(), literal.kind == TokenKind::Word});
    };
    for (auto token = NextToken(sql, 0); token; token = NextToken(sql, token->End())) {
        if (IsParameter(*token)) {
            ++ready.parameters;
        } else if (token->kind == TokenKind::QuotedName && token->text[0] == '"') {
            text.Replace(*token, Quoted(token->Value()));
        } else if (lifts && token->kind == TokenKind::Literal) {
            lift(*token);
        } else if (const auto number = lifts ? DecimalAt(sql, *token) : std::nullopt) {
            lift(*number);
            token = number;
        }
        lifts = lifts || (literals == Literals::Lift && token->Is("WHERE"));
    }
    ready.text = text.Finish();
    return ready;
}

std::string WithoutDanglingWhere(std::string_view sql) {
    std::size_t end = sql.size();
    ForEachToken(sql,
                 [&](const Token& token) { end = token.Is("WHERE") ? token.begin : sql.size(); });
    return std::string(sql.substr(0, end));
}

std::string WithIdentifier(std::string_view sql, std::string_view from, std::string_view to) {
    Edited text(sql);
    ForEachToken(sql, [&](const Token& token) {
        if (token.IsName() && EqualNoCase(token.Value(), from))
            text.Replace(token, Quoted(to));
    });
    return text.Finish();
}

bool Mentions(std::string_view sql, std::string_view name) {
    bool found = false;
    ForEachToken(sql, [&](const Token& token) {
        found = found || ((token.IsName() || token.kind == TokenKind::Literal) &&
                          EqualNoCase(token.Value(), name));
    });
    return found;
}

std::optional<TableSelect> FindTableSelect(std::string_view sql) {
    static constexpr std::array Unsuitable{"DISTINCT",  "GROUP",  "UNION",
                                           "INTERSECT", "EXCEPT", "JOIN"};
    static constexpr std::array EndOfTables{"WHERE", "ORDER", "LIMIT"};
    std::optional<std::size_t> from;
    int tokensBehind = 0;
    int depth = 0;
    bool amongTables = false;
    bool suitable = true;
    ForEachToken(sql, [&](const Token& token) {
        const auto is = [&](const char* word) { return token.Is(word); };
        depth = DepthBehind(token, depth);
        tokensBehind += from ? 1 : 0;
        amongTables = amongTables && std::ranges::none_of(EndOfTables, is);
        // Rows of several tables, or of a nested statement, have no one identifier.
        if (amongTables && (token.IsSymbol(',') || token.IsSymbol('(')))
            suitable = false;
        if (depth == 0 && std::ranges::any_of(Unsuitable, is))
            suitable = false;
        if (!from && depth == 0 && is("FROM")) {
            from = token.begin;
            amongTables = true;
        }
    });
    if (!suitable || !from)
        return std::nullopt;
    return TableSelect{*from, tokensBehind == 1};
}

bool IsReading(std::string_view sql) {
    const auto token = NextToken(sql, 0);
    return token && token->Is("SELECT");
}

bool IsNothing(std::string_view sql) {
    bool nothing = true;
    ForEachToken(sql, [&](const Token& token) { nothing = nothing && token.IsSymbol(';'); });
    return nothing;
}

bool IsClosed(std::string_view expression) {
    int depth = 0;
    bool closed = true;
    ForEachToken(expression, [&](const Token& token) {
        depth = DepthBehind(token, depth);
        closed = closed && depth >= 0 && token.kind != TokenKind::Unclosed && !token.IsSymbol(';');
    });
    return closed && depth == 0;
}

bool SameTokens(std::string_view left, std::string_view right) {
    auto one = NextToken(left, 0);
    auto other = NextToken(right, 0);
    while (one && other && EqualNoCase(one->Value(), other->Value()) &&
           (one->kind == other->kind || (one->IsName() && other->IsName()))) {
        one = NextToken(left, one->End());
        other = NextToken(right, other->End());
    }
    return !one && !other;
}

std::string Quoted(std::string_view identifier) { return InQuotes(identifier, '`'); }

std::string Literal(std::string_view text) { return InQuotes(text, '\''); }

std::string LiteralText(std::string_view literal) {
    const auto token = NextToken(literal, 0);
    const bool isLiteral =
        token && token->kind == TokenKind::Literal && token->text.size() == literal.size();
    return isLiteral ? token->Value() : std::string(literal);
}

} // namespace dbsection
