// Design records of castellated beams.
#include "interface/SectionDBInterface.h"

#include "catalogues/Catalogues.h"
#include "interface/PublicCall.h"

#include <utility>

namespace {

void FillRecord(int catalogue, int type, const char* name, CastellatedRecord& record) {
    if (SectionDBInterface::OpenSectionDatabase(catalogue, &gblSectionDatabase) != 1)
        return;
    const CString table = SectionDBInterface::GetTableFromSectionType(catalogue, type);
    AISCSectionDB american;
    american.SetDatabase(gblSectionDatabase);
    CastellatedRecord read = record;
    if (american.ReadSection(table, name, read, CastellatedRecord::Layout) == 1)
        record = std::move(read);
}

} // namespace

void SectionDBInterface::GetCastellatedNonCompBeamData(
    int catalogue, int type, const char* name, AISCSECTION::AM_CastellatedNonCompBeam& record) {
    dbsection::PublicCall("GetCastellatedNonCompBeamData()",
                          [&] { FillRecord(catalogue, type, name, record); });
}

void SectionDBInterface::GetCastellatedCompBeamData(int catalogue, int type, const char* name,
                                                    AISCSECTION::AM_CastellatedCompBeam& record) {
    dbsection::PublicCall("GetCastellatedCompBeamData()",
                          [&] { FillRecord(catalogue, type, name, record); });
}
