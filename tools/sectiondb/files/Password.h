// Passwords, as a person gives them.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace dbsection {

/// Where a password comes from: an option of the command line, which others can see in the list of
/// processes, or a file.
struct PasswordSource {
    std::optional<std::string> text;
    std::string file; ///< "-": standard input, asked for without echo where that is a terminal
};

/// What a password is for; one to be is asked for twice.
enum class PasswordUse { Existing, New };

/// The password; empty where none is given. That of the environment, which the library takes for
/// existing files, is taken for new ones here. Throws CommandError.
std::string ReadPassword(const PasswordSource& source, PasswordUse use);

/// The connect text that carries a password. Throws CSectionException* where none can.
std::string ConnectText(const std::string& password);

/// Whether a database file is protected by a password.
bool IsProtected(const std::filesystem::path& file);

} // namespace dbsection
