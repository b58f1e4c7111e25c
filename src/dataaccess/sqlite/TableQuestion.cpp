#include "dataaccess/sqlite/TableQuestion.h"

#include "dataaccess/sqlite/SqlTokens.h"
#include "platform/Text.h"

#include <algorithm>
#include <charconv>
#include <sqlcipher/sqlite3.h>
#include <utility>

namespace dbsection {
namespace {

/// Reads a statement from its beginning on; the first text that is not as expected, which a comment
/// never is, ends it.
class QuestionReader {
public:
    explicit QuestionReader(std::string_view sql) : m_rest(sql) {}

    std::optional<TableQuestion> Read() {
        std::optional<TableQuestion> question(std::in_place);
        if (!(Take("SELECT") && Take('*') && Take("FROM") && TakeName(question->table) &&
              (!Take("WHERE") ||
               (TakeCondition(*question) && (!Take("AND") || TakeSelection(*question)))) &&
              IsAtEnd()))
            question.reset();
        return question;
    }

private:
    /// Passes over blanks; whether nothing else is left.
    bool IsAtEnd() {
        while (!m_rest.empty() && IsBlank(m_rest.front()))
            m_rest.remove_prefix(1);
        return m_rest.empty();
    }

    /// Takes that many characters where they are a word, or the end of one.
    bool TakeWordOf(std::size_t size) {
        const bool isWhole = size == m_rest.size() || !IsWordCharacter(m_rest[size]);
        if (isWhole)
            m_rest.remove_prefix(size);
        return isWhole;
    }

    /// `word` is given in capitals.
    bool Take(std::string_view word) {
        return !IsAtEnd() && m_rest.size() >= word.size() &&
               std::ranges::equal(m_rest.substr(0, word.size()), word, {}, ToUpper) &&
               TakeWordOf(word.size());
    }

    bool IsNext(char symbol) { return !IsAtEnd() && m_rest.front() == symbol; }
    bool Take(char symbol) {
        const bool isNext = IsNext(symbol);
        if (isNext)
            m_rest.remove_prefix(1);
        return isNext;
    }

    /// Takes what stands up to `close`, unless it contains that, which is then doubled.
    bool TakeUpTo(char close, std::string_view& inside) {
        const std::size_t end = m_rest.find(close);
        if (end == std::string_view::npos || m_rest.substr(end + 1).starts_with(close))
            return false;
        inside = m_rest.substr(0, end);
        m_rest.remove_prefix(end + 1);
        return true;
    }

    /// A name without quotes may be a keyword.
    bool TakeName(std::string_view& name) {
        return Take('[')   ? TakeUpTo(']', name)
               : Take('"') ? TakeUpTo('"', name)
                           : Take('`') && TakeUpTo('`', name);
    }
    bool TakeText(std::string_view& text) { return Take('\'') && TakeUpTo('\'', text); }

    bool TakeNumber(std::int64_t& number) {
        const bool isNegative = Take('-');
        if (IsAtEnd() || !IsDigit(m_rest.front()))
            return false;
        const char* const begin = m_rest.data();
        const auto [last, error] = std::from_chars(begin, begin + m_rest.size(), number);
        number = isNegative ? -number : number;
        return error == std::errc() && TakeWordOf(static_cast<std::size_t>(last - begin));
    }

    bool TakeCondition(TableQuestion& question) {
        using Rows = TableQuestion::Rows;
        if (Take("UPPER")) {
            if (!(Take('(') && TakeName(question.column) && Take(')') && Take('=')))
                return false;
            const bool isInAnyCase = Take("UPPER");
            question.rows = isInAnyCase ? Rows::OfTextInAnyCase : Rows::OfTextInCapitals;
            return isInAnyCase ? Take('(') && TakeText(question.text) && Take(')')
                               : TakeText(question.text);
        }
        if (!(TakeName(question.column) && Take('=')))
            return false;
        question.rows = IsNext('\'') ? Rows::OfText : Rows::OfNumber;
        return question.rows == Rows::OfText ? TakeText(question.text)
                                             : TakeNumber(question.number);
    }

    bool TakeSelection(TableQuestion& question) {
        if (!(TakeName(question.selectionColumn) && Take("IN") && Take('(')))
            return false;
        do {
            if (!TakeNumber(question.selection.emplace_back()))
                return false;
        } while (Take(','));
        return Take(')');
    }

    std::string_view m_rest;
};

} // namespace

bool HasAsciiCapitals() {
    static const bool hasThem = sqlite3_compileoption_used("ENABLE_ICU") == 0;
    return hasThem;
}

TableQuestion TableQuestion::Of(std::string_view table, std::string_view column, NameMatch match,
                                std::string_view name) {
    const Rows rows = match == NameMatch::Exactly      ? Rows::OfText
                      : match == NameMatch::InCapitals ? Rows::OfTextInCapitals
                                                       : Rows::OfTextInAnyCase;
    return {.rows = rows, .table = table, .column = column, .text = name};
}

std::optional<TableQuestion> TableQuestion::Parse(std::string_view sql) {
    return QuestionReader(sql).Read();
}

} // namespace dbsection
