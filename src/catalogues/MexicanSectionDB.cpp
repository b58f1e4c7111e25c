#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    FamilyOf<MEXICANSECTION::IEshape>("IEshape", 1, ShapeType::WideFlange),
    FamilyOf<MEXICANSECTION::IRshape>("IRshape", 2, ShapeType::WideFlange),
    FamilyOf<MEXICANSECTION::ISshape>("ISshape", 3, ShapeType::WideFlange),
    FamilyOf<MEXICANSECTION::CEchanel>("CEchanel", 4, ShapeType::Channel),
    FamilyOf<MEXICANSECTION::LDangle>("LDangle", 5, ShapeType::Angle),
    FamilyOf<MEXICANSECTION::LIangle>("LIangle", 6, ShapeType::Angle),
    FamilyOf<MEXICANSECTION::OCpipe>("OCpipe", 7, ShapeType::Pipe),
    FamilyOf<MEXICANSECTION::ORtube>("ORtube", 8, ShapeType::Tube),
    FamilyOf<MEXICANSECTION::ORtubeR>("ORtubeR", 9, ShapeType::Tube),
};

} // namespace

MexicanSectionDB::MexicanSectionDB() : CatalogueSectionDB(Tables) {}
