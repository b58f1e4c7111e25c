#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    FamilyOf<CHINESESECTION::IShape>("I Shape", 1, ShapeType::WideFlange),
    FamilyOf<CHINESESECTION::Channel>("Channel", 2, ShapeType::Channel),
    FamilyOf<CHINESESECTION::Angle>("Angle", 3, ShapeType::Angle),
    FamilyOf<CHINESESECTION::Tube>("Tube", 4, ShapeType::Tube),
    FamilyOf<CHINESESECTION::Pipe>("Pipe", 5, ShapeType::Pipe),
    FamilyOf<CHINESESECTION::TShape>("T Shape", 6, ShapeType::Tee),
    FamilyOf<CHINESESECTION::HShape>("H Shape", 7, ShapeType::WideFlange),
};

} // namespace

ChineseSectionDB::ChineseSectionDB() : CatalogueSectionDB(Tables) {}
