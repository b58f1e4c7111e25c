#include "drawing/DrawingText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace dbsection {

std::string DrawnNumber(double number) {
    constexpr int Decimals = 3;
    constexpr double HalfOfLast = 0.0005;
    if (std::abs(number) < HalfOfLast)
        return "0"; // not "-0"
    std::array<char, 64> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                   std::chars_format::fixed, Decimals)
                         .ptr;
    std::string text(digits.data(), end);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
        text.pop_back();
    return text;
}

std::size_t LettersIn(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count_if(
        text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
}

} // namespace dbsection
