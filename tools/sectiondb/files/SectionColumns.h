// The columns of a family, and what stands in them, in the units that a person chose.
#pragma once

#include "output/Table.h"
#include "sections/Catalogue.h"
#include "units/UnitText.h"

#include <span>
#include <string>
#include <vector>

namespace dbsection {

/// A unit in which figures are printed.
struct PrintedUnit {
    std::string label; ///< empty for texts and plain numbers
    double factor;     ///< of the stored unit in it
};

/// In the chosen units what is stored in the unit `stored`, e.g. "INCHES^2".
PrintedUnit InChosenUnits(const std::string& stored, const UnitChoice& choice);

struct SectionColumn {
    std::string name;
    std::string unit = {}; ///< in which its figures are printed; empty for texts and plain numbers
    std::string storedUnit = {};
    double factor = 1; ///< of the stored unit in that one
    bool isText = false;
    std::string meaning = {};
    bool isDerived = false; ///< it is not in the table, but follows from it
    bool isDetail = false;  ///< asked less often
};

/// Those of a family in the order of its table, bookkeeping included.
std::vector<SectionColumn> ColumnsOf(const sections::Family& family, const UnitChoice& units = {});

/// The same, and then the derived ones.
std::vector<SectionColumn> AllColumnsOf(const sections::Family& family,
                                        const UnitChoice& units = {});

/// What a section has in a column, the index of which is that of the table.
Table::Cell CellAt(const sections::Section& section, std::span<const SectionColumn> columns,
                   std::size_t index);

/// Sections of one family: their names and properties.
Table TableOf(std::span<const sections::Section> sections, std::span<const SectionColumn> columns);

} // namespace dbsection
