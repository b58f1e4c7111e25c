// The user's selections of sections, kept in the table-index file.
#include "interface/PublicCall.h"
#include "interface/SectionDBInterface.h"
#include "interface/Selection.h"
#include "interface/SettingsFile.h"

#include "dataaccess/CCrack.h"
#include "dataaccess/Guard.h"
#include "dataaccess/Handles.h"
#include "platform/FileSystem.h"
#include "platform/PrivateProfile.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

using dbsection::PublicCall;

namespace {

constexpr DWORD NoSection = SectionDBInterface::NoSection;
constexpr DWORD EverySection = SectionDBInterface::EverySection;

int NumberAt(const CDWordArray& selection, int element) {
    return static_cast<int>(selection.GetAt(element));
}

CString Decimal(DWORD number) { return CString(std::to_string(static_cast<int>(number))); }

/// The key of a section type in the table-index file: the name of its table. Empty for catalogues
/// that the file has no section for.
CString SelectionKey(int index, int sectionType) {
    if (index > LastCatalogueIndex)
        return {};
    const dbsection::FailureWatch watch;
    CString table = SectionDBInterface::GetTableFromSectionType(index, sectionType);
    dbsection::RequireNone(watch);
    return table;
}

CString SelectionText(const CDWordArray& selection) {
    CString text;
    for (int i = 0; i < selection.GetSize(); ++i) {
        if (selection[i] == EverySection)
            continue;
        text += Decimal(selection[i]);
        if (i + 1 < selection.GetSize()) // whatever follows
            text += ',';
    }
    return text;
}

CString SelectionQuery(const CString& table, const CDWordArray& selection) {
    CString numbers;
    if (selection.GetAt(0) == NoSection)
        numbers = "0";
    else if (NumberAt(selection, 0) > 0)
        for (const DWORD number : selection)
            numbers += (numbers.IsEmpty() ? "" : ",") + Decimal(number);
    const CString restriction =
        numbers.IsEmpty() ? CString() : " WHERE [RECNO] IN(" + numbers + ")";
    return "Select * From [" + table + "]" + restriction + " ORDER BY [RECNO] ASC";
}

/// Writes the numbers of a stored selection into the first elements of an array. What is no record
/// number, or too large for one, is 0.
void ParseSelection(std::string_view text, CDWordArray& selection) {
    if (text.starts_with('0')) {
        selection.SetAtGrow(0, EverySection);
        return;
    }
    for (int element = 0;; ++element) {
        const std::size_t comma = text.find(',');
        const std::int64_t number = dbsection::LeadingInteger(text.substr(0, comma));
        const bool fits = std::in_range<std::int32_t>(number);
        selection.SetAtGrow(element, static_cast<DWORD>(fits ? number : 0));
        if (comma == std::string_view::npos)
            return;
        text.remove_prefix(comma + 1);
    }
}

} // namespace

void SectionDBInterface::GetUserSelectedSections(int index, int sectionType,
                                                 CDWordArray& selection) {
    PublicCall("GetUserSelectedSections()", [&] {
        selection.SetAtGrow(0, NoSection); // where the call fails
        CDWordArray read = selection;
        const bool hasFile = dbsection::LookForFile(dbsection::SelectionsFile()) != ENOENT;
        const CString key = hasFile ? SelectionKey(index, sectionType) : CString();
        dbsection::ReadSelection(index, key, read);
        dbsection::RequireMemory();
        selection = std::move(read);
    });
}

bool dbsection::ReadSelection(int index, const CString& table, CDWordArray& selection) {
    constexpr std::size_t LongestValue = 8750;
    if (index > LastCatalogueIndex || table.IsEmpty()) {
        selection.SetAtGrow(0, EverySection);
        return true;
    }
    const CString& file = SelectionsFile();
    std::array<char, LongestValue> buffer; // left as it is: the value is written over it
    const DWORD length = GetPrivateProfileStringA(SectionDBInterface::m_saSectionFile[index], table,
                                                  "0", buffer.data(), buffer.size(), file);
    const bool isRead = SettingsWereRead(
        file, {"GetUserSelectedSections()", "Failed to read the selected sections."});
    if (isRead)
        ParseSelection({buffer.data(), length}, selection);
    else
        selection.SetAtGrow(0, NoSection);
    return isRead;
}

void SectionDBInterface::SaveUserSelectedSections(int index, int sectionType,
                                                  CDWordArray& selection) {
    PublicCall("SaveUserSelectedSections()", [&] {
        const CString file = GetDBIFileName();
        if (dbsection::LookForFile(file) == ENOENT && !MakeTableIndex(false))
            return;
        const bool everySection = selection.GetAt(0) == EverySection;
        const CString value = everySection ? CString("0") : SelectionText(selection);
        const CString key = SelectionKey(index, sectionType);
        if (key.IsEmpty())
            return;
        WritePrivateProfileStringA(m_saSectionFile[index], key, value, file);
        dbsection::SettingsWereWritten(
            file, {"SaveUserSelectedSections()", "Failed to save the selected sections."});
    });
}

int SectionDBInterface::IsSectionInProject(int index, int sectionType, int recordNumber) {
    return PublicCall("IsSectionInProject()", [&] {
        if (index == 0 || sectionType < 1 || recordNumber == 0)
            return 0;
        CDWordArray selection;
        GetUserSelectedSections(index, sectionType, selection);
        if (NumberAt(selection, 0) <= 0)
            return selection[0] == EverySection ? 1 : 0;
        return std::ranges::count(selection, static_cast<DWORD>(recordNumber)) > 0 ? 1 : 0;
    });
}

CStringList* SectionDBInterface::GetUserSelectedSectionNameList(int index, int sectionType) {
    return PublicCall("GetUserSelectedSectionNameList()", [&]() -> CStringList* {
        constexpr int VessaName = 2;
        if (OpenSectionDatabase(index, &gblSectionDatabase) != 1)
            return nullptr;
        const CString table = GetTableFromSectionType(index, sectionType);
        if (table.IsEmpty())
            return nullptr;
        CDWordArray selection;
        if (!dbsection::ReadSelection(index, SelectionKey(index, sectionType), selection))
            return nullptr;
        RecordsetHandle rows;
        if (openRecordset(&gblSectionDatabase, rows.Address(), SelectionQuery(table, selection),
                          CSectionRecordset::Snapshot, 1) != 1)
            return nullptr;
        const int count = getRecordCount(rows.Address());
        if (count == 0)
            return nullptr;
        auto list = std::make_unique<CStringList>(10);
        const auto fill = [&] {
            rows->MoveFirst();
            for (int i = 0; i < count; ++i, rows->MoveNext())
                list->AddTail(CCrack::strVARIANT(rows->GetFieldValue(VessaName)));
            return 1;
        };
        const dbsection::FailureRule rule{"GetUserSelectedSectionNameList()",
                                          "Failed to list the sections."};
        return dbsection::Guarded(rule, fill) == 1 ? dbsection::HandOver(std::move(list)) : nullptr;
    });
}
