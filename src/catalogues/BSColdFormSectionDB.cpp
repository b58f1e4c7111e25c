#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"Angle without Lips", 1, LayoutId::ColdFormed, ShapeType::Angle},
    SectionFamily{"Angle with Lips", 2, LayoutId::ColdFormedLipped, ShapeType::Angle},
    SectionFamily{"Channel without Lips", 3, LayoutId::ColdFormed, ShapeType::Channel},
    SectionFamily{"Channel with Lips", 4, LayoutId::ColdFormedLipped, ShapeType::Channel},
    SectionFamily{"Zee without Lips", 5, LayoutId::ColdFormed, ShapeType::General},
    SectionFamily{"Zee with Lips", 6, LayoutId::ColdFormedLipped, ShapeType::General},
    SectionFamily{"Hat", 7, LayoutId::ColdFormed, ShapeType::General},
    SectionFamily{"Pipe", 8, LayoutId::RoundTube, ShapeType::Pipe},
    SectionFamily{"Tube", 9, LayoutId::RectangularTube, ShapeType::Tube},
};

} // namespace

BSColdFormSectionDB::BSColdFormSectionDB() : CatalogueSectionDB(Tables) {}
