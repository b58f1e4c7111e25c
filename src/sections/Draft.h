// A section as a person gives it, and what geometry makes of it.
#pragma once

#include "platform/Export.h"
#include "sections/Catalogue.h"

#include <functional>
#include <map>
#include <string>

namespace sections {

/// What is left out follows from geometry where that tells it, or else is not kept.
struct Draft {
    std::string name = {};        ///< empty in a change: as it is
    std::string programName = {}; ///< empty: the name in capitals without blanks

    /// By column, in any unit of their dimension; and by parameter of the geometry, which are not
    /// kept: with {"radius", {15, "mm"}} an I shape needs no area.
    std::map<std::string, Quantity, std::less<>> figures = {};

    std::map<std::string, std::string, std::less<>> texts = {};

    /// How far its figures may be from their geometry, as a share of them, where that is further
    /// than rounding and the model explain.
    double asPublished = 0;
};

struct Completion {
    Draft draft;                                     ///< with the figures that geometry gives
    const dbsection::GeometryModel* model = nullptr; ///< of its shape; null where none tells it
    dbsection::Figures parameters = {};              ///< of the model, given or assumed
};

/// What geometry makes of a draft, and of the section that it changes. Throws Error where a column
/// or parameter does not belong to the family, a figure is impossible in itself, or figures are not
/// those of the shape that the dimensions tell.
DBSECTION_API Completion completed(const Family& family, const Draft& draft,
                                   const Section* changed = nullptr);

} // namespace sections
