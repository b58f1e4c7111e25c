// Looks at files: what the system tells of a file, asked once in a call of the host.
//
// One call of the host takes many steps on the same few files, each of which has to know whether
// the file still is what it was. What a call has seen holds for the rest of it, until something may
// have changed: the library writes, the engine works, or the host's own code is called
// (ForgetLooks).
#pragma once

#include <string_view>
#include <sys/stat.h>

namespace dbsection {

struct FileLook {
    int error; ///< 0, or why the file cannot be reached
    struct stat status;
};

/// Valid until the thread's next look.
const FileLook& LookAt(std::string_view path);

/// Who the process is to files.
struct FileUser {
    uid_t user;
    gid_t group;
    bool operator==(const FileUser&) const = default;
};

FileUser LookAtUser();

} // namespace dbsection
