// The systems of units among which a reader of the page chooses.
#pragma once

#include "units/UnitText.h"

#include <span>
#include <string_view>

namespace dbsection {

/// What engineers of a country print lengths, their powers, stresses and weights in.
struct DisplayUnits {
    const char* name;
    UnitChoice length;
    UnitChoice power; ///< areas, moduli, moments
    UnitChoice stress;
    UnitChoice weight; ///< per length
};

/// All systems; the first one, as published, keeps the units of the catalogues, the last is the
/// same for all.
std::span<const DisplayUnits> GetDisplayUnits();

/// The choice of a system for figures in the unit `stored`, e.g. "INCHES^2".
const UnitChoice& ChoiceFor(const DisplayUnits& system, std::string_view stored);

} // namespace dbsection
