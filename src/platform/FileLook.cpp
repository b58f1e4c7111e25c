#include "platform/FileLook.h"

#include "platform/CallState.h"
#include "platform/FileSystem.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <span>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

namespace dbsection {
namespace {

struct KeptLook {
    std::string path{}; ///< as it was given
    std::string native{};
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
    std::size_t count = 0;    ///< those that hold, which are the first ones
    std::uint64_t number = 0; ///< of those
    std::size_t next = 0;

    /// Lets go what no longer holds.
    void Renew(std::uint64_t newNumber) {
        if (number != newNumber)
            count = 0;
        number = newNumber;
    }

    /// The room behind those that hold, or else of one that was not used of late, which is moved
    /// there.
    KeptLook& Room() {
        while (count == Capacity)
            if (KeptLook& place = all[next++ % Capacity]; !std::exchange(place.wasUsed, false))
                std::swap(place, all[--count]);
        return all[count];
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
    kept.Renew(callState.looks);
    for (KeptLook& known : std::span(kept.all).first(isInCall ? kept.count : 0))
        if (known.path == path || IsSamePath(known.native, path)) {
            known.wasUsed = true;
            return known.look;
        }
    KeptLook& place = kept.Room();
    if (place.path != path) { // mostly it is that of the call before
        std::string native = NativePath(path);
        place.path = path;
        place.native = std::move(native);
    }
    Look(place.native, place.look);
    kept.count += isInCall ? 1 : 0;
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
