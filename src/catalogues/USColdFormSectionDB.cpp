#include "catalogues/Catalogues.h"
#include "catalogues/SharedFamilies.h"

USColdFormSectionDB::USColdFormSectionDB()
    : CatalogueSectionDB(std::span(dbsection::ColdFormedFamilies).first(9)) {}

void USColdFormSectionDB::GetAllSectionDataForGUI(int, CStringArray*, float (*)[16], unsigned int,
                                                  unsigned int) {}
