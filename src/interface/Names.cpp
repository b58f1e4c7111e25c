// Finding sections by name, and one name by the other.
#include "interface/SectionDBInterface.h"

#include "catalogues/SectionTables.h"
#include "dataaccess/CCrack.h"
#include "dataaccess/NameSearch.h"
#include "interface/PublicCall.h"

#include <utility>
#include <vector>

using dbsection::PublicCall;

namespace {

/// The names of a section, by their columns.
enum NameColumn : int { PublicName = 1, VessaName = 2 };

CString QueryText(const CString& table, NameColumn column, const char* name) {
    const CString from = "SELECT * FROM [" + table + "] WHERE ";
    return column == VessaName ? from + "UPPER([VessaName]) = UPPER('" + name + "')"
                               : from + "[Name] = '" + name + "'";
}

/// Opens the library-wide database on a catalogue and searches it: `found` is called for the first
/// table with rows of that name, with its section type, the number of the rows, and the rows at the
/// first. False when the catalogue cannot be opened.
template <class Found>
bool SearchCatalogue(int index, NameColumn column, const char* name, Found found) {
    CSectionDatabase* database = SectionDBInterface::GetDatabasePtr(index);
    dbsection::ForEachSectionTable(database, [&](const CString& table) {
        RecordsetHandle rows;
        if (!dbsection::HasColumn(database, table, column == VessaName ? "VessaName" : "Name") ||
            openRecordset(&database, rows.Address(), QueryText(table, column, name),
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

/// The text in a column of the current row; empty where there is no such column.
CString TextIn(const CSectionRecordset& rows, int column) {
    return column < rows.GetFieldCount() ? CCrack::strVARIANT(rows.GetFieldValue(column))
                                         : CString();
}

int SearchAllCatalogues(NameColumn column, const char* name, CUIntArray& catalogues,
                        CUIntArray& sectionTypes) {
    CUIntArray indices = catalogues; // both arrays grow, or none
    CUIntArray types = sectionTypes;
    bool isWhole = dbsection::IsSearchable(name);
    for (int index = 1; isWhole && index <= LastCatalogueIndex; ++index) {
        const auto append = [&](int type, int count, const CSectionRecordset&) {
            for (int i = 0; i < count; ++i) {
                indices.Add(static_cast<unsigned int>(index));
                types.Add(static_cast<unsigned int>(type));
            }
        };
        isWhole = SearchCatalogue(index, column, name, append);
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
        dbsection::IsSearchable(name) && SearchCatalogue(index, column, name, append);
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
