#include "dataaccess/sqlite/RowStore.h"

#include <limits>
#include <new>

namespace dbsection {

std::size_t RowStore::Size() const {
    return m_cells * sizeof(Cell) + m_rows.capacity() * sizeof(Row) + m_texts.capacity();
}

RowStore RowStore::Extract(int first, int count) const {
    RowStore part(static_cast<int>(m_columns));
    part.AddBlock(static_cast<std::size_t>(count));
    part.m_rows.reserve(static_cast<std::size_t>(count));
    Cell* to = part.m_free;
    for (int row = first; row < first + count; ++row) {
        part.m_rows.push_back({to, Id(row)});
        const Cell* from = m_rows[static_cast<std::size_t>(row)].cells;
        for (std::size_t column = 0; column < m_columns; ++column, ++from, ++to) {
            const bool hasBytes =
                from->storage == Cell::Storage::Text || from->storage == Cell::Storage::Bytes;
            *to = hasBytes ? part.Store(from->storage, TextOf(*from)) : *from;
        }
    }
    part.m_room = 0;
    part.m_texts.shrink_to_fit();
    return part;
}

Cell RowStore::Store(Cell::Storage storage, std::string_view bytes) {
    if (m_texts.size() + bytes.size() > std::numeric_limits<std::uint32_t>::max())
        throw std::bad_alloc();
    Cell cell{};
    cell.storage = storage;
    cell.extent = {static_cast<std::uint32_t>(m_texts.size()),
                   static_cast<std::uint32_t>(bytes.size())};
    m_texts.append(bytes);
    return cell;
}

void RowStore::AddBlock(std::size_t rows) {
    m_blocks.push_back(std::make_unique_for_overwrite<Cell[]>(rows * m_columns));
    m_cells += rows * m_columns;
    m_free = m_blocks.back().get();
    m_room = rows;
}

Cell RowStore::Read(sqlite3_stmt* row, int column) {
    // Asking the value, not the row, spares the engine's checks at each question.
    sqlite3_value* value = sqlite3_column_value(row, column);
    const auto bytes = [value](const void* begin) {
        return std::string_view(static_cast<const char*>(begin),
                                static_cast<std::size_t>(sqlite3_value_bytes(value)));
    };
    Cell cell{};
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
        return Store(Cell::Storage::Bytes, bytes(sqlite3_value_blob(value)));
    default:
        const void* text = sqlite3_value_text(value);
        if (text == nullptr)
            throw std::bad_alloc();
        return Store(Cell::Storage::Text, bytes(text));
    }
}

void RowStore::Append(sqlite3_stmt* row, bool hasId) {
    constexpr std::size_t RowsOfBlock = 64;
    if (m_room == 0)
        AddBlock(RowsOfBlock);
    const auto columns = static_cast<int>(m_columns);
    for (int column = 0; column < columns; ++column)
        m_free[column] = Read(row, column);
    m_rows.push_back({m_free, hasId ? sqlite3_column_int64(row, columns) : 0});
    m_free += m_columns;
    --m_room;
}

} // namespace dbsection
