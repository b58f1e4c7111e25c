// Text helpers that do not depend on the host's locale.
#pragma once

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <string>
#include <string_view>

namespace dbsection {

constexpr char ToUpper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

constexpr bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

inline std::string UpperCase(std::string_view text) {
    std::string upper(text);
    std::ranges::transform(upper, upper.begin(), ToUpper);
    return upper;
}

/// The parts as one text.
inline std::string Joined(std::initializer_list<std::string_view> parts) {
    std::size_t size = 0;
    for (const std::string_view part : parts)
        size += part.size();
    std::string text;
    text.reserve(size);
    for (const std::string_view part : parts)
        text += part;
    return text;
}

inline bool EqualNoCase(std::string_view left, std::string_view right) {
    return left == right || std::ranges::equal(left, right, {}, ToUpper, ToUpper);
}

/// A hash that texts have in common which are alike but for the letter case.
inline std::size_t HashNoCase(std::string_view text) {
    constexpr std::uint64_t Prime = 0x9e3779b97f4a7c15;
    constexpr std::uint64_t WithoutCase = 0xdfdfdfdfdfdfdfdf; // tells digits and signs apart still
    std::uint64_t hash = text.size();
    const auto add = [&hash](std::uint64_t letters) {
        hash = (hash ^ (letters & WithoutCase)) * Prime;
        hash ^= hash >> 32;
    };
    std::uint64_t letters = 0;
    for (; text.size() > sizeof letters; text.remove_prefix(sizeof letters)) {
        std::memcpy(&letters, text.data(), sizeof letters);
        add(letters);
    }
    letters = 0;
    for (const char c : text)
        letters = letters << 8 | static_cast<unsigned char>(c);
    add(letters);
    return static_cast<std::size_t>(hash);
}

inline std::string_view Trim(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

/// The number at the beginning of a text, behind blanks and at most one sign; 0 without one. It
/// begins with a digit or a decimal point: neither "inf" nor "nan" is a number.
template <class Number>
Number LeadingNumber(std::string_view text) {
    text = Trim(text);
    const std::size_t sign = text.starts_with('+') || text.starts_with('-') ? 1 : 0;
    const char first = text.size() > sign ? text[sign] : '\0';
    if (!IsDigit(first) && first != '.')
        return 0;
    if (text.starts_with('+'))
        text.remove_prefix(1);
    Number number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

inline std::int64_t LeadingInteger(std::string_view text) {
    return LeadingNumber<std::int64_t>(text);
}

} // namespace dbsection
