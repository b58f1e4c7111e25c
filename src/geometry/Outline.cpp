#include "geometry/Outline.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

namespace dbsection {
namespace {

using std::numbers::pi;

Point operator+(Point a, Point b) { return {a.z + b.z, a.y + b.y}; }
Point operator-(Point a, Point b) { return {a.z - b.z, a.y - b.y}; }
Point operator*(double factor, Point a) { return {factor * a.z, factor * a.y}; }
double Dot(Point a, Point b) { return a.z * b.z + a.y * b.y; }
double Cross(Point a, Point b) { return a.z * b.y - a.y * b.z; }
double Length(Point a) { return std::hypot(a.z, a.y); }
Point Unit(Point a) { return (1 / Length(a)) * a; }
Point LeftOf(Point a) { return {-a.y, a.z}; }

/// A sharp corner, or the two ends of the arc that rounds it.
void AddCorner(Outline::Loop& loop, Point before, const Corner& corner, Point after) {
    const Point in = Unit(before - corner.at);
    const Point out = Unit(after - corner.at);
    const double half = std::acos(std::clamp(Dot(in, out), -1.0, 1.0)) / 2;
    if (corner.radius <= 0 || half == pi / 2) {
        loop.push_back({corner.at});
        return;
    }
    const double tangent = corner.radius / std::tan(half);
    const double sweep = pi - 2 * half;
    const double turn = Cross(in, out) < 0 ? 1 : -1;
    loop.push_back({corner.at + tangent * in, turn * std::tan(sweep / 4)});
    loop.push_back({corner.at + tangent * out});
}

Outline::Loop LoopOf(std::span<const Corner> corners) {
    Outline::Loop loop;
    const std::size_t count = corners.size();
    for (std::size_t i = 0; i < count; ++i)
        AddCorner(loop, corners[(i + count - 1) % count].at, corners[i],
                  corners[(i + 1) % count].at);
    return loop;
}

Outline::Loop Reversed(const Outline::Loop& loop) {
    Outline::Loop reversed;
    for (std::size_t i = loop.size(); i-- > 0;)
        reversed.push_back({loop[i].at, -loop[(i + loop.size() - 1) % loop.size()].bulge});
    return reversed;
}

/// Calls `visit` with each edge's ends and bulge.
template <class Visit>
void ForEachEdge(const Outline::Loop& loop, Visit visit) {
    for (std::size_t i = 0; i < loop.size(); ++i)
        visit(loop[i].at, loop[(i + 1) % loop.size()].at, loop[i].bulge);
}

/// Visits the parts of an arc above a level by their first and last angle, in the arc's direction.
template <class Visit>
void ForEachPieceAbove(const Arc& arc, double level, Visit visit) {
    const double sine = (level - arc.center.y) / arc.radius;
    if (sine >= 1)
        return;
    const double end = arc.start + arc.sweep;
    const double low = std::min(arc.start, end);
    const double high = std::max(arc.start, end);
    std::vector<double> cuts{low};
    if (sine > -1) {
        const double angle = std::asin(sine);
        for (const double base : {angle, pi - angle}) {
            int turns = static_cast<int>(std::ceil((low - base) / (2 * pi)));
            for (; base + 2 * pi * turns < high; ++turns)
                cuts.push_back(base + 2 * pi * turns);
        }
    }
    cuts.push_back(high);
    std::ranges::sort(cuts);
    for (std::size_t i = 0; i + 1 < cuts.size(); ++i) {
        const double middle = (cuts[i] + cuts[i + 1]) / 2;
        if (std::sin(middle) < sine) // never where the level touches the arc from below
            continue;
        arc.sweep > 0 ? visit(cuts[i], cuts[i + 1]) : visit(cuts[i + 1], cuts[i]);
    }
}

/// The integrals of sin, sin^2, sin^3 and sin^4 from 0 to an angle, but for a constant.
std::array<double, 4> PowersOfSine(double t) {
    const double c = std::cos(t);
    return {-c, t / 2 - std::sin(2 * t) / 4, c * c * c / 3 - c,
            3 * t / 8 - std::sin(2 * t) / 4 + std::sin(4 * t) / 32};
}

void Include(Extent& extent, Point point) {
    extent.low = {std::min(extent.low.z, point.z), std::min(extent.low.y, point.y)};
    extent.high = {std::max(extent.high.z, point.z), std::max(extent.high.y, point.y)};
}

/// Whether an arc passes an angle.
bool Passes(const Arc& arc, double angle) {
    const double low = std::min(arc.start, arc.start + arc.sweep);
    const double ahead = angle - low - 2 * pi * std::floor((angle - low) / (2 * pi));
    return ahead < std::abs(arc.sweep);
}

double SignedArea(const Outline::Loop& loop) {
    double twice = 0;
    ForEachEdge(loop, [&](Point from, Point to, double) { twice += Cross(from, to); });
    return twice / 2;
}

double Perimeter(const Outline::Loop& loop) {
    double length = 0;
    ForEachEdge(loop, [&](Point from, Point to, double bulge) {
        if (bulge == 0) {
            length += Length(to - from);
            return;
        }
        const Arc arc = ArcBetween(from, to, bulge);
        length += arc.radius * std::abs(arc.sweep);
    });
    return length;
}

} // namespace

Arc ArcBetween(Point from, Point to, double bulge) {
    const Point chord = to - from;
    const Point middle = 0.5 * (from + to);
    const Point center = middle + ((1 - bulge * bulge) / (4 * bulge)) * LeftOf(chord);
    const double radius = Length(chord) * (1 + bulge * bulge) / (4 * std::abs(bulge));
    return {center, radius, std::atan2(from.y - center.y, from.z - center.z), 4 * std::atan(bulge)};
}

void Outline::Add(std::span<const Corner> corners) { m_loops.push_back(LoopOf(corners)); }

void Outline::Cut(std::span<const Corner> corners) { m_loops.push_back(Reversed(LoopOf(corners))); }

double Outline::Area() const { return Above(GetExtent().low.y).area; }

AxisProperties Outline::MajorAxis() const {
    const double lowest = GetExtent().low.y;
    const PartAbove whole = Above(lowest);
    const double height = whole.first / whole.area;
    const double level = EqualAreaLevel(whole.area);
    return {lowest + height, whole.second - whole.first * height,
            2 * Above(level).first - whole.area * (lowest + height - level)};
}

AxisProperties Outline::MinorAxis() const {
    return Turned(pi / 2).MajorAxis(); // z becomes y
}

double Outline::ProductOfInertia() const {
    // turned by a quarter of a right angle, the moment about the horizontal axis gains the product
    const double turned = Turned(pi / 4).MajorAxis().inertia;
    return turned - (MajorAxis().inertia + MinorAxis().inertia) / 2;
}

double PrincipalAngle(double major, double minor, double product) {
    return std::atan2(-product, (major - minor) / 2) / 2 * 180 / pi;
}

double Outline::PrincipalAngle() const {
    return dbsection::PrincipalAngle(MajorAxis().inertia, MinorAxis().inertia, ProductOfInertia());
}

double Outline::OuterPerimeter() const {
    double length = 0;
    for (const Loop& loop : m_loops)
        length += SignedArea(loop) > 0 ? Perimeter(loop) : 0;
    return length;
}

double Outline::InnerPerimeter() const {
    double length = 0;
    for (const Loop& loop : m_loops)
        length += SignedArea(loop) > 0 ? 0 : Perimeter(loop);
    return length;
}

Extent Outline::GetExtent() const {
    constexpr double Infinite = std::numeric_limits<double>::infinity();
    Extent extent{{Infinite, Infinite}, {-Infinite, -Infinite}};
    for (const Loop& loop : m_loops)
        ForEachEdge(loop, [&](Point from, Point to, double bulge) {
            Include(extent, from);
            if (bulge == 0)
                return;
            const Arc arc = ArcBetween(from, to, bulge);
            const auto [center, radius, start, sweep] = arc;
            for (const double angle : {0.0, pi / 2, pi, 3 * pi / 2})
                if (Passes(arc, angle))
                    Include(extent, center + radius * Point{std::cos(angle), std::sin(angle)});
        });
    return extent;
}

Outline Outline::Turned(double angle) const {
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    Outline turned(*this);
    for (Loop& loop : turned.m_loops)
        for (Vertex& vertex : loop)
            vertex.at = {c * vertex.at.z - s * vertex.at.y, s * vertex.at.z + c * vertex.at.y};
    return turned;
}

/// The level with half of the area above it, by bisection and secants in turn.
double Outline::EqualAreaLevel(double area) const {
    const Extent extent = GetExtent();
    double low = extent.low.y;
    double high = extent.high.y;
    double excessLow = area / 2; // of the area above, against one half
    double excessHigh = -area / 2;
    for (int step = 0; step < 60 && high - low > 1e-15 * (extent.high.y - extent.low.y); ++step) {
        const double secant = low + (high - low) * excessLow / (excessLow - excessHigh);
        const double level = step % 3 == 2 ? (low + high) / 2 : secant;
        const double excess = Above(level).area - area / 2;
        if (std::abs(excess) <= 1e-15 * area)
            return level;
        (excess > 0 ? low : high) = level;
        (excess > 0 ? excessLow : excessHigh) = excess;
    }
    return (low + high) / 2;
}

Outline::PartAbove Outline::Above(double level) const {
    PartAbove part;
    for (const Loop& loop : m_loops)
        ForEachEdge(loop, [&](Point from, Point to, double bulge) {
            if (bulge == 0)
                AddStraight(part, from, to, level);
            else
                AddArc(part, ArcBetween(from, to, bulge), level);
        });
    return part;
}

void Outline::AddStraight(PartAbove& part, Point from, Point to, double level) {
    const double y1 = std::max(from.y - level, 0.0);
    const double y2 = std::max(to.y - level, 0.0);
    if (y1 == 0 && y2 == 0)
        return;
    // of an edge that crosses the level, only the run above it counts
    const double share =
        from.y >= level && to.y >= level ? 1 : std::abs((y2 - y1) / (to.y - from.y));
    const double run = (from.z - to.z) * share;
    part.area += run * (y1 + y2) / 2;
    part.first += run * (y1 * y1 + y1 * y2 + y2 * y2) / 6;
    part.second += run * (y1 + y2) * (y1 * y1 + y2 * y2) / 12;
}

void Outline::AddArc(PartAbove& part, const Arc& arc, double level) {
    const double r = arc.radius;
    const double h = arc.center.y - level;
    ForEachPieceAbove(arc, level, [&](double from, double to) {
        const auto a = PowersOfSine(from);
        const auto b = PowersOfSine(to);
        const double s1 = b[0] - a[0];
        const double s2 = b[1] - a[1];
        const double s3 = b[2] - a[2];
        const double s4 = b[3] - a[3];
        part.area += r * (h * s1 + r * s2);
        part.first += r / 2 * (h * h * s1 + 2 * h * r * s2 + r * r * s3);
        part.second +=
            r / 3 * (h * h * h * s1 + 3 * h * h * r * s2 + 3 * h * r * r * s3 + r * r * r * s4);
    });
}

Corners Mirrored(Corners corners, Point factor) {
    for (std::size_t i = corners.size(); i-- > 0;) {
        const auto [at, radius] = corners[i];
        corners.push_back({{at.z * factor.z, at.y * factor.y}, radius});
    }
    return corners;
}

Corners RectangleCorners(double width, double depth, double radius) {
    const Corners right{{{width / 2, -depth / 2}, radius}, {{width / 2, depth / 2}, radius}};
    return Mirrored(right, {-1, 1});
}

Corners BentStrip(std::span<const Point> middle, double thickness, double insideRadius) {
    Corners right;
    Corners left;
    const std::size_t last = middle.size() - 1;
    for (std::size_t i = 0; i <= last; ++i) {
        const Point in = Unit(middle[i] - middle[i == 0 ? 0 : i - 1] +
                              (i == 0 ? middle[1] - middle[0] : Point{}));
        const Point out = i == last ? in : Unit(middle[i + 1] - middle[i]);
        // along the bisector, as far as both faces are from the middle line
        const Point normal = LeftOf(in) + LeftOf(out);
        const Point offset = (thickness / 2) * (2 / Dot(normal, normal)) * normal;
        const double turn = Cross(in, out);
        const double outsideRadius = insideRadius + thickness;
        const bool isEnd = i == 0 || i == last;
        left.push_back({middle[i] + offset, isEnd ? 0 : (turn > 0 ? insideRadius : outsideRadius)});
        right.push_back(
            {middle[i] - offset, isEnd ? 0 : (turn > 0 ? outsideRadius : insideRadius)});
    }
    right.insert(right.end(), left.rbegin(), left.rend());
    return right;
}

} // namespace dbsection
