#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    FamilyOf<JAPANESESECTION::HShape>("H Shape", 1, ShapeType::WideFlange),
    FamilyOf<JAPANESESECTION::HShapeOld>("H Shape old", 51, ShapeType::WideFlange),
    FamilyOf<JAPANESESECTION::IShape>("I Shape", 2, ShapeType::WideFlange),
    FamilyOf<JAPANESESECTION::TShape>("T Shape", 3, ShapeType::Tee),
    FamilyOf<JAPANESESECTION::CTShape>("CT Shape", 11, ShapeType::Tee),
    FamilyOf<JAPANESESECTION::TShapeOld>("T Shape Old", 52, ShapeType::Tee),
    FamilyOf<JAPANESESECTION::Channel>("Channel", 4, ShapeType::Channel),
    FamilyOf<JAPANESESECTION::Angle>("Angle", 5, ShapeType::Angle),
    FamilyOf<JAPANESESECTION::Tube>("Tube", 6, ShapeType::Tube),
    FamilyOf<JAPANESESECTION::Pipe>("Pipe", 7, ShapeType::Pipe),
    FamilyOf<JAPANESESECTION::RHS>("RHS", 8, ShapeType::Tube),
    FamilyOf<JAPANESESECTION::SHS>("SHS", 9, ShapeType::Tube),
    FamilyOf<JAPANESESECTION::CHS>("CHS", 10, ShapeType::Pipe),
};

} // namespace

JapaneseSectionDB::JapaneseSectionDB() : CatalogueSectionDB(Tables) {}
