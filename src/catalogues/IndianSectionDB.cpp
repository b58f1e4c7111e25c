#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    FamilyOf<INDIANSECTION::SShape>("S Shape", 1, ShapeType::WideFlange),
    FamilyOf<INDIANSECTION::IShape>("I Shape", 2, ShapeType::WideFlange),
    FamilyOf<INDIANSECTION::MShape>("M Shape", 3, ShapeType::WideFlange),
    FamilyOf<INDIANSECTION::WShape>("W Shape", 4, ShapeType::WideFlange),
    FamilyOf<INDIANSECTION::TShape>("T Shape", 5, ShapeType::Tee),
    FamilyOf<INDIANSECTION::Channel>("Channel", 6, ShapeType::Channel),
    FamilyOf<INDIANSECTION::Angle>("Angle", 7, ShapeType::Angle),
    FamilyOf<INDIANSECTION::Tube>("Tube", 8, ShapeType::Tube),
    FamilyOf<INDIANSECTION::Pipe>("Pipe", 9, ShapeType::Pipe),
    FamilyOf<INDIANSECTION::NPBShape>("NPB Shape", 11, ShapeType::WideFlange),
    FamilyOf<INDIANSECTION::WPBShape>("WPB Shape", 10, ShapeType::WideFlange),
};

} // namespace

IndianSectionDB::IndianSectionDB() : CatalogueSectionDB(Tables) {}
