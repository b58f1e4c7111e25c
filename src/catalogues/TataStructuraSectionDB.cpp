#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"RHS", 1, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"SHS", 2, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"CHS", 3, LayoutId::RoundTube, ShapeType::Pipe},
};

} // namespace

TataStructuraSectionDB::TataStructuraSectionDB() : CatalogueSectionDB(Tables) {}
