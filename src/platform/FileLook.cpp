#include "platform/FileLook.h"

#include "platform/CallState.h"
#include "platform/FileSystem.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

namespace dbsection {
namespace {

struct KeptLook {
    std::uint64_t number = 0; ///< 0 is none
    std::string path{};
    FileLook look{};
    bool wasUsed = false; ///< since room was last looked for
};

constexpr std::size_t Capacity = 8; // more files than one step of a call depends on

/// Whether the thread's looks are gone: what ends behind them looks each time.
constinit thread_local bool areGone = false;

struct KeptLooks {
    KeptLooks() = default;
    KeptLooks(const KeptLooks&) = delete;
    KeptLooks& operator=(const KeptLooks&) = delete;
    ~KeptLooks() { areGone = true; }

    /// On the heap: a library that is loaded late has little room for a thread's own.
    std::vector<KeptLook> all = std::vector<KeptLook>(Capacity);
    std::size_t next = 0;

    /// The room of a look that was not used of late.
    KeptLook& Room() {
        for (;;) {
            KeptLook& place = all[next++ % Capacity];
            if (!std::exchange(place.wasUsed, false))
                return place;
        }
    }
};

void Look(const std::string& path, FileLook& look) {
    look.error = ::stat(path.c_str(), &look.status) == 0 ? 0 : errno;
}

const FileLook& LookAtTheEnd(std::string_view path) {
    static constinit thread_local FileLook look{};
    Look(NativePath(path), look);
    return look;
}

} // namespace

const FileLook& LookAt(std::string_view path) {
    if (areGone)
        return LookAtTheEnd(path);
    static thread_local KeptLooks kept;
    const bool isInCall = callState.depth > 0;
    if (isInCall)
        for (KeptLook& known : kept.all)
            if (known.number == callState.looks && IsSamePath(known.path, path)) {
                known.wasUsed = true;
                return known.look;
            }
    KeptLook& place = kept.Room();
    place.number = 0; // while it is not whole
    place.path = path;
    MakeNative(place.path);
    Look(place.path, place.look);
    if (isInCall)
        place.number = callState.looks;
    return place.look;
}

FileUser LookAtUser() {
    static constinit thread_local std::uint64_t number = 0; // 0 is none
    static constinit thread_local FileUser user{};
    const bool isInCall = callState.depth > 0;
    if (!isInCall || number != callState.looks)
        user = {::geteuid(), ::getegid()};
    number = isInCall ? callState.looks : 0;
    return user;
}

} // namespace dbsection
