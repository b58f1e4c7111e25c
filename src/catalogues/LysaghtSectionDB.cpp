#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    FamilyOf<LYSAGHTSECTION::ChannelWithLips>("Channel with Lips", 4, ShapeType::Channel),
    FamilyOf<LYSAGHTSECTION::ZeeWithLips>("Zee with Lips", 6, ShapeType::General),
};

} // namespace

LysaghtSectionDB::LysaghtSectionDB() : CatalogueSectionDB(Tables) {}
