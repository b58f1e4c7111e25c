#include "catalogues/Catalogues.h"

#include "dataaccess/Guard.h"

#include <string_view>

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
