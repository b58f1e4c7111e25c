// The property summary of a section row.
#pragma once

#include "platform/Collections.h"
#include "records/SectionInfo.h"

#include <memory>

namespace dbsection {

/// Summarises a row of a layout whose material has a density in kg/m^3. `units` are the table's
/// column units; a row column beyond them throws the invalid-argument error.
std::unique_ptr<SECTIONINFO> SummariseSection(const SectionRecord& row, LayoutId layout,
                                              double density, const CStringArray& units,
                                              unsigned int forceUnit, unsigned int lengthUnit);

} // namespace dbsection
