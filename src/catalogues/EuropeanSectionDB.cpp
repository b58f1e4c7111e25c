#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"HE Shape", 2, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"DIL Shape", 3, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"IPN Shape", 4, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"U Channel", 5, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"UPN Channel", 6, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"Angle", 7, LayoutId::Angle, ShapeType::Angle},
    SectionFamily{"Tube", 8, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"Pipe", 9, LayoutId::RoundTube, ShapeType::Pipe},
    SectionFamily{"Bulb Flat", 10, LayoutId::BulbFlat, ShapeType::General},
    SectionFamily{"Flat Bar", 11, LayoutId::Rectangle, ShapeType::Prismatic},
    SectionFamily{"HD Shape", 12, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"HL Shape", 13, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"HP Shape", 14, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"IPE Shape", 1, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"Solid Square", 15, LayoutId::Rectangle, ShapeType::Prismatic},
    SectionFamily{"UPE Channel", 16, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"UAP Channel", 17, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"RHS", 18, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"SHS", 19, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"CHS", 20, LayoutId::RoundTube, ShapeType::Pipe},
};

} // namespace

EuropeanSectionDB::EuropeanSectionDB() : CatalogueSectionDB(Tables) {}
