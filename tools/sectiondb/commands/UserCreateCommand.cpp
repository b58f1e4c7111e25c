#include "commands/Command.h"
#include "commands/UserSection.h"
#include "files/CatalogueBuilder.h"
#include "interface/SectionDBInterface.h"
#include "output/Escapes.h"
#include "records/CatalogueList.h"

#include <fmt/format.h>

namespace dbsection {
namespace {

/// The empty tables of a kind of files.
CatalogueSource SourceOf(const SectionCatalogue& kind, const UnitSystem& units) {
    SectionDBInterface::InitSectionDBInterface();
    const auto& catalogue = dynamic_cast<const CatalogueSectionDB&>(
        *SectionDBInterface::m_SectionDBDrv.GetSectionDBObject(static_cast<WORD>(kind.index)));
    CatalogueSource source;
    source.title = kind.name;
    source.standard = "None";
    source.sourceNote = "The user's own sections";
    source.tables =
        MakeEmptyTables(catalogue, [&units](Quantity quantity) { return UnitOf(quantity, units); });
    return source;
}

/// A person may not think of a password that is kept in the environment.
const char* Protection(const std::string& password, const PasswordSource& source) {
    if (password.empty())
        return "";
    return source.text || !source.file.empty() ? ", protected"
                                               : ", protected by SECTIONDB_PASSWORD";
}

class UserCreate : public Command {
    void Declare(CommandLine& line) override {
        m_file.Declare(line);
        line.AddFlag("--generic", m_isGeneric, "Of generic shapes instead of user tables");
        line.Add("--units", m_units, "metric or US").Default("metric");
    }

    void Run() const override {
        const UnitSystem* units = FindUnitSystem(m_units);
        if (units == nullptr)
            throw UsageError(
                fmt::format("\"{}\" is no system of units; give metric or US.", m_units));
        const CatalogueSource source =
            SourceOf(*FindCatalogue(m_isGeneric ? GenericTableIndex : UserTableIndex), *units);
        const std::string password = ReadPassword(m_file.password, PasswordUse::New);
        BuildCatalogue(
            source, m_file.path, password, [] {}, Existing::Refuse);
        fmt::print("{}: {} tables{}\n", PlainText(m_file.path.string()), source.tables.size(),
                   Protection(password, m_file.password));
    }

    UserFileOptions m_file;
    bool m_isGeneric = false;
    std::string m_units;
};

const CommandEntry entry("user create", "Make a file without sections", Make<UserCreate>);

} // namespace
} // namespace dbsection
