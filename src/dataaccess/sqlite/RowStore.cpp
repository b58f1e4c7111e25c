#include "dataaccess/sqlite/RowStore.h"

#include <limits>
#include <new>

namespace dbsection {

Cell RowStore::Read(sqlite3_stmt* row, int column) {
    // Asking the value, not the row, spares the engine's checks at each question.
    sqlite3_value* value = sqlite3_column_value(row, column);
    Cell cell;
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
    const auto columns = static_cast<int>(m_columns);
    m_cells.resize(m_ids.size() * m_columns); // without what an append that failed has left
    for (int column = 0; column < columns; ++column)
        m_cells.push_back(Read(row, column));
    m_ids.push_back(hasId ? sqlite3_column_int64(row, columns) : 0);
}

void RowStore::Replace(int index, sqlite3_stmt* row) {
    const std::size_t first = static_cast<std::size_t>(index) * m_columns;
    for (std::size_t column = 0; column < m_columns; ++column)
        m_cells[first + column] = Read(row, static_cast<int>(column));
}

void RowStore::Remove(int index) {
    const auto width = static_cast<std::ptrdiff_t>(m_columns);
    const auto first = m_cells.begin() + index * width;
    m_cells.erase(first, first + width);
    m_ids.erase(m_ids.begin() + index);
}

} // namespace dbsection
