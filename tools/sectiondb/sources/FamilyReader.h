// Reads the sections of a family and checks them against their geometry.
//
// The first line names the columns: Name, VessaName, maybe Alias (other spellings, separated by
// ";", superseded ones behind "~"), columns of the layout, and parameters of the geometry that
// differ from section to section. The second line gives their units. A cell is the figure as
// printed; an empty one is computed, or a strength that is not published. Columns without any
// figures may be left out.
#pragma once

#include "sources/CsvTable.h"
#include "sources/SourceFamily.h"
#include "sources/SourceRules.h"

namespace dbsection {

/// Fills in what a family's text tells: all but what _families.csv, the rules and the corrections
/// tell of it. Throws SourceError at the first fault.
void ReadFamily(const CsvTable& csv, const SourceRules& rules, SourceFamily& family);

} // namespace dbsection
