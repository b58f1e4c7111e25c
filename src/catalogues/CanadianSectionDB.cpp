#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    FamilyOf<CANADIANSECTION::WShape>("W Shape", 1, ShapeType::WideFlange),
    FamilyOf<CANADIANSECTION::MShape>("M Shape", 2, ShapeType::WideFlange),
    FamilyOf<CANADIANSECTION::SShape>("S Shape", 3, ShapeType::WideFlange),
    FamilyOf<CANADIANSECTION::HPShape>("HP Shape", 4, ShapeType::WideFlange),
    FamilyOf<CANADIANSECTION::WWShape>("WW Shape", 5, ShapeType::WideFlange),
    FamilyOf<CANADIANSECTION::Channel>("Channel", 6, ShapeType::Channel),
    FamilyOf<CANADIANSECTION::MCChannel>("MC Channel", 7, ShapeType::Channel),
    FamilyOf<CANADIANSECTION::Angle>("Angle", 8, ShapeType::Angle),
    FamilyOf<CANADIANSECTION::Tube>("Tube", 9, ShapeType::Tube),
    FamilyOf<CANADIANSECTION::Pipe>("Pipe", 10, ShapeType::Pipe),
    FamilyOf<CANADIANSECTION::HSSRectangle>("HSS Rectangle", 11, ShapeType::Tube),
    FamilyOf<CANADIANSECTION::HSSRound>("HSS Round", 12, ShapeType::Pipe),
};

} // namespace

CanadianSectionDB::CanadianSectionDB() : CatalogueSectionDB(Tables) {}
