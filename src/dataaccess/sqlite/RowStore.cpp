#include "dataaccess/sqlite/RowStore.h"

#include <algorithm>
#include <limits>
#include <new>

namespace dbsection {

Cell RowStore::Read(sqlite3_stmt* row, int column) {
    // Asking the value, not the row, spares the engine's checks at each question.
    sqlite3_value* value = sqlite3_column_value(row, column);
    Cell cell{};
    const char* bytes = nullptr;
    switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
        cell.storage = Cell::Storage::Integer;
        cell.integer = sqlite3_value_int64(value);
        return cell;
    case SQLITE_FLOAT:
        cell.storage = Cell::Storage::Real;
        cell.real = sqlite3_value_double(value);
        return cell;
    case SQLITE_NULL:
        return cell;
    case SQLITE_BLOB:
        cell.storage = Cell::Storage::Bytes;
        bytes = static_cast<const char*>(sqlite3_value_blob(value));
        break;
    default:
        cell.storage = Cell::Storage::Text;
        bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
        if (bytes == nullptr)
            throw std::bad_alloc();
        break;
    }
    const auto length = static_cast<std::size_t>(sqlite3_value_bytes(value));
    if (m_texts.size() + length > std::numeric_limits<std::uint32_t>::max())
        throw std::bad_alloc();
    cell.extent = {static_cast<std::uint32_t>(m_texts.size()), static_cast<std::uint32_t>(length)};
    m_texts.append(bytes, length);
    return cell;
}

void RowStore::Append(sqlite3_stmt* row, bool hasId) {
    if (m_ids.size() == m_blocks.size() * RowsOfBlock)
        m_blocks.push_back(std::make_unique_for_overwrite<Cell[]>(RowsOfBlock * m_columns));
    const auto columns = static_cast<int>(m_columns);
    Cell* cell = Row(Count());
    for (int column = 0; column < columns; ++column)
        *cell++ = Read(row, column);
    m_ids.push_back(hasId ? sqlite3_column_int64(row, columns) : 0);
}

void RowStore::Remove(int index) {
    for (int next = index + 1; next < Count(); ++next)
        std::copy_n(Row(next), m_columns, Row(next - 1));
    m_ids.erase(m_ids.begin() + index);
}

void RowStore::MoveLastTo(int index) {
    std::copy_n(Row(Count() - 1), m_columns, Row(index));
    m_ids[static_cast<std::size_t>(index)] = m_ids.back();
    m_ids.pop_back();
}

int RowStore::FindId(std::int64_t id) const {
    const auto place = std::ranges::find(m_ids, id);
    return place == m_ids.end() ? -1 : static_cast<int>(place - m_ids.begin());
}

} // namespace dbsection
