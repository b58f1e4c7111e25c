#include "sectiondb/CatalogueAccess.h"

#include "dataaccess/CSectionException.h"
#include "dataaccess/Handles.h"
#include "interface/SectionDBInterface.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"

#include <charconv>
#include <fmt/format.h>
#include <string_view>
#include <vector>

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

/// Why a file cannot be opened, in the words of the data-access layer.
std::string ReasonNotToOpen(const CString& path) {
    try {
        CSectionDatabase database;
        database.Open(path, 0, 1, SectionDBInterface::m_szPassword);
        return "it can be opened now; try again";
    } catch (CException* e) {
        const CString message = e->GetMessage();
        e->Delete();
        return std::string(message.View());
    }
}

/// A text as it stands between single quotes in a statement.
std::string QuoteEscaped(const std::string& text) {
    std::string escaped;
    for (const char c : text)
        escaped.append(c == '\'' ? 2 : 1, c);
    return escaped;
}

} // namespace

std::string TitleOf(const CString& path) {
    CString title;
    CString standard;
    CString source;
    CString version;
    CString hash;
    if (SectionDBInterface::GetDBInfo(path, source, title, version, standard, hash) != 1)
        throw CommandError(fmt::format("{}: it has no catalogue information (table \"DBInfo\"); "
                                       "build it again.",
                                       NativePath(path.View())));
    if (version.View() != std::to_string(CatalogueLayoutVersion))
        throw CommandError(fmt::format("{}: its layout version is {}, expected {}; build it again.",
                                       NativePath(path.View()), version.View(),
                                       CatalogueLayoutVersion));
    return std::string(title.View());
}

int FindCatalogue(const std::string& name) {
    for (int index = 1; index <= LastCatalogueIndex; ++index)
        if (IsNamed(index, name))
            return index;
    throw CommandError(fmt::format("There is no catalogue \"{}\"; give its number (1 to {}), file "
                                   "stem or name as \"sectiondb list\" prints them.",
                                   name, LastCatalogueIndex));
}

bool HasFile(int index) { return !SectionDBInterface::GetDatabaseFileName(index).IsEmpty(); }

OpenCatalogue Open(int index) {
    const CString path = SectionDBInterface::GetDatabaseFileName(index);
    if (path.IsEmpty() && SectionDBInterface::IsCustomized(index) != 0)
        throw CommandError(fmt::format(
            "The settings file replaces {}.db3 by a file that there is not; mend its section "
            "\"CustomDBNames\", or build that file.",
            SectionDBInterface::m_saSectionFile[index]));
    if (path.IsEmpty())
        throw CommandError(fmt::format(
            "{}.db3 is not in the folder \"{}\"; build it there, or name its folder with --folder.",
            SectionDBInterface::m_saSectionFile[index],
            NativePath(SectionDBInterface::GetDatabaseDirectoryName().View())));
    CSectionDatabase* database = SectionDBInterface::GetDatabasePtr(index);
    if (database == nullptr)
        throw CommandError(ReasonNotToOpen(path));
    TitleOf(path);
    auto* catalogue = dynamic_cast<CatalogueSectionDB*>(
        SectionDBInterface::m_SectionDBDrv.GetSectionDBObject(static_cast<WORD>(index)));
    if (catalogue == nullptr)
        throw CommandError("Out of memory.");
    catalogue->SetDatabase(database);
    return {index, database, catalogue};
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

void VisitSections(const OpenCatalogue& open, const std::string& name,
                   const SectionVisitor& visit) {
    CSectionDatabase* database = open.database;
    const std::string literal = QuoteEscaped(name);
    for (const SectionFamily& family : open.catalogue->Families()) {
        if (!HasSectionTable(family) || IsExistentTable(database, family.table) == 0)
            continue;
        const std::string sql = fmt::format("Select * From [{0}] WHERE UPPER([VessaName]) = "
                                            "UPPER('{1}') OR UPPER([Name]) = UPPER('{1}')",
                                            family.table, literal);
        RecordsetHandle rows;
        if (openRecordset(&database, rows.Address(), sql.c_str(), CSectionRecordset::Snapshot, 1) !=
            1)
            ThrowUnreadable(open, family);
        for (; !rows->IsEOF(); rows->MoveNext())
            visit(family, *rows);
    }
}

void ThrowUnreadable(const OpenCatalogue& open, const SectionFamily& family) {
    throw CommandError(fmt::format("{}: table \"{}\" cannot be read; the file is damaged or in "
                                   "use. Build it again, or close the other program.",
                                   open.database->GetName().View(), family.table));
}

bool CatalogueFaults::Try(const std::function<void()>& visit) {
    try {
        visit();
        return true;
    } catch (const CommandError& fault) {
        m_faults += (m_faults.empty() ? "" : "\n") + std::string(fault.what());
        return false;
    }
}

void CatalogueFaults::ThrowIfAny() const {
    if (!m_faults.empty())
        throw CommandError(m_faults);
}

std::string ConnectText(const std::string& password) {
    const bool hasEquals = password.find('=') != std::string::npos;
    if (hasEquals && password.find(';') != std::string::npos)
        throw CommandError(R"(A password cannot hold both "=" and ";"; choose another one.)");
    return hasEquals ? ";PWD=" + password : password;
}
} // namespace dbsection
