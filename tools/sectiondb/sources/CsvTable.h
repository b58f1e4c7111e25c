// Comma-separated text in UTF-8 (RFC 4180: fields with commas, quotes or line ends are quoted,
// quotes are doubled; lines end in LF or CRLF; a UTF-8 byte order mark is skipped). The first
// record names the columns.
//
//     const CsvTable table("W Shape.csv", text);
//     for (const CsvTable::Record& record : table.Records())
//         area = table.Number(record, "AX");
#pragma once

#include "sources/SourceError.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace dbsection {

/// The finite number that the whole text is, written with a decimal point, or null.
std::optional<double> ParseNumber(std::string_view text);

class CsvTable {
public:
    struct Record {
        int line; ///< where it begins
        std::vector<std::string> fields;
    };

    /// `file` is what errors call the text. Throws SourceError when the text is malformed, a column
    /// has no name or that of another, or a record has more or fewer fields than there are columns.
    CsvTable(std::string file, std::string_view text);

    std::span<const std::string> Columns() const { return m_header.fields; }
    std::span<const Record> Records() const { return m_records; }

    bool Has(std::string_view column) const { return Find(column).has_value(); }

    /// The field of a column; throws SourceError when there is no such column.
    const std::string& Text(const Record& record, std::string_view column) const;

    /// The same, which must not be empty.
    const std::string& RequiredText(const Record& record, std::string_view column) const;

    /// The number that the field is.
    double Number(const Record& record, std::string_view column) const;

    /// Faults of one field, of a column as a whole, and of a record or the whole text.
    SourceError Error(const Record& record, std::string_view column,
                      const std::string& reason) const;
    SourceError ColumnError(std::string_view column, const std::string& reason) const;
    SourceError LineError(int line, const std::string& reason) const;

private:
    std::optional<std::size_t> Find(std::string_view column) const;
    void CheckColumns() const;

    std::string m_file;
    Record m_header;
    std::vector<Record> m_records;
};

} // namespace dbsection
