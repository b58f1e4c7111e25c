// Families that several catalogues have alike. The tables are data of their own: a catalogue takes
// all of one or its beginning.
#pragma once

#include "catalogues/SectionFamily.h"

#include <array>

namespace dbsection {

/// Cold-formed sections; only some catalogues have the tubes, and one the struts.
inline constexpr std::array ColdFormedFamilies{
    SectionFamily{"Angle without Lips", 1, LayoutId::ColdFormed, ShapeType::Angle},
    SectionFamily{"Angle with Lips", 2, LayoutId::ColdFormedLipped, ShapeType::Angle},
    SectionFamily{"Channel without Lips", 3, LayoutId::ColdFormed, ShapeType::Channel},
    SectionFamily{"Channel with Lips", 4, LayoutId::ColdFormedLipped, ShapeType::Channel},
    SectionFamily{"Zee without Lips", 5, LayoutId::ColdFormed, ShapeType::General},
    SectionFamily{"Zee with Lips", 6, LayoutId::ColdFormedLipped, ShapeType::General},
    SectionFamily{"Hat", 7, LayoutId::ColdFormed, ShapeType::General},
    SectionFamily{"Pipe", 8, LayoutId::RoundTube, ShapeType::Pipe},
    SectionFamily{"Tube", 9, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"Eave Struts", 10, LayoutId::ColdFormedLipped, ShapeType::Channel},
};

inline constexpr std::array HollowFamilies{
    SectionFamily{"RHS", 1, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"SHS", 2, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"CHS", 3, LayoutId::RoundTube, ShapeType::Pipe},
};

inline constexpr std::array HotRolledFamilies{
    SectionFamily{"IPE Shape", 1, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"HE Shape", 2, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"IPN Shape", 3, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"Channel", 4, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"Angle", 5, LayoutId::Angle, ShapeType::Angle},
    SectionFamily{"Tube", 6, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"Pipe", 7, LayoutId::RoundTube, ShapeType::Pipe},
};

} // namespace dbsection
