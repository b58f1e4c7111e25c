// The names of a catalogue's sections, all of which find one section: a program's name is one
// section's alone, and no alias is another section's name or alias. Public names may stand in
// several tables.
#pragma once

#include "sources/SourceFamily.h"

#include <map>
#include <string>
#include <vector>

namespace dbsection {

class SectionNameIndex {
public:
    void Add(const std::string& table, const std::string& name, const std::string& vessaName,
             const std::vector<SourceAlias>& aliases);

    /// Throws SourceError, a fault of `file`, where two sections share a name that they must not.
    void RequireUnambiguous(const std::string& file) const;

private:
    enum class Kind { Public, Program, Alias };

    struct Use {
        std::size_t section; ///< counted in the order of Add
        Kind kind;
        std::string text; ///< what the section is called in messages
    };

    std::size_t m_sections = 0;
    std::map<std::string, std::vector<Use>> m_uses; ///< by name in upper case
};

} // namespace dbsection
