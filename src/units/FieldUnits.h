// The units that a catalogue keeps of a table's columns, told apart from those that cannot be read.
//
//     CStringArray units;
//     if (ReadFieldUnits(database, "W Shape", units) == FieldUnits::Unreadable)
//         return; // no value can be converted
//     double factor = UNIT::ConvertUnitTo(1, UnitOf(units, column), forceUnit, lengthUnit);
#pragma once

#include "units/UNIT.h"

namespace dbsection {

enum class FieldUnits {
    Kept,
    None,       ///< the table has no row of units, or more than one, or there is no table of them
    Unreadable, ///< and reported
};

/// Stores the units of a table's columns at their places: element k belongs to column k, and stays
/// as it is where none is kept. Unless units are kept, the whole array stays.
DBSECTION_API FieldUnits ReadFieldUnits(CSectionDatabase* db, const CString& table,
                                        CStringArray& units);

/// The unit of a column; empty, which converts nothing, where the list has none.
inline CString UnitOf(const CStringArray& units, int column) {
    return column < units.GetSize() ? units.GetAt(column) : CString();
}

} // namespace dbsection
