#include "geometry/FlangedShape.h"

#include <algorithm>
#include <cmath>

namespace dbsection {
namespace {

constexpr double Power4(double x) { return x * x * x * x; }

struct Coefficients {
    double constant, web, radius, both, square;

    double operator()(double w, double r) const {
        return constant + web * w + radius * r + both * w * r + square * w * w;
    }
};

constexpr Coefficients ParallelI{-0.042, 0.2204, 0.1355, -0.0865, -0.0725};
constexpr Coefficients SlopedI{-0.0836, 0.2536, 0.1268, -0.0806, -0.0858};
constexpr Coefficients ParallelChannel{-0.0908, 0.2621, 0.1231, -0.0752, -0.0945};
constexpr Coefficients SlopedChannel{-0.1325, 0.3015, 0.14, -0.107, -0.0956};

// What ends take away, by the fourth power of their thickness: a free end, and, beyond that, the
// two of a flange that slopes 1:6.
constexpr double End = 0.105;
constexpr double SlopedEnds = 0.01052;

} // namespace

FlangedShape::FlangedShape(const Figures& section, const Figures& parameters, int sides,
                           int flangeCount)
    : depth(Dimension(section, "D")),
      width(Dimension(section, "BF")),
      flange(Dimension(section, "TF")),
      nominal(flange),
      web(Dimension(section, "TW")),
      outstand((width - web) / sides),
      slope(ValueOr(parameters, "slope", 0)),
      taper(slope * outstand / 2),
      toe(ValueOr(parameters, "toe", 0)),
      flanges(flangeCount) {
    flange -= slope * (ValueOr(parameters, "place", outstand / 2) - outstand / 2);
    Require(outstand > 0, "the web (TW) is not thinner than the flange is wide (BF)");
    Require(taper < flange, "the flange (TF) is too thin for its slope");
    Require(flanges * (flange + taper) < depth, "the flanges (TF) fill the whole depth (D)");
}

double FlangedShape::LargestFillet() const {
    return std::min(outstand, depth / flanges - flange - taper) / 2;
}

Corners FlangedShape::UpperFlange(double top, double webFace, double radius) const {
    const double tip = webFace + outstand;
    return {{{webFace, top - flange - taper}, radius},
            {{tip, top - flange + taper}, radius * toe},
            {{tip, top}, 0}};
}

double FlangedShape::FilletCenter(double radius) const {
    return radius * (std::hypot(1, slope) - slope);
}

double FlangedShape::TorsionConstant(double junction, double alpha, double circle) const {
    const double outstands = (width - web) * flange * (flange * flange + taper * taper);
    const double atWeb = web * std::pow(junction, 3);
    const double between = (depth - flanges * junction) * std::pow(web, 3);
    const double freeWeb = flanges == 1 ? End * Power4(web) : 0;
    return (flanges * (outstands + atWeb) + between) / 3 +
           flanges * (alpha * Power4(circle) - 2 * End * Power4(flange - taper)) - freeWeb;
}

template <class Alpha>
double FlangedShape::TorsionConstantWith(const Alpha& alpha, double radius) const {
    const double junction = flange + taper;
    const double center = junction + FilletCenter(radius);
    const double circle =
        (std::pow(web / 2 + radius, 2) + center * center - radius * radius) / (center + radius);
    return TorsionConstant(junction, alpha(web / junction, radius / junction), circle);
}

double FlangedShape::TorsionConstantI(double radius) const {
    return TorsionConstantWith(ParallelI, radius);
}

double FlangedShape::TorsionConstantSlopedI(double radius) const {
    if (slope == 0)
        return TorsionConstantI(radius);
    return TorsionConstantWith(SlopedI, radius) - flanges * SlopedEnds * Power4(flange - taper);
}

double FlangedShape::TorsionConstantChannel(double radius) const {
    const double circle =
        2 * (3 * radius + web + flange - std::sqrt(2 * (2 * radius + web) * (2 * radius + flange)));
    return TorsionConstant(flange, ParallelChannel(web / flange, radius / flange), circle);
}

double FlangedShape::TorsionConstantNominalChannel(double radius) const {
    FlangedShape plain(*this);
    plain.flange = nominal;
    plain.taper = 0;
    return plain.TorsionConstantChannel(radius);
}

double FlangedShape::TorsionConstantSlopedChannel(double radius) const {
    const double share = std::min(6 * slope, 1.0);
    const double junction = flange + taper;
    const double w = web / junction;
    const double r = radius / junction;
    const double alpha = (1 - share) * ParallelChannel(w, r) + share * SlopedChannel(w, r);
    // The circle touches the back of the web, the flange's outer face and the fillet.
    const double across = web + radius;
    const double down = junction + FilletCenter(radius);
    const double sum = across + down + radius;
    const double circle =
        2 * (sum - std::sqrt(sum * sum - across * across - down * down + radius * radius));
    const double toes = Power4(flange - taper);
    const double ends = (End + share * SlopedEnds / 2) * (Power4(junction) + toes);
    return TorsionConstant(junction, alpha, circle) + flanges * (2 * End * toes - ends);
}

} // namespace dbsection
