// The hidden tables of a catalogue file that tell where its sections come from. A file that is not
// built from text sources has none of them.
//
// A family is a set of sections of one standard and edition; a table shows one or several. Lists
// of columns and of parameters ("radius=15 toe=0.5", lengths in mm) are separated by blanks.
#pragma once

namespace dbsection::provenance {

/// Family, Standard (with its edition), Remark, LeftOut (rows of the standard, and why), Geometry
/// (the model), Parameters (of the model), NameSizes (columns that the name ends in), Production
/// (e.g. "rolled"; older files lack it).
inline constexpr const char* Families = "~Families";

/// Family, Column, Unit (in which the family prints it), Steps (by PrintingSteps::Text), Percent
/// (allowed beyond printing) and its Reason.
inline constexpr const char* Columns = "~Columns";

/// Family, Name, Column, Percent (the bound that this figure keeps), Reason.
inline constexpr const char* Exceptions = "~Exceptions";

/// TableName, Record (its RECNO), Family, Computed and Corrected (lists of columns), Parameters (of
/// the section alone), Mark (by RowMark, of names and figures as they were built).
inline constexpr const char* Sections = "~Sections";

/// TableName, Record, Alias, Superseded (1: a name that the standard has given up).
inline constexpr const char* Aliases = "~Aliases";

} // namespace dbsection::provenance
