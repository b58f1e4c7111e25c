#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    FamilyOf<VENEZUELANSECTION::Beam>("Beam", 1, ShapeType::WideFlange),
    FamilyOf<VENEZUELANSECTION::Channel>("Channel", 2, ShapeType::Channel),
    FamilyOf<VENEZUELANSECTION::Angle>("Angle", 3, ShapeType::Angle),
    FamilyOf<VENEZUELANSECTION::Tube>("Tube", 4, ShapeType::Tube),
    FamilyOf<VENEZUELANSECTION::Pipe>("Pipe", 5, ShapeType::Pipe),
};

} // namespace

VenezuelanSectionDB::VenezuelanSectionDB() : CatalogueSectionDB(Tables) {}
