#include "commands/TypedNames.h"

#include "output/Messages.h"
#include "records/CatalogueList.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <set>

namespace dbsection {

std::string CatalogueOf(const sections::Section& section) {
    return FindCatalogue(section.family().catalogue().number())->name;
}

std::vector<sections::Section> SectionsNamed(const sections::Catalogue& catalogue,
                                             const std::string& typed) {
    std::vector<sections::Section> found = catalogue.findAll(typed);
    if (!found.empty())
        return found;
    const sections::NameIndex names({catalogue});
    const std::vector<sections::Hit> hits = names.find(typed);
    for (const sections::Hit& hit : hits)
        if (hit.match == hits.front().match)
            found.push_back(hit.section);
    if (found.empty())
        throw CommandError(fmt::format("There is no section \"{}\" in the catalogue {}; {}", typed,
                                       FindCatalogue(catalogue.number())->name,
                                       Suggestion(names.nearest(typed))));
    return found;
}

std::vector<sections::Section> SectionsNamed(const CatalogueFolder& folder,
                                             const std::string& catalogue,
                                             const std::string& typed) {
    std::vector<sections::Section> found = folder.SectionsNamed(catalogue, typed);
    return found.empty() ? SectionsNamed(folder.Open(catalogue), typed) : found;
}

sections::Section SectionNamed(const CatalogueFolder& folder, const std::string& catalogue,
                               const std::string& typed, const std::string& family,
                               const char* familyArgument) {
    const std::vector<sections::Section> named = SectionsNamed(folder, catalogue, typed);
    const sections::Catalogue read = named.front().family().catalogue();
    const std::string wanted = family.empty() ? "" : FindFamily(read, family).name();
    std::set<std::string> families;
    for (const sections::Section& section : named)
        if (*families.insert(section.family().name()).first == wanted)
            return section;
    if (families.size() == 1 && family.empty())
        return named.front();
    throw CommandError(fmt::format("\"{}\" stands in the families {} of the catalogue {}; name one "
                                   "of them with {}.",
                                   typed, fmt::join(families, ", "), read.name(), familyArgument));
}

std::string Suggestion(const std::vector<sections::Hit>& near) {
    if (near.empty())
        return "\"sectiondb list CATALOGUE FAMILY\" prints the names.";
    std::string text = "did you mean ";
    for (std::size_t i = 0; i < near.size(); ++i) {
        const char* separator = i + 1 == near.size() ? " or " : ", ";
        text += (i == 0 ? "" : separator) + ("\"" + near[i].name + "\" (") +
                CatalogueOf(near[i].section) + ")";
    }
    return text + "?";
}

} // namespace dbsection
