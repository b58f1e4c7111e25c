// The statements that ask one table for rows by a name or an identifier, told by their text.
#pragma once

#include "dataaccess/NameSearch.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace dbsection {

/// A statement for all columns of one table, and for which of its rows.
struct TableQuestion {
    enum class Rows : std::uint8_t {
        All,
        OfText,           ///< [column] = 'text'
        OfTextInCapitals, ///< UPPER([column]) = 'text'
        OfTextInAnyCase,  ///< UPPER([column]) = UPPER('text')
        OfNumber,         ///< [column] = number
    };

    /// Nothing where the statement is not of that form, or may not be.
    static std::optional<TableQuestion> Parse(std::string_view sql);

    /// The question of a name.
    static TableQuestion Of(std::string_view table, std::string_view column, NameMatch match,
                            std::string_view name);

    Rows rows = Rows::All;
    std::string_view table{};
    std::string_view column{};
    std::string_view text{};
    std::int64_t number = 0;

    /// Of those rows only the ones with these numbers in that column; empty: no such restriction.
    std::string_view selectionColumn{};
    std::vector<std::int64_t> selection{};
};

/// Whether UPPER changes the letters of ASCII alone.
bool HasAsciiCapitals();

} // namespace dbsection
