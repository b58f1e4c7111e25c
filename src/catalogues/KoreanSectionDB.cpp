#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    FamilyOf<KOREANSECTION::WShape>("W Shape", 1, ShapeType::WideFlange),
    FamilyOf<KOREANSECTION::HShape>("H Shape", 2, ShapeType::WideFlange),
    FamilyOf<KOREANSECTION::IShape>("I Shape", 3, ShapeType::WideFlange),
    FamilyOf<KOREANSECTION::WTShape>("WT Shape", 4, ShapeType::Tee),
    FamilyOf<KOREANSECTION::Channel>("Channel", 5, ShapeType::Channel),
    FamilyOf<KOREANSECTION::Angle>("Angle", 6, ShapeType::Angle),
    FamilyOf<KOREANSECTION::Pipe>("Pipe", 7, ShapeType::Pipe),
    FamilyOf<KOREANSECTION::Tube>("Tube", 8, ShapeType::Tube),
};

} // namespace

KoreanSectionDB::KoreanSectionDB() : CatalogueSectionDB(Tables) {}
