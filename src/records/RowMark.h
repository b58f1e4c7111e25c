// A number by which a change of a row shows.
#pragma once

#include <bit>
#include <cstdint>
#include <string_view>

namespace dbsection {

/// Of the values of a row in their order. A change of any of them is missed once in 2^53 times.
class RowMark {
public:
    void Add(std::string_view text) {
        Mix('t');
        for (const char c : text)
            Mix(static_cast<unsigned char>(c));
        Mix('\0');
    }
    void Add(double number) {
        Mix('d');
        const auto bits = std::bit_cast<std::uint64_t>(number);
        for (int shift = 0; shift < 64; shift += 8)
            Mix(static_cast<unsigned char>(bits >> shift));
    }
    void AddNothing() { Mix('n'); }

    /// A whole number that a double holds.
    double Value() const { return static_cast<double>(m_hash >> 11); }

private:
    void Mix(unsigned char byte) { m_hash = (m_hash ^ byte) * 1099511628211ULL; } // FNV-1a

    std::uint64_t m_hash = 14695981039346656037ULL;
};

} // namespace dbsection
