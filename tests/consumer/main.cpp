#include "dbSectionInterface.h"

#include <cmath>
#include <cstdio>

/// Reads one section from the catalogue folder given as argument.
int main(int argc, char** argv) {
    if (argc != 2)
        return 2;
    SectionDBInterface::SetProfileDBFolder(CString(argv[1]) + '\\');
    SectionDBInterface::InitSectionDBInterface();
    SectionDBBase* american = SectionDBInterface::m_SectionDBDrv.GetSectionDBObject(1);
    if (american == nullptr)
        return 1;
    american->SetDatabase(SectionDBInterface::GetDatabasePtr(1));
    int type = 0;
    SECTIONINFO* beam = american->GetSectionStructProperty("W12X26", 1004, 2007, &type);
    const bool right = beam != nullptr && type == 1 && std::abs(beam->Area - 4935.47) < 0.01;
    std::printf("W12X26: %.1f mm2\n", beam == nullptr ? 0.0 : beam->Area);
    delete beam;
    SectionDBInterface::ExitSectionDBInterface();
    return right ? 0 : 1;
}
