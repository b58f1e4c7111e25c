#include "Catalogue.h"

#include "Text.h"

#include <algorithm>

namespace browser {
namespace {

/// The values of a joist stand in several tables: the layout names them.
std::vector<Field> JoistFields(int series) {
    constexpr int Girders = 5;
    const LayoutId layout = series == Girders ? LayoutId::JoistGirder : LayoutId::Joist;
    std::vector<Field> fields;
    for (const LayoutColumn& column : GetSectionLayout(layout).columns)
        fields.push_back({column.name, ""});
    return fields;
}

/// The layout of a family's table.
LayoutId LayoutOf(int catalogue, int type) {
    const auto& known = dynamic_cast<const CatalogueSectionDB&>(
        *SectionDBInterface::m_SectionDBDrv.GetSectionDBObject(static_cast<WORD>(catalogue)));
    return known.FindFamily(SectionDBInterface::GetTableFromSectionType(catalogue, type))->layout;
}

CString ReasonNotToOpen() {
    if (SectionDBInterface::m_nLastDaoError == SectionError::WrongPassword)
        return "the password is missing or wrong; give it with --password";
    return "error " + CString(std::to_string(SectionDBInterface::m_nLastDaoError));
}

} // namespace

int FindCatalogue(const CString& numberOrName) {
    for (int index = 1; index <= LastCatalogueIndex; ++index)
        if (NumberIn(numberOrName) == index ||
            IsSameName(numberOrName, SectionDBInterface::GetCountryName(index)))
            return index;
    throw Refusal("There is no catalogue " + Quoted(numberOrName) +
                  "; \"catalogues\" lists their numbers and names.");
}

void RequireCatalogue(int catalogue) {
    const CString file = SectionDBInterface::GetDatabaseFileName(catalogue);
    if (file.IsEmpty())
        throw Refusal(SectionDBInterface::m_saSectionFile[catalogue] +
                      (".db3 is not in the folder " +
                       Quoted(SectionDBInterface::GetDatabaseDirectoryName()) +
                       "; name its folder with --folder."));
    if (SectionDBInterface::GetDatabasePtr(catalogue) == nullptr)
        throw Refusal(file + " cannot be opened: " + ReasonNotToOpen() + ".");
}

std::vector<Family> FamiliesOf(int catalogue) {
    RequireCatalogue(catalogue);
    std::vector<Family> families;
    const OwnedList names(SectionDBInterface::GetSectionTypeList(catalogue));
    for (const CString& name : *names) {
        // A joist series has no table of its name: its number is its place in the list.
        const int place = static_cast<int>(families.size()) + 1;
        const int type = catalogue == JoistCatalogue
                             ? place
                             : SectionDBInterface::GetSectionTypeFromTable(catalogue, name);
        families.push_back({type, name});
    }
    return families;
}

std::vector<Section> SectionsOf(int catalogue, int type) {
    RequireCatalogue(catalogue);
    constexpr int Sorted = 1;
    CUIntArray records;
    std::vector<CString> names;
    std::vector<CString> publicNames;
    SectionDBInterface::GetSectionNameList(catalogue, type, &records, names, Sorted);
    SectionDBInterface::GetSectionPublicNameList(catalogue, type, nullptr, publicNames, Sorted);
    std::vector<Section> sections;
    for (std::size_t i = 0; i < std::min(names.size(), publicNames.size()); ++i)
        sections.push_back(
            {static_cast<int>(records[static_cast<int>(i)]), names[i], publicNames[i]});
    return sections;
}

std::vector<Field> FieldsOf(int catalogue, int type) {
    if (catalogue == JoistCatalogue)
        return JoistFields(type);
    RequireCatalogue(catalogue);
    const OwnedArray names(SectionDBInterface::GetSectionFieldNameArray(catalogue, type));
    const OwnedArray units(SectionDBInterface::GetSectionFieldUnitsArray(catalogue, type));
    std::vector<Field> fields;
    for (int i = BookkeepingColumns; i < names->GetSize(); ++i)
        fields.push_back({names->GetAt(i), i < units->GetSize() ? units->GetAt(i) : CString()});
    return fields;
}

std::vector<Field> DisplayFieldsOf(int catalogue, int type) {
    const std::vector<Field> columns = FieldsOf(catalogue, type);
    std::vector<Field> fields;
    for (const int i : GetDisplayOrder(LayoutOf(catalogue, type)))
        if (const auto column = static_cast<std::size_t>(i); column < columns.size())
            fields.push_back(columns[column]);
    fields.resize(std::min(fields.size(), MostValues));
    return fields;
}

} // namespace browser
