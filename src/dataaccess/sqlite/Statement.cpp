#include "dataaccess/sqlite/Statement.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace dbsection {

KeptStatement* StatementStore::Find(const std::string& key) {
    const auto place = std::ranges::find_if(
        m_statements, [&](const KeptStatement& kept) { return !kept.inUse && kept.key == key; });
    if (place == m_statements.end())
        return nullptr;
    m_statements.splice(m_statements.begin(), m_statements, place);
    return &m_statements.front();
}

bool StatementStore::IsFree() const {
    return std::ranges::none_of(m_statements, &KeptStatement::inUse);
}

KeptStatement& StatementStore::Keep(KeptStatement statement) {
    constexpr std::size_t Capacity = 96; // two searches of the catalogue with the most tables
    m_statements.push_front(std::move(statement));
    if (m_statements.size() > Capacity && !m_statements.back().inUse)
        m_statements.pop_back();
    return m_statements.front();
}

} // namespace dbsection
