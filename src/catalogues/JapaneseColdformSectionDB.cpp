#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    FamilyOf<JAPANESECOLDFORMSECTION::BCP235325>("BCP 235 325", 11, ShapeType::Tube),
    FamilyOf<JAPANESECOLDFORMSECTION::BCP325T>("BCP 325T", 12, ShapeType::Tube),
    FamilyOf<JAPANESECOLDFORMSECTION::BCR295>("BCR 295", 13, ShapeType::Tube),
};

} // namespace

JapaneseColdformSectionDB::JapaneseColdformSectionDB() : CatalogueSectionDB(Tables) {}
