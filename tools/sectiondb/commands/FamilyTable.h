// The families of a file, as a command lists them.
#pragma once

#include "output/Table.h"
#include "sections/Catalogue.h"

namespace dbsection {

/// What there is to say where a catalogue or a family has so many sections.
const char* RemarkOn(std::size_t sections);

Table FamilyTable(const sections::Catalogue& catalogue);

} // namespace dbsection
