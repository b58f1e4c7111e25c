#include "catalogues/TimberSectionDB.h"

int TimberSectionDB::AddSectionData(WORD, SECTIONINFO*) { return 0; }

int TimberSectionDB::UpdateSectionData(WORD, SECTIONINFO*) { return 0; }

const SectionFamily* TimberSectionDB::RecordFamily(const CString& table) const {
    const SectionFamily& glued = Families()[0];
    const SectionFamily& sawn = Families()[1];
    return table == glued.table ? &glued : &sawn;
}
