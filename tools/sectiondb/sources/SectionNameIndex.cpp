#include "sources/SectionNameIndex.h"

#include "platform/Text.h"
#include "sources/SourceError.h"

namespace dbsection {

void SectionNameIndex::Add(const std::string& table, const std::string& name,
                           const std::string& vessaName, const std::vector<SourceAlias>& aliases) {
    const std::size_t section = m_sections++;
    const std::string text = name + " of table " + table;
    m_uses[UpperCase(name)].push_back({section, Kind::Public, text});
    m_uses[UpperCase(vessaName)].push_back({section, Kind::Program, text});
    for (const SourceAlias& alias : aliases)
        m_uses[UpperCase(alias.name)].push_back({section, Kind::Alias, text});
}

void SectionNameIndex::RequireUnambiguous(const std::string& file) const {
    for (const auto& [name, uses] : m_uses)
        for (auto left = uses.begin(); left != uses.end(); ++left)
            for (auto right = left + 1; right != uses.end(); ++right)
                if (left->section != right->section &&
                    (left->kind != Kind::Public || right->kind != Kind::Public))
                    throw SourceError({file, 0, "", ""}, "\"" + name + "\" names two sections: " +
                                                             left->text + " and " + right->text);
}

} // namespace dbsection
