// The preferred sections of a family, kept in the table-index file.
#include "Commands.h"
#include "Print.h"
#include "Text.h"

#include <cstring>
#include <iostream>

namespace browser {
namespace {

void RequireSelections(const Session& session) {
    if (session.Catalogue() == JoistCatalogue)
        throw Refusal("The library keeps no selections of joists.");
    if (SectionDBInterface::GetDBIFileName().IsEmpty())
        throw Refusal("No file is named to keep the preferred sections in; name it with --dbi.");
}

CDWordArray SelectionOf(const Session& session, const Arguments& names) {
    CDWordArray selection;
    if (names.size() == 1 && IsSameName(names[0], "all"))
        selection.Add(SectionDBInterface::EverySection);
    else if (names.size() == 1 && IsSameName(names[0], "none"))
        selection.Add(SectionDBInterface::NoSection);
    else
        for (const CString& name : names)
            selection.Add(static_cast<DWORD>(session.FindSection(name).record));
    return selection;
}

/// The library gives no list where nothing is preferred, and where that cannot be read.
OwnedList ReadPreferred(const Session& session) {
    SectionDBInterface::SetExceptionType(0);
    OwnedList preferred(SectionDBInterface::GetUserSelectedSectionNameList(
        session.Catalogue(), session.ChosenFamily().type));
    if (!preferred && SectionDBInterface::GetExceptionType() != 0)
        throw Refusal("The preferred sections cannot be read.");
    return preferred;
}

void PrintCount(const Session& session, const OwnedList& preferred) {
    std::cout << session.Place() << ": " << (preferred ? preferred->GetCount() : 0)
              << " preferred sections\n";
}

} // namespace

void Prefer(Session& session, const Arguments& arguments) {
    const int type = session.ChosenFamily().type;
    RequireSelections(session);
    CDWordArray selection = SelectionOf(session, arguments);
    SectionDBInterface::SaveUserSelectedSections(session.Catalogue(), type, selection);
    if (const int error = GetLastProfileError(); error != 0)
        throw Refusal(SectionDBInterface::GetDBIFileName() +
                      " cannot be written: " + std::strerror(error) + ".");
    PrintCount(session, ReadPreferred(session));
}

void Preferred(Session& session, const Arguments& /*arguments*/) {
    RequireSelections(session);
    const OwnedList preferred = ReadPreferred(session);
    PrintCount(session, preferred);
    std::vector<Row> rows;
    if (preferred)
        for (const CString& name : *preferred)
            rows.push_back({name});
    PrintTable(rows, "l");
}

} // namespace browser
