// The families of a file, as a command lists them.
#pragma once

#include "files/CatalogueAccess.h"
#include "output/Table.h"

#include <vector>

namespace dbsection {

struct FamilyCount {
    const SectionFamily* family;
    int sections;
};

/// The families whose tables the file has, with their numbers of sections. Throws CommandError.
std::vector<FamilyCount> CountFamilies(const OpenCatalogue& open);

/// What there is to say where a catalogue or a family has so many sections.
const char* RemarkOn(int sections);

Table FamilyTable(const OpenCatalogue& open);

} // namespace dbsection
