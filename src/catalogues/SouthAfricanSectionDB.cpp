#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    FamilyOf<SOUTHAFRICANSECTION::IShape>("I Shape", 1, ShapeType::WideFlange),
    FamilyOf<SOUTHAFRICANSECTION::HShape>("H Shape", 2, ShapeType::WideFlange),
    FamilyOf<SOUTHAFRICANSECTION::PGShape>("PG Shape", 3, ShapeType::WideFlange),
    FamilyOf<SOUTHAFRICANSECTION::CChannel>("C Channel", 4, ShapeType::Channel),
    FamilyOf<SOUTHAFRICANSECTION::Angle>("Angle", 5, ShapeType::Angle),
    FamilyOf<SOUTHAFRICANSECTION::Tube>("Tube", 6, ShapeType::Tube),
    FamilyOf<SOUTHAFRICANSECTION::Pipe>("Pipe", 7, ShapeType::Pipe),
};

} // namespace

SouthAfricanSectionDB::SouthAfricanSectionDB() : CatalogueSectionDB(Tables) {}
