#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"Wide Flange", 2001, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"Channel", 2002, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"Angle", 2003, LayoutId::Angle, ShapeType::Angle},
    SectionFamily{"Double Angle", 2004, LayoutId::Angle, ShapeType::DoubleAngle},
    SectionFamily{"Tee", 2005, LayoutId::Tee, ShapeType::Tee},
    SectionFamily{"Pipe", 2006, LayoutId::RoundTube, ShapeType::Pipe},
    SectionFamily{"Tube", 2007, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"General", 2008, LayoutId::General, ShapeType::General},
    SectionFamily{"ISection", 2009, LayoutId::IShape, ShapeType::UserISection},
    SectionFamily{"Prismatic", 2010, LayoutId::Rectangle, ShapeType::Prismatic},
};

} // namespace

UserSectionDB::UserSectionDB() : CatalogueSectionDB(Tables) {}
