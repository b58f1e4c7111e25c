#include "catalogues/Catalogues.h"

SECTIONINFO* ButlerSectionDB::GetSectionStructProperty(const char*, unsigned int, unsigned int,
                                                       int*) {
    return nullptr;
}

int ButlerSectionDB::AddSectionData(WORD, SECTIONINFO*) { return 0; }

int ButlerSectionDB::UpdateSectionData(WORD, SECTIONINFO*) { return 0; }
