// Finding sections by name, and one name by the other.
#include "interface/SectionDBInterface.h"

#include "catalogues/SectionTables.h"
#include "dataaccess/CCrack.h"
#include "dataaccess/NameSearch.h"

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
        if (count > 0)
            found(SectionDBInterface::GetSectionTypeFromTable(index, table), count, *rows);
        return count > 0;
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
    if (!dbsection::IsSearchable(name))
        return 0;
    for (int index = 1; index <= LastCatalogueIndex; ++index) {
        const auto append = [&](int type, int count, const CSectionRecordset&) {
            for (int i = 0; i < count; ++i) {
                catalogues.Add(static_cast<unsigned int>(index));
                sectionTypes.Add(static_cast<unsigned int>(type));
            }
        };
        if (!SearchCatalogue(index, column, name, append))
            return 0;
    }
    return catalogues.IsEmpty() || sectionTypes.IsEmpty() ? 0 : 1;
}

/// `otherNames`, where given, receives the first row's other name for each row.
int SearchOneCatalogue(int index, NameColumn column, const char* name, CUIntArray& sectionTypes,
                       CStringArray* otherNames = nullptr) {
    const auto append = [&](int type, int count, const CSectionRecordset& rows) {
        CString otherName;
        if (otherNames != nullptr)
            otherName = TextIn(rows, column == VessaName ? PublicName : VessaName);
        for (int i = 0; i < count; ++i) {
            sectionTypes.Add(static_cast<unsigned int>(type));
            if (otherNames != nullptr)
                otherNames->Add(otherName);
        }
    };
    if (!dbsection::IsSearchable(name) || !SearchCatalogue(index, column, name, append))
        return 0;
    return sectionTypes.IsEmpty() ? 0 : 1;
}

int SearchOneCatalogue(int index, NameColumn column, const char* name, CUIntArray& sectionTypes,
                       std::vector<CString>& otherNames) {
    CStringArray found;
    const int result = SearchOneCatalogue(index, column, name, sectionTypes, &found);
    otherNames.insert(otherNames.end(), found.begin(), found.end());
    return result;
}

} // namespace

int SectionDBInterface::GetCountryAndSectionTypeFromVessaName(const char* name,
                                                              CUIntArray& catalogues,
                                                              CUIntArray& sectionTypes) {
    return SearchAllCatalogues(VessaName, name, catalogues, sectionTypes);
}

int SectionDBInterface::GetCountryAndSectionTypeFromPublicName(const char* name,
                                                               CUIntArray& catalogues,
                                                               CUIntArray& sectionTypes) {
    return SearchAllCatalogues(PublicName, name, catalogues, sectionTypes);
}

int SectionDBInterface::GetSectionTypeFromVessaName(int index, const char* name,
                                                    CUIntArray& sectionTypes) {
    return SearchOneCatalogue(index, VessaName, name, sectionTypes);
}

int SectionDBInterface::GetSectionTypeFromPublicName(int index, const char* name,
                                                     CUIntArray& sectionTypes) {
    return SearchOneCatalogue(index, PublicName, name, sectionTypes);
}

int SectionDBInterface::GetSectionTypeAndVessaNameFromPublicName(int index, const char* publicName,
                                                                 CUIntArray& sectionTypes,
                                                                 CStringArray& vessaNames) {
    return SearchOneCatalogue(index, PublicName, publicName, sectionTypes, &vessaNames);
}

int SectionDBInterface::GetSectionTypeAndVessaNameFromPublicName(int index, const char* publicName,
                                                                 CUIntArray& sectionTypes,
                                                                 std::vector<CString>& vessaNames) {
    return SearchOneCatalogue(index, PublicName, publicName, sectionTypes, vessaNames);
}

int SectionDBInterface::GetSectionTypeAndPublicNameFromVessaName(int index, const char* vessaName,
                                                                 CUIntArray& sectionTypes,
                                                                 CStringArray& publicNames) {
    return SearchOneCatalogue(index, VessaName, vessaName, sectionTypes, &publicNames);
}

int SectionDBInterface::GetSectionTypeAndPublicNameFromVessaName(
    int index, const char* vessaName, CUIntArray& sectionTypes, std::vector<CString>& publicNames) {
    return SearchOneCatalogue(index, VessaName, vessaName, sectionTypes, publicNames);
}

int SectionDBInterface::GetTableNameFromSection(int index, const char* name, CString& tableName) {
    SectionDBBase* catalogue = OpenCatalogue(index);
    if (catalogue == nullptr || !dbsection::IsSearchable(name))
        return 0;
    return catalogue->GetTableNameFromSection(name, tableName);
}
