#include "Session.h"

#include "Text.h"

#include <algorithm>

namespace browser {

void Session::UseCatalogue(const CString& numberOrName) {
    const int catalogue = FindCatalogue(numberOrName);
    RequireCatalogue(catalogue);
    m_catalogue = catalogue;
    m_family.reset();
}

void Session::UseFamily(const CString& numberOrName) {
    for (const Family& family : FamiliesOf(Catalogue()))
        if (family.type == NumberIn(numberOrName) || IsSameName(family.name, numberOrName)) {
            m_family = family;
            return;
        }
    throw Refusal("There is no family " + Quoted(numberOrName) +
                  "; \"families\" lists those of the catalogue.");
}

int Session::Catalogue() const {
    if (m_catalogue == 0)
        throw Refusal("Choose a catalogue first, as in \"use American\".");
    return m_catalogue;
}

const Family& Session::ChosenFamily() const {
    if (!m_family)
        throw Refusal("Choose a family first, as in \"family 1\".");
    return *m_family;
}

Section Session::FindSection(const CString& name) const {
    const auto sections = SectionsOf(Catalogue(), ChosenFamily().type);
    for (const auto column : {&Section::name, &Section::publicName})
        if (const auto place = std::ranges::find_if(
                sections, [&](const Section& each) { return IsSameName(each.*column, name); });
            place != sections.end())
            return *place;
    throw Refusal("There is no section " + Quoted(name) + " in the family " + ChosenFamily().name +
                  "; \"names\" lists them.");
}

bool Session::IsPreferred(const Section& section) const {
    return SectionDBInterface::IsSectionInProject(Catalogue(), ChosenFamily().type,
                                                  section.record) == 1;
}

CString Session::Place() const {
    if (m_catalogue == 0)
        return {};
    const CString catalogue = SectionDBInterface::GetCountryName(m_catalogue);
    return m_family ? catalogue + ", " + m_family->name : catalogue;
}

} // namespace browser
