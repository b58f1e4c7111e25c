#include "geometry/ThinWalls.h"

#include <cmath>

namespace dbsection {
namespace {

double Between(double from, double to, double share) { return from + (to - from) * share; }

Point Between(Point from, Point to, double share) {
    return {Between(from.z, to.z, share), Between(from.y, to.y, share)};
}

} // namespace

struct ThinWalls::Sectorial {
    Point shearCenter;
    double warping;
};

void ThinWalls::Join(int from, int to, double thicknessFrom, double thicknessTo) {
    m_walls.push_back({from, to, thicknessFrom, thicknessTo});
}

ThinWalls ThinWalls::Strip(std::span<const Point> middle, double thickness, double middleRadius) {
    constexpr int ChordsOfAnArc = 32; // their error of the warping constant is below 1e-4
    std::vector<Corner> corners;
    for (const Point& point : middle)
        corners.push_back({point, middleRadius});
    corners.front().radius = corners.back().radius = 0;
    std::vector<Point> nodes;
    const Outline line(corners);
    for (const Vertex& vertex : line.Loops().front()) {
        nodes.push_back(vertex.at);
        if (vertex.bulge == 0)
            continue;
        const Vertex& next = *(&vertex + 1); // the line ends sharp: an arc is never last
        const Arc arc = ArcBetween(vertex.at, next.at, vertex.bulge);
        for (int i = 1; i < ChordsOfAnArc; ++i) {
            const double angle = arc.start + arc.sweep * i / ChordsOfAnArc;
            nodes.push_back({arc.center.z + arc.radius * std::cos(angle),
                             arc.center.y + arc.radius * std::sin(angle)});
        }
    }
    const int count = static_cast<int>(nodes.size());
    ThinWalls strip(std::move(nodes));
    for (int i = 0; i + 1 < count; ++i)
        strip.Join(i, i + 1, thickness);
    return strip;
}

/// By Simpson's rule, which is exact for what is integrated here: products of at most three
/// functions that are linear along a wall.
template <class Function>
double ThinWalls::Integral(Function function) const {
    double sum = 0;
    for (const Wall& wall : m_walls) {
        const Point from = At(wall.from);
        const Point to = At(wall.to);
        const double length = std::hypot(to.z - from.z, to.y - from.y);
        const auto value = [&](double share) {
            return Between(wall.thicknessFrom, wall.thicknessTo, share) *
                   function(wall, share, Between(from, to, share));
        };
        sum += length / 6 * (value(0) + 4 * value(0.5) + value(1));
    }
    return sum;
}

Point ThinWalls::Centroid() const {
    const double area = Integral([](const Wall&, double, Point) { return 1.0; });
    return {Integral([](const Wall&, double, Point at) { return at.z; }) / area,
            Integral([](const Wall&, double, Point at) { return at.y; }) / area};
}

std::vector<double> ThinWalls::SectorialAreas(Point pole) const {
    std::vector<double> areas(m_nodes.size());
    for (const Wall& wall : m_walls) {
        const Point from = At(wall.from);
        const Point to = At(wall.to);
        areas[static_cast<std::size_t>(wall.to)] = areas[static_cast<std::size_t>(wall.from)] +
                                                   (from.z - pole.z) * (to.y - from.y) -
                                                   (from.y - pole.y) * (to.z - from.z);
    }
    return areas;
}

ThinWalls::Sectorial ThinWalls::Solve() const {
    const Point centroid = Centroid();
    const auto sectorial = [](const std::vector<double>& areas) {
        return [&areas](const Wall& wall, double share, Point) {
            return Between(areas[static_cast<std::size_t>(wall.from)],
                           areas[static_cast<std::size_t>(wall.to)], share);
        };
    };
    const auto z = [&](Point at) { return at.z - centroid.z; };
    const auto y = [&](Point at) { return at.y - centroid.y; };
    const auto aboutCentroid = SectorialAreas(centroid);
    const auto w = sectorial(aboutCentroid);
    const double zz = Integral([&](const Wall&, double, Point at) { return z(at) * z(at); });
    const double yy = Integral([&](const Wall&, double, Point at) { return y(at) * y(at); });
    const double zy = Integral([&](const Wall&, double, Point at) { return z(at) * y(at); });
    const double wz = Integral(
        [&](const Wall& wall, double share, Point at) { return w(wall, share, at) * z(at); });
    const double wy = Integral(
        [&](const Wall& wall, double share, Point at) { return w(wall, share, at) * y(at); });

    // The pole about which the sectorial area has no moment.
    const double determinant = zz * yy - zy * zy;
    const Point center{centroid.z + (wy * zz - wz * zy) / determinant,
                       centroid.y - (wz * yy - wy * zy) / determinant};
    const auto aboutCenter = SectorialAreas(center);
    const auto v = sectorial(aboutCenter);
    const double area = Integral([](const Wall&, double, Point) { return 1.0; });
    const double mean = Integral(v) / area;
    const double warping = Integral([&](const Wall& wall, double share, Point at) {
        const double normal = v(wall, share, at) - mean;
        return normal * normal;
    });
    return {center, warping};
}

Point ThinWalls::ShearCenter() const { return Solve().shearCenter; }

double ThinWalls::WarpingConstant() const { return Solve().warping; }

double ThinWalls::TorsionConstant() const {
    double sum = 0;
    for (const Wall& wall : m_walls) {
        const Point from = At(wall.from);
        const Point to = At(wall.to);
        const double a = wall.thicknessFrom;
        const double b = wall.thicknessTo;
        sum += std::hypot(to.z - from.z, to.y - from.y) * (a + b) * (a * a + b * b) / 12;
    }
    return sum;
}

} // namespace dbsection
