// The user's selection of a table that is known by name.
#pragma once

#include "platform/CString.h"
#include "platform/Collections.h"
#include "platform/Export.h"

namespace dbsection {

/// Writes the user's selection of the sections of a catalogue's table into the first elements of an
/// array, as GetUserSelectedSections does. False where it cannot be read, which is reported.
DBSECTION_API bool ReadSelection(int index, const CString& table, CDWordArray& selection);

} // namespace dbsection
