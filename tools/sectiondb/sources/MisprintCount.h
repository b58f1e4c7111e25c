// How many misprints the checks of a family would let pass.
#pragma once

#include "sources/SourceFamily.h"

namespace dbsection {

struct MisprintCount {
    int swaps = 0;        ///< of two adjacent digits that differ
    int swapsPassed = 0;  ///< that would be accepted
    int shifts = 0;       ///< of the decimal point by one place
    int shiftsPassed = 0; ///< that would be accepted

    MisprintCount& operator+=(const MisprintCount& other);

    double PassedShare() const { return swaps == 0 ? 0 : static_cast<double>(swapsPassed) / swaps; }

    /// Whether the checks are as sharp as they must be: at most 2 % of the swaps pass, no shift.
    bool IsSharp() const { return PassedShare() <= 0.02 && shiftsPassed == 0; }
};

/// Tries each misprint of each figure that geometry needs or computes.
MisprintCount CountMisprints(const SourceFamily& family);

} // namespace dbsection
