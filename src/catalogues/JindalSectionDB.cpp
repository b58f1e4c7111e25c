#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"IPE Shape", 1, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"HE Shape", 2, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"UB Shape", 3, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"UC Shape", 4, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"ISMC Shape", 5, LayoutId::Channel, ShapeType::Channel},
    SectionFamily{"NPB Shape", 7, LayoutId::IShape, ShapeType::WideFlange},
    SectionFamily{"WPB Shape", 6, LayoutId::IShape, ShapeType::WideFlange},
};

} // namespace

JindalSectionDB::JindalSectionDB() : CatalogueSectionDB(Tables) {}
