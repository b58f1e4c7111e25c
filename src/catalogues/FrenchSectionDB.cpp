#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"IPE Shape", 1, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"HE Shape", 2, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"IPN Shape", 3, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"Channel", 4, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"Angle", 5, LayoutId::Angle, ShapeType::Angle},
    SectionFamily{"Tube", 6, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"Pipe", 7, LayoutId::RoundTube, ShapeType::Pipe},
};

} // namespace

FrenchSectionDB::FrenchSectionDB() : CatalogueSectionDB(Tables) {}
