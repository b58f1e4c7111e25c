// Measures the library against the engine itself, in one run, and fails where a limit is broken:
//
//     sectiondb_bench              everything
//     sectiondb_bench walk GET     what has "walk" or "GET" in its name
#include "Timing.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <span>
#include <string_view>

namespace {

using namespace sectionbench;

std::string Number(double value, const char* unit) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.*f%s", value < 100 ? 2 : 0, value, unit);
    return text.data();
}

/// One line of the table; texts are empty where there is nothing to say.
struct Line {
    std::string name;
    std::string ours;
    std::string engine{};
    std::string ratio{};
    std::string limit{};
    bool isBroken = false;
};

void Print(const Line& line) {
    std::printf("%-42s %11s %11s %7s %10s%s\n", line.name.c_str(), line.ours.c_str(),
                line.engine.c_str(), line.ratio.c_str(), line.limit.c_str(),
                line.isBroken ? "  BROKEN" : "");
    std::fflush(stdout);
}

Line Run(const Measure& measure, const Catalogues& catalogues) {
    const Times times = Compare(measure.ours(catalogues),
                                measure.engine == nullptr ? nullptr : measure.engine(catalogues));
    const Limits& limits = measure.limits;
    Line line{.name = measure.name, .ours = Number(times.ours, " us")};
    if (measure.engine != nullptr) {
        line.engine = Number(times.engine, " us");
        line.ratio = Number(times.ratio, "");
    }
    if (limits.ratio > 0) {
        line.limit = Number(limits.ratio, "");
        line.isBroken = !(times.ratio <= limits.ratio);
    } else if (limits.microseconds > 0) {
        line.limit = Number(limits.microseconds, " us");
        line.isBroken = !(times.ours <= limits.microseconds);
    }
    return line;
}

constexpr const char* PeakMemoryName = "peak memory of sectiondb show";

Line PeakMemory(const Catalogues& catalogues) {
    constexpr double Most = 20;
    const double peak = ShowPeakMebibytes(catalogues);
    return {.name = PeakMemoryName,
            .ours = Number(peak, " MiB"),
            .limit = Number(Most, " MiB"),
            .isBroken = !(peak <= Most)};
}

bool RunAll(std::span<char* const> parts) {
    const auto isWanted = [parts](std::string_view name) {
        return parts.empty() || std::ranges::any_of(parts, [name](const char* part) {
                   return name.find(part) != name.npos;
               });
    };
    const Catalogues catalogues;
    Print({"median of", "ours", "engine", "ratio", "at most"});
    bool allKept = true;
    const auto judge = [&](const Line& line) {
        Print(line);
        allKept = allKept && !line.isBroken;
    };
    if (isWanted(PeakMemoryName))
        judge(PeakMemory(catalogues)); // first: see RunProgram
    for (const auto& measures : {DataAccessMeasures(), LibraryMeasures(), FacadeMeasures(),
                                 EngineMeasures(), ProgramMeasures()})
        for (const Measure& measure : measures)
            if (isWanted(measure.name))
                judge(Run(measure, catalogues));
    return allKept;
}

} // namespace

int main(int argc, char** argv) {
    // What a person's own settings say must not be measured.
    for (const char* name :
         {"SECTIONDB_PASSWORD", "SECTIONDB_FOLDER", "SECTIONDB_INI", "SECTIONDB_DBI"})
        ::unsetenv(name);
    try {
        return RunAll(std::span(argv, static_cast<std::size_t>(argc)).subspan(1)) ? 0 : 1;
    } catch (const std::exception& e) {
        std::fprintf(stderr, "sectiondb_bench: %s\n", e.what());
        return 2;
    }
}
