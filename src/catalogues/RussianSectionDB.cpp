#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"B Shape", 1, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"SH Shape", 2, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"K Shape", 3, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"I Shape", 4, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"Channel", 5, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"Angle", 6, LayoutId::Angle, ShapeType::Angle},
    SectionFamily{"Tube", 7, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"Pipe", 8, LayoutId::RoundTube, ShapeType::Pipe},
};

} // namespace

RussianSectionDB::RussianSectionDB() : CatalogueSectionDB(Tables) {}
