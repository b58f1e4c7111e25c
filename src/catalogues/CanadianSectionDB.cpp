#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"W Shape", 1, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"M Shape", 2, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"S Shape", 3, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"HP Shape", 4, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"WW Shape", 5, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"Channel", 6, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"MC Channel", 7, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"Angle", 8, LayoutId::Angle, ShapeType::Angle},
    SectionFamily{"Tube", 9, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"Pipe", 10, LayoutId::RoundTube, ShapeType::Pipe},
    SectionFamily{"HSS Rectangle", 11, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"HSS Round", 12, LayoutId::RoundTube, ShapeType::Pipe},
};

} // namespace

CanadianSectionDB::CanadianSectionDB() : CatalogueSectionDB(Tables) {}
