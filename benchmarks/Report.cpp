#include "Report.h"

#include <array>
#include <cstdio>

namespace sectionbench {

std::string Number(double value, const char* unit) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.*f%s", value < 100 ? 2 : 0, value, unit);
    return text.data();
}

void Print(const Line& line) {
    std::printf("%-42s %11s %11s %7s %10s%s\n", line.name.c_str(), line.ours.c_str(),
                line.peer.c_str(), line.ratio.c_str(), line.limit.c_str(),
                line.isBroken ? "  BROKEN" : "");
    std::fflush(stdout);
}

std::string Table(const std::vector<Line>& lines) {
    std::string table = "| median of | ours | peer | ratio | at most |\n|---|--:|--:|--:|--:|\n";
    for (const Line& line : lines)
        for (const std::string* cell :
             {&line.name, &line.ours, &line.peer, &line.ratio, &line.limit}) {
            table += "| ";
            table += *cell;
            table += cell == &line.limit ? " |\n" : " ";
        }
    return table;
}

} // namespace sectionbench
