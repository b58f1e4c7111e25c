// Geometry models: the properties of a section, computed from its dimensions.
//
// A model belongs to one layout. It needs some of the layout's columns (its inputs) and gives all
// the others, and gives an input anew where it can: a rolled shape's area is needed to find the
// radius of its fillets, and is checked by that radius being possible.
#pragma once

#include "records/SectionLayout.h"

#include <map>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace dbsection {

/// Figures by name: of a section by column, all in one unit of length, angles in degrees; of a
/// model by parameter.
using Figures = std::map<std::string, double, std::less<>>;

/// The dimensions contradict each other; what() says how.
struct GeometryError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct GeometryModel {
    const char* name;
    LayoutId layout;
    std::span<const char* const> inputs;     ///< columns that a source must have
    std::span<const char* const> parameters; ///< what a table says of all its sections

    /// The figures that follow from the inputs. Throws GeometryError.
    Figures (*compute)(const Figures& section, const Figures& parameters);
};

/// The model of that name, or null.
const GeometryModel* FindGeometryModel(std::string_view name);

} // namespace dbsection
