#include "catalogues/Catalogues.h"

#include "dataaccess/Guard.h"

#include <array>
#include <string_view>

namespace {

constexpr std::array Tables{
    FamilyOf<AISCSECTION::AM_WShape>("W Shape", 1, ShapeType::WideFlange),
    FamilyOf<AISCSECTION::AM_MShape>("M Shape", 2, ShapeType::WideFlange),
    FamilyOf<AISCSECTION::AM_SShape>("S Shape", 3, ShapeType::WideFlange),
    FamilyOf<AISCSECTION::AM_BShape>("B Shape", 5, ShapeType::WideFlange),
    FamilyOf<AISCSECTION::AM_HPShape>("HP Shape", 4, ShapeType::WideFlange),
    FamilyOf<AISCSECTION::AM_Channel>("Channel", 6, ShapeType::Channel),
    FamilyOf<AISCSECTION::AM_MCChannel>("MC Channel", 7, ShapeType::Channel),
    FamilyOf<AISCSECTION::AM_Angle>("Angle", 8, ShapeType::Angle),
    FamilyOf<AISCSECTION::AM_Tube>("Tube", 9, ShapeType::Tube),
    FamilyOf<AISCSECTION::AM_Pipe>("Pipe", 10, ShapeType::Pipe),
    FamilyOf<AISCSECTION::AM_HSSRectangle>("HSS Rectangle", 11, ShapeType::Tube),
    FamilyOf<AISCSECTION::AM_HSSRound>("HSS Round", 12, ShapeType::Pipe),
    FamilyOf<AISCSECTION::AM_HSSRectangleA1085>("HSS Rectangle A1085", 23, ShapeType::Tube),
    FamilyOf<AISCSECTION::AM_HSSRoundA1085>("HSS Round A1085", 24, ShapeType::Pipe),
    FamilyOf<AISCSECTION::AM_CastellatedNonCompBeam>("Castellated NonComp Beam", 13,
                                                     ShapeType::WideFlange),
    FamilyOf<AISCSECTION::AM_CastellatedCompBeam>("Castellated Comp Beam", 14,
                                                  ShapeType::WideFlange),
    FamilyOf<AISCSECTION::AM_Rod>("Rod", 15, ShapeType::Pipe),
    FamilyOf<AISCSECTION::AM_Cable>("Cable", 16, ShapeType::General),
};

} // namespace

AISCSectionDB::AISCSectionDB() : CatalogueSectionDB(Tables) {}

int AISCSectionDB::GetSectionDataForGUIAllValues(int /*index*/, const char* name, int* sectionType,
                                                 int* recordNo, float* values) {
    return dbsection::Operation("GetSectionDataForGUIAllValues()", [&] {
        return DisplaySection(name, sectionType, recordNo, values, nullptr);
    });
}

/// Castellated beams are read from tables whose names have blanks, and edited in tables whose names
/// have none.
const SectionFamily* AISCSectionDB::EditedFamily(const CString& table) const {
    if (table == "CastellatedNonCompBeam")
        return FindFamily("Castellated NonComp Beam");
    if (table == "CastellatedCompBeam")
        return FindFamily("Castellated Comp Beam");
    const SectionFamily* family = FindFamily(table);
    return family != nullptr && family->layout == LayoutId::Castellated ? nullptr : family;
}

CString AISCSectionDB::DuplicateCaption(const SectionFamily& family) const {
    const std::string_view table = family.table;
    if (table.starts_with("HSS"))
        return family.table;
    return table == "Rod" || table == "Cable" ? "Rod" : "Wide Flange";
}
