#include "catalogues/Catalogues.h"
#include "catalogues/SharedFamilies.h"

SpanishSectionDB::SpanishSectionDB() : CatalogueSectionDB(dbsection::HotRolledFamilies) {}
