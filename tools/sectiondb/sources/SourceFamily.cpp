#include "sources/SourceFamily.h"

#include "platform/Text.h"
#include "sources/CsvTable.h"
#include "units/UnitText.h"

#include <algorithm>
#include <cmath>

namespace dbsection {
namespace {

/// "10", "0.5", "1/2" and "10-1/2".
double NumberWithFraction(std::string_view text) {
    const std::size_t joint = text.find('-');
    if (joint != std::string_view::npos)
        return NumberWithFraction(text.substr(0, joint)) +
               NumberWithFraction(text.substr(joint + 1));
    const std::size_t bar = text.find('/');
    const auto number = LeadingNumber<double>(text.substr(0, bar));
    return bar == std::string_view::npos ? number
                                         : number / LeadingNumber<double>(text.substr(bar + 1));
}

} // namespace

std::vector<double> LastNumbers(std::string_view name, std::size_t count) {
    const auto isPart = [&](std::size_t place) {
        const char c = name[place];
        const bool joins = c == '-' && place > 0 && IsDigit(name[place - 1]) &&
                           place + 1 < name.size() && IsDigit(name[place + 1]);
        return IsDigit(c) || c == '.' || c == '/' || joins;
    };
    std::vector<double> numbers;
    for (std::size_t end = name.size(); end > 0 && numbers.size() < count;) {
        std::size_t begin = end;
        while (begin > 0 && isPart(begin - 1))
            --begin;
        if (begin < end)
            numbers.push_back(NumberWithFraction(name.substr(begin, end - begin)));
        end = begin < end ? begin : end - 1;
    }
    std::ranges::reverse(numbers);
    return numbers;
}

Figures SourceFamily::PublishedFigures(const FamilyRow& row) const {
    Figures figures;
    for (std::size_t i = 0; i < units.size(); ++i)
        if (const auto number = ParseNumber(row.printed[i]))
            figures.emplace(layout->columns[i].name, *number * SizeOf(units[i]));
    return figures;
}

std::optional<SectionGeometry> SourceFamily::GeometryOf(const FamilyRow& row,
                                                        const Figures& published) const {
    const std::vector<double> sizes = LastNumbers(row.name, nameSizes.size());
    const auto isSize = [&](double size, const std::string& column) {
        const auto place = std::ranges::find(layout->columns, column, &LayoutColumn::name);
        const std::string& printed =
            row.printed[static_cast<std::size_t>(place - layout->columns.begin())];
        return std::abs(size - ParseNumber(printed).value_or(0)) < 1e-6;
    };
    if (!std::ranges::equal(sizes, nameSizes, isSize))
        throw GeometryError("the sizes are not those of the name");
    if (model == nullptr)
        return std::nullopt;
    Figures all = parameters;
    for (const auto& [parameter, value] : row.parameters)
        all[parameter] = value;
    return model->make(published, all);
}

std::vector<SourceFamily::Judged>
SourceFamily::Judge(const FamilyRow& row, const std::optional<SectionGeometry>& geometry,
                    const Figures& published) const {
    std::vector<Judged> all;
    if (!geometry)
        return all;
    for (const JudgedFigure& judged : JudgeFigures(*geometry, published)) {
        const auto place = std::ranges::find(layout->columns, judged.column, &LayoutColumn::name);
        const auto column = static_cast<std::size_t>(place - layout->columns.begin());
        const double printed = *ParseNumber(row.printed[column]);
        all.push_back({column, rules.Judge(row.name, judged.column, printed, judged.Deviation())});
    }
    return all;
}

bool SourceFamily::Accepts(const FamilyRow& row) const {
    try {
        const Figures published = PublishedFigures(row);
        return std::ranges::all_of(
            Judge(row, GeometryOf(row, published), published),
            [](const Judged& judged) { return judged.verdict.IsAccepted(); });
    } catch (const GeometryError&) {
        return false;
    }
}

} // namespace dbsection
