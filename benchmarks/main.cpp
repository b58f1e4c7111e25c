// Measures the library against the engine itself, in one run, and fails where a limit is broken:
//
//     sectiondb_bench              everything
//     sectiondb_bench walk GET     what has "walk" or "GET" in its name
//     sectiondb_bench --report F   everything; a table (Markdown) and a plot (SVG) go to folder F
#include "Report.h"
#include "Timing.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <span>
#include <string_view>
#include <utility>

namespace {

using namespace sectionbench;

Line Judge(std::string name, const Times& times, const Limits& limits) {
    Line line{.name = std::move(name), .ours = Number(times.ours, " us")};
    if (times.peer > 0) {
        line.peer = Number(times.peer, " us");
        line.ratio = Number(times.ratio, "");
    }
    if (limits.ratio > 0) {
        line.limit = Number(limits.ratio, "");
        line.isBroken = !(times.ratio <= limits.ratio);
    } else if (limits.microseconds > 0) {
        line.limit = Number(limits.microseconds, " us");
        line.isBroken = !(times.ours <= limits.microseconds);
    } else if (limits.beyond > 0) {
        line.limit = "+ " + Number(limits.beyond, " us");
        line.isBroken = !(times.ours - times.peer <= limits.beyond);
    }
    return line;
}

Line Judge(const char* name, double amount, double most, const char* unit) {
    return {.name = name,
            .ours = Number(amount, unit),
            .limit = Number(most, unit),
            .isBroken = !(amount <= most)};
}

constexpr const char* CountMemoryName = "memory of a count, 1000000 rows";

/// The measures of a run whose names have one of the parts, or all.
class Run {
public:
    explicit Run(std::span<char* const> parts) : m_parts(parts) {
        Print({"median of", "ours", "peer", "ratio", "at most"});
    }

    void MeasureAll() {
        for (const auto& [name, unit, most, take] : ProgramAmounts())
            if (IsWanted(name))
                Take(Judge(name, take(m_catalogues), most, unit));
        for (const auto& measures : {DataAccessMeasures(), LibraryMeasures(), FacadeMeasures(),
                                     EngineMeasures(), ValueMeasures(), ProgramMeasures()})
            for (const Measure& measure : measures)
                if (IsWanted(measure.name))
                    Take(Judge(
                        measure.name,
                        Compare(measure.ours(m_catalogues),
                                measure.peer == nullptr ? nullptr : measure.peer(m_catalogues)),
                        measure.limits));
    }

    void MeasureGrowth() {
        std::vector<GrowthMeasure> wanted = GrowthMeasures();
        std::erase_if(wanted, [&](const GrowthMeasure& work) { return !IsWanted(work.name); });
        for (const GrowthMeasure& work : wanted)
            m_curves.push_back({work.name});
        const bool isCountWanted = IsWanted(CountMemoryName);
        if (wanted.empty() && !isCountWanted)
            return;
        constexpr int Most = 1'000'000; // to which the limits apply
        for (int rows = 100; rows <= Most; rows *= 10) {
            const LongTable table(m_catalogues, rows);
            if (isCountWanted && rows == Most)
                Take(Judge(CountMemoryName, CountPeakMebibytes(table), 1, " MiB"));
            for (std::size_t i = 0; i < wanted.size(); ++i) {
                const auto& [name, ours, peer, limits] = wanted[i];
                const Times times = Compare(ours(table), peer(table));
                m_curves[i].ours.emplace_back(rows, times.ours);
                m_curves[i].peer.emplace_back(rows, times.peer);
                Take(Judge(std::string(name) + ", " + std::to_string(rows) + " rows", times,
                           rows == Most ? limits : Limits{}));
            }
        }
    }

    /// Writes the table and the plot into a folder.
    void Report(const std::filesystem::path& folder) const {
        std::filesystem::create_directories(folder);
        std::ofstream(folder / "measures.md") << Table(m_lines);
        std::ofstream(folder / "growth.svg") << Plot(m_curves);
    }

    bool AllLimitsKept() const { return std::ranges::none_of(m_lines, &Line::isBroken); }

private:
    bool IsWanted(std::string_view name) const {
        return m_parts.empty() || std::ranges::any_of(m_parts, [name](const char* part) {
                   return name.find(part) != std::string_view::npos;
               });
    }

    void Take(Line line) {
        Print(line);
        m_lines.push_back(std::move(line));
    }

    std::span<char* const> m_parts;
    Catalogues m_catalogues;
    std::vector<Line> m_lines;
    std::vector<Curve> m_curves;
};

bool RunAll(std::span<char* const> arguments) {
    const bool isReported = arguments.size() >= 2 && std::string_view(arguments[0]) == "--report";
    Run run(arguments.subspan(isReported ? 2 : 0));
    run.MeasureAll();
    run.MeasureGrowth();
    if (isReported)
        run.Report(arguments[1]);
    return run.AllLimitsKept();
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
