// The commands of the program. Each prints its result to stdout; a failure is thrown as
// CommandError and printed by main.
#pragma once

#include "files/Password.h"
#include "output/Messages.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace dbsection {

struct BuildOptions {
    std::vector<std::filesystem::path> sources; ///< one folder per catalogue
    std::filesystem::path output;
    PasswordSource password;
};

struct ListOptions {
    std::string catalogue; ///< empty: all catalogues
    std::string family;    ///< empty: all families
};

struct ShowOptions {
    std::string catalogue;
    std::string name;
    std::string length; ///< unit names, empty: as the catalogue keeps them
    std::string force;
    bool json = false;
};

struct SelectOptions {
    std::string catalogue;
    std::string family;
    std::string prefix;               ///< of the VessaName, empty: any
    std::optional<std::string> range; ///< "FIELD:LOW:HIGH"
    std::string sort;                 ///< "FIELD[:desc],...", empty: as in the catalogue
    std::string length;               ///< unit name, empty: as the catalogue keeps them
    bool csv = false;
    bool json = false;
};

struct UserOptions {
    std::filesystem::path file;
    PasswordSource password;

    // to create a file
    bool isGeneric = false; ///< generic shapes instead of user tables
    std::string units;      ///< "metric" or "US"

    // to list, add and change sections
    std::string family;
    std::string name;
    std::vector<std::string> values; ///< "COLUMN=VALUE"
    std::string vessaName;           ///< empty: made from the name, or kept
    std::string newName;             ///< empty: kept
};

void Build(const BuildOptions& options);
void List(const ListOptions& options);
void Show(const ShowOptions& options);
void Select(const SelectOptions& options);

/// Looks a section name up in every catalogue that has a file.
void Find(const std::string& name);

void CreateUserFile(const UserOptions& options);
void AddUserSection(const UserOptions& options);
void UpdateUserSection(const UserOptions& options);
void ListUserFile(const UserOptions& options);

} // namespace dbsection
