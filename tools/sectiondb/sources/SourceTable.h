// A table of a catalogue file to be built: its columns, their units, its indexes and rows.
#pragma once

#include "catalogues/CatalogueSectionDB.h"
#include "dataaccess/CSectionFieldInfo.h"
#include "sources/SourceUnits.h"

#include <string>
#include <variant>
#include <vector>

namespace dbsection {

using SourceValue = std::variant<double, std::string>;

struct SourceRow {
    std::string name;
    std::string vessaName;
    std::vector<SourceValue> values; ///< one for each property column, in their order
};

struct SourceColumn {
    std::string name;
    SectionField::Type type;
    std::string unit;          ///< as "Field Units" keeps it
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

/// The empty section table of a family: the bookkeeping columns, then those of the layout in
/// `units`. The column of areas is named `areaColumn`.
SourceTable MakeSectionTable(const std::string& name, const SectionLayout& layout,
                             const char* areaColumn, const std::vector<std::string>& units);

/// All tables of a catalogue, empty and in the order of its families, in a system of units.
std::vector<SourceTable> MakeEmptyTables(const CatalogueSectionDB& catalogue,
                                         const UnitSystem& units);

} // namespace dbsection
