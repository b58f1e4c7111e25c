#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"I Shape", 1, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"H Shape", 2, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"PG Shape", 3, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"C Channel", 4, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"Angle", 5, LayoutId::Angle, ShapeType::Angle},
    SectionFamily{"Tube", 6, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"Pipe", 7, LayoutId::RoundTube, ShapeType::Pipe},
};

} // namespace

SouthAfricanSectionDB::SouthAfricanSectionDB() : CatalogueSectionDB(Tables) {}
