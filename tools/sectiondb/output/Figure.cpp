#include "output/Figure.h"

#include "platform/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <fmt/format.h>
#include <limits>
#include <string_view>

namespace dbsection {
namespace {

constexpr int MostDigits = std::numeric_limits<double>::max_digits10;

double NumberOf(std::string_view text) {
    double number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

struct Scientific {
    std::string mantissa; ///< with its sign
    int exponent;
};

/// The shortest decimal that is the number.
Scientific ShortestOf(double value) {
    std::array<char, 32> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                            std::chars_format::scientific);
    const std::string_view text(buffer.data(), end);
    const std::size_t e = text.find('e');
    std::string_view exponent = text.substr(e + 1);
    exponent.remove_prefix(exponent.starts_with('+') ? 1 : 0);
    return {std::string(text.substr(0, e)), static_cast<int>(NumberOf(exponent))};
}

int CountDigits(double value) {
    const std::string mantissa = ShortestOf(value).mantissa;
    return static_cast<int>(
        std::ranges::count_if(mantissa, [](char c) { return c >= '0' && c <= '9'; }));
}

std::string Written(double value) {
    constexpr double Least = 1e-4;
    constexpr double Million = 1e6;
    const double size = std::abs(value);
    if (value == 0 || (size >= Least && size < Million))
        return fmt::format("{}", value);
    const auto [mantissa, exponent] = ShortestOf(value);
    return fmt::format("{}e{}", mantissa, exponent);
}

/// Whether a decimal in the printed unit is the stored figure, but for the rounding of its
/// conversion: up to 14 digits no other figure is so near.
bool ConvertsBack(double decimal, const Figure& figure) {
    constexpr double Rounding = 4 * std::numeric_limits<double>::epsilon();
    return std::abs(decimal / figure.factor - figure.stored) <= Rounding * std::abs(figure.stored);
}

} // namespace

double WithoutNoise(double computed) {
    constexpr int Digits = 11; // one fewer than parameters of the geometry are kept with
    return std::isfinite(computed) ? RoundedTo(computed, Digits) : computed;
}

std::string ReadableText(const Figure& figure) {
    const double value = figure.Value();
    if (!std::isfinite(value))
        return fmt::format("{}", value);
    constexpr int ComputedDigits = 5;
    if (figure.isComputed)
        return Written(RoundedTo(value, ComputedDigits));
    if (figure.factor == 1)
        return Written(value);
    constexpr int FewestDigits = 4;
    const int digits = std::clamp(CountDigits(figure.stored) + 1, FewestDigits, MostDigits);
    return Written(RoundedTo(value, digits));
}

std::string ExactText(const Figure& figure, const char* nothing) {
    const double value = figure.Value();
    if (!std::isfinite(value))
        return nothing;
    if (figure.factor == 1)
        return fmt::format("{}", value);
    int fewest = 1;
    for (int enough = MostDigits; fewest < enough;) {
        const int middle = (fewest + enough) / 2;
        if (ConvertsBack(RoundedTo(value, middle), figure))
            enough = middle;
        else
            fewest = middle + 1;
    }
    return fmt::format("{}", RoundedTo(value, fewest));
}

} // namespace dbsection
