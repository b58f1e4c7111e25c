#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    FamilyOf<AITCTIMBERSECTION::GluedLaminatedTimber>("Glued Laminated Timber", 1,
                                                      ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Aspen", 2, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Balsam Fir", 3, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Beech-Birch-Hickory", 4, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Coast Sitka Spruce", 5, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Cottonwood", 6, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Douglas Fir-Larch", 7, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Douglas Fir-Larch (North)", 8, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Douglas Fir-Larch (South)", 9, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Eastern Hemlock", 10, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Eastern Hemlock-Tamarack", 11, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Eastern Hemlock-Tamarack (N)", 12,
                                            ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Eastern Softwoods", 13, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Eastern Spruce", 14, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Eastern White Pine", 15, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Hem-Fir", 16, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Hem-Fir (North)", 17, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Mixed Maple", 18, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Mixed Oak", 19, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Mixed Southern Pine", 20, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Mountain Hemlock", 21, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Northern Pine", 22, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Northern Red Oak", 23, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Northern Species", 24, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Northern White Cedar", 25, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Ponderosa Pine", 26, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Red Maple", 27, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Red Oak", 28, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Red Pine", 29, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Redwood", 30, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Sitka Spruce", 31, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Southern Pine", 32, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Spruce-Pine-Fir", 33, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Spruce-Pine-Fir (South)", 34, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Western Cedars", 35, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Western Cedars (North)", 36, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Western Hemlock", 37, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Western Hemlock (North)", 38, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Western White Pine", 39, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Western Woods", 40, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("White Oak", 41, ShapeType::Prismatic),
    FamilyOf<AITCTIMBERSECTION::SawnLumber>("Yellow Poplar", 42, ShapeType::Prismatic),
};

} // namespace

AITCTimberSectionDB::AITCTimberSectionDB() : TimberSectionDB(Tables) {}
