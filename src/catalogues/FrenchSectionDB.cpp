#include "catalogues/Catalogues.h"
#include "catalogues/SharedFamilies.h"

FrenchSectionDB::FrenchSectionDB() : CatalogueSectionDB(dbsection::HotRolledFamilies) {}
