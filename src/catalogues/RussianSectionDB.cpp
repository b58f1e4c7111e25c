#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    FamilyOf<RUSSIANSECTION::BShape>("B Shape", 1, ShapeType::WideFlange),
    FamilyOf<RUSSIANSECTION::SHShape>("SH Shape", 2, ShapeType::WideFlange),
    FamilyOf<RUSSIANSECTION::KShape>("K Shape", 3, ShapeType::WideFlange),
    FamilyOf<RUSSIANSECTION::IShape>("I Shape", 4, ShapeType::WideFlange),
    FamilyOf<RUSSIANSECTION::Channel>("Channel", 5, ShapeType::Channel),
    FamilyOf<RUSSIANSECTION::Angle>("Angle", 6, ShapeType::Angle),
    FamilyOf<RUSSIANSECTION::Tube>("Tube", 7, ShapeType::Tube),
    FamilyOf<RUSSIANSECTION::Pipe>("Pipe", 8, ShapeType::Pipe),
};

} // namespace

RussianSectionDB::RussianSectionDB() : CatalogueSectionDB(Tables) {}
