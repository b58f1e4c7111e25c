// The units that text sources may give their columns, and what figures in them are worth.
#pragma once

#include "records/SectionLayout.h"

#include <string>

namespace dbsection {

/// Why a column of that quantity cannot be in that unit, e.g. "not a unit of length^2"; empty when
/// it can.
std::string UnitFault(const std::string& unit, Quantity quantity);

/// A figure in `unit` times this factor is the figure in millimetres and newtons.
double UnitFactor(const std::string& unit);

/// The unit of a length, raised to what the quantity is of lengths: "CM" gives "CM^4" for an
/// inertia. Quantities that are no power of a length: their only unit.
std::string UnitOf(Quantity quantity, const std::string& length);

/// Whether the quantity is a length, an area, a modulus, an inertia or a warping constant.
bool IsPowerOfLength(Quantity quantity);

} // namespace dbsection
