#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"S Shape", 1, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"I Shape", 2, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"M Shape", 3, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"W Shape", 4, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"T Shape", 5, LayoutId::Tee, ShapeType::Tee},
    SectionFamily{"Channel", 6, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"Angle", 7, LayoutId::Angle, ShapeType::Angle},
    SectionFamily{"Tube", 8, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"Pipe", 9, LayoutId::RoundTube, ShapeType::Pipe},
    SectionFamily{"NPB Shape", 11, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"WPB Shape", 10, LayoutId::IShape, ShapeType::WideFlange},
};

} // namespace

IndianSectionDB::IndianSectionDB() : CatalogueSectionDB(Tables) {}
