// How well the published figures of all families agree with geometry.
#pragma once

#include "sources/CsvTable.h"
#include "sources/SourceFamily.h"

#include <span>
#include <string>
#include <vector>

namespace dbsection {

/// The deviations of a column's published figures from what geometry gives, as shares of them.
struct ColumnDeviations {
    std::size_t column; ///< of the layout
    std::vector<double> shares = {};
};

/// By the family's columns, those without a published figure that geometry gives, too, left out.
std::vector<ColumnDeviations> DeviationsOf(const SourceFamily& family);

/// Markdown: for each family its columns, their deviations, tolerances and exceptions.
std::string ValidationPage(std::span<const SourceFamily* const> families);

/// Markdown: sections beside solutions of their outlines by finite elements, of which each record
/// tells a column's deviation in percent; those of a section follow each other.
std::string FiniteElementsPart(const CsvTable& solutions);

/// Scalable Vector Graphics: for each family a line from the lowest to the highest deviation of all
/// its figures, and a box around the middle half of them.
std::string ValidationPlot(std::span<const SourceFamily* const> families);

} // namespace dbsection
