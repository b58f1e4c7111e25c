// Design records of castellated beams.
#include "interface/SectionDBInterface.h"

#include "catalogues/Catalogues.h"

namespace {

void FillRecord(int catalogue, int type, const char* name, CastellatedRecord& record) {
    if (SectionDBInterface::OpenSectionDatabase(catalogue, &gblSectionDatabase) != 1)
        return;
    const CString table = SectionDBInterface::GetTableFromSectionType(catalogue, type);
    AISCSectionDB american;
    american.SetDatabase(gblSectionDatabase);
    american.ReadSection(table, name, record, CastellatedRecord::Layout);
}

} // namespace

void SectionDBInterface::GetCastellatedNonCompBeamData(
    int catalogue, int type, const char* name, AISCSECTION::AM_CastellatedNonCompBeam& record) {
    FillRecord(catalogue, type, name, record);
}

void SectionDBInterface::GetCastellatedCompBeamData(int catalogue, int type, const char* name,
                                                    AISCSECTION::AM_CastellatedCompBeam& record) {
    FillRecord(catalogue, type, name, record);
}
