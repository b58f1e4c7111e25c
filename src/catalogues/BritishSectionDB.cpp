#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"UB Shape", 1, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"UC Shape", 2, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"UP Shape", 3, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"JO Shape", 4, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"Channel", 5, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"Angle", 6, LayoutId::Angle, ShapeType::Angle},
    SectionFamily{"Tube", 7, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"Pipe", 8, LayoutId::RoundTube, ShapeType::Pipe},
};

} // namespace

BritishSectionDB::BritishSectionDB() : CatalogueSectionDB(Tables) {}
