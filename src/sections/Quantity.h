// Quantities whose unit is known when the program runs: those of a catalogue's columns.
//
//     sections::Quantity inertia = beam["IZ"];
//     double cm4 = inertia.in("cm^4");
//     sections::Inertia checked = inertia.as<4>();
#pragma once

#include "platform/Export.h"
#include "sections/Measure.h"

#include <string>
#include <string_view>

namespace sections {

class DBSECTION_API Quantity {
public:
    /// A figure in a unit of sizeOfUnit, or a plain number ("NUMBER", or no text), or an angle
    /// ("DEGREE").
    Quantity(double figure, std::string_view unit) : m_figure(figure), m_unit(unit) {}

    /// The figure as it is kept, and its unit's text.
    double figure() const { return m_figure; }
    const std::string& unit() const { return m_unit; }

    /// The figure in another unit. Throws Error where either unit is unknown, or they do not
    /// measure the same.
    double in(std::string_view unit) const;

    /// The same quantity with a dimension that the compiler knows. Throws Error where it is not
    /// length^L force^F.
    template <int L, int F = 0>
    Measure<L, F> as() const {
        return {m_figure, Unit<L, F>{sizeOfUnit(m_unit, L, F)}};
    }

private:
    double m_figure;
    std::string m_unit;
};

} // namespace sections
