#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"W Shape", 1, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"T Shape", 2, LayoutId::Tee, ShapeType::Tee},
    SectionFamily{"Channel", 3, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"Angle", 4, LayoutId::Angle, ShapeType::Angle},
    SectionFamily{"Tube", 5, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"Pipe", 6, LayoutId::RoundTube, ShapeType::Pipe},
    SectionFamily{"Rectangle", 7, LayoutId::Rectangle, ShapeType::Prismatic},
    SectionFamily{"Round", 8, LayoutId::RoundBar, ShapeType::Pipe},
    SectionFamily{"Zee", 9, LayoutId::ColdFormedLipped, ShapeType::General},
    SectionFamily{"General", 20, LayoutId::General, ShapeType::General},
};

} // namespace

GenericSectionDB::GenericSectionDB() : CatalogueSectionDB(Tables) {}
