// Units of length and force, by what a person calls them.
#pragma once

#include <dbSectionInterface.h>

namespace browser {

/// The units in which values are asked for.
using Units = dbsection::UnitChoice;
inline constexpr Units AmericanUnits{UNIT::Inch, UNIT::Kip};

/// Sets the unit, of length or of force, that has this name. Throws Refusal.
void ChooseUnit(Units& units, const CString& name);

/// "mm and kN".
CString NamesOf(const Units& units);

/// What a value is in after the library converted it from a column's unit: "mm^4" for "INCHES^4".
/// Empty for plain numbers.
CString ColumnLabel(const CString& columnUnit, const Units& units);

} // namespace browser
