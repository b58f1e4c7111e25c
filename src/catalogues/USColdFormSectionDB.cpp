#include "catalogues/Catalogues.h"
#include "catalogues/SharedFamilies.h"

USColdFormSectionDB::USColdFormSectionDB()
    : CatalogueSectionDB(std::span(dbsection::ColdFormedFamilies).first(9)) {}

void USColdFormSectionDB::GetAllSectionDataForGUI(int sectionType, CStringArray* names,
                                                  float (*values)[16], unsigned int unit1,
                                                  unsigned int unit2) {
    SectionDBBase::GetAllSectionDataForGUI(sectionType, names, values, unit1, unit2);
}
