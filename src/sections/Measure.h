// Quantities with units, checked by the compiler.
//
//     using namespace sections::units;
//     sections::Length depth = beam.depth();
//     double d = depth.in(mm);
//     double a = beam.area().in(mm * mm);
//     double i = beam.majorInertia().in(pow<4>(cm)); // .in(mm) would not compile
//     double s = beam.majorElasticModulus().in("cm^3");
//
// A quantity keeps the unit in which it was given: asked in that unit, it is the figure as given.
// Factors are those of the units' definitions (inch 25.4 mm, pound-force 4.4482216152605 N).
#pragma once

#include "platform/Export.h"

#include <compare>
#include <string_view>

namespace sections {

/// A unit of length^L force^F by its size in mm^L N^F.
template <int L, int F = 0>
struct Unit {
    double size;
};

template <int L, int F, int M, int G>
constexpr Unit<L + M, F + G> operator*(Unit<L, F> left, Unit<M, G> right) {
    return {left.size * right.size};
}

template <int L, int F, int M, int G>
constexpr Unit<L - M, F - G> operator/(Unit<L, F> left, Unit<M, G> right) {
    return {left.size / right.size};
}

/// A unit raised to a power, 1 or more.
template <int Power, int L, int F>
constexpr Unit<L * Power, F * Power> pow(Unit<L, F> unit) {
    double size = 1;
    for (int i = 0; i < Power; ++i)
        size *= unit.size;
    return {size};
}

namespace units {

inline constexpr Unit<1> mm{1};
inline constexpr Unit<1> cm{10};
inline constexpr Unit<1> dm{100};
inline constexpr Unit<1> m{1000};
inline constexpr Unit<1> km{1e6};
inline constexpr Unit<1> in{25.4};
inline constexpr Unit<1> ft{304.8};
inline constexpr Unit<1> yd{914.4};

inline constexpr Unit<0, 1> N{1};
inline constexpr Unit<0, 1> daN{10};
inline constexpr Unit<0, 1> kN{1000};
inline constexpr Unit<0, 1> MN{1e6};
inline constexpr Unit<0, 1> lb{4.4482216152605};
inline constexpr Unit<0, 1> kip{4448.2216152605};
inline constexpr Unit<0, 1> kg{9.80665}; ///< the weight of that mass
inline constexpr Unit<0, 1> t{9806.65};

inline constexpr Unit<-2, 1> MPa{1};
inline constexpr Unit<-2, 1> GPa{1000};
inline constexpr Unit<-2, 1> ksi = kip / (in * in);

} // namespace units

/// The size in mm^length N^force of a unit such as "in^4" or "KIPS/INCHES^2": names as they are
/// printed or as catalogues keep them, of any letter case, joined by "/" and ".". Throws Error
/// where a name is unknown, or the unit of another dimension.
DBSECTION_API double sizeOfUnit(std::string_view unit, int length, int force);

/// A quantity of length^L force^F: a figure in a unit.
template <int L, int F = 0>
class Measure {
public:
    constexpr Measure() : m_unit{1} {}
    constexpr Measure(double figure, Unit<L, F> unit) : m_figure(figure), m_unit(unit) {}

    constexpr double in(Unit<L, F> unit) const {
        return unit.size == m_unit.size ? m_figure : m_figure * (m_unit.size / unit.size);
    }
    double in(std::string_view unit) const { return in(Unit<L, F>{sizeOfUnit(unit, L, F)}); }

    friend constexpr bool operator==(Measure left, Measure right) {
        return left.in(left.m_unit) == right.in(left.m_unit);
    }
    friend constexpr std::partial_ordering operator<=>(Measure left, Measure right) {
        return left.in(left.m_unit) <=> right.in(left.m_unit);
    }

    friend constexpr Measure operator+(Measure left, Measure right) {
        return {left.m_figure + right.in(left.m_unit), left.m_unit};
    }
    friend constexpr Measure operator-(Measure left, Measure right) {
        return {left.m_figure - right.in(left.m_unit), left.m_unit};
    }
    friend constexpr Measure operator*(double factor, Measure right) {
        return {factor * right.m_figure, right.m_unit};
    }

    template <int M, int G>
    constexpr Measure<L + M, F + G> operator*(Measure<M, G> right) const {
        return {m_figure * right.m_figure, m_unit * right.m_unit};
    }
    template <int M, int G>
    constexpr Measure<L - M, F - G> operator/(Measure<M, G> right) const {
        return {m_figure / right.m_figure, m_unit / right.m_unit};
    }

private:
    template <int, int>
    friend class Measure;

    double m_figure = 0;
    Unit<L, F> m_unit;
};

using Length = Measure<1>;
using Area = Measure<2>;
using Modulus = Measure<3>;
using Inertia = Measure<4>;
using Warping = Measure<6>;
using Stress = Measure<-2, 1>;
using WeightPerLength = Measure<-1, 1>;

} // namespace sections
