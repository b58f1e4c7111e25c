// The plain files that were found undamaged.
#pragma once

#include "platform/FileVersion.h"

namespace dbsection {

/// The versions of files that this process found whole, or wrote itself since it did; those of the
/// last files. It lives as long as the process.
class WholeFiles {
public:
    static bool Contains(const FileVersion& version);

    /// Takes the place of another version of that file.
    static void Add(const FileVersion& version);
};

} // namespace dbsection
