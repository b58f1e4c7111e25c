#include "dataaccess/sqlite/TableQuestion.h"

#include "dataaccess/sqlite/SqlTokens.h"

#include <charconv>
#include <sqlcipher/sqlite3.h>
#include <utility>

namespace dbsection {
namespace {

/// Reads a statement from its beginning on; the first text that is not as expected ends it.
class QuestionReader {
public:
    explicit QuestionReader(std::string_view sql) : m_sql(sql), m_next(NextToken(sql, 0)) {}

    std::optional<TableQuestion> Read() {
        TableQuestion question;
        if (!(Take("SELECT") && Take('*') && Take("FROM") && TakeName(question.table)))
            return std::nullopt;
        if (Take("WHERE") &&
            !(TakeCondition(question) && (!Take("AND") || TakeSelection(question))))
            return std::nullopt;
        return m_next ? std::nullopt : std::optional(std::move(question));
    }

private:
    bool Advance(bool isAsExpected) {
        if (isAsExpected)
            m_next = NextToken(m_sql, m_next->End());
        return isAsExpected;
    }
    bool Take(std::string_view word) { return Advance(m_next && m_next->Is(word)); }
    bool Take(char symbol) { return Advance(m_next && m_next->IsSymbol(symbol)); }

    /// Takes what stands in quotes, unless it contains one.
    bool TakeQuoted(TokenKind kind, std::string_view& inside) {
        if (!m_next || m_next->kind != kind)
            return false;
        const char close = m_next->text.back();
        inside = m_next->text.substr(1, m_next->text.size() - 2);
        return Advance(inside.find(close) == std::string_view::npos);
    }

    /// A name without quotes may be a keyword.
    bool TakeName(std::string_view& name) { return TakeQuoted(TokenKind::QuotedName, name); }
    bool TakeText(std::string_view& text) { return TakeQuoted(TokenKind::Literal, text); }

    bool TakeNumber(std::int64_t& number) {
        const bool isNegative = Take('-');
        if (!m_next || m_next->kind != TokenKind::Word)
            return false;
        const char* end = m_next->text.data() + m_next->text.size();
        const auto [last, error] = std::from_chars(m_next->text.data(), end, number);
        if (error != std::errc() || last != end)
            return false;
        number = isNegative ? -number : number;
        return Advance(true);
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
        question.rows = Rows::OfText;
        if (TakeText(question.text))
            return true;
        question.rows = Rows::OfNumber;
        return TakeNumber(question.number);
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

    std::string_view m_sql;
    std::optional<Token> m_next;
};

} // namespace

bool HasAsciiCapitals() {
    static const bool hasThem = sqlite3_compileoption_used("ENABLE_ICU") == 0;
    return hasThem;
}

std::optional<TableQuestion> TableQuestion::Parse(std::string_view sql) {
    return QuestionReader(sql).Read();
}

} // namespace dbsection
