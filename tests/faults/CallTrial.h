// Public calls that are disturbed: by failures of memory and system calls, or by another process.
#pragma once

#include "faults/Isolated.h"
#include "faults/PublicCall.h"
#include "faults/World.h"

#include <functional>
#include <string>

namespace faults {

struct Disturbance {
    std::string name;
    std::function<void()> begin;
    std::function<void()> end;
    bool isMemory = false; ///< whose kind is that of memory exhaustion
};

/// Makes a call while something disturbs it, and judges its answer, what it left behind, and the
/// call after it.
class CallTrial {
public:
    /// `isWarm`: the call was made before in the same process.
    CallTrial(const PublicCall& call, World& world, bool isWarm = false)
        : m_call(call),
          m_world(world),
          m_isWarm(isWarm) {}

    void Run(const Disturbance& disturbance, Progress& progress);

    /// Makes the call without judging it; false when its answer is not the right one.
    bool Make(const Disturbance& disturbance);

    /// The answer of the call made last.
    const std::string& Answer() const { return m_answer; }

private:
    void Begin();
    void MakeOnce(const Disturbance& disturbance);
    Verdict Judge(const Disturbance& disturbance) const;
    bool NextIsRight();
    bool AgainIsRight();

    const PublicCall& m_call;
    World& m_world;
    bool m_isWarm;
    std::string m_answer;
    int m_kind = 0;
    std::vector<std::string> m_boxes;
};

} // namespace faults
