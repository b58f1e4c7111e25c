#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"I", 1, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"W_H", 2, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"W_I", 3, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"T", 4, LayoutId::Tee, ShapeType::Tee},
    SectionFamily{"Channel", 5, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"Angle", 6, LayoutId::Angle, ShapeType::Angle},
    SectionFamily{"TRE", 7, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"TQE", 8, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"TCE", 9, LayoutId::RoundTube, ShapeType::Pipe},
    SectionFamily{"Pipe", 10, LayoutId::RoundTube, ShapeType::Pipe},
    SectionFamily{"CS", 11, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"CVS", 12, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"VS", 13, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"S Shape", 14, LayoutId::IShape, ShapeType::WideFlange},
};

} // namespace

BrazilianSectionDB::BrazilianSectionDB() : CatalogueSectionDB(Tables) {}
