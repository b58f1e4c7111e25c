#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    FamilyOf<CANADIANTIMBERSECTION::GluedLaminatedTimber>("Glued Laminated Timber", 1,
                                                          ShapeType::Prismatic),
    FamilyOf<CANADIANTIMBERSECTION::SawnLumber>("Douglas Fir-Larch", 2, ShapeType::Prismatic),
    FamilyOf<CANADIANTIMBERSECTION::SawnLumber>("Hem-Fir", 3, ShapeType::Prismatic),
    FamilyOf<CANADIANTIMBERSECTION::SawnLumber>("Northern Species", 4, ShapeType::Prismatic),
    FamilyOf<CANADIANTIMBERSECTION::SawnLumber>("Spruce-Pine-Fir", 5, ShapeType::Prismatic),
};

} // namespace

CanadianTimberSectionDB::CanadianTimberSectionDB() : TimberSectionDB(Tables) {}
