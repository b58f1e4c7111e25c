// Where a name is found, over all catalogues.
#include "Commands.h"
#include "Print.h"
#include "Text.h"

#include <array>

namespace browser {
namespace {

/// A section has two names: each search goes by one of them and tells the other.
struct NameSearch {
    const char* kind;
    int (*inAllCatalogues)(const char* name, CUIntArray& catalogues, CUIntArray& types);
    int (*inOneCatalogue)(int catalogue, const char* name, CUIntArray& types,
                          std::vector<CString>& otherNames);
};

constexpr std::array Searches{
    NameSearch{"public name", SectionDBInterface::GetCountryAndSectionTypeFromPublicName,
               SectionDBInterface::GetSectionTypeAndVessaNameFromPublicName},
    NameSearch{"program's name", SectionDBInterface::GetCountryAndSectionTypeFromVessaName,
               SectionDBInterface::GetSectionTypeAndPublicNameFromVessaName}};

/// Appends a row for each catalogue that holds the name; whether all catalogues were searched.
bool AppendFound(const NameSearch& search, const CString& name, std::vector<Row>& rows) {
    CUIntArray catalogues;
    CUIntArray types;
    const bool isComplete = search.inAllCatalogues(name, catalogues, types) == 1;
    for (int i = 0; i < catalogues.GetSize(); ++i) {
        if (i > 0 && catalogues[i] == catalogues[i - 1])
            continue; // a further row of that name
        const int catalogue = static_cast<int>(catalogues[i]);
        const int type = static_cast<int>(types[i]);
        CUIntArray sameTypes;
        std::vector<CString> otherNames;
        if (search.inOneCatalogue(catalogue, name, sameTypes, otherNames) == 1)
            rows.push_back({search.kind, SectionDBInterface::GetCountryName(catalogue),
                            SectionDBInterface::GetTableFromSectionType(catalogue, type),
                            otherNames.front()});
    }
    return isComplete;
}

/// The first catalogue that cannot be opened, where a search over all of them ends; 0 for none.
int FirstMissing() {
    for (int index = 1; index <= LastCatalogueIndex; ++index)
        if (SectionDBInterface::GetDatabasePtr(index) == nullptr)
            return index;
    return 0;
}

} // namespace

void Find(Session& /*session*/, const Arguments& arguments) {
    const CString name = Joined(arguments);
    const Row header{"Known as", "Catalogue", "Family", "Other name"};
    std::vector<Row> rows{header};
    bool isComplete = false;
    for (const NameSearch& search : Searches)
        isComplete = AppendFound(search, name, rows) || isComplete;
    if (rows.size() > 1)
        PrintTable(rows, "l");
    const int missing = isComplete ? 0 : FirstMissing();
    if (missing != 0)
        throw Refusal("The search ended at the catalogue " +
                      SectionDBInterface::GetCountryName(missing) + ", which cannot be opened.");
    if (rows.size() == 1)
        throw Refusal("No catalogue has a section " + Quoted(name) + ".");
}

} // namespace browser
