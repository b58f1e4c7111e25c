// The outcome of a private-profile call on one of the façade's two settings files.
#pragma once

#include "dataaccess/Guard.h"

namespace dbsection {

/// Whether the reading call just made has read the file, or there is none; a folder is none. A file
/// that cannot be read is reported: it must not be taken for one that says nothing.
bool SettingsWereRead(const CString& file, const FailureRule& rule);

/// Whether the writing call just made has succeeded; a failure is reported.
bool SettingsWereWritten(const CString& file, const FailureRule& rule);

} // namespace dbsection
