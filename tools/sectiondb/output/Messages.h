// What a person is told when something fails.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace dbsection {

/// Why a command fails: what failed, on what, and what to do.
struct CommandError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The command line is wrong in itself, whatever the files hold.
struct UsageError : CommandError {
    using CommandError::CommandError;
};

/// How many there are, e.g. "1 section" or "12 sections".
std::string Counted(std::size_t count, std::string_view thing);

/// Writes a message to stderr, each line of it with the program's name.
void Tell(std::string_view message);

} // namespace dbsection
