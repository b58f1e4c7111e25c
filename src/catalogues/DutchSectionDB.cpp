#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"HE Shape", 1, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"IPE Shape", 2, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"IPN Shape", 3, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"UPN Channel", 4, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"Angle", 5, LayoutId::Angle, ShapeType::Angle},
    SectionFamily{"Tube", 6, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"Pipe", 7, LayoutId::RoundTube, ShapeType::Pipe},
    SectionFamily{"PlateStrip", 8, LayoutId::Rectangle, ShapeType::Prismatic},
    SectionFamily{"SolidRound", 9, LayoutId::RoundBar, ShapeType::Pipe},
    SectionFamily{"SolidSquare", 10, LayoutId::Rectangle, ShapeType::Prismatic},
};

} // namespace

DutchSectionDB::DutchSectionDB() : CatalogueSectionDB(Tables) {}
