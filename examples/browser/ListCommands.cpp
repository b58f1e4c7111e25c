// Catalogues, families, and what a family holds.
#include "Commands.h"
#include "Print.h"

#include <iostream>

namespace browser {

void Catalogues(Session& /*session*/, const Arguments& /*arguments*/) {
    std::vector<Row> rows;
    for (int index = 1; index <= LastCatalogueIndex; ++index) {
        const bool hasFile = !SectionDBInterface::GetDatabaseFileName(index).IsEmpty();
        rows.push_back(
            {Text(index), SectionDBInterface::GetCountryName(index), hasFile ? "" : "no file"});
    }
    PrintTable(rows, "rl");
}

void Use(Session& session, const Arguments& arguments) {
    session.UseCatalogue(Joined(arguments));
    std::cout << session.Place() << ": " << FamiliesOf(session.Catalogue()).size() << " families\n";
}

void Families(Session& session, const Arguments& /*arguments*/) {
    std::vector<Row> rows;
    for (const auto& [type, name] : FamiliesOf(session.Catalogue())) {
        const auto count = static_cast<int>(SectionsOf(session.Catalogue(), type).size());
        rows.push_back({Text(type), name, Text(count)});
    }
    PrintTable(rows, "rlr");
}

void ChooseFamily(Session& session, const Arguments& arguments) {
    session.UseFamily(Joined(arguments));
    const auto sections = SectionsOf(session.Catalogue(), session.ChosenFamily().type);
    std::cout << session.Place() << ": " << sections.size() << " sections\n";
}

void Names(Session& session, const Arguments& /*arguments*/) {
    std::vector<Row> rows{{"Name", "Public name", "Preferred"}};
    for (const Section& section : SectionsOf(session.Catalogue(), session.ChosenFamily().type))
        rows.push_back(
            {section.name, section.publicName, session.IsPreferred(section) ? "yes" : "no"});
    PrintTable(rows, "l");
}

void Fields(Session& session, const Arguments& /*arguments*/) {
    std::vector<Row> rows;
    for (const auto& [name, unit] : FieldsOf(session.Catalogue(), session.ChosenFamily().type))
        rows.push_back({name, unit});
    PrintTable(rows, "l");
}

void ChooseUnits(Session& session, const Arguments& arguments) {
    Units chosen = session.units;
    for (const CString& name : arguments)
        ChooseUnit(chosen, name);
    session.units = chosen;
    std::cout << "Values are in " << NamesOf(session.units) << ".\n";
}

} // namespace browser
