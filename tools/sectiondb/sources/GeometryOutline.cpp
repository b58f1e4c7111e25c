#include "sources/GeometryOutline.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace dbsection {

namespace {

constexpr int ArcSteps =
    24; // chords in place of an arc: the area of a quarter circle is 0.07 % low

Point Unit(Point from, Point to) {
    const double length = std::hypot(to.z - from.z, to.y - from.y);
    return {(to.z - from.z) / length, (to.y - from.y) / length};
}

void AddCorner(std::vector<Point>& loop, Point before, const Corner& corner, Point after) {
    const Point at = corner.at;
    if (corner.radius <= 0) {
        loop.push_back(at);
        return;
    }
    const Point in = Unit(at, before);
    const Point out = Unit(at, after);
    const double half = std::acos(in.z * out.z + in.y * out.y) / 2;
    const Point bisector = Unit({}, {in.z + out.z, in.y + out.y});
    const double tangent = corner.radius / std::tan(half);
    const double distance = corner.radius / std::sin(half);
    const Point center{at.z + bisector.z * distance, at.y + bisector.y * distance};
    const Point start{at.z + in.z * tangent - center.z, at.y + in.y * tangent - center.y};
    const double turn = in.z * out.y - in.y * out.z > 0 ? -1 : 1;
    const double sweep = turn * (std::numbers::pi - 2 * half);
    for (int step = 0; step <= ArcSteps; ++step) {
        const double c = std::cos(sweep * step / ArcSteps);
        const double s = std::sin(sweep * step / ArcSteps);
        loop.push_back(
            {center.z + c * start.z - s * start.y, center.y + s * start.z + c * start.y});
    }
}

} // namespace

void Outline::AddLoop(std::span<const Corner> corners, bool hole) {
    Loop loop;
    const std::size_t count = corners.size();
    for (std::size_t i = 0; i < count; ++i)
        AddCorner(loop, corners[(i + count - 1) % count].at, corners[i],
                  corners[(i + 1) % count].at);
    if (hole)
        std::ranges::reverse(loop);
    m_loops.push_back(std::move(loop));
}

double Outline::Area() const { return Above(Lowest()).area; }

AxisProperties Outline::MajorAxis() const {
    const double lowest = Lowest();
    const PartAbove whole = Above(lowest);
    const double height = whole.first / whole.area;
    const double level = EqualAreaLevel(whole.area);
    return {lowest + height, whole.second - whole.first * height,
            2 * Above(level).first - whole.area * (lowest + height - level)};
}

AxisProperties Outline::MinorAxis() const {
    return Turned(std::numbers::pi / 2).MajorAxis(); // z becomes y
}

double Outline::ProductOfInertia() const {
    // turned by a quarter of a right angle, the moment about the horizontal axis gains the product
    const double turned = Turned(std::numbers::pi / 4).MajorAxis().inertia;
    return turned - (MajorAxis().inertia + MinorAxis().inertia) / 2;
}

Outline Outline::Turned(double angle) const {
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    Outline turned(*this);
    for (Loop& loop : turned.m_loops)
        for (Point& point : loop)
            point = {c * point.z - s * point.y, s * point.z + c * point.y};
    return turned;
}

double Outline::Lowest() const { return std::ranges::min(m_loops.front(), {}, &Point::y).y; }

double Outline::Highest() const { return std::ranges::max(m_loops.front(), {}, &Point::y).y; }

double Outline::EqualAreaLevel(double area) const {
    double low = Lowest();
    double high = Highest();
    for (int step = 0; step < 50; ++step) {
        const double middle = (low + high) / 2;
        (Above(middle).area > area / 2 ? low : high) = middle;
    }
    return low;
}

Outline::PartAbove Outline::Above(double level) const {
    PartAbove part;
    for (const Loop& loop : m_loops) {
        for (std::size_t i = 0; i < loop.size(); ++i) {
            const Point& from = loop[i];
            const Point& to = loop[(i + 1) % loop.size()];
            const double rise = to.y - from.y;
            const double y1 = std::max(from.y - level, 0.0);
            const double y2 = std::max(to.y - level, 0.0);
            if (y1 == 0 && y2 == 0)
                continue;
            // of an edge that crosses the level, only the run above it counts
            const double share = y1 > 0 && y2 > 0 ? 1 : std::abs((y2 - y1) / rise);
            const double run = (from.z - to.z) * share;
            part.area += run * (y1 + y2) / 2;
            part.first += run * (y1 * y1 + y1 * y2 + y2 * y2) / 6;
            part.second += run * (y1 + y2) * (y1 * y1 + y2 * y2) / 12;
        }
    }
    return part;
}

} // namespace dbsection
