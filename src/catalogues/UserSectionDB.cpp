#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    FamilyOf<USERSECTION::WideFlange>("Wide Flange", 2001, ShapeType::WideFlange),
    FamilyOf<USERSECTION::Channel>("Channel", 2002, ShapeType::Channel),
    FamilyOf<USERSECTION::Angle>("Angle", 2003, ShapeType::Angle),
    FamilyOf<USERSECTION::DoubleAngle>("Double Angle", 2004, ShapeType::DoubleAngle),
    FamilyOf<USERSECTION::Tee>("Tee", 2005, ShapeType::Tee),
    FamilyOf<USERSECTION::Pipe>("Pipe", 2006, ShapeType::Pipe),
    FamilyOf<USERSECTION::Tube>("Tube", 2007, ShapeType::Tube),
    FamilyOf<USERSECTION::General>("General", 2008, ShapeType::General),
    FamilyOf<USERSECTION::ISection>("ISection", 2009, ShapeType::UserISection),
    FamilyOf<USERSECTION::Prismatic>("Prismatic", 2010, ShapeType::Prismatic),
};

} // namespace

UserSectionDB::UserSectionDB() : CatalogueSectionDB(Tables) {}
