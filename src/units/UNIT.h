// Units: identifiers, conversion of values, and the units that a catalogue keeps of its columns.
//
//     double area = UNIT::ConvertUnitTo(7.65, "INCHES^2", UNIT::Kilonewton, UNIT::Millimetre);
//
// The identifiers are those of units/UnitId.h: lengths 1001 to 1008, forces 2001 to 2008.
#pragma once

#include "platform/CString.h"
#include "platform/Collections.h"
#include "platform/Export.h"
#include "units/UnitId.h"

class CSectionDatabase;

class DBSECTION_API UNIT {
public:
    using enum dbsection::UnitId::Length;
    using enum dbsection::UnitId::Force;

    /// Factors from the unit of the row to that of the column, both counted from Inch or Kip. They
    /// are rounded as they stand, so that results repeat those of earlier years.
    static const double LengthConversionArray[8][8];
    static const double ForceConversionArray[8][8];

    /// The identifier of a unit name such as "INCHES" or "ft" (an exponent is cut off), or 0.
    static unsigned int StringToId(const CString& name);

    /// The number behind the first "^", 1.0 without one.
    static double GetExponent(const CString& unit);

    /// `value` times the factor raised to `exponent`; unchanged when an identifier is none of its
    /// kind.
    static double LengthConvertTo(const double& value, unsigned int from, unsigned int to,
                                  double exponent);
    static double ForceConvertTo(const double& value, unsigned int from, unsigned int to,
                                 double exponent);

    /// Converts a value of the compound unit `unit`, e.g. "KIPS/INCHES^2": factors joined by "/"
    /// and ".", taken from left to right. Plain numbers and angles stay, texts give 0, and a factor
    /// that is no known unit counts as 1.
    static double ConvertUnitTo(const double& value, const CString& unit, unsigned int forceUnit,
                                unsigned int lengthUnit);

    // The "Field Units" table of a catalogue: one row per table, its name and then the unit of each
    // of its columns in order. An array to be written holds the table name in element 0 and the
    // units behind it; an empty one throws the invalid-argument error (CInvalidArgException*).
    // Nothing else is thrown.

    /// Adds the row of a table, unless it has one.
    static void WriteFieldUnits(CSectionDatabase* db, const CStringArray* units);

    /// Rewrites the row of a table that has one.
    static void UpdateFieldUnits(CSectionDatabase* db, const CStringArray* units);

    /// Sets the unit of one column, counted from 0.
    static void UpdateFieldUnit(CSectionDatabase* db, CString tableName, int fieldIndex,
                                CString unit);

    static void DeleteFieldUnits(CSectionDatabase* db, const CString& tableName);

    /// The units of a table's columns in order, without the table name: element k belongs to column
    /// k, bookkeeping columns included, and is empty where none is kept. The caller deletes the
    /// array; null when the table has no row or more than one, or its row cannot be read.
    static CStringArray* GetFieldUnitList(CSectionDatabase* db, const CString& tableName);

    /// The same into the caller's array, which stays untouched where the list would be null.
    static void GetFieldUnitArray(CSectionDatabase* db, const CString& tableName,
                                  CStringArray* units);
};
