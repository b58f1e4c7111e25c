#include "sections/NameIndex.h"

#include "records/NameKey.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace sections {

using dbsection::NameKey;

namespace {

/// A name of a section.
struct Entry {
    Section section;
    Match match;
    std::string name;
};

void addNames(const Section& section, std::vector<Entry>& entries) {
    entries.push_back({section, Match::Exact, section.name()});
    if (section.programName() != section.name())
        entries.push_back({section, Match::Exact, section.programName()});
    for (const Alias& alias : section.aliases())
        entries.push_back(
            {section, alias.isSuperseded ? Match::Superseded : Match::Alias, alias.name});
}

bool isSame(const Section& left, const Section& right) {
    return left.recordNumber() == right.recordNumber() &&
           left.family().name() == right.family().name() &&
           left.family().catalogue().path() == right.family().catalogue().path();
}

} // namespace

const char* nameOf(Match match) {
    switch (match) {
    case Match::Exact:
        return "exact";
    case Match::Alias:
        return "alias";
    case Match::Superseded:
        return "superseded";
    case Match::Near:
        break;
    }
    return "near";
}

struct NameIndex::Entries {
    std::vector<Entry> names;
    std::unordered_map<std::string, std::vector<std::size_t>> byKey; ///< places in `names`
};

NameIndex::NameIndex(std::vector<Catalogue> catalogues) {
    auto entries = std::make_shared<Entries>();
    for (const Catalogue& catalogue : catalogues)
        for (const Family& family : catalogue.families())
            for (const Section section : family.sections())
                addNames(section, entries->names);
    for (std::size_t place = 0; place < entries->names.size(); ++place)
        entries->byKey[NameKey(entries->names[place].name).Text()].push_back(place);
    m_entries = std::move(entries);
}

std::vector<Hit> NameIndex::find(std::string_view typed) const {
    const NameKey key(typed);
    const auto places = m_entries->byKey.find(key.Text());
    std::vector<Hit> hits;
    if (key.IsEmpty() || places == m_entries->byKey.end())
        return hits;
    for (const std::size_t place : places->second) {
        const Entry& entry = m_entries->names[place];
        const auto known = std::ranges::find_if(
            hits, [&](const Hit& hit) { return isSame(hit.section, entry.section); });
        if (known == hits.end())
            hits.push_back({entry.section, entry.match, entry.name});
        else if (entry.match < known->match)
            *known = {entry.section, entry.match, entry.name};
    }
    std::ranges::stable_sort(hits, {}, &Hit::match);
    return hits;
}

std::vector<Hit> NameIndex::beginning(std::string_view typed) const {
    const NameKey key(typed);
    std::vector<Hit> hits;
    if (key.IsEmpty())
        return hits;
    for (const Entry& entry : m_entries->names) {
        const bool isKnown = !hits.empty() && isSame(hits.back().section, entry.section);
        if (!isKnown && NameKey(entry.name).BeginsWith(key))
            hits.push_back({entry.section, entry.match, entry.name});
    }
    return hits;
}

std::vector<Hit> NameIndex::nearest(std::string_view typed, std::size_t count) const {
    const NameKey key(typed);
    const std::string text = key.Text();
    const int most = std::max(2, static_cast<int>(text.size()) / 3);

    /// How unlike a name is: changes of letters and digits first, then the sizes.
    using Unlikeness = std::tuple<int, double, std::size_t>;
    std::map<Unlikeness, const std::string*> nearest;
    for (const auto& [name, places] : m_entries->byKey) {
        const int distance = dbsection::NameDistance(text, name, most);
        if (distance > most)
            continue;
        nearest.emplace(
            Unlikeness{distance, dbsection::NumbersApart(key, NameKey(name)), places.front()},
            &name);
        if (nearest.size() > 4 * count) // more than one name may be of one section
            nearest.erase(std::prev(nearest.end()));
    }
    std::vector<Hit> hits;
    for (const auto& [unlikeness, name] : nearest) {
        const Entry& entry = m_entries->names[m_entries->byKey.at(*name).front()];
        const bool isKnown = std::ranges::any_of(
            hits, [&](const Hit& hit) { return isSame(hit.section, entry.section); });
        if (!isKnown && hits.size() < count)
            hits.push_back({entry.section, Match::Near, entry.name});
    }
    return hits;
}

} // namespace sections
