#include "catalogues/Catalogues.h"
#include "catalogues/SharedFamilies.h"

APLApolloTubesSectionDB::APLApolloTubesSectionDB()
    : CatalogueSectionDB(dbsection::HollowFamilies) {}
