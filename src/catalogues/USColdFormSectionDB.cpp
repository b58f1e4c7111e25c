#include "catalogues/Catalogues.h"
#include "catalogues/SharedFamilies.h"

USColdFormSectionDB::USColdFormSectionDB()
    : CatalogueSectionDB(std::span(dbsection::ColdFormedFamilies).first(9)) {}
