// An outline cut into strips: what neither its edges nor its moments tell.
#pragma once

#include "geometry/Outline.h"
#include "platform/Export.h"

#include <vector>

namespace dbsection {

/// A piece of a section's area.
struct Fibre {
    Point at;
    double area;
};

/// Pieces of the whole area, about `across` of them along the longer side of its extent.
DBSECTION_API std::vector<Fibre> FibresOf(const Outline& outline, int across);

/// For sections whose axes are principal ones. The areas that deform like the section in shear: by
/// the strain energy of the shear stresses that go with bending (Jourawski), which are taken as
/// even across the section.
struct ShearAreas {
    double alongY; ///< of a force along y, which bends about the major axis
    double alongZ;
};

DBSECTION_API ShearAreas ShearAreasOf(const Outline& outline);

} // namespace dbsection
