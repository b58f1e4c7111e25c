#include "verification/FileVerification.h"

#include "dataaccess/CCrack.h"
#include "dataaccess/CSectionDatabase.h"
#include "dataaccess/CSectionRecordset.h"
#include "files/Password.h"
#include "files/TableChecksum.h"
#include "platform/Text.h"
#include "records/CatalogueList.h"
#include "sections/Failures.h"
#include "sources/SourceUnits.h"

#include <algorithm>
#include <fmt/format.h>
#include <map>
#include <set>
#include <sstream>

namespace dbsection {
namespace {

using Checksums = std::map<std::string, std::string>; ///< by table

Checksums ChecksumsIn(const std::string& lines) {
    Checksums checksums;
    std::istringstream text(lines);
    for (std::string line; std::getline(text, line);)
        if (const std::size_t end = line.find("  "); end != std::string::npos)
            checksums[line.substr(end + 2)] = line.substr(0, end);
    return checksums;
}

/// A text that the file tells of itself; empty where it has none.
std::string InfoIn(CSectionDatabase& database, std::string_view name) {
    CSectionRecordset rows(&database);
    rows.Open(CSectionRecordset::Snapshot, "Select * From [DBInfo]");
    for (int column = 0; !rows.IsEOF() && column < rows.GetFieldCount(); ++column) {
        CSectionFieldInfo field;
        rows.GetFieldInfo(column, field);
        if (field.m_strName.View() == name)
            return std::string(CCrack::strVARIANT(rows.GetFieldValue(column)).View());
    }
    return {};
}

/// The tables that are not those that the file was built with, by its checksums.
std::set<std::string> ChangedTables(CSectionDatabase& database, const Checksums& stored) {
    std::set<std::string> changed;
    const Checksums present = ChecksumsIn(ChecksumsOf(database));
    for (const auto& [table, checksum] : stored)
        if (const auto now = present.find(table); now == present.end() || now->second != checksum)
            changed.insert(table);
    for (const auto& [table, checksum] : present)
        if (!stored.contains(table))
            changed.insert(table);
    return changed;
}

/// What is amiss with a file as a whole.
struct FileState {
    std::vector<Finding> findings;
    std::set<std::string> changed; ///< tables
};

FileState StateOf(const std::string& path, const std::string& password) {
    return sections::translated(path, [&] {
        CSectionDatabase database;
        database.Open(path.c_str(), 0, 1, ConnectText(password).c_str());
        FileState state;
        for (const CString& damage : database.FindDamage())
            state.findings.push_back({"", "", "damaged: " + std::string(damage.View())});
        const Checksums stored = ChecksumsIn(InfoIn(database, "Checksums"));
        if (!stored.empty())
            state.changed = ChangedTables(database, stored);
        else if (!InfoIn(database, "SourceHash").empty())
            state.findings.push_back({"", "", "the checksums that it was built with are missing"});
        return state;
    });
}

void RequireUnits(const sections::Family& family, RowsVerdict& verdict) {
    const sections::Sections all = family.sections();
    for (const sections::Column& column : family.columns()) {
        const std::string fault = UnitFault(column.unit, column.quantity);
        if (!all.empty() && !fault.empty())
            verdict.findings.push_back(
                {"", column.name, fmt::format("its unit is \"{}\": {}", column.unit, fault)});
    }
}

/// Public names are one section's in a family, the program's in the catalogue. An alloy, which is
/// no section, has a row for each product form and thickness.
class NameVerification {
public:
    void Require(const sections::Family& family, RowsVerdict& verdict) {
        if (family.layout() == LayoutId::AluminiumAlloy)
            return;
        std::set<std::string> names;
        for (const sections::Section& section : family.sections()) {
            if (!names.insert(UpperCase(section.name())).second)
                Add(section, "its name stands twice in the family", verdict);
            const auto [known, isNew] =
                m_programNames.emplace(UpperCase(section.programName()), family.name());
            if (!isNew)
                Add(section,
                    fmt::format("its program name {} stands in the family \"{}\", too",
                                section.programName(), known->second),
                    verdict);
        }
    }

private:
    static void Add(const sections::Section& section, std::string fault, RowsVerdict& verdict) {
        verdict.findings.push_back({section.name(), "", std::move(fault)});
    }

    std::map<std::string, std::string> m_programNames; ///< and their families
};

/// A row tells its standard where other rows of its file do.
void RequireOrigins(const sections::Family& family, RowsVerdict& verdict) {
    for (const sections::Section& section : family.sections())
        if (section.origin() == nullptr)
            verdict.findings.push_back(
                {section.name(), "", "the file does not tell its standard and edition"});
}

} // namespace

std::vector<TableVerdict> VerifyCatalogue(const sections::Catalogue& catalogue,
                                          const std::string& password,
                                          const std::function<void()>& advance) {
    auto [damage, changed] = StateOf(catalogue.path(), password);
    const std::vector<sections::Family> families = catalogue.families();
    const bool tellsOrigins = std::ranges::any_of(
        families, [](const sections::Family& family) { return !family.origins().empty(); });
    std::vector<TableVerdict> verdicts;
    NameVerification names;
    for (const sections::Family& family : families) {
        TableVerdict& verdict = verdicts.emplace_back();
        verdict.table = family.name();
        verdict.sections = family.size();
        if (changed.erase(family.name()) > 0)
            verdict.rows.findings.push_back({"", "", "its rows are not those it was built with"});
        RequireUnits(family, verdict.rows);
        names.Require(family, verdict.rows);
        if (tellsOrigins)
            RequireOrigins(family, verdict.rows);
        for (const sections::Section& section : family.sections())
            VerifySection(section, verdict.rows);
        advance();
    }
    if (!damage.empty())
        verdicts.push_back({"the file", 0, {0, 0, std::move(damage)}});
    for (const std::string& table : changed)
        verdicts.push_back(
            {table, 0, {0, 0, {{"", "", "it is not what the file was built with"}}}});
    return verdicts;
}

} // namespace dbsection
