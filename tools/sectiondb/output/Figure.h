// How figures are written: for a person with the digits that they are worth, for another program
// with those that identify the figure that is stored.
#pragma once

#include <compare>
#include <string>

namespace dbsection {

/// A figure as it is stored, printed in a unit of which the stored one has `factor`.
struct Figure {
    double stored;
    double factor = 1;
    bool isComputed = false; ///< rather than published: five digits of it are told to a person

    double Value() const { return stored * factor; }

    // NOLINTNEXTLINE(modernize-use-nullptr,readability-implicit-bool-conversion): by mistake
    auto operator<=>(const Figure&) const = default;
};

/// A computed figure without what rounding in the course of computing has left: 6.1 in place of
/// 6.099999999999996.
double WithoutNoise(double computed);

/// For a person. A stored figure has the digits that it is published with; a converted one has a
/// digit more, so that none is lost, and at least four, since a file does not keep the zeros at the
/// end. From a million on with an exponent: "8.491e7".
std::string ReadableText(const Figure& figure);

/// For another program: of the decimals that convert back to the stored figure the shortest;
/// `nothing` for what is no finite number.
std::string ExactText(const Figure& figure, const char* nothing = "");

} // namespace dbsection
