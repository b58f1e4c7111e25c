// What is measured, and how slow it may be.
#pragma once

#include "Catalogues.h"
#include "LongTable.h"

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace sectionbench {

/// One call of what is measured. Throws where what it read is not what is in the catalogue.
using Action = std::function<void()>;

/// Limits that a measure must keep; 0 is none.
struct Limits {
    double ratio = 0;        ///< of our time to the engine's
    double microseconds = 0; ///< of our median time
    double beyond = 0;       ///< microseconds of ours beyond the other side's
};

struct Measure {
    const char* name;
    /// Make ready what is measured; what they hold lives as long as the action. `peer` does the
    /// same in another way, where there is one: with plain calls of the engine, which keep their
    /// statements ready and read the same columns, or what else the name tells.
    Action (*ours)(const Catalogues&);
    Action (*peer)(const Catalogues&) = nullptr;
    Limits limits;
};

/// What is told by one number, taken once.
struct Amount {
    const char* name;
    const char* unit;
    double most;
    double (*take)(const Catalogues&);
};

/// The same of a table that grows.
struct GrowthMeasure {
    const char* name;
    Action (*ours)(const LongTable&);
    Action (*peer)(const LongTable&);
    Limits limits;
};

std::vector<GrowthMeasure> GrowthMeasures();
std::vector<Measure> DataAccessMeasures();
std::vector<Measure> LibraryMeasures();
std::vector<Measure> FacadeMeasures();
std::vector<Measure> EngineMeasures();
std::vector<Measure> ValueMeasures();
std::vector<Measure> ProgramMeasures();

/// To be taken first: see RunProgram.
std::vector<Amount> ProgramAmounts();

/// The most memory, in MiB, that the first count of a long table takes.
double CountPeakMebibytes(const LongTable& table);

/// Throws where a measure did not come to what it is to come to.
inline void Require(bool success, const char* what) {
    if (!success)
        throw std::runtime_error(std::string("a measure failed to ") + what);
}

/// Makes the compiler compute a value that nothing uses.
template <class T>
void Keep(const T& value) {
    asm volatile("" : : "m"(value) : "memory");
}

} // namespace sectionbench
