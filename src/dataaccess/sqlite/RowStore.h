// The rows of a query, held in memory as the engine stored them.
#pragma once

#include <cstdint>
#include <memory>
#include <sqlcipher/sqlite3.h>
#include <string>
#include <string_view>
#include <vector>

namespace dbsection {

/// One value. Texts and bytes lie in the store.
struct Cell {
    enum class Storage : std::uint8_t { Null, Integer, Real, Text, Bytes };

    struct Extent {
        std::uint32_t begin;
        std::uint32_t length;
    };

    Storage storage;
    union {
        std::int64_t integer;
        double real;
        Extent extent;
    };
};

/// Rows of equal width, each with the identifier that it has in its table (0 where none is known).
class RowStore {
public:
    explicit RowStore(int columns = 0) : m_columns(static_cast<std::size_t>(columns)) {}

    /// Bytes of all texts.
    std::size_t TextSize() const { return m_texts.size(); }

    /// Bytes of all that it holds.
    std::size_t Size() const;

    int Count() const { return static_cast<int>(m_rows.size()); }

    /// Some of the rows, in a store that has room for no others.
    RowStore Extract(int first, int count) const;

    /// Appends the row that a statement is at; the identifier is the column behind the last one.
    /// Where it throws the rows are what they were.
    void Append(sqlite3_stmt* row, bool hasId);

    void Remove(int index) { m_rows.erase(m_rows.begin() + index); }
    void RemoveLast() { m_rows.pop_back(); }

    /// Puts the last row in the place of another one.
    void MoveLastTo(int index) {
        m_rows[static_cast<std::size_t>(index)] = m_rows.back();
        RemoveLast();
    }

    std::int64_t Id(int index) const { return m_rows[static_cast<std::size_t>(index)].id; }
    const Cell& At(int index, int column) const {
        return m_rows[static_cast<std::size_t>(index)].cells[column];
    }
    std::string_view TextOf(const Cell& cell) const {
        return std::string_view(m_texts).substr(cell.extent.begin, cell.extent.length);
    }

private:
    struct Row {
        Cell* cells;
        std::int64_t id;
    };

    Cell Read(sqlite3_stmt* row, int column);
    Cell Store(Cell::Storage storage, std::string_view bytes);
    void AddBlock(std::size_t rows);

    std::size_t m_columns;
    std::vector<std::unique_ptr<Cell[]>> m_blocks;
    Cell* m_free = nullptr; ///< where the next row goes, in the last block
    std::size_t m_room = 0; ///< rows for which it has room from there on
    std::size_t m_cells = 0;
    std::vector<Row> m_rows;
    std::string m_texts;
};

} // namespace dbsection
