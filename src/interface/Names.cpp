// Finding sections by name, and one name by the other.
#include "interface/SectionDBInterface.h"

#include "catalogues/SectionTables.h"
#include "dataaccess/CCrack.h"
#include "dataaccess/NameSearch.h"
#include "interface/CatalogueTransaction.h"
#include "interface/PublicCall.h"
#include "interface/SettingsFile.h"

#include <optional>
#include <utility>
#include <vector>

using dbsection::NameMatch;
using dbsection::NameQuestion;
using dbsection::PublicCall;

namespace {

/// The names of a section, by their columns.
enum NameColumn : int { PublicName = 1, VessaName = 2 };

NameQuestion QuestionOf(NameColumn column, const char* name) {
    return column == VessaName ? NameQuestion{"VessaName", NameMatch::InAnyCase, name}
                               : NameQuestion{"Name", NameMatch::Exactly, name};
}

/// Opens the library-wide database on a catalogue and searches it: `found` is called for the first
/// table with rows of that name, with its section type, the number of the rows, and the rows at the
/// first. False when the catalogue cannot be opened.
template <class Found>
bool SearchCatalogue(int index, const NameQuestion& question, Found found) {
    CSectionDatabase* database = SectionDBInterface::GetDatabasePtr(index);
    const auto questionFor = [&](std::string_view) { return question; };
    dbsection::ForEachSectionTable(database, questionFor, [&](const CString& table, bool) {
        RecordsetHandle rows;
        if (!dbsection::HasColumn(database, table, question.column) ||
            openRecordset(&database, rows.Address(),
                          "SELECT * FROM [" + table + "] WHERE " + dbsection::ConditionOf(question),
                          CSectionRecordset::Snapshot, 1) != 1)
            return false;
        const int count = getRecordCount(rows.Address());
        dbsection::RequireMemory(); // a table before it may have been passed over
        if (count == 0)
            return false;
        const dbsection::FailureWatch watch;
        const int type = SectionDBInterface::GetSectionTypeFromTable(index, table);
        dbsection::RequireNone(watch);
        found(type, count, *rows);
        return true;
    });
    return database != nullptr;
}

/// The section type and number of the rows that SearchCatalogue would find, told from memory
/// without opening the catalogue; nothing where that cannot be. The last one is opened in any case.
std::optional<std::pair<int, int>> Known(int index, const NameQuestion& question) {
    const SectionDBBase* catalogue =
        SectionDBInterface::m_SectionDBDrv.GetSectionDBObject(static_cast<WORD>(index));
    if (index == LastCatalogueIndex || catalogue == nullptr ||
        dbsection::CatalogueInTransaction() != 0)
        return std::nullopt;
    const auto found = dbsection::KeptNames::Find(dbsection::DatabaseFile(index),
                                                  SectionLibraryState::m_szPassword, question);
    if (!found)
        return std::nullopt;
    for (const auto& [table, count] : *found)
        if (dbsection::IsSectionTable(table))
            return std::pair(dbsection::SectionTypeOf(*catalogue, table), count);
    return std::pair(0, 0);
}

/// The text in a column of the current row; empty where there is no such column.
CString TextIn(const CSectionRecordset& rows, int column) {
    return column < rows.GetFieldCount() ? CCrack::strVARIANT(rows.GetFieldValue(column))
                                         : CString();
}

int SearchAllCatalogues(NameColumn column, const char* name, CUIntArray& catalogues,
                        CUIntArray& sectionTypes) {
    CUIntArray indices = catalogues; // both arrays grow, or none
    CUIntArray types = sectionTypes;
    const NameQuestion question = QuestionOf(column, name);
    bool isWhole = dbsection::IsSearchable(name);
    for (int index = 1; isWhole && index <= LastCatalogueIndex; ++index) {
        const auto append = [&](int type, int count) {
            for (int i = 0; i < count; ++i) {
                indices.Add(static_cast<unsigned int>(index));
                types.Add(static_cast<unsigned int>(type));
            }
        };
        if (const auto known = Known(index, question))
            append(known->first, known->second);
        else
            isWhole = SearchCatalogue(
                index, question,
                [&](int type, int count, const CSectionRecordset&) { append(type, count); });
    }
    dbsection::RequireMemory();
    catalogues = std::move(indices);
    sectionTypes = std::move(types);
    return !isWhole || catalogues.IsEmpty() || sectionTypes.IsEmpty() ? 0 : 1;
}

/// `otherNames`, where given, receives the first row's other name for each row.
int SearchOneCatalogue(int index, NameColumn column, const char* name, CUIntArray& sectionTypes,
                       CStringArray* otherNames = nullptr) {
    CUIntArray types = sectionTypes; // both arrays grow, or none
    CStringArray names = otherNames == nullptr ? CStringArray() : *otherNames;
    const auto append = [&](int type, int count, const CSectionRecordset& rows) {
        CString otherName;
        if (otherNames != nullptr)
            otherName = TextIn(rows, column == VessaName ? PublicName : VessaName);
        for (int i = 0; i < count; ++i) {
            types.Add(static_cast<unsigned int>(type));
            names.Add(otherName);
        }
    };
    const bool isWhole =
        dbsection::IsSearchable(name) && SearchCatalogue(index, QuestionOf(column, name), append);
    dbsection::RequireMemory();
    sectionTypes = std::move(types);
    if (otherNames != nullptr)
        *otherNames = std::move(names);
    return !isWhole || sectionTypes.IsEmpty() ? 0 : 1;
}

int SearchOneCatalogue(int index, NameColumn column, const char* name, CUIntArray& sectionTypes,
                       std::vector<CString>& otherNames) {
    CUIntArray types = sectionTypes;
    CStringArray found;
    const int result = SearchOneCatalogue(index, column, name, types, &found);
    std::vector<CString> names = otherNames;
    names.insert(names.end(), found.begin(), found.end());
    sectionTypes = std::move(types);
    otherNames = std::move(names);
    return result;
}

} // namespace

int SectionDBInterface::GetCountryAndSectionTypeFromVessaName(const char* name,
                                                              CUIntArray& catalogues,
                                                              CUIntArray& sectionTypes) {
    return PublicCall("GetCountryAndSectionTypeFromVessaName()", [&] {
        return SearchAllCatalogues(VessaName, name, catalogues, sectionTypes);
    });
}

int SectionDBInterface::GetCountryAndSectionTypeFromPublicName(const char* name,
                                                               CUIntArray& catalogues,
                                                               CUIntArray& sectionTypes) {
    return PublicCall("GetCountryAndSectionTypeFromPublicName()", [&] {
        return SearchAllCatalogues(PublicName, name, catalogues, sectionTypes);
    });
}

int SectionDBInterface::GetSectionTypeFromVessaName(int index, const char* name,
                                                    CUIntArray& sectionTypes) {
    return PublicCall("GetSectionTypeFromVessaName()",
                      [&] { return SearchOneCatalogue(index, VessaName, name, sectionTypes); });
}

int SectionDBInterface::GetSectionTypeFromPublicName(int index, const char* name,
                                                     CUIntArray& sectionTypes) {
    return PublicCall("GetSectionTypeFromPublicName()",
                      [&] { return SearchOneCatalogue(index, PublicName, name, sectionTypes); });
}

int SectionDBInterface::GetSectionTypeAndVessaNameFromPublicName(int index, const char* publicName,
                                                                 CUIntArray& sectionTypes,
                                                                 CStringArray& vessaNames) {
    return PublicCall("GetSectionTypeAndVessaNameFromPublicName()", [&] {
        return SearchOneCatalogue(index, PublicName, publicName, sectionTypes, &vessaNames);
    });
}

int SectionDBInterface::GetSectionTypeAndVessaNameFromPublicName(int index, const char* publicName,
                                                                 CUIntArray& sectionTypes,
                                                                 std::vector<CString>& vessaNames) {
    return PublicCall("GetSectionTypeAndVessaNameFromPublicName()", [&] {
        return SearchOneCatalogue(index, PublicName, publicName, sectionTypes, vessaNames);
    });
}

int SectionDBInterface::GetSectionTypeAndPublicNameFromVessaName(int index, const char* vessaName,
                                                                 CUIntArray& sectionTypes,
                                                                 CStringArray& publicNames) {
    return PublicCall("GetSectionTypeAndPublicNameFromVessaName()", [&] {
        return SearchOneCatalogue(index, VessaName, vessaName, sectionTypes, &publicNames);
    });
}

int SectionDBInterface::GetSectionTypeAndPublicNameFromVessaName(
    int index, const char* vessaName, CUIntArray& sectionTypes, std::vector<CString>& publicNames) {
    return PublicCall("GetSectionTypeAndPublicNameFromVessaName()", [&] {
        return SearchOneCatalogue(index, VessaName, vessaName, sectionTypes, publicNames);
    });
}

int SectionDBInterface::GetTableNameFromSection(int index, const char* name, CString& tableName) {
    return PublicCall("GetTableNameFromSection()", [&] {
        SectionDBBase* catalogue = OpenCatalogue(index);
        if (catalogue == nullptr || !dbsection::IsSearchable(name))
            return 0;
        return catalogue->GetTableNameFromSection(name, tableName);
    });
}
