// A row that no standard publishes, judged and completed by what its dimensions tell.
//
//     const RowJudgement pipe = JudgeRow(LayoutId::RoundTube, {{"OD", 100}, {"T", 5}}, {});
//     pipe.row.at("AX"); // 1492.3, computed
#pragma once

#include "geometry/FigureRules.h"
#include "geometry/Geometry.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dbsection {

/// A figure that is not that of the shape.
struct RefusedFigure {
    JudgedFigure judged;
    FigureVerdict verdict;
};

struct RowJudgement {
    const GeometryModel* model = nullptr; ///< of its shape; null where the figures tell none
    Figures parameters;                   ///< of the model, those that are usual included
    std::optional<SectionGeometry> geometry;
    Figures row;                        ///< with the figures that geometry gives
    std::vector<RefusedFigure> refused; ///< empty where the row is accepted
};

/// How far a figure may be from its geometry where no standard's rules say so: it may be rounded to
/// three digits, and models are worth what they say.
DBSECTION_API FigureVerdict JudgeWithoutRules(LayoutId layout, const JudgedFigure& judged);

/// Judges a row of figures in mm and N by the models of its layout that these and the parameters
/// are enough for: it is one that any of them accepts. Where no toe is given, rolled angles have
/// one of half the fillet, as most standards have it, or else none. Figures may also be as far
/// away as `within`, a share of them. Throws GeometryError where all say that the dimensions
/// contradict each other.
DBSECTION_API RowJudgement JudgeRow(LayoutId layout, const Figures& row, const Figures& parameters,
                                    double within = 0);

/// The parameter of that name, whatever its letter case, of a model of the layout, or null.
DBSECTION_API const GeometryParameter* FindParameter(LayoutId layout, std::string_view name);

/// What else would have to be known of a shape, so that a model tells it: names of columns and
/// parameters, each list enough in itself, the shortest first. No list where the layout has no
/// model.
DBSECTION_API std::vector<std::vector<std::string>> MissingFor(LayoutId layout, const Figures& row,
                                                               const Figures& parameters);

} // namespace dbsection
