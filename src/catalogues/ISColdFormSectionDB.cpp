#include "catalogues/Catalogues.h"
#include "catalogues/SharedFamilies.h"

ISColdFormSectionDB::ISColdFormSectionDB()
    : CatalogueSectionDB(std::span(dbsection::ColdFormedFamilies).first(7)) {}
