#include "catalogues/Catalogues.h"
#include "catalogues/SharedFamilies.h"

AUSColdFormSectionDB::AUSColdFormSectionDB() : CatalogueSectionDB(dbsection::HollowFamilies) {}
