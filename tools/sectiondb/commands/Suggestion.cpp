#include "commands/Suggestion.h"

#include "records/CatalogueList.h"

namespace dbsection {

const char* TextOf(sections::Match match) {
    switch (match) {
    case sections::Match::Exact:
        return "exact";
    case sections::Match::Alias:
        return "alias";
    case sections::Match::Superseded:
        return "superseded";
    case sections::Match::Near:
        break;
    }
    return "near";
}

std::string CatalogueOf(const sections::Section& section) {
    return FindCatalogue(section.family().catalogue().number())->name;
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
