// Conditions over a row in memory that need no engine.
#pragma once

#include "dataaccess/sqlite/RowStore.h"
#include "dataaccess/sqlite/Statement.h"
#include "dataaccess/sqlite/TableQuestion.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace dbsection {

/// A condition that compares one column with a text or a whole number, as the engine would.
class RowCondition {
public:
    enum class Answer : std::uint8_t { No, Yes, AskEngine };

    /// Nothing where the condition is not of that form, or the column of another type.
    static std::optional<RowCondition> Parse(std::string_view condition, const QueryShape& shape);

    Answer Test(const RowStore& rows, const Cell* row) const;

private:
    TableQuestion::Rows m_rows{};
    std::size_t m_column = 0;
    std::string m_text;
    std::int64_t m_number = 0;
};

} // namespace dbsection
