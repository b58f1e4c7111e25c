// The tokens of SQL statements, told apart as the database engine does.
#pragma once

#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace dbsection {

/// By character: whether words are made of it.
inline constexpr auto WordCharacters = [] {
    std::array<bool, 256> isOne{};
    for (unsigned c = 0; c < isOne.size(); ++c)
        isOne[c] = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                   c == '_' || c == '$' || c >= 0x80;
    return isOne;
}();

inline bool IsWordCharacter(char c) { return WordCharacters[static_cast<unsigned char>(c)]; }

enum class TokenKind : std::uint8_t {
    Word, ///< keywords, names, numbers, and bytes such as x'00'
    QuotedName,
    Literal,
    Symbol,
    Unclosed, ///< a quotation or comment that is not closed: all the rest of the text
};

struct Token {
    TokenKind kind;
    std::string_view text;
    std::size_t begin; ///< its place in the statement

    std::size_t End() const { return begin + text.size(); }
    /// Whether it is a word; that one is given in capitals.
    bool Is(std::string_view word) const {
        return kind == TokenKind::Word && std::ranges::equal(text, word, {}, ToUpper);
    }
    bool IsSymbol(char symbol) const { return kind == TokenKind::Symbol && text[0] == symbol; }
    bool IsName() const { return kind == TokenKind::Word || kind == TokenKind::QuotedName; }

    /// What a name or literal stands for, without its quotes.
    std::string Value() const;
};

/// The first token from a position on; blanks and comments are passed over.
std::optional<Token> NextToken(std::string_view sql, std::size_t at);

template <class Visit>
void ForEachToken(std::string_view sql, Visit visit) {
    for (auto token = NextToken(sql, 0); token; token = NextToken(sql, token->End()))
        visit(*token);
}

/// The depth in parentheses behind a token at `depth`.
inline int DepthBehind(const Token& token, int depth) {
    return depth + (token.IsSymbol('(') ? 1 : 0) - (token.IsSymbol(')') ? 1 : 0);
}

} // namespace dbsection
