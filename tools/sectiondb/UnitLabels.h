// Units as a person writes and reads them.
#pragma once

#include "units/UnitText.h"

#include <string>
#include <string_view>

namespace dbsection {

/// The choice that a person named, e.g. "mm" and "kN". Throws CommandError.
UnitChoice ChooseUnits(const std::string& length, const std::string& force);

/// A value in the chosen units, and their label.
struct LabelledValue {
    double value;
    std::string unit; ///< e.g. "in^2", empty for plain numbers
};

/// Converts a value that is kept in the unit `stored`, e.g. "INCHES^2".
LabelledValue InChosenUnits(double value, std::string_view stored, const UnitChoice& choice);

} // namespace dbsection
