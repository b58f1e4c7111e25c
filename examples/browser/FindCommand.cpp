// Sections by names as people type them, over all catalogues, and their shape.
#include "Commands.h"
#include "Print.h"
#include "Text.h"
#include "Values.h"

#include <drawing/Drawing.h>
#include <sections/Error.h>

#include <algorithm>
#include <iostream>

namespace browser {
namespace {

CString CatalogueOf(const sections::Section& section) {
    return SectionDBInterface::GetCountryName(section.family().catalogue().number());
}

/// "; did you mean X (American) or Y (British)?", or a full stop.
CString Suggestion(const std::vector<sections::Hit>& near) {
    CString text;
    for (const sections::Hit& hit : near)
        text += (text.IsEmpty() ? "; did you mean " : " or ") + CString(hit.name) + " (" +
                CatalogueOf(hit.section) + ")";
    return text.IsEmpty() ? "." : text + "?";
}

} // namespace

void Find(Session& /*session*/, const Arguments& arguments) {
    const CString name = Joined(arguments);
    std::vector<CString> faults;
    const sections::NameIndex names(ReadCatalogues(faults));
    std::vector<Row> rows{{"Match", "Catalogue", "Family", "Name", "Public name"}};
    for (const auto& [section, match, met] : names.find(name.View()))
        rows.push_back({sections::nameOf(match), CatalogueOf(section),
                        CString(section.family().name()), CString(section.programName()),
                        CString(section.name())});
    if (rows.size() > 1)
        PrintTable(rows, "l");
    if (!faults.empty())
        throw Refusal(faults.front());
    if (rows.size() == 1)
        throw Refusal("No catalogue has a section " + Quoted(name) +
                      Suggestion(names.nearest(name.View())));
}

void Draw(Session& session, const Arguments& arguments) {
    constexpr int Columns = 40;
    const CString name = Joined(arguments);
    const sections::NameIndex names({ReadCatalogue(session.Catalogue())});
    const std::vector<sections::Hit> hits = names.find(name.View());
    if (hits.empty())
        throw Refusal("There is no section " + Quoted(name) + " in the catalogue" +
                      Suggestion(names.nearest(name.View())));
    const sections::Section& section = hits.front().section;
    try {
        const dbsection::SectionGeometry shape = section.agreedShape();
        std::cout << section.name() << " (" << CatalogueOf(section) << ", "
                  << section.family().name() << ")\n"
                  << dbsection::Picture(shape.outline, Columns);
    } catch (const sections::Error& error) {
        throw Refusal(error.what());
    }
}

} // namespace browser
