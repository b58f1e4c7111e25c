// What the program tries, as jobs.
#pragma once

#include "faults/Isolated.h"
#include "faults/PublicCall.h"

#include <string>
#include <vector>

namespace faults {

/// The calls by the part of the interface that they are of.
struct CallGroup {
    const char* name;
    PublicCalls calls;
};

const std::vector<CallGroup>& CallGroups();

/// Files that the trials copy, plain and protected.
struct Originals {
    std::string folder;  ///< a world each in "plain" and in "protected", catalogues in "real"
    const char* connect; ///< of the protected ones
};

struct Depth {
    long trialsPerCall;
    bool isLong; ///< the rarer paths too: calls made before, protected files
    int kills;
    long stretchStep; ///< from one damaged stretch to the next
};

constexpr Depth Everything{1000, true, 300, 1};

/// Allocations and system calls that fail in the public calls, one by one.
std::vector<Job> FailureJobs(const Originals& originals, const Depth& depth);

/// Public calls while another process holds the locks of the files.
std::vector<Job> ContentionJobs(const Originals& originals);

/// Writers that are killed at every system call, and at any time.
std::vector<Job> KillJobs(const Originals& originals, const Depth& depth);

/// Catalogues damaged in every stretch of 256 bytes.
std::vector<Job> DamageJobs(const Originals& originals, const Depth& depth);

/// Two and eight processes that write one file.
std::vector<Job> SharingJobs(const Originals& originals);

} // namespace faults
