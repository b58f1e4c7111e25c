#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"B Shape", 1, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"SH Shape", 2, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"K Shape", 3, LayoutId::IShape, ShapeType::WideFlange},
};

} // namespace

STOASChMSectionDB::STOASChMSectionDB() : CatalogueSectionDB(Tables) {}
