#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    FamilyOf<AUSTRALIANSECTION::UBShape>("UB Shape", 1, ShapeType::WideFlange),
    FamilyOf<AUSTRALIANSECTION::UCShape>("UC Shape", 2, ShapeType::WideFlange),
    FamilyOf<AUSTRALIANSECTION::WBShape>("WB Shape", 3, ShapeType::WideFlange),
    FamilyOf<AUSTRALIANSECTION::WCShape>("WC Shape", 4, ShapeType::WideFlange),
    FamilyOf<AUSTRALIANSECTION::Channel>("Channel", 5, ShapeType::Channel),
    FamilyOf<AUSTRALIANSECTION::Angle>("Angle", 6, ShapeType::Angle),
    FamilyOf<AUSTRALIANSECTION::Tube>("Tube", 10, ShapeType::Tube),
    FamilyOf<AUSTRALIANSECTION::Pipe>("Pipe", 11, ShapeType::Pipe),
    FamilyOf<AUSTRALIANSECTION::RHS>("RHS", 7, ShapeType::Tube),
    FamilyOf<AUSTRALIANSECTION::SHS>("SHS", 8, ShapeType::Tube),
    FamilyOf<AUSTRALIANSECTION::CHS>("CHS", 9, ShapeType::Pipe),
};

} // namespace

AustralianSectionDB::AustralianSectionDB() : CatalogueSectionDB(Tables) {}
