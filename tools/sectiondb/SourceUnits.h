// The units that text sources may give their columns.
#pragma once

#include "records/SectionLayout.h"

#include <string>

namespace dbsection {

/// Why a column of that quantity cannot be in that unit, e.g. "not a unit of length^2"; empty when
/// it can.
std::string UnitFault(const std::string& unit, Quantity quantity);

/// The unit of a length, raised to what the quantity is of lengths: "CM" gives "CM^4" for an
/// inertia. Quantities that are no power of a length: their only unit.
std::string UnitOf(Quantity quantity, const std::string& length);

/// The units in which a standard prints its figures.
struct UnitSystem {
    const char* name;   ///< as the text sources write it
    const char* length; ///< of dimensions
    const char* power;  ///< of areas, moduli, inertias and warping constants
    const char* stress;
    const char* weight; ///< per length
};

/// The unit system of that name ("metric", "US"), or null.
const UnitSystem* FindUnitSystem(const std::string& name);

/// The unit of a quantity in a system of units.
std::string UnitOf(Quantity quantity, const UnitSystem& system);

/// Whether the quantity is a length, an area, a modulus, an inertia or a warping constant.
bool IsPowerOfLength(Quantity quantity);

} // namespace dbsection
