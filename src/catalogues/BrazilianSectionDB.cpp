#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    FamilyOf<BRAZILIANSECTION::I>("I", 1, ShapeType::WideFlange),
    FamilyOf<BRAZILIANSECTION::WH>("W_H", 2, ShapeType::WideFlange),
    FamilyOf<BRAZILIANSECTION::WI>("W_I", 3, ShapeType::WideFlange),
    FamilyOf<BRAZILIANSECTION::T>("T", 4, ShapeType::Tee),
    FamilyOf<BRAZILIANSECTION::Channel>("Channel", 5, ShapeType::Channel),
    FamilyOf<BRAZILIANSECTION::Angle>("Angle", 6, ShapeType::Angle),
    FamilyOf<BRAZILIANSECTION::TRE>("TRE", 7, ShapeType::Tube),
    FamilyOf<BRAZILIANSECTION::TQE>("TQE", 8, ShapeType::Tube),
    FamilyOf<BRAZILIANSECTION::TCE>("TCE", 9, ShapeType::Pipe),
    FamilyOf<BRAZILIANSECTION::Pipe>("Pipe", 10, ShapeType::Pipe),
    FamilyOf<BRAZILIANSECTION::CS>("CS", 11, ShapeType::WideFlange),
    FamilyOf<BRAZILIANSECTION::CVS>("CVS", 12, ShapeType::WideFlange),
    FamilyOf<BRAZILIANSECTION::VS>("VS", 13, ShapeType::WideFlange),
    FamilyOf<BRAZILIANSECTION::SShape>("S Shape", 14, ShapeType::WideFlange),
};

} // namespace

BrazilianSectionDB::BrazilianSectionDB() : CatalogueSectionDB(Tables) {}
