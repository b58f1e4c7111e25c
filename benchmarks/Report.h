// What a run tells: a line for each measure, a table for documents, and a plot of growing costs.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace sectionbench {

/// One line of the table; texts are empty where there is nothing to say.
struct Line {
    std::string name;
    std::string ours;
    std::string peer{};
    std::string ratio{};
    std::string limit{};
    bool isBroken = false;
};

std::string Number(double value, const char* unit);

/// Prints it at once: a run takes minutes.
void Print(const Line& line);

/// A table in Markdown.
std::string Table(const std::vector<Line>& lines);

/// What one work costs: microseconds by rows.
struct Curve {
    std::string name;
    std::vector<std::pair<double, double>> ours{};
    std::vector<std::pair<double, double>> peer{};
};

/// A picture (SVG) with logarithmic axes: ours as lines, the others' dashed.
std::string Plot(const std::vector<Curve>& curves);

} // namespace sectionbench
