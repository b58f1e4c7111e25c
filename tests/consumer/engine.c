/* Reads one section as an analysis engine does, from the installed catalogues. */
#include "engine/SectionEngine.h"
#include "platform/Version.h"

#include <stdio.h>

int main(void) {
    int32_t catalogue = 1, type = 1, millimetre = 1004, count = 0, values_count = 0, err = 0;
    float values[17] = {0};
    OPENSECTIONDATABASE(&catalogue, &err);
    GETSECTION(&catalogue, &type, "W12X26", 6, &millimetre, values, &count, &values_count, &err);
    char name[16] = "", unit[16] = "";
    int32_t opened = 0, inertia = 5, status = 0;
    GETOPENCATALOGUE(&opened, &err);
    GETVALUENAME(&catalogue, &type, &inertia, name, sizeof name, &status, &err);
    GETVALUEUNIT(&catalogue, &type, &inertia, &millimetre, unit, sizeof unit, &status, &err);
    printf("catalogue %d: %s %.4g %s\n", (int)opened, name, values[5], unit);
    CLOSESECTIONDATABASE(&err);
    printf("%s: %d section, %.1f mm2\n", dbsection_version(), (int)count, values[0]);
    return count == 1 && values[0] > 4935 && values[0] < 4936 ? 0 : 1;
}
