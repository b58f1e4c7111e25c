#include "sources/MisprintCount.h"

#include "platform/Text.h"
#include "sources/CsvTable.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace dbsection {
namespace {

std::vector<std::string> WithSwappedDigits(const std::string& printed) {
    std::vector<std::string> misprints;
    for (std::size_t i = 0; i + 1 < printed.size(); ++i)
        if (IsDigit(printed[i]) && IsDigit(printed[i + 1]) && printed[i] != printed[i + 1]) {
            misprints.push_back(printed);
            std::swap(misprints.back()[i], misprints.back()[i + 1]);
        }
    return misprints;
}

std::vector<std::string> WithShiftedPoint(const std::string& printed) {
    constexpr int Digits = 10;
    std::vector<std::string> misprints;
    for (const double factor : {10.0, 0.1}) {
        std::array<char, 32> text{};
        const auto end =
            std::to_chars(text.data(), text.data() + text.size(), *ParseNumber(printed) * factor,
                          std::chars_format::general, Digits);
        misprints.emplace_back(text.data(), end.ptr);
    }
    return misprints;
}

bool IsInput(const GeometryModel& model, std::string_view column) {
    return std::ranges::find(model.inputs, column, [](const char* input) {
               return std::string_view(input);
           }) != model.inputs.end();
}

int CountAccepted(const SourceFamily& family, FamilyRow& row, std::size_t column,
                  const std::vector<std::string>& misprints) {
    const std::string printed = row.printed[column];
    int accepted = 0;
    for (const std::string& misprint : misprints) {
        row.printed[column] = misprint;
        accepted += family.Accepts(row) ? 1 : 0;
    }
    row.printed[column] = printed;
    return accepted;
}

} // namespace

MisprintCount& MisprintCount::operator+=(const MisprintCount& other) {
    swaps += other.swaps;
    swapsPassed += other.swapsPassed;
    shifts += other.shifts;
    shiftsPassed += other.shiftsPassed;
    return *this;
}

MisprintCount CountMisprints(const SourceFamily& family) {
    MisprintCount count;
    if (family.model == nullptr)
        return count;
    for (FamilyRow row : family.rows)
        for (std::size_t i = 0; i < row.printed.size(); ++i) {
            const char* const column = family.layout->columns[i].name;
            const bool isChecked = IsInput(*family.model, column) || family.model->Computes(column);
            if (row.printed[i].empty() || !isChecked)
                continue;
            const auto swaps = WithSwappedDigits(row.printed[i]);
            const auto shifts = WithShiftedPoint(row.printed[i]);
            count += {static_cast<int>(swaps.size()), CountAccepted(family, row, i, swaps),
                      static_cast<int>(shifts.size()), CountAccepted(family, row, i, shifts)};
        }
    return count;
}

} // namespace dbsection
