// The units that text sources may give their columns.
#pragma once

#include "records/SectionLayout.h"
#include "units/UnitText.h"

#include <string>

namespace dbsection {

/// Why a column of that quantity cannot be in that unit, e.g. "not a unit of length^2"; empty when
/// it can. Where printed names of units count, a text or plain number needs none.
std::string UnitFault(const std::string& unit, Quantity quantity,
                      UnitNames names = UnitNames::Kept);

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

/// The one whose dimensions are in that unit, or null.
const UnitSystem* FindUnitSystemOfLength(const std::string& length);

/// The unit of a quantity in a system of units.
std::string UnitOf(Quantity quantity, const UnitSystem& system);

} // namespace dbsection
