// Units as a person names them.
#pragma once

#include "units/UnitText.h"

#include <string>

namespace dbsection {

/// The choice that a person named, e.g. "mm" and "kN". Throws UsageError.
UnitChoice ChooseUnits(const std::string& length, const std::string& force);

} // namespace dbsection
