// The catalogues that are measured: the American one, built for the run, protected and plain, and
// all of them.
#pragma once

#include "BuiltCatalogues.h"
#include "EveryCatalogue.h"
#include "TestSupport.h"

#include <optional>
#include <string>
#include <vector>

namespace sectionbench {

class Catalogues {
public:
    static constexpr const char* Password = "measured";
    static constexpr const char* FileName = "AISCSections.db3";

    /// Builds both files in a temporary folder. Throws where the program fails.
    Catalogues();

    std::string ProtectedFolder() const { return m_folder.File("protected"); }
    std::string Protected() const { return ProtectedFolder() + "/" + FileName; }
    std::string PlainFolder() const { return m_folder.File("plain"); }
    std::string Plain() const { return PlainFolder() + "/" + FileName; }

    /// The statement that keys a connection to the protected file with its derived key.
    const std::string& KeyStatement() const { return m_keyStatement; }

    /// The W shapes: their names, areas, and the statements that find them by name.
    const std::vector<std::string>& Names() const { return m_names; }
    const std::vector<double>& Areas() const { return m_areas; }
    const std::vector<std::string>& StatementsByName() const { return m_statementsByName; }

    const EveryCatalogue& Every() const { return m_every; }

    /// They are built when they are first asked for.
    const BuiltCatalogues& Built() const { return m_built ? *m_built : m_built.emplace(Password); }

private:
    testsupport::TempFolder m_folder;
    EveryCatalogue m_every{Password};
    mutable std::optional<BuiltCatalogues> m_built;
    std::string m_keyStatement;
    std::vector<std::string> m_names;
    std::vector<double> m_areas;
    std::vector<std::string> m_statementsByName;
};

/// The statement that finds a W shape by its name.
std::string StatementByName(const std::string& name);

} // namespace sectionbench
