// The names that the sections of a file have, and so which ones another section cannot have.
#pragma once

#include "dataaccess/CSectionException.h"

#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>

namespace sections {

/// A section by its names.
struct NamedPlace {
    std::string table;
    std::string name;
    std::string programName;
};

/// Public names are told apart within a table, program names within the file, whatever their letter
/// case. Files of other programs may hold one twice.
class TakenNames {
public:
    void add(const NamedPlace& place);
    void remove(const NamedPlace& place);

    struct Fault {
        SectionError::Number number;
        std::string text;
    };

    /// Why a section cannot have its names. One that has names already may keep them.
    std::optional<Fault> fault(const NamedPlace& place, const NamedPlace* present = nullptr) const;

private:
    std::optional<Fault> nameFault(const NamedPlace& place) const;
    std::optional<Fault> programNameFault(const NamedPlace& place) const;

    std::unordered_multimap<std::string, NamedPlace>
        m_programNames;                           ///< by what they are in capitals
    std::unordered_multiset<std::string> m_names; ///< with their tables
};

} // namespace sections
