#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"Glued Laminated Timber", 1, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Aspen", 2, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Balsam Fir", 3, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Beech-Birch-Hickory", 4, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Coast Sitka Spruce", 5, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Cottonwood", 6, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Douglas Fir-Larch", 7, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Douglas Fir-Larch (North)", 8, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Douglas Fir-Larch (South)", 9, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Eastern Hemlock", 10, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Eastern Hemlock-Tamarack", 11, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Eastern Hemlock-Tamarack (N)", 12, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Eastern Softwoods", 13, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Eastern Spruce", 14, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Eastern White Pine", 15, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Hem-Fir", 16, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Hem-Fir (North)", 17, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Mixed Maple", 18, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Mixed Oak", 19, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Mixed Southern Pine", 20, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Mountain Hemlock", 21, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Northern Pine", 22, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Northern Red Oak", 23, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Northern Species", 24, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Northern White Cedar", 25, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Ponderosa Pine", 26, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Red Maple", 27, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Red Oak", 28, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Red Pine", 29, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Redwood", 30, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Sitka Spruce", 31, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Southern Pine", 32, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Spruce-Pine-Fir", 33, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Spruce-Pine-Fir (South)", 34, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Western Cedars", 35, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Western Cedars (North)", 36, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Western Hemlock", 37, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Western Hemlock (North)", 38, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Western White Pine", 39, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Western Woods", 40, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"White Oak", 41, LayoutId::Timber, ShapeType::Prismatic},
    SectionFamily{"Yellow Poplar", 42, LayoutId::Timber, ShapeType::Prismatic},
};

} // namespace

AITCTimberSectionDB::AITCTimberSectionDB() : CatalogueSectionDB(Tables) {}
