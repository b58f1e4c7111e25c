// Reads the hidden tables that tell where the sections of a file come from
// (records/ProvenanceTables.h).
#pragma once

#include "geometry/Geometry.h"
#include "sections/CatalogueData.h"

#include <cstdint>
#include <string_view>

namespace sections {

/// Whether few of the file's sections were read: then no more is read of the tables than tells of
/// these.
enum class Wanted : std::uint8_t { All, RowsRead };

/// Fills in what the file tells of the sections that were read from it; nothing where it has no
/// such tables. Throws what the data-access classes throw.
void readProvenance(CSectionDatabase& database, CatalogueData& data, Wanted wanted);

/// The parameters of a text such as "radius=15 toe=0.5".
dbsection::Figures parametersIn(std::string_view text);

/// Whether a list that is separated by blanks has an item.
bool isListed(std::string_view list, std::string_view item);

} // namespace sections
