#include "catalogues/Catalogues.h"
#include "catalogues/SharedFamilies.h"

TataStructuraSectionDB::TataStructuraSectionDB() : CatalogueSectionDB(dbsection::HollowFamilies) {}
