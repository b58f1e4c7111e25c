#include "Report.h"

#include <array>
#include <cmath>
#include <iomanip>
#include <sstream>

namespace sectionbench {
namespace {

// Decades of rows and of microseconds, and where they lie in the picture.
constexpr int FirstRows = 2;
constexpr int LastRows = 6;
constexpr int FirstCost = 0;
constexpr int LastCost = 7;
constexpr double Left = 70;
constexpr double Right = 520;
constexpr double Top = 20;
constexpr double Bottom = 370;

constexpr std::array<const char*, 6> Colors{"#0b6e4f", "#c1440e", "#2f4b7c",
                                            "#8a5a00", "#7a3b69", "#444444"};

double AcrossAt(double rows) {
    return Left + (std::log10(rows) - FirstRows) / (LastRows - FirstRows) * (Right - Left);
}

double DownAt(double microseconds) {
    return Bottom -
           (std::log10(microseconds) - FirstCost) / (LastCost - FirstCost) * (Bottom - Top);
}

template <class... Parts>
std::string Joined(const Parts&... parts) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(1);
    (text << ... << parts);
    return text.str();
}

std::string Text(double across, double down, const char* anchor, const std::string& text) {
    return Joined("<text x='", across, "' y='", down, "' text-anchor='", anchor, "'>", text,
                  "</text>\n");
}

std::string RuleAt(double x1, double y1, double x2, double y2) {
    return Joined("<line x1='", x1, "' y1='", y1, "' x2='", x2, "' y2='", y2,
                  "' stroke='#ddd'/>\n");
}

std::string Grid() {
    constexpr std::array<const char*, 8> costs{"1 us",  "10 us",  "100 us", "1 ms",
                                               "10 ms", "100 ms", "1 s",    "10 s"};
    constexpr std::array<const char*, 5> rows{"100", "1,000", "10,000", "100,000", "1,000,000"};
    std::string grid;
    for (std::size_t i = 0; i < costs.size(); ++i) {
        const double down = DownAt(std::pow(10, FirstCost + static_cast<double>(i)));
        grid += RuleAt(Left, down, Right, down);
        grid += Text(Left - 8, down + 4, "end", costs[i]);
    }
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const double across = AcrossAt(std::pow(10, FirstRows + static_cast<double>(i)));
        grid += RuleAt(across, Top, across, Bottom);
        grid += Text(across, Bottom + 18, "middle", rows[i]);
    }
    return grid + Text((Left + Right) / 2, Bottom + 38, "middle", "rows of the table");
}

std::string Polyline(const std::vector<std::pair<double, double>>& points, const char* color,
                     const char* dashes) {
    std::string line = Joined("<polyline fill='none' stroke-width='2' stroke='", color,
                              "' stroke-dasharray='", dashes, "' points='");
    for (const auto& [rows, cost] : points)
        line += Joined(AcrossAt(rows), ",", DownAt(cost), " ");
    return line + "'/>\n";
}

} // namespace

std::string Plot(const std::vector<Curve>& curves) {
    std::string plot = "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 760 420' "
                       "font-family='sans-serif' font-size='12'>\n"
                       "<rect width='760' height='420' fill='white'/>\n" +
                       Grid();
    double down = Top + 10;
    for (std::size_t i = 0; i < curves.size(); ++i, down += 24) {
        const char* color = Colors[i % Colors.size()];
        plot += Polyline(curves[i].ours, color, "none");
        plot += Polyline(curves[i].peer, color, "5 4");
        plot += Joined("<g fill='", color, "'>");
        plot += Text(Right + 15, down, "start", curves[i].name);
        plot += "</g>\n";
    }
    plot += Text(Right + 15, down + 10, "start", "dashed: plain calls of the engine");
    return plot + "</svg>\n";
}

} // namespace sectionbench
