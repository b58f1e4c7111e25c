#include "output/Escapes.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>

namespace dbsection {
namespace {

/// Whether a character controls a terminal, or turns the direction in which others are written.
bool IsControlling(char32_t c) {
    struct Range {
        char32_t first;
        char32_t last;
    };
    constexpr std::array Ranges{Range{0x00, 0x1F}, Range{0x7F, 0x9F}, Range{0x200E, 0x200F},
                                Range{0x2028, 0x202E}, Range{0x2066, 0x2069}};
    return std::ranges::any_of(
        Ranges, [c](const Range& range) { return c >= range.first && c <= range.last; });
}

/// The length of the UTF-8 character that a text begins with, which it sets; 0 where it is none.
std::size_t DecodeFirst(std::string_view text, char32_t& character) {
    struct Form {
        unsigned char mask;
        unsigned char lead;
        char32_t least; ///< what a shorter form writes is no character
    };
    constexpr std::array Forms{Form{0x80, 0x00, 0}, Form{0xE0, 0xC0, 0x80}, Form{0xF0, 0xE0, 0x800},
                               Form{0xF8, 0xF0, 0x10000}};
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    for (std::size_t length = 1; length <= Forms.size(); ++length) {
        const auto& [mask, lead, least] = Forms[length - 1];
        if ((byte(0) & mask) != lead)
            continue;
        character = byte(0) & static_cast<unsigned char>(~mask);
        for (std::size_t i = 1; i < length; ++i) {
            if (i >= text.size() || (byte(i) & 0xC0) != 0x80)
                return 0;
            character = character << 6 | (byte(i) & 0x3F);
        }
        const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
        return character < least || character > 0x10FFFF || isSurrogate ? 0 : length;
    }
    return 0;
}

/// The text without controlling characters and faults; `prefix` gives what goes before a character.
template <class Prefix>
std::string Escaped(std::string_view text, Prefix prefix) {
    std::string escaped;
    while (!text.empty()) {
        char32_t character = 0;
        const std::size_t length = DecodeFirst(text, character);
        if (length == 0)
            escaped += "\xEF\xBF\xBD";
        else if (IsControlling(character))
            escaped += fmt::format("\\u{:04x}", static_cast<unsigned>(character));
        else
            escaped.append(prefix(character)).append(text.substr(0, length));
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return escaped;
}

} // namespace

bool IsUtf8(std::string_view text) {
    char32_t character = 0;
    while (!text.empty()) {
        const std::size_t length = DecodeFirst(text, character);
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string PlainText(std::string_view text) {
    return Escaped(text, [](char32_t) { return ""; });
}

std::string JsonText(std::string_view text) {
    const auto backslash = [](char32_t c) { return c == '"' || c == '\\' ? "\\" : ""; };
    return '"' + Escaped(text, backslash) + '"';
}

std::size_t WidthOf(std::string_view text) {
    const auto begins = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; };
    return static_cast<std::size_t>(std::ranges::count_if(text, begins));
}

std::string CsvText(std::string_view text) {
    const auto second = [](char32_t c) { return c == '"' ? "\"" : ""; };
    const std::string field = Escaped(text, second);
    const bool isBare = field.find_first_of(",\"") == std::string::npos;
    return isBare ? field : '"' + field + '"';
}

} // namespace dbsection
