// Running programs as a person runs them.
#pragma once

#include "TestSupport.h"

#include <array>
#include <cstdio>

namespace testsupport {

struct Outcome {
    int status;
    std::string output; ///< stdout and stderr
};

inline Outcome Shell(const std::string& command) {
    FILE* pipe = ::popen((command + " 2>&1").c_str(), "r");
    Outcome outcome{-1, ""};
    std::array<char, 4096> buffer{};
    for (std::size_t count = 0; (count = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0;)
        outcome.output.append(buffer.data(), count);
    outcome.status = WEXITSTATUS(::pclose(pipe));
    return outcome;
}

inline std::string Quote(const std::string& text) { return "'" + text + "'"; }

inline testing::AssertionResult Holds(const Outcome& outcome, std::string_view told) {
    return Holds(outcome.output, told);
}

/// Whether a program ended with a status and told a text.
inline testing::AssertionResult Ended(const Outcome& outcome, int status,
                                      std::string_view told = "") {
    if (outcome.status != status)
        return testing::AssertionFailure() << "status " << outcome.status << ": " << outcome.output;
    return Holds(outcome, told);
}

/// Runs `sectiondb`.
inline Outcome Program(const std::string& arguments) {
    return Shell(Quote(SECTIONDB_PROGRAM) + " " + arguments);
}

} // namespace testsupport
