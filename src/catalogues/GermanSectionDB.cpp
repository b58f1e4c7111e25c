#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    FamilyOf<GERMANSECTION::IPEShape>("IPE Shape", 1, ShapeType::WideFlange),
    FamilyOf<GERMANSECTION::HEShape>("HE Shape", 2, ShapeType::WideFlange),
    FamilyOf<GERMANSECTION::IShape>("I Shape", 3, ShapeType::WideFlange),
    FamilyOf<GERMANSECTION::UChannel>("U Channel", 4, ShapeType::Channel),
    FamilyOf<GERMANSECTION::Angle>("Angle", 5, ShapeType::Angle),
    FamilyOf<GERMANSECTION::Tube>("Tube", 6, ShapeType::Tube),
    FamilyOf<GERMANSECTION::Pipe>("Pipe", 7, ShapeType::Pipe),
};

} // namespace

GermanSectionDB::GermanSectionDB() : CatalogueSectionDB(Tables) {}
