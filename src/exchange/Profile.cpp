#include "exchange/Profile.h"

#include "dataaccess/CSectionException.h"
#include "sections/Error.h"
#include "units/UnitText.h"

#include <array>
#include <cmath>
#include <numbers>
#include <utility>

namespace dbsection {
namespace {

constexpr sections::Unit<2> SquareMillimetre{1};
constexpr sections::Unit<4> Millimetre4{1};

} // namespace

const ExchangeUnits& ExchangeUnits::Of(std::optional<ExchangeLength> length) {
    static constexpr std::array Units{ExchangeUnits{"mm", 1, "N", 210000},
                                      ExchangeUnits{"in", 25.4, "kip", 29000}};
    return Units[static_cast<std::size_t>(length.value_or(ExchangeLength::Millimetre))];
}

Profile::Profile(sections::Section section, const ExchangeUnits& units)
    : m_section(std::move(section)),
      m_units(&units) {
    try {
        m_shape = m_section.agreedShape();
    } catch (const sections::Error& error) {
        m_whyNoOutline = error.what();
    }
}

std::string Profile::Catalogue() const { return m_section.family().catalogue().name(); }

std::string Profile::Standard() const {
    const sections::Origin* const origin = m_section.origin();
    return origin == nullptr ? m_section.family().catalogue().standard() : origin->standard;
}

std::optional<double> Profile::AssumedRadius() const {
    return m_shape ? m_shape->assumedRadius : std::nullopt;
}

double Profile::InLength(double inMillimetres, int power) const {
    return inMillimetres / std::pow(m_units->lengthSize, power);
}

std::optional<double> Profile::Figure(std::string_view column) const {
    auto quantity = m_section.find(column);
    if (!quantity && (column == "IZ" || column == "IY"))
        quantity = m_section.find("I"); // of round sections
    if (!quantity)
        quantity = m_section.findDerived(column);
    if (!quantity)
        return std::nullopt;
    const auto dimension = DimensionOf(quantity->unit());
    if (!dimension)
        return quantity->figure();
    return InLength(quantity->figure() * SizeOf(quantity->unit()), dimension->length);
}

void Profile::Fail(const std::string& fault) const {
    throw sections::Error(SectionError::NoSuchItem, m_section.family().catalogue().path() + ": " +
                                                        m_section.name() + " of table \"" +
                                                        m_section.family().name() + "\": " + fault);
}

/// The figure, which must be above 0.
double Profile::Needed(const char* property, double inMillimetres, int power) const {
    if (!std::isfinite(inMillimetres) || inMillimetres <= 0)
        Fail(std::string("its ") + property + " is not above 0.");
    return InLength(inMillimetres, power);
}

double Profile::Area() const { return Needed("area", m_section.area().in(SquareMillimetre), 2); }

double Profile::TorsionConstant() const {
    return Needed("torsion constant", m_section.torsionConstant().in(Millimetre4), 4);
}

PrincipalInertias Profile::Principal() const {
    const double major = Needed("moment of inertia about the major axis",
                                m_section.majorInertia().in(Millimetre4), 4);
    const double minor = Needed("moment of inertia about the minor axis",
                                m_section.minorInertia().in(Millimetre4), 4);
    double product = 0;
    if (m_shape)
        product = InLength(m_shape->outline.ProductOfInertia(), 4);
    else if (m_section.principalAngle() != 0)
        Fail("its principal axes follow from its outline, which is not known: " + m_whyNoOutline);
    constexpr double Rounding = 1e-9;
    if (std::abs(product) < Rounding * major)
        product = 0;
    const double mean = (major + minor) / 2;
    const double radius = std::hypot((major - minor) / 2, product);
    if (radius >= mean)
        Fail("its moments of inertia contradict its outline.");
    const double angle = PrincipalAngle(major, minor, product) * std::numbers::pi / 180;
    return {angle, mean + radius, mean - radius};
}

std::optional<ShearAreas> Profile::Shear() const {
    if (!m_shape)
        return std::nullopt;
    const ShearAreas areas = ShearAreasOf(m_shape->outline);
    return ShearAreas{InLength(areas.alongY, 2), InLength(areas.alongZ, 2)};
}

} // namespace dbsection
