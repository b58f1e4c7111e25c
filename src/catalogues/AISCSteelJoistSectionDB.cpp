#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"OWJoistMaster", 1, LayoutId::Joist, ShapeType::General},
    SectionFamily{"OWJoistMaster", 2, LayoutId::Joist, ShapeType::General},
    SectionFamily{"OWJoistMaster", 3, LayoutId::Joist, ShapeType::General},
    SectionFamily{"OWJoistMaster", 4, LayoutId::Joist, ShapeType::General},
    SectionFamily{"JoistGirderMaster", 5, LayoutId::Joist, ShapeType::General},
};

} // namespace

AISCSteelJoistSectionDB::AISCSteelJoistSectionDB() : CatalogueSectionDB(Tables) {}
