// What is measured, and how slow it may be.
#pragma once

#include "Catalogues.h"

#include <functional>
#include <vector>

namespace sectionbench {

/// One call of what is measured. Throws where what it read is not what is in the catalogue.
using Action = std::function<void()>;

/// Limits that a measure must keep; 0 is none.
struct Limits {
    double ratio = 0;        ///< of our time to the engine's
    double microseconds = 0; ///< of our median time
};

struct Measure {
    const char* name;
    /// Make ready what is measured; what they hold lives as long as the action. `engine` does the
    /// same with plain calls of the engine, where there is such a thing.
    Action (*ours)(const Catalogues&);
    Action (*engine)(const Catalogues&) = nullptr;
    Limits limits;
};

std::vector<Measure> DataAccessMeasures();
std::vector<Measure> LibraryMeasures();
std::vector<Measure> FacadeMeasures();
std::vector<Measure> EngineMeasures();
std::vector<Measure> ProgramMeasures();

/// Most memory that the program holds while it shows a section.
double ShowPeakMebibytes(const Catalogues& catalogues);

/// Makes the compiler compute a value that nothing uses.
template <class T>
void Keep(const T& value) {
    asm volatile("" : : "m"(value) : "memory");
}

} // namespace sectionbench
