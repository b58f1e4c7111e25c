#include "interface/PrincipalAngle.h"

#include <cmath>

namespace dbsection {
namespace {

constexpr double Square(double x) { return x * x; }
constexpr double Cube(double x) { return x * x * x; }

} // namespace

// The heel is the origin, the depth lies along y. The legs are taken without fillets, which only
// the area knows.
double PrincipalAngle(const AngleSection& angle) {
    constexpr double EqualLegs = 0.0001;
    constexpr double QuarterTurn = 0.7853981852531433; // in single precision, as callers know it
    constexpr double HalfCircle = 3.141592654;
    const auto [A, D, B, t] = angle;

    const double horizontal = (B - t) * t; // the leg without the corner
    const double vertical = t * D;
    const double y = (horizontal * t / 2 + vertical * D / 2) / A;
    const double x = (t * B * B / 2 + (D - t) * t * t / 2) / A;
    const double Ix = Cube(D) * t / 12 + Square(y - t / 2) * horizontal + Cube(t) * (B - t) / 12 +
                      Square(y - D / 2) * D * t;
    const double Iy = Cube(B) * t / 12 + Square(x - t / 2) * (D - t) * t + Cube(t) * (D - t) / 12 +
                      Square(x - B / 2) * B * t;
    const double Ixy =
        (B / 2 + t / 2) * horizontal * t / 2 + (t / 2) * vertical * D / 2 - y * A * x;

    const double theta =
        std::abs(D - B) <= EqualLegs ? QuarterTurn : std::atan(-2 * Ixy / (Ix - Iy)) / 2;
    return theta * 180 / HalfCircle;
}

} // namespace dbsection
