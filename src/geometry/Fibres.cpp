#include "geometry/Fibres.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace dbsection {
namespace {

using Loops = std::vector<Outline::Loop>;

/// Calls `visit` with each edge's ends and bulge.
template <class Visit>
void ForEachEdge(const Loops& loops, Visit visit) {
    for (const Outline::Loop& loop : loops)
        for (std::size_t i = 0; i < loop.size(); ++i)
            visit(loop[i].at, loop[(i + 1) % loop.size()].at, loop[i].bulge);
}

/// The mirror image about the line z = y.
Loops Swapped(const Outline& outline) {
    Loops loops(outline.Loops().begin(), outline.Loops().end());
    for (Outline::Loop& loop : loops)
        for (Vertex& vertex : loop) {
            std::swap(vertex.at.z, vertex.at.y);
            vertex.bulge = -vertex.bulge;
        }
    return loops;
}

/// Whether an arc passes an angle.
bool Passes(const Arc& arc, double angle) {
    const double turn = 2 * std::numbers::pi;
    const double behind = std::remainder(angle - arc.start, turn);
    const double along = arc.sweep > 0 ? behind : -behind;
    return (along < 0 ? along + turn : along) <= std::abs(arc.sweep);
}

void AddCrossings(std::vector<double>& crossings, Point from, Point to, double bulge,
                  double level) {
    if (bulge == 0) {
        if ((from.y <= level) != (to.y <= level))
            crossings.push_back(from.z + (to.z - from.z) * (level - from.y) / (to.y - from.y));
        return;
    }
    const Arc arc = ArcBetween(from, to, bulge);
    const double sine = (level - arc.center.y) / arc.radius;
    if (std::abs(sine) >= 1)
        return;
    const double rising = std::asin(sine);
    for (const double angle : {rising, std::numbers::pi - rising})
        if (Passes(arc, angle))
            crossings.push_back(arc.center.z + arc.radius * std::cos(angle));
}

/// Where the outline is crossed at a level: by pairs the ends of what lies inside.
std::vector<double> Crossings(const Loops& loops, double level) {
    std::vector<double> crossings;
    ForEachEdge(loops, [&](Point from, Point to, double bulge) {
        AddCrossings(crossings, from, to, bulge, level);
    });
    std::ranges::sort(crossings);
    return crossings;
}

struct Strip {
    double level; ///< of its middle
    double height;
    std::vector<double> crossings;

    double Width() const {
        double width = 0;
        for (std::size_t i = 0; i + 1 < crossings.size(); i += 2)
            width += crossings[i + 1] - crossings[i];
        return width;
    }
};

/// The levels between which the edges neither begin nor end nor turn back.
std::vector<double> Levels(const Loops& loops) {
    std::vector<double> levels;
    ForEachEdge(loops, [&](Point from, Point to, double bulge) {
        levels.push_back(from.y);
        if (bulge == 0)
            return;
        const Arc arc = ArcBetween(from, to, bulge);
        for (const double side : {-1.0, 1.0})
            if (Passes(arc, side * std::numbers::pi / 2))
                levels.push_back(arc.center.y + side * arc.radius);
    });
    std::ranges::sort(levels);
    return levels;
}

/// How many parts a length has that are no longer than `longest`.
int PartsOf(double length, double longest) { return static_cast<int>(std::ceil(length / longest)); }

/// Strips of at most a height; a fillet has some even where it is low.
std::vector<Strip> StripsOf(const Loops& loops, double height) {
    std::vector<Strip> strips;
    constexpr int FewestStrips = 4;
    const std::vector<double> levels = Levels(loops);
    const double least = 1e-9 * (levels.back() - levels.front());
    for (std::size_t i = 0; i + 1 < levels.size(); ++i) {
        const double gap = levels[i + 1] - levels[i];
        if (gap <= least)
            continue;
        const int count = std::max(FewestStrips, PartsOf(gap, height));
        for (int k = 0; k < count; ++k) {
            const double level = levels[i] + (k + 0.5) * gap / count;
            strips.push_back({level, gap / count, Crossings(loops, level)});
        }
    }
    return strips;
}

double ShearArea(const Loops& loops, const AxisProperties& axis, double extent) {
    constexpr int Strips = 200;
    double first = 0; // moment, about the centroid, of what lies below
    double energy = 0;
    for (const Strip& strip : StripsOf(loops, extent / Strips)) {
        const double width = strip.Width();
        const double own = width * strip.height * (strip.level - axis.centroid);
        const double middle = first + own / 2;
        energy += middle * middle / width * strip.height;
        first += own;
    }
    return axis.inertia * axis.inertia / energy;
}

} // namespace

std::vector<Fibre> FibresOf(const Outline& outline, int across) {
    const auto [low, high] = outline.GetExtent();
    const double size = std::max(high.z - low.z, high.y - low.y) / across;
    std::vector<Fibre> fibres;
    for (const Strip& strip : StripsOf({outline.Loops().begin(), outline.Loops().end()}, size))
        for (std::size_t i = 0; i + 1 < strip.crossings.size(); i += 2) {
            const double begin = strip.crossings[i];
            const double width = strip.crossings[i + 1] - begin;
            const int count = PartsOf(width, size);
            for (int k = 0; k < count; ++k)
                fibres.push_back({{begin + (k + 0.5) * width / count, strip.level},
                                  width / count * strip.height});
        }
    return fibres;
}

ShearAreas ShearAreasOf(const Outline& outline) {
    const auto [low, high] = outline.GetExtent();
    const Loops loops(outline.Loops().begin(), outline.Loops().end());
    return {ShearArea(loops, outline.MajorAxis(), high.y - low.y),
            ShearArea(Swapped(outline), outline.MinorAxis(), high.z - low.z)};
}

} // namespace dbsection
