// Private-profile files: settings kept as sectioned `key=value` text.
//
//     unsigned flag = GetPrivateProfileIntA("CustomDBFlags", "AISCSections", 0,
//     "C:\\Data\\Custom.Ini");
//
// Section and key count without regard to case. Blanks around a name or a value are dropped, and
// so is one pair of quotes around a value. Lines beginning with `;` or `#` are comments; a line
// without `=` is no entry, nor is one before the first section. The first section of a name and
// the first key in it count. Files above 16 MiB are refused (EFBIG).
//
// Each call sets the error that GetLastProfileError() tells: a file that cannot be read gives the
// same values as one without the entry.
#pragma once

#include "platform/Collections.h"
#include "platform/Export.h"

#include <span>

#ifndef __AFX_H__

/// The value's leading integer, a negative one wrapped; 0 when it has none, `defaultValue` when
/// there is no such entry.
DBSECTION_API unsigned GetPrivateProfileIntA(const char* section, const char* key, int defaultValue,
                                             const char* file);

/// Copies the value, or `defaultValue` when there is no such entry, into a buffer of `size` bytes:
/// cut to fit and always terminated. Returns the number of characters copied.
DBSECTION_API DWORD GetPrivateProfileStringA(const char* section, const char* key,
                                             const char* defaultValue, char* buffer, DWORD size,
                                             const char* file);

/// Writes one entry (see WritePrivateProfileEntries). Returns 1, or 0 on failure.
DBSECTION_API int WritePrivateProfileStringA(const char* section, const char* key,
                                             const char* value, const char* file);

#endif

/// One change of a settings file: a null value deletes the key, a null key the section.
struct ProfileEntry {
    const char* section;
    const char* key;
    const char* value;
};

/// Makes the changes in their order and in one step: readers find all of them or none, and
/// everything else in the file stays byte for byte. A missing file is created. Processes that write
/// in the same folder wait for each other, five seconds at most (EWOULDBLOCK). Returns 1, or 0 on
/// failure, the file then being unchanged; names that could not be read back and values of several
/// lines are refused (EINVAL).
DBSECTION_API int WritePrivateProfileEntries(std::span<const ProfileEntry> entries,
                                             const char* file);

/// Creates a file of these entries, maybe none, in the same way; one that there is stays as it is.
DBSECTION_API int CreatePrivateProfile(std::span<const ProfileEntry> entries, const char* file);

/// Error number of the last private-profile call: 0 success, 2 missing file, else as errno.
DBSECTION_API int GetLastProfileError();
