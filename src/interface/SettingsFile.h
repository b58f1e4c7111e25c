// The files that the settings name, and the outcome of a private-profile call on one of the
// façade's two settings files.
#pragma once

#include "dataaccess/Guard.h"

namespace dbsection {

/// What GetDBIFileName and GetDatabaseFileName tell, for the steps of every look-up, which need no
/// copies: valid until the next call, or a change of the settings.
const CString& SelectionsFile();
const CString& DatabaseFile(int index);

/// Whether the reading call just made has read the file, or there is none; a folder is none. A file
/// that cannot be read is reported: it must not be taken for one that says nothing.
bool SettingsWereRead(const CString& file, const FailureRule& rule);

/// Whether the writing call just made has succeeded; a failure is reported.
bool SettingsWereWritten(const CString& file, const FailureRule& rule);

} // namespace dbsection
