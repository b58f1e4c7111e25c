// What a catalogue object keeps of its file.
#pragma once

#include "records/CatalogueList.h"
#include "sections/Catalogue.h"
#include "sections/PlacesByName.h"
#include "units/UnitText.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class CSectionDatabase;

namespace sections {

struct FamilyColumn {
    Column column;
    std::string layoutName; ///< as the layout names it; that of the table where it does not
    double size;            ///< of its unit in mm and N; 0 where that is not known
    std::optional<dbsection::UnitDimension> dimension; ///< of its unit
    std::vector<double> figures; ///< by row, not-a-number where the row keeps none
    std::vector<std::optional<std::string>> texts; ///< by row, of a column of texts
};

/// Where a row comes from, as the file tells it.
struct RowOrigin {
    std::size_t origin;   ///< in CatalogueData::origins
    std::string computed; ///< columns, separated by blanks
    std::string corrected;
    std::string parameters; ///< of the row alone: "radius=15 toe=0.5"
    bool isChanged;
};

struct FamilyData {
    const SectionFamily* family;
    std::string table;
    std::vector<Column> columns;
    std::vector<FamilyColumn> data; ///< in the order of `columns`
    std::size_t layoutColumns = 0;  ///< how many of the first ones are those of the layout
    std::vector<std::int64_t> recordNumbers;
    std::vector<std::string> names;
    std::vector<std::string> programNames;
    std::vector<std::optional<RowOrigin>> origins; ///< by row; none where the file does not tell
    std::unordered_map<std::size_t, std::vector<Alias>>
        aliases; ///< by row, of those that have some

    /// The column of that name, of the table's or the layout's, or null.
    const FamilyColumn* find(std::string_view name) const;
};

struct CatalogueData {
    const SectionCatalogue* catalogue = nullptr;
    std::string path;
    std::string title;
    int layoutVersion = 0;
    std::string standard;
    std::vector<Origin> origins;
    std::vector<FamilyData> families;
    PlacesByName index; ///< of all names
};

/// The number of whichever kind of a person's own files it is.
inline constexpr int PersonalFile = 0;

/// Reads an open file as the catalogue of a number: all sections, or those that are called `name`
/// alone. Throws Error, and what the data-access classes throw.
CatalogueData readCatalogue(CSectionDatabase& database, int number,
                            const std::optional<std::string>& name = {});

/// Opens a file and reads it; throws Error.
CatalogueData readCatalogue(const std::string& path, int number, std::string_view password,
                            const std::optional<std::string>& name = {});

} // namespace sections
