#include "dataaccess/sqlite/EngineEnd.h"

#include <atomic>
#include <cstdlib>

namespace dbsection {
namespace {

constinit std::atomic<bool> hasEnded = false;

} // namespace

void WatchEngineEnd() {
    static const int registered = std::atexit([] { hasEnded = true; });
    static_cast<void>(registered);
}

bool HasEngineEnded() { return hasEnded; }

} // namespace dbsection
