// The columns of a table of sections, and what stands in them, in the units that a person chose.
#pragma once

#include "files/CatalogueAccess.h"
#include "output/Table.h"
#include "output/UnitLabels.h"

#include <string>
#include <vector>

namespace dbsection {

struct SectionColumn {
    std::string name;
    std::string unit; ///< in which its figures are printed; empty for texts and plain numbers
    double factor;    ///< of the stored unit in that one
    bool isText;
};

/// Those of a family in the order of its table, bookkeeping included. Throws CommandError.
std::vector<SectionColumn> ReadColumns(const OpenCatalogue& open, const SectionFamily& family,
                                       const UnitChoice& units);

/// What the current row holds in a column.
Table::Cell CellAt(const CSectionRecordset& rows, int index, const SectionColumn& column);

} // namespace dbsection
