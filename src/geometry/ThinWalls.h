// Open thin-walled sections: what follows from the middle lines of their walls, where the outline
// does not tell it: shear center, warping constant, Saint-Venant torsion.
//
//     ThinWalls channel({{b, h / 2}, {0, h / 2}, {0, -h / 2}, {b, -h / 2}});
//     channel.Join(0, 1, tf); channel.Join(1, 2, tw); channel.Join(2, 3, tf);
//     const double warping = channel.WarpingConstant();
//
// Theory of sectorial areas (Vlasov, Thin-Walled Elastic Beams, 1961). Coordinates as in Outline.h.
#pragma once

#include "geometry/Outline.h"
#include "platform/Export.h"

#include <span>
#include <vector>

namespace dbsection {

class DBSECTION_API ThinWalls {
public:
    explicit ThinWalls(std::vector<Point> nodes) : m_nodes(std::move(nodes)) {}

    /// A wall between two nodes, whose thickness goes evenly from one value to the other. Each wall
    /// but the first must begin at a node that an earlier one has; no cell may be closed.
    void Join(int from, int to, double thicknessFrom, double thicknessTo);
    void Join(int from, int to, double thickness) { Join(from, to, thickness, thickness); }

    /// A strip along a middle line, bent at its inner points to a radius of the middle line.
    static ThinWalls Strip(std::span<const Point> middle, double thickness, double middleRadius);

    Point ShearCenter() const;
    double WarpingConstant() const; ///< about the shear center

    /// Sum of length x thickness^3 / 3.
    double TorsionConstant() const;

private:
    struct Wall {
        int from;
        int to;
        double thicknessFrom;
        double thicknessTo;
    };
    struct Sectorial;

    Point At(int node) const { return m_nodes[static_cast<std::size_t>(node)]; }

    /// The integral over the area of a function of the share of a wall that lies behind, 0 to 1.
    template <class Function>
    double Integral(Function function) const;

    Point Centroid() const;
    std::vector<double> SectorialAreas(Point pole) const; ///< at the nodes
    Sectorial Solve() const;

    std::vector<Point> m_nodes;
    std::vector<Wall> m_walls;
};

} // namespace dbsection
