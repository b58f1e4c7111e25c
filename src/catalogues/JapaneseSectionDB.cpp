#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"H Shape", 1, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"H Shape old", 51, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"I Shape", 2, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"T Shape", 3, LayoutId::Tee, ShapeType::Tee},
    SectionFamily{"CT Shape", 11, LayoutId::Tee, ShapeType::Tee},
    SectionFamily{"T Shape Old", 52, LayoutId::Tee, ShapeType::Tee},
    SectionFamily{"Channel", 4, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"Angle", 5, LayoutId::Angle, ShapeType::Angle},
    SectionFamily{"Tube", 6, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"Pipe", 7, LayoutId::RoundTube, ShapeType::Pipe},
    SectionFamily{"RHS", 8, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"SHS", 9, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"CHS", 10, LayoutId::RoundTube, ShapeType::Pipe},
};

} // namespace

JapaneseSectionDB::JapaneseSectionDB() : CatalogueSectionDB(Tables) {}
