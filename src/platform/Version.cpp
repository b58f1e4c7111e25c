#include "platform/Version.h"

const char* dbsection_version() { return DBSECTION_VERSION; }
