// The catalogues that there are, each with its shape families; Catalogues.def declares them.
//
//     const SectionCatalogue* british = FindCatalogue(3);
//     for (const SectionFamily& family : british->families) ...
#pragma once

#include "platform/Export.h"
#include "records/SectionLayout.h"

#include <span>
#include <string_view>

// Catalogue indices that are named, be it since something holds for that catalogue alone.
inline constexpr int AmericanIndex = 1; ///< kept in inches and kips
inline constexpr int AluminiumIndex = 17;
inline constexpr int AmericanColdFormedIndex = 18; ///< calls its area "Area"
inline constexpr int SteelJoistIndex = 21;
inline constexpr int UserTableIndex = 1001;
inline constexpr int GenericTableIndex = 1010;

/// The last one of those that are counted from 1: all but those whose file the user names.
inline constexpr int LastCatalogueIndex = 0
#define SECTION_CATALOGUE(index, Class, Record, stem, name, density) +1
#define SECTION_PERSONAL_CATALOGUE(index, Class, Record, title, density)
#include "records/Catalogues.def"
    ;

/// A shape family of a catalogue: one section table.
struct SectionFamily {
    const char* table;
    int sectionType; ///< unique within the catalogue
    LayoutId layout;
    ShapeType::Code shapeType;
};

struct SectionCatalogue {
    int index;
    const char* stem; ///< of its file's name; empty where the user names it
    const char* name; ///< as it is displayed, the title of its files
    double density;   ///< of its material in kg/m^3; 0 where there are several
    std::span<const SectionFamily> families; ///< in the order in which table names are compared
    const char* usualNames = "";             ///< separated by ";"
};

/// All catalogues, by ascending index.
DBSECTION_API std::span<const SectionCatalogue> GetCatalogues();

/// The catalogue of that index, or null.
DBSECTION_API const SectionCatalogue* FindCatalogue(int index);

/// The catalogue, of those that are counted from 1, that a person names by its index, stem, display
/// name or a usual name, in whatever spelling; or null.
DBSECTION_API const SectionCatalogue* FindCatalogue(std::string_view name);
