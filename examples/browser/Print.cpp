#include "Print.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iomanip>
#include <iostream>
#include <sstream>

namespace browser {
namespace {

std::vector<int> WidthsOf(const std::vector<Row>& rows) {
    std::vector<int> widths;
    for (const Row& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], row[i].GetLength());
    }
    return widths;
}

void PrintRow(const Row& row, const std::vector<int>& widths, std::string_view alignment) {
    std::ostringstream line;
    for (std::size_t i = 0; i < row.size(); ++i)
        line << "  "
             << (alignment[std::min(i, alignment.size() - 1)] == 'l' ? std::left : std::right)
             << std::setw(widths[i]) << row[i];
    const std::string text = line.str();
    std::cout << text.substr(0, text.find_last_not_of(' ') + 1) << '\n';
}

} // namespace

CString Text(double number) {
    std::array<char, 32> digits{};
    std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::general,
                  6);
    return digits.data();
}

CString Text(int number) { return CString(std::to_string(number)); }

void PrintTable(const std::vector<Row>& rows, std::string_view alignment) {
    const std::vector<int> widths = WidthsOf(rows);
    for (const Row& row : rows)
        PrintRow(row, widths, alignment);
}

} // namespace browser
