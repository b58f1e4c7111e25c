#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"IEshape", 1, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"IRshape", 2, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"ISshape", 3, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"CEchanel", 4, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"LDangle", 5, LayoutId::Angle, ShapeType::Angle},
    SectionFamily{"LIangle", 6, LayoutId::Angle, ShapeType::Angle},
    SectionFamily{"OCpipe", 7, LayoutId::RoundTube, ShapeType::Pipe},
    SectionFamily{"ORtube", 8, LayoutId::RectangularTube, ShapeType::Tube},
    SectionFamily{"ORtubeR", 9, LayoutId::RectangularTube, ShapeType::Tube},
};

} // namespace

MexicanSectionDB::MexicanSectionDB() : CatalogueSectionDB(Tables) {}
