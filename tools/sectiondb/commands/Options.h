// Options that several commands take.
#pragma once

#include "files/CatalogueFolder.h"
#include "files/Password.h"
#include "output/Table.h"
#include "output/UnitLabels.h"
#include "records/Symbols.h"

#include <CLI/App.hpp>
#include <cstddef>
#include <string>

namespace dbsection {

/// `meaning`: of the password, in the help.
void DeclarePassword(CLI::App& app, PasswordSource& password, const char* meaning);

/// Where the catalogue files and the person's own are, and their password.
class CatalogueOptions {
public:
    void Declare(CLI::App& app);

    CatalogueFolder Folder() const;

private:
    std::string m_folder;
    std::string m_userFile;
    PasswordSource m_password;
};

class FormOptions {
public:
    void Declare(CLI::App& app);
    TableForm Form() const;

private:
    bool m_csv = false;
    bool m_json = false;
};

/// How many rows are wanted at most.
class LimitOption {
public:
    void Declare(CLI::App& app, const char* meaning);

    /// `otherwise` without the option. Throws UsageError where it is no whole number above 0.
    std::size_t ValueOr(std::size_t otherwise) const;

private:
    std::string m_text;
};

/// The symbols of properties.
class SymbolOptions {
public:
    void Declare(CLI::App& app);

    /// Throws UsageError where there is no such choice.
    Symbols Choice() const;

private:
    std::string m_symbols;
};

/// The units of printed figures.
class UnitOptions {
public:
    void Declare(CLI::App& app);
    void DeclareLength(CLI::App& app); ///< forces keep their units

    /// Throws UsageError where a name is no unit.
    UnitChoice Choice() const { return ChooseUnits(m_length, m_force); }

private:
    std::string m_length;
    std::string m_force;
};

} // namespace dbsection
