// sectiondb_bench: measures the library against the engine itself, in one run, and fails where a
// limit is broken.
#include "Timing.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>

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

Line PeakMemory(const Catalogues& catalogues) {
    constexpr double Most = 20;
    const double peak = ShowPeakMebibytes(catalogues);
    return {.name = "peak memory of sectiondb show",
            .ours = Number(peak, " MiB"),
            .limit = Number(Most, " MiB"),
            .isBroken = !(peak <= Most)};
}

bool RunAll() {
    const Catalogues catalogues;
    Print({"median of", "ours", "engine", "ratio", "at most"});
    bool allKept = true;
    const auto judge = [&](const Line& line) {
        Print(line);
        allKept = allKept && !line.isBroken;
    };
    judge(PeakMemory(catalogues)); // first: see RunProgram
    for (const auto& measures : {DataAccessMeasures(), LibraryMeasures(), FacadeMeasures(),
                                 EngineMeasures(), ProgramMeasures()})
        for (const Measure& measure : measures)
            judge(Run(measure, catalogues));
    return allKept;
}

} // namespace

int main() {
    // What a person's own settings say must not be measured.
    for (const char* name :
         {"SECTIONDB_PASSWORD", "SECTIONDB_FOLDER", "SECTIONDB_INI", "SECTIONDB_DBI"})
        ::unsetenv(name);
    try {
        return RunAll() ? 0 : 1;
    } catch (const std::exception& e) {
        std::fprintf(stderr, "sectiondb_bench: %s\n", e.what());
        return 2;
    }
}
