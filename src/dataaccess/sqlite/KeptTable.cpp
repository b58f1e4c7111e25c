#include "dataaccess/sqlite/KeptTable.h"

#include "platform/Text.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace dbsection {
TextIndex::TextIndex(const RowStore& rows, int column)
    : m_rows(rows),
      m_column(column),
      m_first(std::bit_ceil(static_cast<std::size_t>(rows.Count()) + 1)),
      m_next(static_cast<std::size_t>(rows.Count())) {
    for (int row = rows.Count() - 1; row >= 0; --row) {
        const Cell& cell = rows.At(row, column);
        if (cell.storage == Cell::Storage::Text) {
            std::uint32_t& first = m_first[Bucket(rows.TextOf(cell))];
            m_next[static_cast<std::size_t>(row)] = first;
            first = static_cast<std::uint32_t>(row) + 1;
        } else if (cell.storage != Cell::Storage::Null) {
            m_isFit = false;
        }
    }
}

std::size_t TextIndex::Bucket(std::string_view text) const {
    return HashNoCase(text) & (m_first.size() - 1);
}

void TextIndex::AppendHashes(std::vector<std::size_t>& hashes) const {
    for (int row = 0; row < m_rows.Count(); ++row)
        if (const Cell& cell = m_rows.At(row, m_column); cell.storage == Cell::Storage::Text)
            hashes.push_back(HashNoCase(m_rows.TextOf(cell)));
}

bool TextIndex::IsText(std::size_t row, std::string_view text) const {
    return EqualNoCase(m_rows.TextOf(m_rows.At(static_cast<int>(row), m_column)), text);
}

KeptTable::KeptTable(std::string_view name, KeptResult readOnly, KeptResult editable)
    : m_name(name),
      m_readOnly(std::move(readOnly)),
      m_editable(std::move(editable)) {
    const RowStore& rows = *m_readOnly.rows;
    m_hasIds = m_editable.shape->IsEditable();
    for (int row = 1; row < rows.Count(); ++row)
        m_hasIds = m_hasIds && rows.Id(row - 1) < rows.Id(row);
}

int KeptTable::FindColumn(std::string_view name) const {
    const auto& columns = m_readOnly.shape->columns;
    const auto place = std::ranges::find_if(
        columns, [name](const ResultColumn& column) { return EqualNoCase(column.name, name); });
    return place == columns.end() ? -1 : static_cast<int>(place - columns.begin());
}

int KeptTable::FindId(std::int64_t id) const {
    const RowStore& rows = *m_readOnly.rows;
    int low = 0;
    int high = rows.Count();
    while (low < high) {
        const int middle = low + (high - low) / 2;
        (rows.Id(middle) < id ? low : high) = rows.Id(middle) < id ? middle + 1 : middle;
    }
    return low < rows.Count() && rows.Id(low) == id ? low : -1;
}

const TextIndex& KeptTable::Index(int column) const {
    const ColumnIndex* last = m_lastIndex.load(std::memory_order_acquire);
    if (const TextIndex* known = FindIndex(last, column))
        return *known;
    const std::lock_guard lock(m_guard);
    last = m_lastIndex.load(std::memory_order_relaxed);
    if (const TextIndex* known = FindIndex(last, column)) // made by another thread meanwhile
        return *known;
    m_indexes.push_front({{*m_readOnly.rows, column}, column, last});
    m_lastIndex.store(&m_indexes.front(), std::memory_order_release);
    return m_indexes.front().index;
}

const TextIndex* KeptTable::FindIndex(const ColumnIndex* last, int column) {
    for (; last != nullptr; last = last->before)
        if (last->column == column)
            return &last->index;
    return nullptr;
}

/// Whether its values are the identifiers of the rows.
bool KeptTable::IsRecordId(int column) const {
    return column >= 0 && m_hasIds &&
           m_editable.shape->columns[static_cast<std::size_t>(column)].isRecordId;
}

bool KeptTable::IsSelected(const TableQuestion& question, int row) const {
    return question.selection.empty() ||
           std::ranges::count(question.selection, m_readOnly.rows->Id(row)) > 0;
}

/// Nothing where the engine may find others.
std::optional<KeptTable::FoundRows> KeptTable::Search(const TableQuestion& question) const {
    using Rows = TableQuestion::Rows;
    const int column = FindColumn(question.column);
    if (column < 0 ||
        (!question.selection.empty() && !IsRecordId(FindColumn(question.selectionColumn))))
        return std::nullopt;
    FoundRows found;
    const auto add = [&](int row) {
        if (IsSelected(question, row))
            found = {row, found.count + 1};
    };
    if (question.rows == Rows::OfNumber) {
        if (!IsRecordId(column))
            return std::nullopt;
        if (const int row = FindId(question.number); row >= 0)
            add(row);
        return found;
    }
    const TextIndex& index = Index(column);
    const bool isPlain = m_readOnly.shape->columns[static_cast<std::size_t>(column)].isPlainText;
    if (!index.IsFit() || (question.rows == Rows::OfText && !isPlain))
        return std::nullopt;
    if (question.rows == Rows::OfTextInCapitals && question.text != UpperCase(question.text))
        return found;
    index.ForEach(question.text, [&](int row) {
        const RowStore& rows = *m_readOnly.rows;
        if (question.rows != Rows::OfText || rows.TextOf(rows.At(row, column)) == question.text)
            add(row);
    });
    return found;
}

std::optional<int> KeptTable::Find(const TableQuestion& question) const {
    const auto found = Search(question);
    return found && found->count <= 1 ? std::optional(found->last) : std::nullopt;
}

std::optional<int> KeptTable::Count(const TableQuestion& question) const {
    if (FindColumn(question.column) < 0)
        return 0;
    const auto found = Search(question);
    return found ? std::optional(found->count) : std::nullopt;
}

bool KeptTable::AppendHashes(std::string_view column, std::vector<std::size_t>& hashes) const {
    const int place = FindColumn(column);
    if (place < 0)
        return true;
    const TextIndex& index = Index(place);
    index.AppendHashes(hashes);
    return index.IsFit();
}

std::size_t KeptTable::Size() const {
    return m_readOnly.Size() + static_cast<std::size_t>(m_readOnly.rows->Count()) *
                                   sizeof(std::uint32_t) * 6; // the indexes of two names
}

} // namespace dbsection
