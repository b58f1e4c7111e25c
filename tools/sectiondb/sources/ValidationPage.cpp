#include "sources/ValidationPage.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fmt/format.h>
#include <map>

namespace dbsection {
namespace {

/// The share below which `part` of all lie.
double Quantile(std::vector<double> shares, double part) {
    const auto place = static_cast<std::ptrdiff_t>(part * static_cast<double>(shares.size() - 1));
    std::ranges::nth_element(shares, shares.begin() + place);
    return shares[static_cast<std::size_t>(place)];
}

double MedianOfSizes(std::vector<double> shares) {
    std::ranges::transform(shares, shares.begin(), [](double share) { return std::abs(share); });
    return Quantile(std::move(shares), 0.5);
}

double Greatest(const std::vector<double>& shares) {
    return std::ranges::max(shares, {}, [](double share) { return std::abs(share); });
}

std::string Percent(double share) { return fmt::format("{:.2g}", 100 * share); }

/// The columns of a family that `isWanted` of any of its rows, by their places.
template <class Wanted>
std::string ColumnsWith(const SourceFamily& family, Wanted isWanted) {
    std::string names;
    for (std::size_t i = 0; i < family.layout->columns.size(); ++i)
        if (std::ranges::any_of(family.rows,
                                [&](const FamilyRow& row) { return isWanted(row, i); }))
            names += (names.empty() ? "" : " ") + std::string(family.layout->columns[i].name);
    return names.empty() ? "none" : names;
}

std::string ColumnLine(const SourceFamily& family, const ColumnDeviations& deviations) {
    const char* column = family.layout->columns[deviations.column].name;
    const auto rule = family.rules.columns.find(column);
    const DeviationBound tolerance =
        rule == family.rules.columns.end() ? DeviationBound{} : rule->second.tolerance;
    return fmt::format("| {} | {} | {} | {} | {} | {} |\n", column, deviations.shares.size(),
                       Percent(MedianOfSizes(deviations.shares)),
                       Percent(Greatest(deviations.shares)),
                       tolerance.share == 0 ? "-" : Percent(tolerance.share), tolerance.reason);
}

std::string FamilySection(const SourceFamily& family) {
    std::string text =
        fmt::format("\n## {}\n\n{}, {} rows", family.name, family.standard, family.rows.size());
    text += family.model == nullptr ? ", no model.\n" : fmt::format(", {}.\n", family.model->name);
    text += fmt::format(
        "Published: {}. Computed: {}.\n",
        ColumnsWith(family, [](const FamilyRow& row,
                               std::size_t column) { return !row.printed[column].empty(); }),
        ColumnsWith(family, [&](const FamilyRow& row, std::size_t column) {
            return row.printed[column].empty() &&
                   row.computed.contains(family.layout->columns[column].name);
        }));
    const std::vector<ColumnDeviations> columns = DeviationsOf(family);
    if (!columns.empty())
        text += "\n| column | figures | median % | greatest % | allowed beyond printing % | why |\n"
                "|---|---|---|---|---|---|\n";
    for (const ColumnDeviations& deviations : columns)
        text += ColumnLine(family, deviations);
    if (!family.rules.exceptions.empty())
        text += "\n";
    for (const auto& [place, bound] : family.rules.exceptions)
        text += fmt::format("- {}, {}: at most {} %, {}\n", place.first, place.second,
                            Percent(bound.share), bound.reason);
    return text;
}

/// Deviations along the plot: their square roots, so that small ones are told apart.
double PlaceOf(double share) {
    constexpr double Width = 70; // of one percent
    return std::copysign(Width * std::sqrt(std::abs(100 * share)), share);
}

constexpr int LineHeight = 12;
constexpr int NameWidth = 190;
constexpr double Largest = 0.25;

std::string PlotLine(const SourceFamily& family, int y) {
    std::vector<double> shares;
    for (const ColumnDeviations& deviations : DeviationsOf(family))
        shares.insert(shares.end(), deviations.shares.begin(), deviations.shares.end());
    if (shares.empty())
        return {};
    const auto at = [&](double part) { return PlaceOf(Quantile(shares, part)); };
    return fmt::format("<text x=\"{}\" y=\"{}\">{}</text>"
                       "<path d=\"M{:.1f} {}H{:.1f}\"/>"
                       "<rect x=\"{:.1f}\" y=\"{}\" width=\"{:.1f}\" height=\"6\"/>\n",
                       -NameWidth - PlaceOf(Largest), y + 4, family.name, at(0), y, at(1), at(0.25),
                       y - 3, std::max(at(0.75) - at(0.25), 0.5));
}

} // namespace

std::vector<ColumnDeviations> DeviationsOf(const SourceFamily& family) {
    std::vector<ColumnDeviations> columns;
    for (std::size_t i = 0; i < family.layout->columns.size(); ++i)
        columns.push_back({i});
    for (const FamilyRow& row : family.rows) {
        const Figures published = family.PublishedFigures(row);
        for (const SourceFamily::Judged& judged :
             family.Judge(row, family.GeometryOf(row, published), published))
            columns[judged.column].shares.push_back(judged.verdict.deviation);
    }
    std::erase_if(columns,
                  [](const ColumnDeviations& deviations) { return deviations.shares.empty(); });
    return columns;
}

std::string ValidationPage(std::span<const SourceFamily* const> families) {
    std::string text =
        "# Validation\n\n"
        "How far the published figures of each family are from what its geometry gives, in "
        "percent.\n"
        "A figure may deviate by half a unit of its last printed digit, and beyond that by what "
        "the\n"
        "model of its family is worth for its column; one that is further away keeps a bound of "
        "its\n"
        "own. `sectiondb sources validation` writes this page, and with `--plot` the picture.\n\n"
        "![Deviations by family](validation.svg)\n\n"
        "## Models\n\n"
        "| model | column | computed by |\n|---|---|---|\n";
    for (const GeometryModel& model : GetGeometryModels())
        for (const ComputedColumn& column : model.computed)
            text += fmt::format("| {} | {} | {} |\n", model.name, column.name, column.basis);
    for (const SourceFamily* family : families)
        text += FamilySection(*family);
    return text;
}

std::string FiniteElementsPart(const CsvTable& solutions) {
    static constexpr std::array Columns{"AX", "IZ", "IY", "IX", "CW", "shear center"};
    std::string text =
        "\n## Finite elements\n\n"
        "How far figures of sections are, in percent, from solutions of their outlines by finite "
        "elements,\n"
        "which know nothing of formulas for shapes: a small, a middle and a large section of each "
        "model,\n"
        "of the catalogues or, where they show none, of shapes for this purpose.\n"
        "That of the shear center is its distance beside the polar radius of gyration. \"*\" marks "
        "what is\n"
        "computed, the others are published. `make validate` solves them anew.\n\n"
        "| model | section | AX | IZ | IY | IX | CW | shear center |\n"
        "|---|---|--:|--:|--:|--:|--:|--:|\n";
    const auto textOf = [&](const CsvTable::Record& record, const char* column) {
        return solutions.RequiredText(record, column);
    };
    std::map<std::string, std::string> cells;
    const auto& records = solutions.Records();
    for (std::size_t i = 0; i < records.size(); ++i) {
        const CsvTable::Record& record = records[i];
        cells[textOf(record, "Column")] =
            textOf(record, "Deviation") + (textOf(record, "Source") == "computed" ? "*" : "");
        const bool isLast = i + 1 == records.size() ||
                            textOf(records[i + 1], "Section") != textOf(record, "Section") ||
                            textOf(records[i + 1], "Size") != textOf(record, "Size");
        if (!isLast)
            continue;
        text += fmt::format("| {} | {} |", textOf(record, "Model"), textOf(record, "Section"));
        for (const char* column : Columns)
            text += fmt::format(" {} |", cells[column]);
        text += '\n';
        cells.clear();
    }
    return text;
}

std::string ValidationPlot(std::span<const SourceFamily* const> families) {
    std::string lines;
    int y = 0;
    for (const SourceFamily* family : families)
        if (const std::string line = PlotLine(*family, y + LineHeight); !line.empty()) {
            lines += line;
            y += LineHeight;
        }
    const double reach = PlaceOf(Largest);
    std::string scale;
    for (const double percent : {-20.0, -10.0, -5.0, -2.0, -1.0, 0.0, 1.0, 2.0, 5.0, 10.0, 20.0}) {
        const double x = PlaceOf(percent / 100);
        scale += fmt::format("<path d=\"M{0:.1f} 0V{1}\" stroke=\"#ccc\"/>"
                             "<text x=\"{0:.1f}\" y=\"-4\" text-anchor=\"middle\">{2} %</text>\n",
                             x, y + LineHeight, percent);
    }
    return fmt::format(
        "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"{} -30 {} {}\" "
        "font-family=\"sans-serif\" font-size=\"9\">\n"
        "<rect x=\"{}\" y=\"-30\" width=\"100%\" height=\"100%\" fill=\"#fff\"/>\n"
        "<text x=\"{}\" y=\"-18\">Geometry beside published figures: range, and middle half"
        "</text>\n<g>{}</g>\n<g stroke=\"#469\" fill=\"#469\">\n<style>text {{ stroke: none; fill: "
        "#000 }}</style>\n{}</g>\n</svg>\n",
        -NameWidth - reach - 5, NameWidth + 2 * reach + 10, y + 50, -NameWidth - reach - 5,
        -NameWidth - reach, scale, lines);
}

} // namespace dbsection
