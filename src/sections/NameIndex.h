// Sections found by names as people type them, over several catalogues.
//
//     const sections::NameIndex names({library.open("European"), library.open("British")});
//     for (const sections::Hit& hit : names.find("hea 200"))
//         std::cout << hit.section.name(); // "HE 200 A"
//
// What counts of a name: records/NameKey.h. An index keeps its catalogues alive, never changes,
// and may be read by several threads at once.
#pragma once

#include "platform/Export.h"
#include "sections/Catalogue.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace sections {

/// What a typed name has met, the best first.
enum class Match : std::uint8_t {
    Exact,      ///< the section's name, public or the program's, in whatever spelling
    Alias,      ///< another name in use
    Superseded, ///< a name that the standard has given up
    Near,       ///< a similar one: never to be taken for the section that was asked for
};

/// Its name in lower case: "exact", "alias", "superseded" or "near".
DBSECTION_API const char* nameOf(Match match);

struct Hit {
    Section section;
    Match match;
    std::string name; ///< of the section, or the alias, that was met
};

class DBSECTION_API NameIndex {
public:
    explicit NameIndex(const std::vector<Catalogue>& catalogues);

    /// The sections of that name: exact ones before aliases, these before superseded names, each
    /// in the order of the catalogues.
    std::vector<Hit> find(std::string_view typed) const;

    /// The sections of which a name begins so, each once, in the order of the catalogues.
    std::vector<Hit> beginning(std::string_view typed) const;

    /// The sections whose names are most like it, each name once; fewer where few are like it.
    std::vector<Hit> nearest(std::string_view typed, std::size_t count = 3) const;

private:
    struct Entries;

    std::shared_ptr<const Entries> m_entries;
};

} // namespace sections
