// Options that several commands take.
#pragma once

#include "commands/CommandLine.h"
#include "files/CatalogueFolder.h"
#include "files/Password.h"
#include "output/Table.h"
#include "output/UnitLabels.h"
#include "records/Symbols.h"

#include <cstddef>
#include <optional>
#include <string>

namespace dbsection {

/// `meaning`: of the password, in the help.
void DeclarePassword(CommandLine& line, PasswordSource& password, const char* meaning);

/// Where the catalogue files and the person's own are, and their password.
class CatalogueOptions {
public:
    void Declare(CommandLine& line);

    CatalogueFolder Folder() const;

private:
    std::string m_folder;
    std::string m_userFile;
    PasswordSource m_password;
};

class FormOptions {
public:
    void Declare(CommandLine& line);
    TableForm Form() const;

private:
    bool m_csv = false;
    bool m_json = false;
};

/// How many rows are wanted at most. What is no whole number above 0 throws UsageError while
/// options are read.
class LimitOption {
public:
    void Declare(CommandLine& line, const char* meaning);

    std::size_t ValueOr(std::size_t otherwise) const { return m_value.value_or(otherwise); }

private:
    std::optional<std::size_t> m_value;
};

/// The symbols of properties. A name of none throws UsageError while options are read.
class SymbolOptions {
public:
    void Declare(CommandLine& line);

    Symbols Choice() const { return m_choice; }

private:
    Symbols m_choice = Symbols::Program;
};

/// The units of printed figures. A name that is no unit throws UsageError while options are read.
class UnitOptions {
public:
    void Declare(CommandLine& line);
    void DeclareLength(CommandLine& line); ///< forces keep their units

    UnitChoice Choice() const { return m_choice; }

private:
    UnitChoice m_choice;
};

} // namespace dbsection
