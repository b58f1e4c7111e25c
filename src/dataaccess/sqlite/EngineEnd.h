// The end of the database engine within a process.
//
// SQLCipher 4 gives its memory back as the process ends, maybe before the last database of a host
// is closed. From then on nothing is asked of it: the system gives the rest back, and what was not
// committed is undone by whoever opens the file next.
#pragma once

namespace dbsection {

/// To be called once the engine is in use: what is registered later runs earlier.
void WatchEngineEnd();

bool HasEngineEnded();

} // namespace dbsection
