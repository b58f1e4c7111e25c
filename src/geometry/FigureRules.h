// How far published figures may be from what geometry makes of them.
//
// A figure may deviate by what its printing hides, half a unit of its last digit, and by what the
// model of its family is worth for its column. One that is further away has an exception with a
// bound of its own: nothing passes without one.
#pragma once

#include "platform/Export.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace dbsection {

/// The units of the last digits of a column's figures, which differ by decade: 5.38, 53.8, 538.
class DBSECTION_API PrintingSteps {
public:
    /// Learns from a figure of the column as it is printed. Of a decade the figure with the most
    /// decimals counts. Whole figures that all end in zeros may be rounded to them, but are never
    /// taken for rounder than to three digits.
    void Learn(std::string_view printed);

    /// The unit of the last digit; of a decade that no figure has, that of three digits.
    double StepOf(double figure) const;

    /// "-1:0.001 0:0.01": by power of ten.
    std::string Text() const;
    static PrintingSteps FromText(std::string_view text);

private:
    std::map<int, double> m_steps;
};

/// How far figures may deviate beyond their printing, as a share of them, and why.
struct DeviationBound {
    double share = 0;
    std::string reason;
};

struct ColumnRule {
    PrintingSteps steps;
    DeviationBound tolerance;
};

/// What the rules say of a figure.
struct DBSECTION_API FigureVerdict {
    double deviation;                ///< of the computed figure, as a share of the printed one
    double printing;                 ///< what printing allows, as such a share
    double tolerance;                ///< beyond printing
    const DeviationBound* exception; ///< or null

    bool IsWithinTolerance() const;

    /// Whether the figure is accepted: within its exception, if it has one.
    bool IsAccepted() const;
};

/// The rules of a family.
struct DBSECTION_API FigureRules {
    std::map<std::string, ColumnRule, std::less<>> columns;
    std::map<std::pair<std::string, std::string>, DeviationBound> exceptions; ///< by name, column

    /// `figure` in the unit in which the family prints it; `deviation` as JudgedFigure gives it.
    FigureVerdict Judge(const std::string& name, const std::string& column, double figure,
                        double deviation) const;
};

} // namespace dbsection
