// What the commands on files of the user share.
#pragma once

#include "files/Password.h"
#include "files/UserFile.h"
#include "output/Table.h"

#include <CLI/App.hpp>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace dbsection {

/// A file of the user and its password.
struct UserFileOptions {
    std::filesystem::path path;
    PasswordSource password;

    void Declare(CLI::App& app);
};

/// A section as a person writes it.
struct UserSectionOptions {
    std::string family;
    std::string name;
    std::vector<std::string> values; ///< "COLUMN=VALUE"
    std::string vessaName;           ///< empty: made from the name, or kept

    void Declare(CLI::App& app);
};

/// "COLUMN=VALUE" texts by column, which must be properties of the table. Throws CommandError.
std::map<std::string, double> ParseValues(const UserTable& table,
                                          const std::vector<std::string>& texts);

/// The values of all properties in order. Throws a CommandError of those that are missing.
std::vector<std::optional<double>> RequireAll(const UserTable& table,
                                              const std::map<std::string, double>& values);

Table TableOf(const UserTable& table, const std::vector<UserTable::Row>& rows);

} // namespace dbsection
