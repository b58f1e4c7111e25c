#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"BCP 235 325", 11, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"BCP 325T", 12, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"BCR 295", 13, LayoutId::RectangularTube, ShapeType::Tube},
};

} // namespace

JapaneseColdformSectionDB::JapaneseColdformSectionDB() : CatalogueSectionDB(Tables) {}
