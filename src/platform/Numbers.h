// Numbers as ones of a narrower type, in which they may not fit.
#pragma once

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

namespace dbsection {

/// The whole part of a number; 0, which is never a record number, where the type cannot hold it.
template <class Integer>
Integer WholeNumber(double number) {
    constexpr double TooLarge = 0x1p63;
    if (!(std::abs(number) < TooLarge))
        return 0;
    const auto whole = static_cast<std::int64_t>(number);
    return std::in_range<Integer>(whole) ? static_cast<Integer>(whole) : Integer(0);
}

/// A number with at most so many digits: "14.92", "8.356e+07".
inline std::string TextOfDigits(double number, int digits) {
    std::array<char, 40> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number,
                                   std::chars_format::general, digits);
    return {text.data(), end.ptr};
}

/// The number that this text is.
inline double RoundedTo(double number, int digits) {
    const std::string text = TextOfDigits(number, digits);
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

/// A number as a single, the largest one where it is beyond them.
inline float ToSingle(double number) {
    constexpr double Largest = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(number, -Largest, Largest));
}

} // namespace dbsection
