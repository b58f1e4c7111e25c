// Where the sections of a name stand in a catalogue.
#pragma once

#include "platform/Text.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace sections {

struct Place {
    std::uint32_t family;
    std::uint32_t row;
};

/// Names are found whatever their letter case. The index refers to them: they must stay where they
/// are.
class PlacesByName {
public:
    struct Entry {
        std::string_view name;
        Place place;
    };

    PlacesByName() = default;
    explicit PlacesByName(const std::vector<Entry>& entries)
        : m_slots(std::bit_ceil(2 * entries.size() + 1)) {
        for (const Entry& entry : entries) {
            const auto hash = hashOf(entry.name);
            std::size_t at = slotOf(hash);
            while (m_slots[at].isUsed)
                at = nextTo(at);
            m_slots[at] = {entry, hash, true};
        }
    }

    /// Calls `visit` with the places of a name, in the order of the entries, until it tells by true
    /// that it has what it wants.
    template <class Visit>
    void visit(std::string_view name, Visit visit) const {
        const auto hash = hashOf(name);
        for (std::size_t at = slotOf(hash); m_slots[at].isUsed; at = nextTo(at))
            if (m_slots[at].hash == hash && isSame(m_slots[at].entry.name, name) &&
                visit(m_slots[at].entry.place))
                return;
    }

private:
    struct Slot {
        Entry entry{};
        std::uint32_t hash = 0;
        bool isUsed = false;
    };

    static std::uint32_t hashOf(std::string_view name) {
        return static_cast<std::uint32_t>(dbsection::HashNoCase(name));
    }
    static bool isSame(std::string_view left, std::string_view right) {
        return left == right || dbsection::EqualNoCase(left, right);
    }
    std::size_t slotOf(std::uint32_t hash) const { return hash & (m_slots.size() - 1); }
    std::size_t nextTo(std::size_t at) const { return (at + 1) & (m_slots.size() - 1); }

    std::vector<Slot> m_slots = std::vector<Slot>(1); ///< a power of two, one at least is unused
};

} // namespace sections
