#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"Channel with Lips", 4, LayoutId::ColdFormedLipped, ShapeType::Channel},
    SectionFamily{"Zee with Lips", 6, LayoutId::ColdFormedLipped, ShapeType::General},
};

} // namespace

LysaghtSectionDB::LysaghtSectionDB() : CatalogueSectionDB(Tables) {}
