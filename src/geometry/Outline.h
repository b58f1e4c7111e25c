// Outlines of cross-sections: what a section's area, moments and plastic moduli are follows from
// its outline alone, whatever its shape.
//
//     Outline box({{{0, 0}}, {{width, 0}}, {{width, depth}}, {{0, depth}}});
//     box.Cut(...);                      // a hole
//     const double inertia = box.MajorAxis().inertia;
//
// Edges are straight, or arcs of circles; every property is the exact one of that outline.
// Coordinates: z to the right, y upwards, both in one unit of length.
#pragma once

#include "platform/Export.h"

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

using Corners = std::vector<Corner>;

/// A vertex of an outline and the edge that leaves it: straight, or an arc to the next vertex.
struct Vertex {
    Point at;
    double bulge = 0; ///< tangent of a quarter of the arc's angle, positive counter-clockwise
};

/// An arc by its center, radius and angles in radians: from `start` on by `sweep`, which is
/// positive counter-clockwise.
struct Arc {
    Point center;
    double radius;
    double start;
    double sweep;
};

/// The arc between two points that a bulge other than 0 tells.
DBSECTION_API Arc ArcBetween(Point from, Point to, double bulge);

/// Moments of an area about an axis through its centroid.
struct AxisProperties {
    double centroid;       ///< distance of the axis from the origin
    double inertia;        ///< second moment of area
    double plasticModulus; ///< sum of the two halves' first moments about the equal-area axis
};

/// The angle in degrees, counter-clockwise, of the axis of the largest second moment of area, from
/// those about two axes and their product.
DBSECTION_API double PrincipalAngle(double major, double minor, double product);

/// The rectangle, along the axes, that an outline touches from inside.
struct Extent {
    Point low;
    Point high;
};

class DBSECTION_API Outline {
public:
    /// A closed line of edges: counter-clockwise around a body, clockwise around a hole.
    using Loop = std::vector<Vertex>;

    /// The area inside the corners, which are given counter-clockwise.
    explicit Outline(std::span<const Corner> corners) { Add(corners); }

    /// Adds another body, which must not overlap the others.
    void Add(std::span<const Corner> corners);

    /// Takes the area inside the corners, given counter-clockwise, out of the section.
    void Cut(std::span<const Corner> corners);

    /// The bodies and holes in the order in which they were given.
    std::span<const Loop> Loops() const { return m_loops; }

    double Area() const;
    AxisProperties MajorAxis() const; ///< about the axis parallel to z
    AxisProperties MinorAxis() const; ///< about the axis parallel to y

    /// Product of inertia about the centroid: positive for an area that lies where z and y have
    /// the same sign.
    double ProductOfInertia() const;

    /// The angle in degrees, counter-clockwise from z, of the axis through the centroid about which
    /// the second moment of area is largest.
    double PrincipalAngle() const;

    /// Length of the loops around bodies, or around holes.
    double OuterPerimeter() const;
    double InnerPerimeter() const;

    Extent GetExtent() const;

private:
    /// Area and moments, about the line y = level, of the part above that line.
    struct PartAbove {
        double area = 0;
        double first = 0;
        double second = 0;
    };

    Outline Turned(double angle) const; ///< counter-clockwise about the origin
    PartAbove Above(double level) const;
    double EqualAreaLevel(double area) const;

    static void AddStraight(PartAbove& part, Point from, Point to, double level);
    static void AddArc(PartAbove& part, const Arc& arc, double level);

    std::vector<Loop> m_loops;
};

/// The corners and their mirror images, in the order that closes the outline: `factor` is {-1, 1}
/// for the image behind the y axis, {1, -1} for that below the z axis.
DBSECTION_API Corners Mirrored(Corners corners, Point factor);

/// A rectangle about the origin.
DBSECTION_API Corners RectangleCorners(double width, double depth, double radius = 0);

/// A strip of constant thickness, bent at the inner points of its middle line to an inside radius.
DBSECTION_API Corners BentStrip(std::span<const Point> middle, double thickness,
                                double insideRadius);

} // namespace dbsection
