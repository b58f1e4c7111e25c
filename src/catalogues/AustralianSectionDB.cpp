#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"UB Shape", 1, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"UC Shape", 2, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"WB Shape", 3, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"WC Shape", 4, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"Channel", 5, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"Angle", 6, LayoutId::Angle, ShapeType::Angle},
    SectionFamily{"Tube", 10, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"Pipe", 11, LayoutId::RoundTube, ShapeType::Pipe},
    SectionFamily{"RHS", 7, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"SHS", 8, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"CHS", 9, LayoutId::RoundTube, ShapeType::Pipe},
};

} // namespace

AustralianSectionDB::AustralianSectionDB() : CatalogueSectionDB(Tables) {}
