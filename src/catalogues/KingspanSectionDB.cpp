#include "catalogues/Catalogues.h"
#include "catalogues/SharedFamilies.h"

KingspanSectionDB::KingspanSectionDB()
    : CatalogueSectionDB(std::span(dbsection::ColdFormedFamilies).first(9)) {}
