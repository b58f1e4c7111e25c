#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    FamilyOf<STOASCHMSECTION::BShape>("B Shape", 1, ShapeType::WideFlange),
    FamilyOf<STOASCHMSECTION::SHShape>("SH Shape", 2, ShapeType::WideFlange),
    FamilyOf<STOASCHMSECTION::KShape>("K Shape", 3, ShapeType::WideFlange),
};

} // namespace

STOASChMSectionDB::STOASChMSectionDB() : CatalogueSectionDB(Tables) {}
