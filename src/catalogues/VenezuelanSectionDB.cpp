#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"Beam", 1, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"Channel", 2, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"Angle", 3, LayoutId::Angle, ShapeType::Angle},
    SectionFamily{"Tube", 4, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"Pipe", 5, LayoutId::RoundTube, ShapeType::Pipe},
};

} // namespace

VenezuelanSectionDB::VenezuelanSectionDB() : CatalogueSectionDB(Tables) {}
