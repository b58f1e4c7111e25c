#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    FamilyOf<GENERICSECTION::WShape>("W Shape", 1, ShapeType::WideFlange),
    FamilyOf<GENERICSECTION::TShape>("T Shape", 2, ShapeType::Tee),
    FamilyOf<GENERICSECTION::Channel>("Channel", 3, ShapeType::Channel),
    FamilyOf<GENERICSECTION::Angle>("Angle", 4, ShapeType::Angle),
    FamilyOf<GENERICSECTION::Tube>("Tube", 5, ShapeType::Tube),
    FamilyOf<GENERICSECTION::Pipe>("Pipe", 6, ShapeType::Pipe),
    FamilyOf<GENERICSECTION::Rectangle>("Rectangle", 7, ShapeType::Prismatic),
    FamilyOf<GENERICSECTION::Round>("Round", 8, ShapeType::Pipe),
    FamilyOf<GENERICSECTION::Zee>("Zee", 9, ShapeType::General),
    FamilyOf<GENERICSECTION::General>("General", 20, ShapeType::General),
};

} // namespace

GenericSectionDB::GenericSectionDB() : CatalogueSectionDB(Tables) {}
