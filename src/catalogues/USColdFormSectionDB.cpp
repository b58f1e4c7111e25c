#include "catalogues/Catalogues.h"

void USColdFormSectionDB::GetAllSectionDataForGUI(int, CStringArray*, float (*)[16], unsigned int,
                                                  unsigned int) {}
