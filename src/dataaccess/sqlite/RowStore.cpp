#include "dataaccess/sqlite/RowStore.h"

#include <algorithm>
#include <limits>
#include <new>

namespace dbsection {

std::size_t RowStore::Size() const {
    return m_room * m_columns * sizeof(Cell) + m_ids.capacity() * sizeof(std::int64_t) +
           m_texts.capacity();
}

RowStore RowStore::Extract(int first, int count) const {
    RowStore part(static_cast<int>(m_columns));
    part.m_ids.assign(m_ids.begin() + first, m_ids.begin() + first + count);
    for (int row = 0; row < count; ++row) {
        if (static_cast<std::size_t>(row) == part.m_room)
            part.Grow(std::min(RowsOfBlock, static_cast<std::size_t>(count - row)));
        const Cell* from = Row(first + row);
        Cell* to = part.Row(row);
        for (std::size_t column = 0; column < m_columns; ++column, ++from, ++to) {
            const bool hasBytes =
                from->storage == Cell::Storage::Text || from->storage == Cell::Storage::Bytes;
            *to = hasBytes ? part.Store(from->storage, TextOf(*from)) : *from;
        }
    }
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

/// Makes room for more rows, of one block at most.
void RowStore::Grow(std::size_t rows) {
    const std::size_t begun = m_room % RowsOfBlock;
    auto block =
        std::make_unique_for_overwrite<Cell[]>((begun == 0 ? rows : RowsOfBlock) * m_columns);
    if (begun == 0) {
        m_blocks.push_back(std::move(block));
        m_room += rows;
    } else {
        std::copy_n(m_blocks.back().get(), begun * m_columns, block.get());
        m_blocks.back() = std::move(block);
        m_room += RowsOfBlock - begun;
    }
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
    if (m_ids.size() == m_room)
        Grow(RowsOfBlock);
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

} // namespace dbsection
