// Tells the contents of a settings file apart.
#pragma once

#include <cstdint>

namespace dbsection {

/// As long as it stays the same, so does what the reading calls of PrivateProfile.h give for the
/// file; 0 where that is not sure. Sets the error that GetLastProfileError() tells, as they do.
std::uint64_t ProfileRevision(const char* file);

} // namespace dbsection
