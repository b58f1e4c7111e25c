#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"AA Standard I Beams", 1, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"H Beam", 2, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"ArmyNavy I Beam", 3, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"American Standard I Beam", 4, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"I Beam", 5, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"AA Standard Channel", 6, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"Channel", 7, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"ArmyNavy Channel", 8, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"Special Channel", 9, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"American Standard Channel", 10, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"Equal Leg Angle", 11, LayoutId::Angle, ShapeType::Angle},
    SectionFamily{"Square End Equal Leg Angle", 12, LayoutId::Angle, ShapeType::Angle},
    SectionFamily{"Unequal Leg Angle", 13, LayoutId::Angle, ShapeType::Angle},
    SectionFamily{"Square End Unequal Leg Angle", 14, LayoutId::Angle, ShapeType::Angle},
    SectionFamily{"Square Tube", 15, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"Rectangular Tube", 16, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"Round Tube", 17, LayoutId::RoundTube, ShapeType::Pipe},
    SectionFamily{"Pipe", 18, LayoutId::RoundTube, ShapeType::Pipe},
    SectionFamily{"ArmyNavy Tee", 19, LayoutId::Tee, ShapeType::Tee},
    SectionFamily{"Tee", 20, LayoutId::Tee, ShapeType::Tee},
    SectionFamily{"Special Pipe", 21, LayoutId::RoundTube, ShapeType::Pipe},
    SectionFamily{"Alloy", 22, LayoutId::AluminiumAlloy, ShapeType::General},
};

} // namespace

AluminumSectionDB::AluminumSectionDB() : CatalogueSectionDB(Tables) {}
