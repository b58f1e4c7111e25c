#include "catalogues/Catalogues.h"
#include "catalogues/SharedFamilies.h"

RCecoColdFormSectionDB::RCecoColdFormSectionDB()
    : CatalogueSectionDB(dbsection::ColdFormedFamilies) {}
