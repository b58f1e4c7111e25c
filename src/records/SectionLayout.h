// Layouts of section tables: which property columns a shape family has, in which order, and what
// each of them means.
//
//     const SectionLayout& layout = GetSectionLayout(LayoutId::IShape);
//     for (const LayoutColumn& column : layout.columns) ...
//
// Layouts.def declares them; the records (LayoutRecords.h) follow from it, too.
// Every section table begins with three bookkeeping columns, RECNO, Name and VessaName; the
// columns of its layout follow. Axes: Z is the major axis, Y the minor axis, X the member's own.
#pragma once

#include "platform/Export.h"

#include <cstdint>
#include <span>
#include <vector>

/// Version of the layout of catalogue files, kept in their "DBInfo" table. Files of version 1 lack
/// the columns that were added since.
inline constexpr int CatalogueLayoutVersion = 2;
inline constexpr int OldestCatalogueLayoutVersion = 1;

/// The bookkeeping columns before the first property column.
inline constexpr int IdentifierColumn = 0;
inline constexpr int NameColumn = 1;
inline constexpr int VessaNameColumn = 2;
inline constexpr int BookkeepingColumns = 3;

/// What kind of quantity a column holds.
enum class Quantity : std::uint8_t {
    Text,
    Number,
    Angle,
    Length,
    Area,            ///< length^2
    Modulus,         ///< length^3
    Inertia,         ///< length^4
    Warping,         ///< length^6
    Stress,          ///< force / length^2
    WeightPerLength, ///< force / length
};

struct LayoutColumn {
    const char* name;
    Quantity quantity;
    const char* meaning;
    bool isAdded = false;   ///< since layout version 1: a table may lack it, and a row its value
    bool mayBeZero = false; ///< no other length, nor a power of one, is 0 in a section

    /// Whether a section can have that figure here.
    DBSECTION_API bool Allows(double figure) const;

    /// Whether a row may keep nothing here: no standard publishes every strength.
    bool MayBeNull() const { return isAdded || quantity == Quantity::Stress; }
};

enum class LayoutId : std::uint8_t {
#define SECTION_LAYOUT(id, name, shape) id,
#include "records/Layouts.def"
};

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

struct SectionLayout {
    LayoutId id;
    const char* name;                      ///< as the text sources write it, e.g. "I shape"
    ShapeType::Code shape;                 ///< of the families that have the layout
    std::span<const LayoutColumn> columns; ///< at most 16; added ones are the last
};

/// All layouts, in the order of LayoutId.
DBSECTION_API std::span<const SectionLayout> GetSectionLayouts();

DBSECTION_API const SectionLayout& GetSectionLayout(LayoutId id);

/// The layout of that name, or null.
DBSECTION_API const SectionLayout* FindSectionLayout(const char* name);

/// The numeric columns of a layout, counted from its first, in the order in which display values
/// give them: the area first, of angles then both legs and the thickness, then the others as they
/// stand.
DBSECTION_API std::vector<int> GetDisplayOrder(LayoutId id);
