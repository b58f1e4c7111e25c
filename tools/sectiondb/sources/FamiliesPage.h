// A section of each family, drawn.
#pragma once

#include "sources/SourceFamily.h"

#include <span>
#include <string>

namespace dbsection {

/// Markdown: the families, each with its standard, model, and the section that the picture shows.
std::string FamiliesPage(std::span<const SourceFamily* const> families);

/// Scalable Vector Graphics: the middle section of each family that has a model, not to one scale.
std::string FamiliesPlot(std::span<const SourceFamily* const> families);

} // namespace dbsection
