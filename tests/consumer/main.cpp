#include "dbSectionInterface.h"
#include "platform/Version.h"
#include "sections/Library.h"

#include <cmath>
#include <cstdio>
#include <cstring>

namespace {

/// The area of W12X26 in mm^2, through the façade; 0 where the catalogue is not found.
double AreaByTheFacade() {
    SectionDBInterface::InitSectionDBInterface();
    SectionDBBase* american = SectionDBInterface::m_SectionDBDrv.GetSectionDBObject(1);
    CSectionDatabase* database = SectionDBInterface::GetDatabasePtr(1);
    if (american == nullptr || database == nullptr)
        return 0;
    american->SetDatabase(database);
    int type = 0;
    SECTIONINFO* beam = american->GetSectionStructProperty("W12X26", 1004, 2007, &type);
    const double area = beam == nullptr || type != 1 ? 0 : beam->Area;
    delete beam;
    SectionDBInterface::ExitSectionDBInterface();
    return area;
}

} // namespace

/// Reads one section from the installed catalogues, without naming their folder.
int main() {
    const double area = AreaByTheFacade();
    const double sameArea = sections::Library().open("American").at("W12X26").area().in("mm^2");
    std::printf("W12X26: %.1f mm2, %.1f mm2\n", area, sameArea);
    const bool isRight = std::abs(area - 4935.47) < 0.01 && std::abs(sameArea - 4935.47) < 0.01;
    return isRight && std::strcmp(dbsection_version(), DBSECTION_VERSION) == 0 ? 0 : 1;
}
