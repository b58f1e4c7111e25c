// Programs run to their end.
#pragma once

#include <string>
#include <vector>

namespace sectionbench {

/// Runs a program with all that it prints dropped, and returns the most memory that it held, in
/// mebibytes. Throws where it does not end with success.
///
/// The system counts from the start of the child, when it still is a copy of this process: the
/// figure is never less than what this process holds.
double RunProgram(const std::vector<std::string>& command);

} // namespace sectionbench
