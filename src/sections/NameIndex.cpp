#include "sections/NameIndex.h"

#include "records/NameKey.h"

#include <algorithm>
#include <bit>
#include <iterator>
#include <limits>
#include <set>
#include <tuple>
#include <utility>

namespace sections {

using dbsection::NameKey;

namespace {

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

/// All names, in chains of those whose keys are alike as far as a table has places.
struct NameIndex::Entries {
    struct Entry {
        std::uint32_t family;
        std::uint32_t row;
        Match match;
        std::string_view name;
        std::uint64_t hash; ///< of its key
    };

    static constexpr std::uint32_t None = std::numeric_limits<std::uint32_t>::max();

    void add(const Family& family) {
        const auto place = static_cast<std::uint32_t>(families.size());
        families.push_back(family);
        for (std::uint32_t row = 0; row < family.size(); ++row) {
            const auto addName = [&](Match match, std::string_view name) {
                names.push_back({place, row, match, name, NameKey(name).Hash()});
            };
            const Section section = family[row];
            addName(Match::Exact, section.name());
            if (section.programName() != section.name())
                addName(Match::Exact, section.programName());
            for (const Alias& alias : section.aliases())
                addName(alias.isSuperseded ? Match::Superseded : Match::Alias, alias.name);
        }
    }

    void chain() {
        first.assign(std::bit_ceil(names.size() + 1), None);
        next.resize(names.size());
        for (std::size_t place = names.size(); place-- > 0;) // so that chains run forwards
            next[place] =
                std::exchange(first[slotOf(names[place].hash)], static_cast<std::uint32_t>(place));
    }

    std::size_t slotOf(std::uint64_t hash) const { return hash & (first.size() - 1); }
    Section sectionOf(const Entry& entry) const { return families[entry.family][entry.row]; }

    /// Whether no name before it is of the same key.
    bool isFirst(const Entry& entry) const {
        std::uint32_t place = first[slotOf(entry.hash)];
        while (names[place].hash != entry.hash)
            place = next[place];
        return &names[place] == &entry;
    }

    std::vector<Family> families;
    std::vector<Entry> names;         ///< they lie in the catalogues, which the families keep
    std::vector<std::uint32_t> first; ///< place in `names` where a chain begins, or None
    std::vector<std::uint32_t> next;  ///< by place: the next one of the chain, or None
};

NameIndex::NameIndex(const std::vector<Catalogue>& catalogues) {
    auto entries = std::make_shared<Entries>();
    for (const Catalogue& catalogue : catalogues)
        for (const Family& family : catalogue.families())
            entries->add(family);
    entries->chain();
    m_entries = std::move(entries);
}

std::vector<Hit> NameIndex::find(std::string_view typed) const {
    const NameKey key(typed);
    std::vector<Hit> hits;
    if (key.IsEmpty())
        return hits;
    const std::uint64_t hash = key.Hash();
    for (auto place = m_entries->first[m_entries->slotOf(hash)]; place != Entries::None;
         place = m_entries->next[place]) {
        const Entries::Entry& entry = m_entries->names[place];
        if (entry.hash != hash || NameKey(entry.name) != key)
            continue;
        const Hit hit{m_entries->sectionOf(entry), entry.match, std::string(entry.name)};
        const auto known = std::ranges::find_if(
            hits, [&](const Hit& other) { return isSame(other.section, hit.section); });
        if (known == hits.end())
            hits.push_back(hit);
        else if (hit.match < known->match)
            *known = hit;
    }
    std::ranges::stable_sort(hits, {}, &Hit::match);
    return hits;
}

std::vector<Hit> NameIndex::beginning(std::string_view typed) const {
    const NameKey key(typed);
    std::vector<Hit> hits;
    if (key.IsEmpty())
        return hits;
    for (const Entries::Entry& entry : m_entries->names) {
        if (!NameKey(entry.name).BeginsWith(key))
            continue;
        const Section section = m_entries->sectionOf(entry);
        if (hits.empty() || !isSame(hits.back().section, section))
            hits.push_back({section, entry.match, std::string(entry.name)});
    }
    return hits;
}

std::vector<Hit> NameIndex::nearest(std::string_view typed, std::size_t count) const {
    const NameKey key(typed);
    const std::string text = key.Text();
    const int most = std::max(2, static_cast<int>(text.size()) / 3);

    /// How unlike a name is: changes of letters and digits first, then the sizes.
    using Unlikeness = std::tuple<int, double, const Entries::Entry*>;
    std::set<Unlikeness> nearest;
    for (const Entries::Entry& entry : m_entries->names) {
        const NameKey name(entry.name);
        const int distance = dbsection::NameDistance(text, name.Text(), most);
        if (distance > most || !m_entries->isFirst(entry))
            continue;
        nearest.emplace(distance, dbsection::NumbersApart(key, name), &entry);
        if (nearest.size() > 4 * count) // more than one name may be of one section
            nearest.erase(std::prev(nearest.end()));
    }
    std::vector<Hit> hits;
    for (const auto& [distance, apart, entry] : nearest) {
        const Section section = m_entries->sectionOf(*entry);
        const bool isKnown =
            std::ranges::any_of(hits, [&](const Hit& hit) { return isSame(hit.section, section); });
        if (!isKnown && hits.size() < count)
            hits.push_back({section, Match::Near, std::string(entry->name)});
    }
    return hits;
}

} // namespace sections
