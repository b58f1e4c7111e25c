// Trials in children of this process, so that one that crashes or hangs is counted like any other.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace faults {

enum class Verdict {
    Right,    ///< the right answer all the same
    Told,     ///< the documented failure, and its kind
    Silent,   ///< damage that nothing can show: a plain file has no checksum of its pages
    Wrong,    ///< another answer, or another content of the file than the answer says
    NoKind,   ///< a failure without its kind
    Escaped,  ///< an exception left the library
    Repeated, ///< more than one report to the person at the screen
    Stuck,    ///< the next call, which nothing disturbs, is not right
    Leaked,   ///< memory was lost, as the sanitizer saw
    Crashed,
    Hung,
};

inline constexpr std::array VerdictNames{"right",   "told",    "silent",   "wrong",
                                         "no kind", "escaped", "repeated", "stuck",
                                         "leaked",  "crashed", "hung"};

using Tally = std::array<long, VerdictNames.size()>;

/// Whether nothing happened that may not.
bool IsClean(const Tally& tally);

/// What children tell their parent, whatever becomes of them.
struct Progress {
    /// Counts a verdict, and prints its story where it is one of the first of a bad one.
    void Note(Verdict verdict, const std::string& story);

    /// The same of the trial under way, which ends.
    void Count(Verdict verdict, const std::string& story);

    long next = 0; ///< the number of the trial under way
    bool isDone = false;
    unsigned secondsPerTrial = 0;
    Tally tally{};
};

/// Runs `body` in a child: the trials from `progress.next` on, each with Count in the end. When the
/// child crashes, or a trial takes too long, another goes on behind that trial.
Tally RunIsolated(const std::string& subject, const std::function<void(Progress&)>& body,
                  unsigned secondsPerTrial = 30);

/// Work for one child; the tallies of a subject are added up.
struct Job {
    std::string subject;
    std::function<Tally()> run;
};

struct Line {
    std::string subject;
    Tally tally{};
};

/// Runs the jobs, as many at once as there are processors, until the time is over. Returns a line
/// for each subject in the order of the jobs; `skipped` receives the number of jobs not begun.
std::vector<Line> RunJobs(const std::vector<Job>& jobs, int minutes, int& skipped);

} // namespace faults
