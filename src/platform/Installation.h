// What was installed together with this library, wherever both were moved to.
#pragma once

#include "platform/Export.h"

#include <string>

namespace dbsection {

/// The native path at which the catalogues of this installation stand, whether they are there or
/// not; it follows from the place of the library (of the program that it is linked into, where it
/// is static). Empty where that cannot be told.
DBSECTION_API std::string InstalledCatalogueFolder();

/// The native path of the folder in which catalogues are looked for where the host names none: that
/// of SECTIONDB_FOLDER, or else that of this installation; empty where there is neither.
std::string DefaultCatalogueFolder();

} // namespace dbsection
