// What the commands on files of the user share.
#pragma once

#include "files/Password.h"
#include "output/Messages.h"
#include "output/Table.h"
#include "sections/UserFile.h"

#include <CLI/App.hpp>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace dbsection {

/// A file of the user and its password.
struct UserFileOptions {
    std::filesystem::path path;
    PasswordSource password;

    void Declare(CLI::App& app);
    sections::UserFile File() const;
};

/// A section as a person writes it.
struct UserSectionOptions {
    std::string family;
    std::string name;
    std::vector<std::string> values; ///< "COLUMN=VALUE"
    std::string vessaName;           ///< empty: made from the name, or kept

    void Declare(CLI::App& app);
};

/// An error of a table: path, table and what is wrong.
CommandError TableError(const sections::Family& family, const std::string& fault);

using Quantities = std::map<std::string, sections::Quantity, std::less<>>; ///< by column

/// "COLUMN=VALUE" texts, of which the columns must be of figures. Throws CommandError.
Quantities ParseValues(const sections::Family& family, const std::vector<std::string>& texts);

/// Throws a CommandError of the figures of the layout that are missing.
void RequireAll(const sections::Family& family, const Quantities& figures);

/// Throws a CommandError where a section of a possible name cannot have the VessaName.
void RequireVessaName(const sections::Draft& draft);

/// Prints the section of a record number.
void PrintSection(const sections::Family& family, std::int64_t recordNumber);

} // namespace dbsection
