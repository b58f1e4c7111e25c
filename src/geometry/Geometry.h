// Geometry models: what follows from a section's dimensions.
//
//     const GeometryModel* model = FindGeometryModel("parallel I");
//     const SectionGeometry beam =
//         model->make({{"D", 300}, {"BF", 150}, {"TF", 10.7}, {"TW", 7.1}}, {{"radius", 15}});
//     const double inertia = beam.figures.at("IZ"); // in mm^4
//     for (const Outline::Loop& loop : beam.outline.Loops()) ... // to draw it
//     for (const JudgedFigure& figure : JudgeFigures(beam, row)) ... // computed beside published
//
// A model belongs to one layout. It needs some of the layout's columns (its inputs), and besides
// them its parameters; it gives the outline and, of the layout's other columns, what the dimensions
// tell. It gives an input anew where it can: the area of a rolled shape whose fillets are not known
// is needed to find their radius, and is checked by that radius being possible.
//
// A model is an entry of its subject's list in models/; nothing else names it.
#pragma once

#include "geometry/Outline.h"
#include "platform/Export.h"
#include "records/SectionLayout.h"

#include <map>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace dbsection {

/// Figures by name: of a section by column, of a model by parameter; in mm and N, angles in
/// degrees.
using Figures = std::map<std::string, double, std::less<>>;

/// A figure is missing, or the dimensions contradict each other; what() says how.
struct DBSECTION_API GeometryError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// What a model needs to know of a shape besides its columns.
struct GeometryParameter {
    const char* name;
    Quantity quantity;
    const char* meaning; ///< and what holds where an optional one is not given
    bool isRequired = false;
};

/// A column that a model computes, and what the result is worth.
struct ComputedColumn {
    const char* name;
    double within;     ///< how far from the true property of such a section, as a share of it
    const char* basis; ///< what it is computed by, and so why that far
};

/// What the dimensions of a section tell.
struct SectionGeometry {
    Outline outline;
    Figures figures;                       ///< the model's computed columns
    std::optional<double> assumedRadius{}; ///< of fillets, where the area told it
    std::optional<Point> shearCenter{};    ///< where the model knows it
};

struct GeometryModel {
    const char* name;
    LayoutId layout;
    std::span<const char* const> inputs; ///< columns that a section must have
    std::span<const GeometryParameter> parameters;
    std::span<const ComputedColumn> computed;

    /// Throws GeometryError.
    SectionGeometry (*make)(const Figures& section, const Figures& parameters);

    DBSECTION_API bool Computes(std::string_view column) const;

    /// Whether the names of figures are enough for it, and it knows all of the parameters.
    DBSECTION_API bool IsToldBy(const Figures& section, const Figures& given) const;
};

/// All models, by subject.
DBSECTION_API std::span<const GeometryModel> GetGeometryModels();

/// The model of that name, or null.
DBSECTION_API const GeometryModel* FindGeometryModel(std::string_view name);

/// A figure beside what geometry makes of it.
struct JudgedFigure {
    std::string column;
    double figure;
    double computed;

    /// How much larger the computed one is, as a share of the figure.
    double Deviation() const { return computed == figure ? 0 : computed / figure - 1; }
};

/// The figures of a row that geometry computes, too.
DBSECTION_API std::vector<JudgedFigure> JudgeFigures(const SectionGeometry& geometry,
                                                     const Figures& row);

/// The row with the figures that it lacks and geometry gives.
DBSECTION_API Figures CompleteFigures(const SectionGeometry& geometry, Figures row);

} // namespace dbsection
