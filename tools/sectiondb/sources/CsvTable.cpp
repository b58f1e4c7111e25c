#include "sources/CsvTable.h"

#include "output/Escapes.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <set>
#include <utility>

namespace dbsection {

namespace {

constexpr const char* BareReturn = "a line ends with CR alone; end lines with LF or CR LF";

/// Why a text does not part columns as it seems to, or null.
const char* SeparatorFault(std::string_view text) {
    if (text.find(';') != std::string_view::npos)
        return "the columns are separated by semicolons; separate them by commas, and write "
               "numbers with a decimal point";
    if (text.find('\t') != std::string_view::npos)
        return "the columns are separated by tabs; separate them by commas";
    return nullptr;
}

/// Takes records off the front of a text, counting its lines.
class RecordReader {
public:
    RecordReader(const CsvTable& table, std::string_view text) : m_table(table), m_text(text) {
        constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
        if (m_text.starts_with(ByteOrderMark))
            m_text.remove_prefix(ByteOrderMark.size());
    }

    bool AtEnd() const { return m_text.empty(); }

    CsvTable::Record Next() {
        CsvTable::Record record{m_line, {}};
        do
            record.fields.push_back(m_text.starts_with('"') ? Quoted() : Plain());
        while (Take(","));
        for (const std::string& field : record.fields)
            if (!IsUtf8(field))
                throw m_table.LineError(record.line, "not UTF-8; save the text in that encoding");
        if (!AtEnd() && !Take("\n") && !Take("\r\n"))
            throw m_table.LineError(m_line, FaultBehindQuote());
        ++m_line;
        return record;
    }

private:
    bool Take(std::string_view expected) {
        if (!m_text.starts_with(expected))
            return false;
        m_text.remove_prefix(expected.size());
        return true;
    }

    const char* FaultBehindQuote() const {
        if (m_text.starts_with('\r'))
            return BareReturn;
        if (const char* fault = SeparatorFault(m_text.substr(0, 1)))
            return fault;
        return "text after the closing quote of a field";
    }

    std::string Plain() {
        const std::string_view line = m_text.substr(0, m_text.find('\n'));
        std::string_view field = line.substr(0, line.find(','));
        if (field.size() == line.size() && field.ends_with('\r'))
            field.remove_suffix(1);
        if (field.find('\r') != std::string_view::npos)
            throw m_table.LineError(m_line, BareReturn);
        if (field.find('"') != std::string_view::npos)
            throw m_table.LineError(m_line, "a quote inside a field that does not begin with one");
        m_text.remove_prefix(field.size());
        return std::string(field);
    }

    std::string Quoted() {
        const int begin = m_line;
        std::string field;
        m_text.remove_prefix(1);
        while (true) {
            const std::size_t quote = m_text.find('"');
            if (quote == std::string_view::npos)
                throw m_table.LineError(begin, "the quote that begins a field is not closed");
            const std::string_view part = m_text.substr(0, quote);
            m_line += static_cast<int>(std::ranges::count(part, '\n'));
            field += part;
            m_text.remove_prefix(quote + 1);
            if (!Take("\""))
                return field;
            field += '"';
        }
    }

    const CsvTable& m_table;
    std::string_view m_text;
    int m_line = 1;
};

} // namespace

std::optional<double> ParseNumber(std::string_view text) {
    const char* const end = text.data() + text.size();
    double number = 0;
    const auto [rest, fault] = std::from_chars(text.data(), end, number);
    if (fault != std::errc() || rest != end || !std::isfinite(number))
        return std::nullopt;
    return number;
}

CsvTable::CsvTable(std::string file, std::string_view text) : m_file(std::move(file)) {
    RecordReader reader(*this, text);
    if (reader.AtEnd())
        throw LineError(0, "the file is empty; its first line names the columns");
    m_header = reader.Next();
    CheckColumns();
    while (!reader.AtEnd()) {
        Record record = reader.Next();
        if (record.fields.size() != Columns().size())
            throw LineError(record.line, std::to_string(record.fields.size()) +
                                             " fields, but the first line names " +
                                             std::to_string(Columns().size()) + " columns");
        m_records.push_back(std::move(record));
    }
}

void CsvTable::CheckColumns() const {
    if (Columns().size() == 1)
        if (const char* fault = SeparatorFault(Columns().front()))
            throw LineError(m_header.line, fault);
    std::set<std::string_view> known;
    for (const std::string& column : m_header.fields) {
        if (column.empty())
            throw LineError(m_header.line, "a column without a name");
        if (!known.insert(column).second)
            throw ColumnError(column, "the column occurs twice");
    }
}

std::optional<std::size_t> CsvTable::Find(std::string_view column) const {
    const auto place = std::ranges::find(m_header.fields, column);
    if (place == m_header.fields.end())
        return std::nullopt;
    return static_cast<std::size_t>(place - m_header.fields.begin());
}

const std::string& CsvTable::Text(const Record& record, std::string_view column) const {
    const std::optional<std::size_t> index = Find(column);
    if (!index)
        throw ColumnError(column, "the column is missing");
    return record.fields[*index];
}

const std::string& CsvTable::RequiredText(const Record& record, std::string_view column) const {
    const std::string& text = Text(record, column);
    if (text.empty())
        throw Error(record, column, "the field is empty");
    return text;
}

double CsvTable::Number(const Record& record, std::string_view column) const {
    const std::optional<double> number = ParseNumber(RequiredText(record, column));
    if (!number)
        throw Error(record, column, "not a number");
    return *number;
}

SourceError CsvTable::Error(const Record& record, std::string_view column,
                            const std::string& reason) const {
    const std::optional<std::size_t> index = Find(column);
    return {{m_file, record.line, std::string(column), index ? record.fields[*index] : ""}, reason};
}

SourceError CsvTable::ColumnError(std::string_view column, const std::string& reason) const {
    return {{m_file, m_header.line, std::string(column), ""}, reason};
}

SourceError CsvTable::LineError(int line, const std::string& reason) const {
    return {{m_file, line, "", ""}, reason};
}

} // namespace dbsection
