// The principal axes of an angle section.
#pragma once

#include "platform/Export.h"

namespace dbsection {

/// The area, legs and thickness of an angle section, in one length unit.
struct AngleSection {
    double area; ///< as published, fillets included
    double depth;
    double width;
    double thickness;
};

/// The angle in degrees from the axis along the width to the major principal axis, towards the
/// axis along the depth: positive where the depth is the longer leg, 45 for equal legs.
DBSECTION_API double PrincipalAngle(const AngleSection& angle);

} // namespace dbsection
