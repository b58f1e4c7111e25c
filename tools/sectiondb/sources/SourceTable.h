// A table of a catalogue file to be built: its columns, their units, its indexes and rows.
#pragma once

#include "catalogues/CatalogueSectionDB.h"
#include "dataaccess/CSectionFieldInfo.h"
#include "sources/SourceUnits.h"

#include <functional>
#include <string>
#include <variant>
#include <vector>

namespace dbsection {

/// Nothing, a number or a text.
using SourceValue = std::variant<std::monostate, double, std::string>;
using SourceRow = std::vector<SourceValue>; ///< one for each column but the identifier

struct SourceColumn {
    std::string name;
    SectionField::Type type;
    std::string unit = {};     ///< as "Field Units" keeps it
    bool isIdentifier = false; ///< numbers the rows
    bool isRequired = true;    ///< in every row
};

struct SourceIndex {
    std::string columns; ///< names or expressions
    bool isUnique = false;
};

struct SourceTable {
    std::string name;
    std::vector<SourceColumn> columns;
    std::vector<SourceIndex> indexes;
    std::vector<SourceRow> rows;
};

/// The unit of a quantity.
using UnitsByQuantity = std::function<std::string(Quantity)>;

/// The empty section table of a family: the bookkeeping columns, then those of the layout. The
/// column of areas is named `areaColumn`.
SourceTable MakeSectionTable(const std::string& name, const SectionLayout& layout,
                             const char* areaColumn, const UnitsByQuantity& units);

/// All tables of a catalogue, empty and in the order of its families.
std::vector<SourceTable> MakeEmptyTables(const CatalogueSectionDB& catalogue,
                                         const UnitsByQuantity& units);

} // namespace dbsection
