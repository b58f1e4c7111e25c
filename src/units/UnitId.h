// Identifiers of units, as all interfaces take them. 0 is no unit.
//
//     beam = american->GetSectionStructProperty("W12X26", UNIT::Millimetre, UNIT::Kilonewton,
//     &type);
#pragma once

namespace dbsection::UnitId {

enum Length : unsigned int {
    Inch = 1001,
    Foot,       ///< 1002
    Yard,       ///< 1003
    Millimetre, ///< 1004
    Centimetre, ///< 1005
    Decimetre,  ///< 1006
    Metre,      ///< 1007
    Kilometre,  ///< 1008
};

enum Force : unsigned int {
    Kip = 2001,
    Pound,      ///< 2002
    Kilogram,   ///< 2003: the weight of that mass
    MetricTon,  ///< 2004: the weight of that mass
    Newton,     ///< 2005
    Decanewton, ///< 2006
    Kilonewton, ///< 2007
    Meganewton, ///< 2008
};

constexpr bool IsLength(unsigned int id) { return id >= Inch && id <= Kilometre; }
constexpr bool IsForce(unsigned int id) { return id >= Kip && id <= Meganewton; }

} // namespace dbsection::UnitId
