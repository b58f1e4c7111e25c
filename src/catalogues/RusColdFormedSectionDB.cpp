#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    SectionFamily{"Pipe", 8, LayoutId::RoundTube, ShapeType::Pipe},
};

} // namespace

RusColdFormedSectionDB::RusColdFormedSectionDB() : CatalogueSectionDB(Tables) {}
