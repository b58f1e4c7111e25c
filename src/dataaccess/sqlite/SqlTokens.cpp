#include "dataaccess/sqlite/SqlTokens.h"

#include <algorithm>

namespace dbsection {
namespace {

constexpr bool IsWordCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '$' || static_cast<unsigned char>(c) >= 0x80;
}

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

/// Position behind a quotation, in which a doubled quote stands for itself; nothing where it is not
/// closed.
std::optional<std::size_t> SkipQuotation(std::string_view sql, std::size_t at) {
    const char close = sql[at] == '[' ? ']' : sql[at];
    for (++at; at < sql.size(); ++at) {
        if (sql[at] != close)
            continue;
        if (close == ']' || at + 1 >= sql.size() || sql[at + 1] != close)
            return at + 1;
        ++at;
    }
    return std::nullopt;
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
    const auto token = [&](TokenKind kind, std::optional<std::size_t> end) {
        return end ? Token{kind, sql.substr(at, *end - at), at}
                   : Token{TokenKind::Unclosed, sql.substr(at), at};
    };
    const char c = sql[at];
    if (c == '\'')
        return token(TokenKind::Literal, SkipQuotation(sql, at));
    if (c == '[' || c == '"' || c == '`')
        return token(TokenKind::QuotedName, SkipQuotation(sql, at));
    if (c == '/' && sql.substr(at, 2) == "/*")
        return token(TokenKind::Unclosed, std::nullopt);
    if (!IsWordCharacter(c))
        return token(TokenKind::Symbol, at + 1);
    std::size_t end = at;
    while (end < sql.size() && IsWordCharacter(sql[end]))
        ++end;
    const bool isBytes = end == at + 1 && ToUpper(c) == 'X' && end < sql.size() && sql[end] == '\'';
    return token(TokenKind::Word, isBytes ? SkipQuotation(sql, end) : end);
}

} // namespace dbsection
