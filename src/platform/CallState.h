// The host's call that is under way: who made a call of a public function, the host or the library
// itself, and what failed in the course of it.
//
// What fails inside the library must reach the call that the host made, which alone can fail as a
// whole; the host, even from a message box of the library, must never meet an exception.
#pragma once

#include <cstdint>
#include <utility>

namespace dbsection {

struct CallState {
    enum class Memory : std::uint8_t { Sufficed, RanOut, Reported };

    int depth = 0; ///< public functions that the thread is in, from the host's call on
    Memory memory = Memory::Sufficed;
    int failures = 0;        ///< reported so far
    std::uint64_t looks = 0; ///< number of the looks at files that hold (FileLook.h), only growing
};

inline constinit thread_local CallState callState;

/// Ends what the thread has learnt of files: they may be others from here on.
inline void ForgetLooks() { ++callState.looks; }

/// Told by whoever meets an exhaustion of memory and goes on: the host's call is to fail.
inline void NoteMemoryRanOut() {
    if (callState.memory == CallState::Memory::Sufficed)
        callState.memory = CallState::Memory::RanOut;
}

/// The stay in a public function.
class CallScope {
public:
    CallScope() : m_isHosts(callState.depth++ == 0) {
        if (m_isHosts)
            callState = {.depth = 1, .looks = callState.looks + 1};
    }
    CallScope(const CallScope&) = delete;
    CallScope& operator=(const CallScope&) = delete;
    ~CallScope() { --callState.depth; }

    /// Whether the host made the call.
    bool IsHosts() const { return m_isHosts; }

private:
    bool m_isHosts;
};

/// Ends a call of the host whose failure has been reported already.
struct ReportedFailure {};

/// Tells, inside a public function, whether something has failed since it was made: what was not
/// found may then be there.
class FailureWatch {
public:
    bool HasSeenAny() const {
        return callState.failures != m_before || callState.memory != CallState::Memory::Sufficed;
    }

private:
    int m_before = callState.failures;
};

/// The stay in the host's own code, which may call the library in its turn.
class HostScope {
public:
    HostScope() = default;
    HostScope(const HostScope&) = delete;
    HostScope& operator=(const HostScope&) = delete;
    ~HostScope() {
        m_outer.looks = callState.looks + 1;
        callState = m_outer;
    }

private:
    CallState m_outer = std::exchange(callState, {.looks = callState.looks + 1});
};

} // namespace dbsection
