#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    FamilyOf<DUTCHSECTION::HEShape>("HE Shape", 1, ShapeType::WideFlange),
    FamilyOf<DUTCHSECTION::IPEShape>("IPE Shape", 2, ShapeType::WideFlange),
    FamilyOf<DUTCHSECTION::IPNShape>("IPN Shape", 3, ShapeType::WideFlange),
    FamilyOf<DUTCHSECTION::UPNChannel>("UPN Channel", 4, ShapeType::Channel),
    FamilyOf<DUTCHSECTION::Angle>("Angle", 5, ShapeType::Angle),
    FamilyOf<DUTCHSECTION::Tube>("Tube", 6, ShapeType::Tube),
    FamilyOf<DUTCHSECTION::Pipe>("Pipe", 7, ShapeType::Pipe),
    FamilyOf<DUTCHSECTION::PlateStrip>("PlateStrip", 8, ShapeType::Prismatic),
    FamilyOf<DUTCHSECTION::SolidRound>("SolidRound", 9, ShapeType::Pipe),
    FamilyOf<DUTCHSECTION::SolidSquare>("SolidSquare", 10, ShapeType::Prismatic),
};

} // namespace

DutchSectionDB::DutchSectionDB() : CatalogueSectionDB(Tables) {}
