// Allocations that fail on request, in the test program and in the library alike. Its programs are
// linked with FailingMemory.cpp.
#pragma once

#include "DataAccessSupport.h"

#include <utility>

namespace testsupport {

/// Which of the allocations to come fails, counted from 1; 0 is none. Later ones fail too where
/// `failOnwards` is set.
extern long failAt;
extern bool failOnwards;
extern long allocations;
extern long living;

/// Runs `body` with its `at`-th allocation failing; false when it needed fewer.
template <class Body>
bool FailAllocation(long at, bool onwards, Body body) {
    allocations = 0;
    failOnwards = onwards;
    failAt = at;
    try {
        body();
    } catch (...) {
        failAt = 0;
        throw;
    }
    failAt = 0;
    return allocations >= at;
}

/// The host has memory of its own.
inline int RecordBoxWithMemory(const char* text, const char* caption, unsigned flags) {
    const long at = std::exchange(failAt, 0);
    const long before = allocations;
    RecordBox(text, caption, flags);
    allocations = before;
    failAt = at;
    return 1;
}

} // namespace testsupport
