// Outlines of cross-sections: what a section's area, moments and plastic moduli are follows from
// its corners alone, whatever its shape.
//
//     Outline box({{0, 0}, {width, 0}, {width, depth}, {0, depth}});
//     box.Cut(...);                      // a hole
//     const double inertia = box.MajorAxis().inertia;
//
// Coordinates: z to the right, y upwards, both in one unit of length.
#pragma once

#include <span>
#include <vector>

namespace dbsection {

struct Point {
    double z = 0;
    double y = 0;
};

/// A corner of a section, rounded with a radius that touches both its sides (0: sharp). It may be
/// a convex corner or a fillet.
struct Corner {
    Point at;
    double radius = 0;
};

/// Moments of an area about an axis through its centroid.
struct AxisProperties {
    double centroid;       ///< distance of the axis from the origin
    double inertia;        ///< second moment of area
    double plasticModulus; ///< sum of the two halves' first moments about the equal-area axis
};

class Outline {
public:
    /// The area inside the corners, which are given counter-clockwise.
    explicit Outline(std::span<const Corner> corners) { AddLoop(corners, false); }

    /// Takes the area inside the corners, given counter-clockwise, out of the section.
    void Cut(std::span<const Corner> corners) { AddLoop(corners, true); }

    double Area() const;
    AxisProperties MajorAxis() const; ///< about the axis parallel to z
    AxisProperties MinorAxis() const; ///< about the axis parallel to y

    /// Product of inertia about the centroid: positive for an area that lies where z and y have
    /// the same sign.
    double ProductOfInertia() const;

private:
    using Loop = std::vector<Point>;

    /// Area and moments, about the line y = level, of the part above that line.
    struct PartAbove {
        double area = 0;
        double first = 0;
        double second = 0;
    };

    void AddLoop(std::span<const Corner> corners, bool hole);
    Outline Turned(double angle) const; ///< counter-clockwise about the origin
    double Lowest() const;
    double Highest() const;
    double EqualAreaLevel(double area) const;
    PartAbove Above(double level) const;

    std::vector<Loop> m_loops; ///< holes run clockwise
};

} // namespace dbsection
