#include "faults/CallTrial.h"
#include "faults/Subjects.h"

#include <algorithm>

namespace faults {
namespace {

struct FailureName {
    Failure failure;
    const char* name;
};

constexpr std::array Memory{FailureName{Failure::Memory, "memory"}};
constexpr std::array SystemCalls{FailureName{Failure::InputOutput, "EIO"},
                                 FailureName{Failure::DiskFull, "ENOSPC"},
                                 FailureName{Failure::ShortTransfer, "short transfer"}};

Disturbance Of(const FailureName& failure, long first, bool isLasting) {
    return {failure.name + (" " + std::to_string(first)) + (isLasting ? " and on" : ""),
            [=] {
                Expect({failure.failure, first, isLasting});
            },
            [] { Expect({}); }, failure.failure == Failure::Memory};
}

/// The failures of a call: each at each of its events, once and lasting; sampled evenly where they
/// are more than `most`.
std::vector<Disturbance> DisturbancesOf(CallTrial& trial, std::span<const FailureName> failures,
                                        long most) {
    const long share = std::max(most / static_cast<long>(2 * failures.size()), 1L);
    std::vector<Disturbance> disturbances;
    for (const FailureName& failure : failures) {
        long events = 0;
        trial.Make({"", [&] { Expect({failure.failure}); }, [&] { events = Events(); }});
        const long count = std::min(events, share);
        for (long i = 0; i < count; ++i)
            for (const bool isLasting : {false, true})
                disturbances.push_back(Of(failure, 1 + i * events / count, isLasting));
    }
    return disturbances;
}

struct Setting {
    const char* name;
    std::span<const FailureName> failures;
    bool isProtected;
    bool isWarm;
    bool isLong;
};

constexpr std::array Settings{
    Setting{"memory", Memory, false, false, false},
    Setting{"system calls", SystemCalls, false, false, false},
    Setting{"memory, protected", Memory, true, false, true},
    Setting{"system calls, protected", SystemCalls, true, false, true},
    Setting{"memory, again", Memory, false, true, true},
};

void Continue(const PublicCall& call, const Setting& setting, const Originals& originals, long most,
              Progress& progress) {
    World world(originals.folder + (setting.isProtected ? "/protected" : "/plain"),
                setting.isProtected ? originals.connect : "");
    CallTrial trial(call, world, setting.isWarm);
    if (progress.next == 0 && !trial.Make({"", [] {}, [] {}}))
        progress.Note(Verdict::Wrong, call.name + (", undisturbed: \"" + trial.Answer() + "\""));
    const auto disturbances = DisturbancesOf(trial, setting.failures, most);
    while (progress.next < std::ssize(disturbances))
        trial.Run(disturbances[static_cast<std::size_t>(progress.next)], progress);
    world.Begin();
}

} // namespace

std::vector<Job> FailureJobs(const Originals& originals, const Depth& depth) {
    std::vector<Job> jobs;
    for (const Setting& setting : Settings)
        for (const CallGroup& group : CallGroups())
            for (const PublicCall& call : group.calls)
                if (depth.isLong || !setting.isLong)
                    jobs.push_back({setting.name + std::string(": ") + group.name,
                                    [&, most = depth.trialsPerCall] {
                                        return RunIsolated(call.name, [&](Progress& progress) {
                                            Continue(call, setting, originals, most, progress);
                                        });
                                    }});
    return jobs;
}

} // namespace faults
