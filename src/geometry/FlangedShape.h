// Dimensions of rolled I shapes, channels and tees, and what all of them share: the outline of a
// flange, and torsion.
#pragma once

#include "geometry/ModelParts.h"

namespace dbsection {

/// The thickness TF of a tapered flange is measured at "place", a distance from the tip, or midway
/// between web and tip; its toe is rounded with a fixed share of the fillet's radius.
struct FlangedShape {
    double depth;
    double width;
    double flange;  ///< thickness midway between web and tip
    double nominal; ///< thickness TF as it is printed
    double web;
    double outstand;
    double slope;
    double taper; ///< what the flange is thicker at the web, and thinner at the tip
    double toe;   ///< radius of the toes / radius of the fillets
    int flanges;

    /// `sides` is on how many sides of the web the flanges stand out.
    FlangedShape(const Figures& section, const Figures& parameters, int sides, int flangeCount = 2);

    /// Fillet and toe share the outstand, and the fillets the height of the web.
    double LargestFillet() const;

    /// From the web along the underside of the upper flange, whose upper side is at `top`, to its
    /// outer edge.
    Corners UpperFlange(double top, double webFace, double radius) const;

    // Torsion constants with fillets of a radius: tapered outstands, web, and the part of each
    // flange at the web; then what the junctions add and the free ends take away (El Darwish and
    // Johnston, Torsion of Structural Shapes, 1965).

    /// Of a section whose junctions have a flange on both sides of the web; they are as thick as
    /// the flange at the web.
    double TorsionConstantI(double radius) const;

    /// The same with the coefficients of flanges that slope 1:6, and what their thin ends take
    /// away.
    double TorsionConstantSlopedI(double radius) const;

    /// Of a channel; published figures follow from junctions of the mean thickness.
    double TorsionConstantChannel(double radius) const;

    /// Of a channel whose flanges are as thick as TF throughout, as published figures of tapered
    /// channels have it, too.
    double TorsionConstantNominalChannel(double radius) const;

    /// Of a channel whose flanges slope: coefficients between those of parallel flanges and of
    /// flanges that slope 1:6; toes and heels take away.
    double TorsionConstantSlopedChannel(double radius) const;

private:
    double FilletCenter(double radius) const;

    /// `junction` is the thickness of the flange at the web, `alpha` the coefficient of the
    /// junctions, `circle` the diameter of the largest circle in one.
    double TorsionConstant(double junction, double alpha, double circle) const;

    /// `alpha` gives the coefficient by the thickness of the web and the radius of the fillets,
    /// both as multiples of the junction's thickness.
    template <class Alpha>
    double TorsionConstantWith(const Alpha& alpha, double radius) const;
};

/// Which of the torsion constants is that of a model.
using FlangedTorsion = double (FlangedShape::*)(double radius) const;

// Where the radius of the fillets is not known, the area tells it.
inline constexpr std::array RolledInputs{"AX", "D", "BF", "TF", "TW"};
inline constexpr std::array FlangedInputs{"D", "BF", "TF", "TW"};

inline constexpr GeometryParameter SlopeParameter{"slope", Quantity::Number,
                                                  "of the flanges' inner side, or else 0"};
inline constexpr GeometryParameter PlaceParameter{
    "place", Quantity::Length,
    "where TF is measured, from the tip, or else midway between web and tip"};

inline constexpr std::array RolledParameters{SlopeParameter, ToeParameter};
inline constexpr std::array ParallelParameters{RadiusParameter};
inline constexpr std::array TaperedParameters{RadiusParameter, ToeParameter, SlopeParameter,
                                              PlaceParameter, MassParameter};

} // namespace dbsection
