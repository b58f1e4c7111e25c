// Units of length and force: what a person calls them, and how the unit of a column reads in them.
#pragma once

#include <dbSectionInterface.h>

namespace browser {

/// The library's numbers of the units in which values are asked for.
struct Units {
    unsigned int length = 1001; ///< inch; 1001 to 1008
    unsigned int force = 2001;  ///< kip; 2001 to 2008
};

/// Sets the unit, of length or of force, that has this name. Throws Refusal.
void ChooseUnit(Units& units, const CString& name);

/// "mm and kN".
CString NamesOf(const Units& units);

/// What a value is in after the library converted it from a column's unit: "mm^4" for "INCHES^4".
/// Empty for plain numbers.
CString LabelOf(const CString& columnUnit, const Units& units);

} // namespace browser
