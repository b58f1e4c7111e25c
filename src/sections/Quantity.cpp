#include "sections/Quantity.h"

#include "dataaccess/CSectionException.h"
#include "platform/Text.h"
#include "sections/Error.h"
#include "units/UnitText.h"

namespace sections {
namespace {

using dbsection::DimensionOf;
using dbsection::UnitDimension;
using dbsection::UnitNames;

std::string inQuotes(std::string_view unit) { return "\"" + std::string(unit) + "\""; }

UnitDimension requireDimension(std::string_view unit) {
    if (const auto dimension = DimensionOf(unit, UnitNames::Printed))
        return *dimension;
    throw Error(SectionError::NoSuchItem,
                unit.empty() ? "The quantity has no unit: its catalogue keeps none."
                             : inQuotes(unit) + " is no unit; give one such as \"mm^2\" or "
                                                "\"kN/m\".");
}

} // namespace

double sizeOfUnit(std::string_view unit, int length, int force) {
    const UnitDimension dimension = requireDimension(unit);
    if (dimension != UnitDimension{length, force})
        throw Error(SectionError::WrongValueType,
                    inQuotes(unit) + " measures length^" + std::to_string(dimension.length) +
                        " force^" + std::to_string(dimension.force) + ", not length^" +
                        std::to_string(length) + " force^" + std::to_string(force) + ".");
    return dbsection::SizeOf(unit, UnitNames::Printed);
}

double Quantity::in(std::string_view unit) const {
    if (dbsection::EqualNoCase(unit, m_unit))
        return m_figure;
    const UnitDimension dimension = requireDimension(m_unit);
    return m_figure * (dbsection::SizeOf(m_unit, UnitNames::Printed) /
                       sizeOfUnit(unit, dimension.length, dimension.force));
}

} // namespace sections
