// Where the sections of a catalogue come from.
//
//     const sections::Section beam = european.at("IPE 300");
//     if (const sections::Origin* origin = beam.origin())
//         std::cout << origin->standard; // "EN 10365:2017"
//     beam.source("CW") == sections::FigureSource::Computed
#pragma once

#include "geometry/FigureRules.h"
#include "geometry/Geometry.h"
#include "platform/Export.h"

#include <map>
#include <string>
#include <vector>

namespace sections {

/// A set of sections of one standard and edition that are printed and computed alike.
struct Origin {
    std::string name;       ///< of their source, e.g. "en10365-ipe"
    std::string standard;   ///< with the edition of the figures
    std::string remark;     ///< what is printed, what is computed, and how
    std::string leftOut;    ///< sections of the standard that are not here, and why
    std::string production; ///< e.g. "rolled", "welded", "cold-formed"; empty where it is not told
    const dbsection::GeometryModel* model = nullptr; ///< of their shape; null where there is none
    dbsection::Figures parameters;      ///< of the model, for sections without their own
    std::vector<std::string> nameSizes; ///< columns whose figures are the name's last numbers
    dbsection::FigureRules rules;       ///< how far figures may be from the model's
    std::map<std::string, std::string, std::less<>> units; ///< in which columns are printed
};

/// Where a figure comes from.
enum class FigureSource {
    Unknown,      ///< the file does not tell, or the section was changed since it was built
    Published,    ///< as the standard prints it
    Corrected,    ///< in place of a misprint, which the rest of the row shows
    Computed,     ///< from the dimensions by the model
    NotPublished, ///< there is none
};

/// Its name in lower case: "unknown", "published", ..., "not published".
DBSECTION_API const char* nameOf(FigureSource source);

/// Another spelling of a section's name.
struct Alias {
    std::string name;
    bool isSuperseded; ///< the standard has given it up
};

} // namespace sections
