// Numbers as ones of a narrower type, in which they may not fit.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
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

/// A number as a single, the largest one where it is beyond them.
inline float ToSingle(double number) {
    constexpr double Largest = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(number, -Largest, Largest));
}

} // namespace dbsection
