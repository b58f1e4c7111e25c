#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"Zee Purlins", 6, LayoutId::ColdFormedLipped, ShapeType::General},
    SectionFamily{"Eave Struts", 4, LayoutId::ColdFormedLipped, ShapeType::Channel},
    SectionFamily{"Box Struts", 9, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"Wide Flange", 10, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"Tapered Wide Flange", 11, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"SolidRound", 12, LayoutId::RoundBar, ShapeType::Pipe},
};

} // namespace

ButlerSectionDB::ButlerSectionDB() : CatalogueSectionDB(Tables) {}
