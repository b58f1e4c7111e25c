#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"Glued Laminated Timber", 1, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Douglas Fir-Larch", 2, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Hem-Fir", 3, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Northern Species", 4, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Spruce-Pine-Fir", 5, LayoutId::Timber, ShapeType::Prismatic},
};

} // namespace

CanadianTimberSectionDB::CanadianTimberSectionDB() : CatalogueSectionDB(Tables) {}
