#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    FamilyOf<EUROPEANSECTION::HEShape>("HE Shape", 2, ShapeType::WideFlange),
    FamilyOf<EUROPEANSECTION::DILShape>("DIL Shape", 3, ShapeType::WideFlange),
    FamilyOf<EUROPEANSECTION::IPNShape>("IPN Shape", 4, ShapeType::WideFlange),
    FamilyOf<EUROPEANSECTION::UChannel>("U Channel", 5, ShapeType::Channel),
    FamilyOf<EUROPEANSECTION::UPNChannel>("UPN Channel", 6, ShapeType::Channel),
    FamilyOf<EUROPEANSECTION::Angle>("Angle", 7, ShapeType::Angle),
    FamilyOf<EUROPEANSECTION::Tube>("Tube", 8, ShapeType::Tube),
    FamilyOf<EUROPEANSECTION::Pipe>("Pipe", 9, ShapeType::Pipe),
    FamilyOf<EUROPEANSECTION::BulbFlat>("Bulb Flat", 10, ShapeType::General),
    FamilyOf<EUROPEANSECTION::FlatBar>("Flat Bar", 11, ShapeType::Prismatic),
    FamilyOf<EUROPEANSECTION::HDShape>("HD Shape", 12, ShapeType::WideFlange),
    FamilyOf<EUROPEANSECTION::HLShape>("HL Shape", 13, ShapeType::WideFlange),
    FamilyOf<EUROPEANSECTION::HPShape>("HP Shape", 14, ShapeType::WideFlange),
    FamilyOf<EUROPEANSECTION::IPEShape>("IPE Shape", 1, ShapeType::WideFlange),
    FamilyOf<EUROPEANSECTION::SolidSquare>("Solid Square", 15, ShapeType::Prismatic),
    FamilyOf<EUROPEANSECTION::UPEChannel>("UPE Channel", 16, ShapeType::Channel),
    FamilyOf<EUROPEANSECTION::UAPChannel>("UAP Channel", 17, ShapeType::Channel),
    FamilyOf<EUROPEANSECTION::RHS>("RHS", 18, ShapeType::Tube),
    FamilyOf<EUROPEANSECTION::SHS>("SHS", 19, ShapeType::Tube),
    FamilyOf<EUROPEANSECTION::CHS>("CHS", 20, ShapeType::Pipe),
};

} // namespace

EuropeanSectionDB::EuropeanSectionDB() : CatalogueSectionDB(Tables) {}
