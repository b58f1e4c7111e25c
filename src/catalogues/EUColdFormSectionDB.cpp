#include "catalogues/Catalogues.h"
#include "catalogues/SharedFamilies.h"

EUColdFormSectionDB::EUColdFormSectionDB() : CatalogueSectionDB(dbsection::HollowFamilies) {}
