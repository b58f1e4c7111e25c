// A section of a catalogue drawn, with its values beside it.
#pragma once

#include "drawing/Drawing.h"
#include "sections/Catalogue.h"
#include "units/UnitText.h"

#include <string>

namespace dbsection {

/// The name of a section, where it is from, its values, and what is to be said of its outline.
/// `shape` is that of the section.
Legend LegendOf(const sections::Section& section, const SectionGeometry& shape,
                const UnitChoice& units);

/// The outline in characters, with the legend beside it.
std::string PictureWithLegend(const Outline& outline, const Legend& legend);

} // namespace dbsection
