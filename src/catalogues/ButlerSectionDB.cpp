#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    FamilyOf<BUTLERSECTION::ZeePurlins>("Zee Purlins", 6, ShapeType::General),
    FamilyOf<BUTLERSECTION::EaveStruts>("Eave Struts", 4, ShapeType::Channel),
    FamilyOf<BUTLERSECTION::BoxStruts>("Box Struts", 9, ShapeType::Tube),
    FamilyOf<BUTLERSECTION::WideFlange>("Wide Flange", 10, ShapeType::WideFlange),
    FamilyOf<BUTLERSECTION::TaperedWideFlange>("Tapered Wide Flange", 11, ShapeType::WideFlange),
    FamilyOf<BUTLERSECTION::SolidRound>("SolidRound", 12, ShapeType::Pipe),
};

} // namespace

ButlerSectionDB::ButlerSectionDB() : CatalogueSectionDB(Tables) {}

SECTIONINFO* ButlerSectionDB::GetSectionStructProperty(const char*, unsigned int, unsigned int,
                                                       int*) {
    return nullptr;
}

int ButlerSectionDB::AddSectionData(WORD, SECTIONINFO*) { return 0; }

int ButlerSectionDB::UpdateSectionData(WORD, SECTIONINFO*) { return 0; }
