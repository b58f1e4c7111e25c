#include "sources/SourcePages.h"

#include <algorithm>
#include <fmt/format.h>
#include <sstream>

namespace dbsection {
namespace {

/// What stands in place of what is printed: "IZ 878000", "AX 26.55 → 28.55", "radius 30 → 20".
std::string Entry(const Correction& correction) {
    std::string text = correction.column;
    if (!correction.printed.empty())
        text += (text.empty() ? "" : " ") + correction.printed;
    if (correction.IsMended())
        text += " → " + correction.kept;
    return text;
}

/// Corrections of one reason and kind.
struct Group {
    const Correction* first;
    std::string sections; ///< "HL 1100 A: IZ 878000, IX 1100; HL 1100 B: ..."
    std::string last;     ///< name of the section that was added last
};

bool BelongsTo(const Group& group, const Correction& correction) {
    const Correction& first = *group.first;
    return first.reason == correction.reason && first.IsMended() == correction.IsMended() &&
           (first.IsMended() || first.kept == correction.kept);
}

void Add(Group& group, const Correction& correction) {
    const std::string entry = Entry(correction);
    const bool isSame = !group.sections.empty() && group.last == correction.name;
    if (!group.sections.empty())
        group.sections += isSame ? ", " : "; ";
    if (!isSame)
        group.sections += correction.name.empty() ? "all" : correction.name;
    if (!entry.empty())
        group.sections += (isSame ? "" : ": ") + entry;
    group.last = correction.name;
}

std::string FamilySection(const std::string& family, const std::vector<Correction>& corrections) {
    std::vector<Group> groups;
    for (const Correction& correction : corrections) {
        auto group = std::ranges::find_if(
            groups, [&](const Group& known) { return BelongsTo(known, correction); });
        if (group == groups.end())
            group = groups.insert(groups.end(), {&correction, {}, {}});
        Add(*group, correction);
    }
    std::string text = fmt::format("\n## {}\n\n", family);
    for (const Group& group : groups)
        text += fmt::format("- **{}**, {}: {}\n",
                            group.first->IsMended() ? "mended" : group.first->kept,
                            group.first->reason, group.sections);
    return text;
}

} // namespace

std::string CorrectionsPage(const SourceFamilies& families) {
    std::string text =
        "# Corrections\n\n"
        "Every figure that the catalogues do not keep as its source prints it, and every row that\n"
        "they leave out, by family. `sectiondb sources corrections` writes this page from\n"
        "`data/families/_corrections.csv`.\n\n"
        "*mended*: the figure before the arrow is printed, the one behind it is kept. *computed*:\n"
        "the printed figure (none where the source has none) is replaced by the one that follows\n"
        "from the dimensions. *left out*: the row is not in the catalogues. *duplicate*: another\n"
        "row or family has the section. *converted*: the figure follows from the printed one.\n"
        "*added*: it comes from another source. \"all\" stands for all sections of the family.\n";
    for (const std::string& family : families.Names())
        if (const auto& corrections = families.Corrections().Of(family); !corrections.empty())
            text += FamilySection(family, corrections);
    return text;
}

std::string CataloguesPage(const std::vector<CatalogueSource>& catalogues) {
    std::string text =
        "# Catalogues\n\n"
        "What the figures of each table are. `sectiondb sources catalogues` writes this page; the\n"
        "file of a catalogue holds the same text in the column `Figures` of `DBInfo`.\n";
    for (const CatalogueSource& catalogue : catalogues) {
        text += fmt::format("\n## {} (`{}`)\n\n{} sections. {}.\n", catalogue.title, catalogue.stem,
                            catalogue.CountSections(), catalogue.standard);
        text += catalogue.figures.empty() ? "" : "\n";
        std::istringstream lines(catalogue.figures);
        for (std::string line; std::getline(lines, line);)
            text += "- " + line + "\n";
    }
    return text;
}

} // namespace dbsection
