#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    FamilyOf<BRITISHSECTION::UBShape>("UB Shape", 1, ShapeType::WideFlange),
    FamilyOf<BRITISHSECTION::UCShape>("UC Shape", 2, ShapeType::WideFlange),
    FamilyOf<BRITISHSECTION::UPShape>("UP Shape", 3, ShapeType::WideFlange),
    FamilyOf<BRITISHSECTION::JOShape>("JO Shape", 4, ShapeType::WideFlange),
    FamilyOf<BRITISHSECTION::Channel>("Channel", 5, ShapeType::Channel),
    FamilyOf<BRITISHSECTION::Angle>("Angle", 6, ShapeType::Angle),
    FamilyOf<BRITISHSECTION::Tube>("Tube", 7, ShapeType::Tube),
    FamilyOf<BRITISHSECTION::Pipe>("Pipe", 8, ShapeType::Pipe),
};

} // namespace

BritishSectionDB::BritishSectionDB() : CatalogueSectionDB(Tables) {}
