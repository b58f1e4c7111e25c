#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"I Shape", 1, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"Channel", 2, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"Angle", 3, LayoutId::Angle, ShapeType::Angle},
    SectionFamily{"Tube", 4, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"Pipe", 5, LayoutId::RoundTube, ShapeType::Pipe},
    SectionFamily{"T Shape", 6, LayoutId::Tee, ShapeType::Tee},
    SectionFamily{"H Shape", 7, LayoutId::IShape, ShapeType::WideFlange},
};

} // namespace

ChineseSectionDB::ChineseSectionDB() : CatalogueSectionDB(Tables) {}
