// Families that several catalogues have alike. The tables are data of their own: a catalogue takes
// all of one or its beginning.
#pragma once

#include "catalogues/SectionFamily.h"

#include <array>

namespace dbsection {

/// Cold-formed sections; only some catalogues have the tubes, and one the struts.
inline constexpr std::array ColdFormedFamilies{
    FamilyOf<COLDFORMEDSECTION::AngleWithoutLips>("Angle without Lips", 1, ShapeType::Angle),
    FamilyOf<COLDFORMEDSECTION::AngleWithLips>("Angle with Lips", 2, ShapeType::Angle),
    FamilyOf<COLDFORMEDSECTION::ChannelWithoutLips>("Channel without Lips", 3, ShapeType::Channel),
    FamilyOf<COLDFORMEDSECTION::ChannelWithLips>("Channel with Lips", 4, ShapeType::Channel),
    FamilyOf<COLDFORMEDSECTION::ZeeWithoutLips>("Zee without Lips", 5, ShapeType::General),
    FamilyOf<COLDFORMEDSECTION::ZeeWithLips>("Zee with Lips", 6, ShapeType::General),
    FamilyOf<COLDFORMEDSECTION::Hat>("Hat", 7, ShapeType::General),
    FamilyOf<COLDFORMEDSECTION::Pipe>("Pipe", 8, ShapeType::Pipe),
    FamilyOf<COLDFORMEDSECTION::Tube>("Tube", 9, ShapeType::Tube),
    FamilyOf<COLDFORMEDSECTION::EaveStruts>("Eave Struts", 10, ShapeType::Channel),
};

inline constexpr std::array HollowFamilies{
    FamilyOf<HOLLOWSECTION::RHS>("RHS", 1, ShapeType::Tube),
    FamilyOf<HOLLOWSECTION::SHS>("SHS", 2, ShapeType::Tube),
    FamilyOf<HOLLOWSECTION::CHS>("CHS", 3, ShapeType::Pipe),
};

inline constexpr std::array HotRolledFamilies{
    FamilyOf<HOTROLLEDSECTION::IPEShape>("IPE Shape", 1, ShapeType::WideFlange),
    FamilyOf<HOTROLLEDSECTION::HEShape>("HE Shape", 2, ShapeType::WideFlange),
    FamilyOf<HOTROLLEDSECTION::IPNShape>("IPN Shape", 3, ShapeType::WideFlange),
    FamilyOf<HOTROLLEDSECTION::Channel>("Channel", 4, ShapeType::Channel),
    FamilyOf<HOTROLLEDSECTION::Angle>("Angle", 5, ShapeType::Angle),
    FamilyOf<HOTROLLEDSECTION::Tube>("Tube", 6, ShapeType::Tube),
    FamilyOf<HOTROLLEDSECTION::Pipe>("Pipe", 7, ShapeType::Pipe),
};

} // namespace dbsection
