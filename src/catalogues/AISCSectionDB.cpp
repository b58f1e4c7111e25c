#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"W Shape", 1, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"M Shape", 2, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"S Shape", 3, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"B Shape", 5, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"HP Shape", 4, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"Channel", 6, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"MC Channel", 7, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"Angle", 8, LayoutId::Angle, ShapeType::Angle},
    SectionFamily{"Tube", 9, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"Pipe", 10, LayoutId::RoundTube, ShapeType::Pipe},
    SectionFamily{"HSS Rectangle", 11, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"HSS Round", 12, LayoutId::RoundTube, ShapeType::Pipe},
    SectionFamily{"HSS Rectangle A1085", 23, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"HSS Round A1085", 24, LayoutId::RoundTube, ShapeType::Pipe},
    SectionFamily{"Castellated NonComp Beam", 13, LayoutId::Castellated, ShapeType::WideFlange},
    SectionFamily{"Castellated Comp Beam", 14, LayoutId::Castellated, ShapeType::WideFlange},
    SectionFamily{"Rod", 15, LayoutId::RoundBar, ShapeType::Pipe},
    SectionFamily{"Cable", 16, LayoutId::Cable, ShapeType::General},
};

} // namespace

AISCSectionDB::AISCSectionDB() : CatalogueSectionDB(Tables) {}
