#include "dataaccess/sqlite/SqlTokens.h"

#include <algorithm>

namespace dbsection {
namespace {

/// Position behind blanks and comments. A comment that is not closed is left where it is.
std::size_t SkipBlanks(std::string_view sql, std::size_t at) {
    for (;;) {
        while (at < sql.size() && IsBlank(sql[at]))
            ++at;
        if (at >= sql.size() || (sql[at] != '-' && sql[at] != '/'))
            return at;
        const std::string_view two = sql.substr(at, 2);
        std::size_t end = std::string_view::npos;
        if (two == "--")
            end = std::min(sql.find('\n', at), sql.size());
        else if (two == "/*" && (end = sql.find("*/", at + 2)) != std::string_view::npos)
            end += 2;
        if (end == std::string_view::npos)
            return at;
        at = end;
    }
}

constexpr std::size_t NotClosed = std::string_view::npos;

/// Position behind a quotation, in which a doubled quote stands for itself, or NotClosed.
std::size_t SkipQuotation(std::string_view sql, std::size_t at) {
    const char close = sql[at] == '[' ? ']' : sql[at];
    for (at = sql.find(close, at + 1); at < sql.size(); at = sql.find(close, at + 2))
        if (close == ']' || at + 1 >= sql.size() || sql[at + 1] != close)
            return at + 1;
    return NotClosed;
}

/// Position behind a word, or bytes such as x'00'.
std::size_t SkipWord(std::string_view sql, std::size_t at) {
    const std::size_t begin = at;
    while (at < sql.size() && IsWordCharacter(sql[at]))
        ++at;
    const bool isBytes =
        at == begin + 1 && ToUpper(sql[begin]) == 'X' && at < sql.size() && sql[at] == '\'';
    return isBytes ? SkipQuotation(sql, at) : at;
}

} // namespace

std::string Token::Value() const {
    if (kind != TokenKind::QuotedName && kind != TokenKind::Literal)
        return std::string(text);
    std::string value;
    for (std::size_t i = 1; i + 1 < text.size(); ++i) {
        value += text[i];
        if (text[0] != '[' && text[i] == text[0])
            ++i;
    }
    return value;
}

std::optional<Token> NextToken(std::string_view sql, std::size_t at) {
    at = SkipBlanks(sql, at);
    if (at >= sql.size())
        return std::nullopt;
    const char c = sql[at];
    TokenKind kind = TokenKind::Symbol;
    std::size_t end = at + 1;
    if (IsWordCharacter(c)) {
        kind = TokenKind::Word;
        end = SkipWord(sql, at);
    } else if (c == '\'' || c == '[' || c == '"' || c == '`') {
        kind = c == '\'' ? TokenKind::Literal : TokenKind::QuotedName;
        end = SkipQuotation(sql, at);
    } else if (sql.substr(at, 2) == "/*") {
        end = NotClosed;
    }
    return end == NotClosed ? Token{TokenKind::Unclosed, sql.substr(at), at}
                            : Token{kind, sql.substr(at, end - at), at};
}

} // namespace dbsection
