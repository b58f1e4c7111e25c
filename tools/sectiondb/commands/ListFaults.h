// The faults of a list, of which a person is told the first ones.
#pragma once

#include "output/Messages.h"

#include <fmt/format.h>
#include <string>
#include <string_view>

namespace dbsection {

class ListFaults {
public:
    void Add(std::string_view fault) {
        if (++m_count <= Told)
            m_text.append("\n").append(fault);
    }

    /// Throws a CommandError where there are some. `outcome`: what that means, e.g. "nothing is
    /// imported".
    void ThrowIfAny(const std::string& list, const char* outcome) const {
        if (m_count == 0)
            return;
        const std::string more =
            m_count > Told ? fmt::format("\n... and {} more.", m_count - Told) : "";
        throw CommandError(fmt::format(
            "{}: {}, since {} at fault:{}{}", list, outcome,
            m_count == 1 ? "a line is" : fmt::format("{} lines are", m_count), m_text, more));
    }

private:
    static constexpr std::size_t Told = 20;
    std::string m_text;
    std::size_t m_count = 0;
};

} // namespace dbsection
