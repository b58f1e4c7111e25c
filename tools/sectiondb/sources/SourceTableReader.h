// Reads the sections of one table and checks them against their geometry.
//
// The first line of a table names its columns: Name, VessaName, columns of the table's layout, and
// parameters of its geometry that differ from section to section (those are not part of the
// catalogue). The second line gives their units. Layout columns that geometry gives may be left
// out; they are computed.
#pragma once

#include "geometry/Geometry.h"
#include "sources/CsvTable.h"
#include "sources/SourceRules.h"
#include "sources/SourceTable.h"

#include <string>

namespace dbsection {

/// What a catalogue says of one of its tables with figures.
struct TablePlan {
    std::string name;
    const SectionLayout* layout;
    const char* areaColumn;
    const GeometryModel* model;
    Figures parameters; ///< of the model, those that all sections share
};

/// Throws SourceError at the first fault.
SourceTable ReadSourceTable(const TablePlan& plan, const CsvTable& csv, SourceRules& rules);

} // namespace dbsection
