#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    FamilyOf<JINDALSECTION::IPEShape>("IPE Shape", 1, ShapeType::WideFlange),
    FamilyOf<JINDALSECTION::HEShape>("HE Shape", 2, ShapeType::WideFlange),
    FamilyOf<JINDALSECTION::UBShape>("UB Shape", 3, ShapeType::WideFlange),
    FamilyOf<JINDALSECTION::UCShape>("UC Shape", 4, ShapeType::WideFlange),
    FamilyOf<JINDALSECTION::ISMCShape>("ISMC Shape", 5, ShapeType::Channel),
    FamilyOf<JINDALSECTION::NPBShape>("NPB Shape", 7, ShapeType::WideFlange),
    FamilyOf<JINDALSECTION::WPBShape>("WPB Shape", 6, ShapeType::WideFlange),
};

} // namespace

JindalSectionDB::JindalSectionDB() : CatalogueSectionDB(Tables) {}
