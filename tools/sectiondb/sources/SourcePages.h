// The pages of the documentation that follow from the sources.
#pragma once

#include "sources/CatalogueSource.h"

#include <filesystem>
#include <string>
#include <vector>

namespace dbsection {

/// Markdown: every figure and row of the standards that the sources do not keep as it is printed.
std::string CorrectionsPage(const SourceFamilies& families);

/// Markdown: for each table of each catalogue what its figures are.
std::string CataloguesPage(const std::vector<CatalogueSource>& catalogues);

} // namespace dbsection
