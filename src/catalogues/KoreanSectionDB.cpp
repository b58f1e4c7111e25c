#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"W Shape", 1, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"H Shape", 2, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"I Shape", 3, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"WT Shape", 4, LayoutId::Tee, ShapeType::Tee},
    SectionFamily{"Channel", 5, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"Angle", 6, LayoutId::Angle, ShapeType::Angle},
    SectionFamily{"Pipe", 7, LayoutId::RoundTube, ShapeType::Pipe},
    SectionFamily{"Tube", 8, LayoutId::RectangularTube, ShapeType::Tube},
};

} // namespace

KoreanSectionDB::KoreanSectionDB() : CatalogueSectionDB(Tables) {}
