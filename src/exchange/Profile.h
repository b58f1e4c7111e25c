// What a section hands on, in the unit of a file.
#pragma once

#include "exchange/Exchange.h"
#include "geometry/Fibres.h"

#include <optional>
#include <string>

namespace dbsection {

/// The units of a file.
struct ExchangeUnits {
    const char* length;
    double lengthSize; ///< in mm
    const char* force;
    double steelModulus; ///< of elasticity, as a placeholder, in force per length^2

    /// Without a length those of mm.
    static const ExchangeUnits& Of(std::optional<ExchangeLength> length);
};

/// Second moments of area about the principal axes.
struct PrincipalInertias {
    double angle; ///< in radians, counter-clockwise, from the major axis to the strong one
    double strong;
    double weak;
};

/// The figures of a section, in powers of the unit of length; the outline in mm.
class Profile {
public:
    Profile(sections::Section section, const ExchangeUnits& units);

    const sections::Section& Section() const { return m_section; }
    std::string Catalogue() const;
    std::string Standard() const; ///< with its edition; empty where the file does not tell

    /// Null where none follows from the figures, or it contradicts the area; WhyNoOutline() tells.
    const Outline* GetOutline() const { return m_shape ? &m_shape->outline : nullptr; }
    const std::string& WhyNoOutline() const { return m_whyNoOutline; }
    std::optional<double> AssumedRadius() const;

    /// The figure of a column or a derived one; nothing where there is none.
    std::optional<double> Figure(std::string_view column) const;

    // These throw sections::Error where there is none.
    double Area() const;
    double TorsionConstant() const;
    PrincipalInertias Principal() const;

    /// Nothing without an outline.
    std::optional<ShearAreas> Shear() const;

    /// Its own unit of length in mm.
    double LengthSize() const { return m_units->lengthSize; }

    [[noreturn]] void Fail(const std::string& fault) const;

private:
    double InLength(double inMillimetres, int power) const;
    double Needed(const char* property, double inMillimetres, int power) const;

    sections::Section m_section;
    const ExchangeUnits* m_units;
    std::optional<SectionGeometry> m_shape;
    std::string m_whyNoOutline;
};

} // namespace dbsection
