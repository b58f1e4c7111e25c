#include "sources/SourceCorrections.h"

#include "sources/SourceFamily.h"

#include <algorithm>
#include <array>

namespace dbsection {
namespace {

/// What is wrong with what a correction says of a section; empty where nothing is.
std::string FaultOf(const Correction& correction, const SourceFamily& family,
                    const FamilyRow& row) {
    if (correction.IsRowLeftOut())
        return " is not left out";
    const auto& columns = family.layout->columns;
    const auto place = std::ranges::find(columns, correction.column, &LayoutColumn::name);
    if (place == columns.end())
        return "";
    const std::string& stands = row.printed[static_cast<std::size_t>(place - columns.begin())];
    if (correction.kept == "computed")
        return stands.empty() ? "" : ": " + correction.column + " is not computed, but " + stands;
    const bool isKept =
        stands == correction.kept ||
        (ParseNumber(stands) && ParseNumber(stands) == ParseNumber(correction.kept));
    return !correction.IsMended() || isKept ? "" : ": " + correction.column + " is " + stands;
}

} // namespace

bool Correction::IsMended() const {
    static constexpr std::array NoFigures{"computed", "left out", "duplicate", "converted",
                                          "added"};
    return !column.empty() && std::ranges::find(NoFigures, kept) == NoFigures.end();
}

SourceCorrections::SourceCorrections(SourceFolder& folder)
    : m_csv(folder.Read("_corrections.csv")) {
    for (const CsvTable::Record& record : m_csv.Records())
        m_byFamily[m_csv.RequiredText(record, "Family")].push_back(
            {record.line, m_csv.Text(record, "Name"), m_csv.Text(record, "Column"),
             m_csv.Text(record, "Printed"), m_csv.RequiredText(record, "Kept"),
             m_csv.RequiredText(record, "Reason")});
}

const std::vector<Correction>& SourceCorrections::Of(const std::string& family) const {
    static const std::vector<Correction> none;
    const auto place = m_byFamily.find(family);
    return place == m_byFamily.end() ? none : place->second;
}

void SourceCorrections::RequireTrue(const SourceFamily& family) const {
    if (family.layout->id == LayoutId::AluminiumAlloy)
        return; // whose rows no name tells apart
    for (const Correction& correction : family.corrections) {
        const auto isMeant = [&](const FamilyRow& row) {
            return correction.name.empty() || row.name == correction.name;
        };
        bool isOfRow = false;
        for (const FamilyRow& row : family.rows) {
            if (!isMeant(row))
                continue;
            isOfRow = true;
            if (const std::string fault = FaultOf(correction, family, row); !fault.empty())
                throw m_csv.LineError(correction.line, row.name + fault);
        }
        if (!isOfRow && (correction.IsMended() || correction.kept == "computed"))
            throw m_csv.LineError(correction.line,
                                  "the family has no section \"" + correction.name + "\"");
    }
}

void SourceCorrections::RequireFamilies(const std::set<std::string, std::less<>>& families) const {
    for (const CsvTable::Record& record : m_csv.Records())
        if (!families.contains(m_csv.Text(record, "Family")))
            throw m_csv.Error(record, "Family", "_families.csv does not name this family");
}

std::string LeftOutInShort(const std::vector<Correction>& corrections) {
    struct Group {
        const Correction* first;
        int more;
    };
    std::vector<Group> groups;
    for (const Correction& correction : corrections) {
        if (!correction.IsRowLeftOut())
            continue;
        const auto group = std::ranges::find(
            groups, correction.reason, [](const Group& known) { return known.first->reason; });
        if (group == groups.end())
            groups.push_back({&correction, 0});
        else
            ++group->more;
    }
    std::string text;
    for (const auto& [first, more] : groups)
        text += (text.empty() ? "" : "; ") + first->name +
                (more == 0 ? "" : " and " + std::to_string(more) + " more") + ": " + first->reason;
    return text;
}

} // namespace dbsection
