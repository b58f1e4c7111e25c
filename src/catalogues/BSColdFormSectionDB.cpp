#include "catalogues/Catalogues.h"
#include "catalogues/SharedFamilies.h"

BSColdFormSectionDB::BSColdFormSectionDB()
    : CatalogueSectionDB(std::span(dbsection::ColdFormedFamilies).first(9)) {}
