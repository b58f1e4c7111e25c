#include "files/CatalogueAccess.h"

#include "dataaccess/CCrack.h"
#include "dataaccess/CSectionException.h"
#include "files/LibraryFailure.h"
#include "interface/SectionDBInterface.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"
#include "units/FieldUnits.h"

#include <algorithm>
#include <charconv>
#include <fmt/format.h>
#include <memory>
#include <string_view>

namespace dbsection {
namespace {

bool IsNamed(int index, const std::string& name) {
    int number = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
    const bool isNumber = error == std::errc() && end == name.data() + name.size();
    return (isNumber && number == index) ||
           EqualNoCase(SectionDBInterface::m_saSectionFile[index], name) ||
           EqualNoCase(SectionDBInterface::m_saCountryName[index], name);
}

/// The path of a catalogue's file, empty where there is none.
CString FileOf(int index) {
    ForgetFailure();
    CString path = SectionDBInterface::GetDatabaseFileName(index);
    if (path.IsEmpty() && HasFailed())
        throw CommandError(ReasonOfFailure());
    return path;
}

std::string PathOf(const CSectionDatabase& database) {
    return NativePath(database.GetName().View());
}

bool HasTable(const CSectionDatabase& database, std::string_view name) {
    return std::ranges::any_of(database.GetUserTableNames(), [&](const CString& table) {
        return EqualNoCase(table.View(), name);
    });
}

} // namespace

int FindCatalogue(const std::string& name) {
    for (int index = 1; index <= LastCatalogueIndex; ++index)
        if (IsNamed(index, name))
            return index;
    throw CommandError(fmt::format("There is no catalogue \"{}\"; give its number (1 to {}), file "
                                   "stem or name as \"sectiondb list\" prints them.",
                                   name, LastCatalogueIndex));
}

bool HasFile(int index) { return !FileOf(index).IsEmpty(); }

void CloseLibraryDatabase() {
    destroyDatabase(&gblSectionDatabase); // closeDatabase would change the marks of the file
    SectionDBInterface::m_nCountry = 0;
}

OpenCatalogue Attach(int index, CSectionDatabase& database) {
    SectionDBInterface::InitSectionDBInterface();
    auto* catalogue = dynamic_cast<CatalogueSectionDB*>(
        SectionDBInterface::m_SectionDBDrv.GetSectionDBObject(static_cast<WORD>(index)));
    if (catalogue == nullptr)
        throw CommandError("Out of memory.");
    catalogue->SetDatabase(&database);
    return {index, &database, catalogue};
}

CatalogueInformation ReadInformation(CSectionDatabase& database) {
    constexpr int Fields = 5;
    const CommandError foreign(
        fmt::format("{}: this is no catalogue, but maybe another program's database: it has no "
                    "catalogue information (table \"DBInfo\"); name another file.",
                    PathOf(database)));
    if (!HasTable(database, "DBInfo"))
        throw foreign;
    CSectionRecordset rows(&database);
    rows.Open(CSectionRecordset::Snapshot, "Select * From [DBInfo]");
    if (rows.IsEOF() || rows.GetFieldCount() < Fields)
        throw foreign;
    return {TextAt(rows, 0), TextAt(rows, 3), TextAt(rows, 4)};
}

void RequireLayoutVersion(const CSectionDatabase& database, const CatalogueInformation& found) {
    const bool isBuilt = !found.sourceHash.empty();
    for (int version = isBuilt ? CatalogueLayoutVersion : OldestCatalogueLayoutVersion;
         version <= CatalogueLayoutVersion; ++version)
        if (found.layoutVersion == std::to_string(version))
            return;
    const char* advice = !isBuilt ? "use the version of this program that made it"
                                  : "build it again from its text sources, and keep a copy where "
                                    "sections were added to it";
    throw CommandError(fmt::format("{}: its layout version is {}, expected {}; {}.",
                                   PathOf(database), found.layoutVersion, CatalogueLayoutVersion,
                                   advice));
}

OpenCatalogue Open(int index) {
    const CString path = FileOf(index);
    if (path.IsEmpty() && SectionDBInterface::IsCustomized(index) != 0)
        throw CommandError(fmt::format(
            "The settings file replaces {}.db3 by a file that there is not; mend its section "
            "\"CustomDBNames\", or put that file into the folder.",
            SectionDBInterface::m_saSectionFile[index]));
    if (path.IsEmpty())
        throw CommandError(fmt::format(
            "{}.db3 is not in the folder \"{}\"; build it there, or name its folder with --folder.",
            SectionDBInterface::m_saSectionFile[index],
            NativePath(SectionDBInterface::GetDatabaseDirectoryName().View())));
    CloseLibraryDatabase();
    gblSectionDatabase = new CSectionDatabase;
    gblSectionDatabase->Open(path, 0, 1, SectionDBInterface::m_szPassword);
    SectionDBInterface::m_nCountry = index;
    RequireLayoutVersion(*gblSectionDatabase, ReadInformation(*gblSectionDatabase));
    return Attach(index, *gblSectionDatabase);
}

const SectionFamily& FindFamily(const OpenCatalogue& open, const std::string& name) {
    const std::string firstWords = name + " ";
    std::vector<const SectionFamily*> beginning;
    std::string known;
    std::string_view last;
    for (const SectionFamily& family : open.catalogue->Families()) {
        const std::string_view table = family.table;
        if (EqualNoCase(table, name))
            return family;
        if (EqualNoCase(table.substr(0, firstWords.size()), firstWords))
            beginning.push_back(&family);
        if (table != last) // the series of joists share one
            known += (known.empty() ? "" : ", ") + std::string(table);
        last = table;
    }
    if (beginning.size() == 1)
        return *beginning.front();
    throw CommandError(fmt::format("There is no family \"{}\"; the families are {}.", name, known));
}

bool HasSectionTable(const SectionFamily& family) {
    return family.layout != LayoutId::Joist && family.layout != LayoutId::JoistGirder;
}

std::vector<const SectionFamily*> PresentFamilies(const OpenCatalogue& open) {
    const std::vector<CString> tables = open.database->GetUserTableNames();
    std::vector<const SectionFamily*> present;
    for (const SectionFamily& family : open.catalogue->Families())
        if (std::ranges::find(tables, CString(family.table)) != tables.end())
            present.push_back(&family);
    return present;
}

void ReadTable(const SectionFamily& family, const std::function<void()>& read) {
    try {
        read();
    } catch (CSectionException* e) {
        const CString reason = e->GetMessage();
        e->Delete();
        throw CommandError(
            fmt::format("Table \"{}\" cannot be read: {}", family.table, reason.View()));
    }
}

void RequireBookkeeping(const OpenCatalogue& open, const SectionFamily& family, int columns) {
    if (columns < BookkeepingColumns)
        throw CommandError(
            fmt::format("{}: table \"{}\" has {} columns; a table of sections begins "
                        "with RECNO, Name and VessaName.",
                        PathOf(*open.database), family.table, columns));
}

void VisitRows(const OpenCatalogue& open, const SectionFamily& family, const std::string& clause,
               const RowVisitor& visit) {
    ReadTable(family, [&] {
        CSectionRecordset rows(open.database);
        rows.Open(CSectionRecordset::Snapshot,
                  fmt::format("Select * From [{}]{}", family.table, clause).c_str());
        RequireBookkeeping(open, family, rows.GetFieldCount());
        for (; !rows.IsEOF(); rows.MoveNext())
            visit(rows);
    });
}

void VisitSections(const OpenCatalogue& open, const std::string& name,
                   const SectionVisitor& visit) {
    if (name.find('\'') != std::string::npos)
        return; // no section's name can hold a quote
    const std::string clause = fmt::format(
        " WHERE UPPER([VessaName]) = UPPER('{0}') OR UPPER([Name]) = UPPER('{0}')", name);
    for (const SectionFamily* family : PresentFamilies(open))
        if (HasSectionTable(*family))
            VisitRows(open, *family, clause,
                      [&](const CSectionRecordset& rows) { visit(*family, rows); });
}

std::string TextAt(const CSectionRecordset& rows, int column) {
    return std::string(CCrack::strVARIANT(rows.GetFieldValue(column)).View());
}

std::vector<std::string> UnitsOf(const OpenCatalogue& open, const SectionFamily& family) {
    CStringArray units;
    ForgetFailure();
    if (ReadFieldUnits(open.database, family.table, units) == FieldUnits::Unreadable)
        throw CommandError(fmt::format("{}: the units of table \"{}\" cannot be read: {}.",
                                       PathOf(*open.database), family.table, ReasonOfFailure()));
    return {units.begin(), units.end()};
}

bool CatalogueFaults::Try(const std::function<void()>& visit) {
    std::string fault;
    try {
        visit();
        return true;
    } catch (const CommandError& error) {
        fault = error.what();
    } catch (CException* e) {
        fault = e->GetMessage();
        e->Delete();
    }
    if (m_faults.find(fault) == std::string::npos) // one settings file may keep all from being read
        m_faults += (m_faults.empty() ? "" : "\n") + fault;
    return false;
}

void CatalogueFaults::ThrowIfAny() const {
    if (!m_faults.empty())
        throw CommandError(m_faults);
}

} // namespace dbsection
