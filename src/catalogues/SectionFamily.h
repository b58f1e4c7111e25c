// A shape family of a catalogue: one section table.
#pragma once

#include "records/CatalogueRecords.h"

/// Shape types, the same for all catalogues.
namespace ShapeType {
enum Code : int {
    WideFlange = 1, ///< and every other I shape
    Channel = 2,
    Angle = 3,
    DoubleAngle = 4,
    Tee = 5,
    Pipe = 6, ///< and everything round
    Tube = 7,
    General = 8,
    UserISection = 9,
    Prismatic = 10, ///< rectangles and timber
};
} // namespace ShapeType

struct SectionFamily {
    const char* table;
    int sectionType; ///< unique within the catalogue
    LayoutId layout;
    ShapeType::Code shapeType;
};

/// The family of a table whose rows are read as `Record`.
template <class Record>
constexpr SectionFamily FamilyOf(const char* table, int sectionType, ShapeType::Code shapeType) {
    return {table, sectionType, Record::Layout, shapeType};
}
