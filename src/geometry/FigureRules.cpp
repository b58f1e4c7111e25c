#include "geometry/FigureRules.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace dbsection {
namespace {

/// The power of ten that a figure begins with. What a conversion of units leaves of a round one
/// counts as that.
int DecadeOf(double figure) {
    constexpr double Slack = 1e-5;
    return figure == 0 ? 0 : static_cast<int>(std::floor(std::log10(std::abs(figure)) + Slack));
}

/// The unit of the last of three digits.
double ThirdDigit(int decade) { return std::pow(10, decade - 2); }

double StepOfText(std::string_view printed, int decade) {
    const std::size_t point = printed.find('.');
    if (point != std::string_view::npos && point + 1 < printed.size())
        return std::pow(10, -static_cast<double>(printed.size() - point - 1));
    const std::string_view whole = printed.substr(0, point);
    const std::size_t last = whole.find_last_not_of('0');
    const double zeros =
        last == std::string_view::npos ? 0 : static_cast<double>(whole.size() - 1 - last);
    return std::min(std::pow(10, zeros), std::max(ThirdDigit(decade), 1.0));
}

/// The number at the front of `text`, which is taken off with the separator behind it.
template <class Number>
Number Take(std::string_view& text, char separator) {
    const std::size_t end = std::min(text.find(separator), text.size());
    Number number = 0;
    std::from_chars(text.data(), text.data() + end, number);
    text.remove_prefix(std::min(end + 1, text.size()));
    return number;
}

} // namespace

void PrintingSteps::Learn(std::string_view printed) {
    const int decade = DecadeOf(LeadingNumber<double>(printed));
    const double step = StepOfText(printed, decade);
    const auto [place, isNew] = m_steps.try_emplace(decade, step);
    if (!isNew)
        place->second = std::min(place->second, step);
}

double PrintingSteps::StepOf(double figure) const {
    const int decade = DecadeOf(figure);
    const auto place = m_steps.find(decade);
    return place == m_steps.end() ? ThirdDigit(decade) : place->second;
}

std::string PrintingSteps::Text() const {
    std::string text;
    for (const auto& [decade, step] : m_steps) {
        std::array<char, 32> number{};
        const auto end = std::to_chars(number.data(), number.data() + number.size(), step);
        text += (text.empty() ? "" : " ") + std::to_string(decade) + ":";
        text.append(number.data(), end.ptr);
    }
    return text;
}

PrintingSteps PrintingSteps::FromText(std::string_view text) {
    PrintingSteps steps;
    while (!text.empty()) {
        const int decade = Take<int>(text, ':');
        steps.m_steps[decade] = Take<double>(text, ' ');
    }
    return steps;
}

bool FigureVerdict::IsWithinTolerance() const {
    return std::abs(deviation) <= printing + tolerance;
}

bool FigureVerdict::IsAccepted() const {
    return exception == nullptr ? IsWithinTolerance() : std::abs(deviation) <= exception->share;
}

FigureVerdict FigureRules::Judge(const std::string& name, const std::string& column, double figure,
                                 double deviation) const {
    constexpr double HalfAStep = 0.51; // a half, and what is lost where figures are rounded twice
    FigureVerdict verdict{deviation, 0, 0, nullptr};
    if (const auto rule = columns.find(column); rule != columns.end() && figure != 0) {
        verdict.printing = HalfAStep * rule->second.steps.StepOf(figure) / std::abs(figure);
        verdict.tolerance = rule->second.tolerance.share;
    }
    if (const auto exception = exceptions.find({name, column}); exception != exceptions.end())
        verdict.exception = &exception->second;
    return verdict;
}

} // namespace dbsection
