#include "dataaccess/sqlite/RowCondition.h"

#include "dataaccess/sqlite/FieldTypes.h"
#include "platform/Text.h"

#include <algorithm>

namespace dbsection {

using Rows = TableQuestion::Rows;

std::optional<RowCondition> RowCondition::Parse(std::string_view condition,
                                                const QueryShape& shape) {
    const std::string sql = "SELECT * FROM [rows] WHERE " + std::string(condition);
    const auto question = TableQuestion::Parse(sql);
    if (!question || question->rows == Rows::All || !question->selection.empty())
        return std::nullopt;
    const auto isColumn = [&](const ResultColumn& column) {
        return EqualNoCase(column.name, question->column);
    };
    const auto place = std::ranges::find_if(shape.columns, isColumn);
    const char* cast = question->rows == Rows::OfNumber ? "INTEGER" : "TEXT";
    if (std::ranges::count_if(shape.columns, isColumn) != 1 || CastOf(place->type) != cast ||
        !HasAsciiCapitals())
        return std::nullopt;
    RowCondition parsed;
    parsed.m_rows = question->rows;
    parsed.m_column = static_cast<std::size_t>(place - shape.columns.begin());
    parsed.m_text = question->text;
    parsed.m_number = question->number;
    return parsed;
}

RowCondition::Answer RowCondition::Test(const RowStore& rows, const Cell* row) const {
    const auto answer = [](bool isTrue) { return isTrue ? Answer::Yes : Answer::No; };
    const Cell& cell = row[m_column];
    if (cell.storage == Cell::Storage::Null)
        return Answer::No;
    if (m_rows == Rows::OfNumber)
        return cell.storage == Cell::Storage::Integer ? answer(cell.integer == m_number)
                                                      : Answer::AskEngine;
    if (cell.storage != Cell::Storage::Text)
        return Answer::AskEngine;
    const std::string_view text = rows.TextOf(cell);
    if (m_rows == Rows::OfText)
        return answer(text == m_text);
    return answer(EqualNoCase(text, m_text) &&
                  (m_rows == Rows::OfTextInAnyCase || m_text == UpperCase(m_text)));
}

} // namespace dbsection
