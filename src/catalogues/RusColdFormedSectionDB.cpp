#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    FamilyOf<RUSCOLDFORMEDSECTION::Pipe>("Pipe", 8, ShapeType::Pipe),
};

} // namespace

RusColdFormedSectionDB::RusColdFormedSectionDB() : CatalogueSectionDB(Tables) {}
