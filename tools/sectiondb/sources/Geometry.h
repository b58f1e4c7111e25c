// Geometry models: the properties of a section, computed from its dimensions.
//
// A model belongs to one layout. It needs some of the layout's columns (its inputs) and gives all
// the others, and gives an input anew where it can: the area of a rolled shape whose fillets are
// not known is needed to find their radius, and is checked by that radius being possible.
#pragma once

#include "records/SectionLayout.h"

#include <map>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace dbsection {

/// Figures by name: of a section by column, of a model by parameter; all in one unit of length,
/// angles in degrees.
using Figures = std::map<std::string, double, std::less<>>;

/// The dimensions contradict each other; what() says how.
struct GeometryError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// What a model needs to know of a shape besides its columns.
struct GeometryParameter {
    const char* name;
    Quantity quantity;
};

struct GeometryModel {
    const char* name;
    LayoutId layout;
    std::span<const char* const> inputs; ///< columns that a source must have
    std::span<const GeometryParameter> parameters;

    /// The figures that follow from the inputs. Throws GeometryError.
    Figures (*compute)(const Figures& section, const Figures& parameters);
};

/// The model of that name, or null.
const GeometryModel* FindGeometryModel(std::string_view name);

} // namespace dbsection
