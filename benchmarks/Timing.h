// Times of two actions that are to be compared.
//
// Both run by turns in short batches, and the ratio is the median over the pairs of neighbouring
// batches: whatever else the machine does meets both sides of a pair alike.
#pragma once

#include "Measure.h"

namespace sectionbench {

struct Times {
    double ours = 0; ///< medians, in microseconds a call
    double peer = 0;
    double ratio = 0; ///< median of ours to the other's
};

/// `peer` may be empty; its time and the ratio are then 0.
Times Compare(const Action& ours, const Action& peer);

} // namespace sectionbench
