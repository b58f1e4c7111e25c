#include "catalogues/Catalogues.h"

#include <array>

namespace {

constexpr std::array Tables{
    FamilyOf<ALUMINUMSECTION::AAStandardIBeams>("AA Standard I Beams", 1, ShapeType::WideFlange),
    FamilyOf<ALUMINUMSECTION::HBeam>("H Beam", 2, ShapeType::WideFlange),
    FamilyOf<ALUMINUMSECTION::ArmyNavyIBeam>("ArmyNavy I Beam", 3, ShapeType::WideFlange),
    FamilyOf<ALUMINUMSECTION::AmericanStandardIBeam>("American Standard I Beam", 4,
                                                     ShapeType::WideFlange),
    FamilyOf<ALUMINUMSECTION::IBeam>("I Beam", 5, ShapeType::WideFlange),
    FamilyOf<ALUMINUMSECTION::AAStandardChannel>("AA Standard Channel", 6, ShapeType::Channel),
    FamilyOf<ALUMINUMSECTION::Channel>("Channel", 7, ShapeType::Channel),
    FamilyOf<ALUMINUMSECTION::ArmyNavyChannel>("ArmyNavy Channel", 8, ShapeType::Channel),
    FamilyOf<ALUMINUMSECTION::SpecialChannel>("Special Channel", 9, ShapeType::Channel),
    FamilyOf<ALUMINUMSECTION::AmericanStandardChannel>("American Standard Channel", 10,
                                                       ShapeType::Channel),
    FamilyOf<ALUMINUMSECTION::EqualLegAngle>("Equal Leg Angle", 11, ShapeType::Angle),
    FamilyOf<ALUMINUMSECTION::SquareEndEqualLegAngle>("Square End Equal Leg Angle", 12,
                                                      ShapeType::Angle),
    FamilyOf<ALUMINUMSECTION::UnequalLegAngle>("Unequal Leg Angle", 13, ShapeType::Angle),
    FamilyOf<ALUMINUMSECTION::SquareEndUnequalLegAngle>("Square End Unequal Leg Angle", 14,
                                                        ShapeType::Angle),
    FamilyOf<ALUMINUMSECTION::SquareTube>("Square Tube", 15, ShapeType::Tube),
    FamilyOf<ALUMINUMSECTION::RectangularTube>("Rectangular Tube", 16, ShapeType::Tube),
    FamilyOf<ALUMINUMSECTION::RoundTube>("Round Tube", 17, ShapeType::Pipe),
    FamilyOf<ALUMINUMSECTION::Pipe>("Pipe", 18, ShapeType::Pipe),
    FamilyOf<ALUMINUMSECTION::ArmyNavyTee>("ArmyNavy Tee", 19, ShapeType::Tee),
    FamilyOf<ALUMINUMSECTION::Tee>("Tee", 20, ShapeType::Tee),
    FamilyOf<ALUMINUMSECTION::SpecialPipe>("Special Pipe", 21, ShapeType::Pipe),
    FamilyOf<ALUMINUMSECTION::Alloy>("Alloy", 22, ShapeType::General),
};

} // namespace

AluminumSectionDB::AluminumSectionDB() : CatalogueSectionDB(Tables) {}
