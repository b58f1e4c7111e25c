// The rows of a recordset: some of kept ones, which it shares with others, or its own.
#pragma once

#include "dataaccess/sqlite/RowStore.h"

#include <memory>
#include <utility>

namespace dbsection {

/// Consecutive rows of a store. Who changes them gets rows of its own.
class RowsInUse {
public:
    RowsInUse() = default;
    explicit RowsInUse(RowStore&& rows)
        : m_own(std::make_shared<RowStore>(std::move(rows))),
          m_store(m_own),
          m_count(m_own->Count()) {}
    RowsInUse(std::shared_ptr<const RowStore> kept, int first, int count)
        : m_store(std::move(kept)),
          m_first(first),
          m_count(count) {}

    int Count() const { return m_count; }
    std::int64_t Id(int index) const { return m_store->Id(m_first + index); }
    const Cell& At(int index, int column) const { return m_store->At(m_first + index, column); }

    /// The row of an identifier, or -1.
    int FindId(std::int64_t id) const {
        for (int row = 0; row < m_count; ++row)
            if (Id(row) == id)
                return row;
        return -1;
    }

    /// Where the texts of the cells lie.
    const RowStore& Store() const { return *m_store; }

    /// Makes the rows the user's own, so that changing them takes no more memory.
    void MakeOwn() {
        if (m_own == nullptr)
            *this = RowsInUse(m_store == nullptr ? RowStore() : m_store->Extract(m_first, m_count));
    }

    /// Runs `change` on a store of these rows alone. Where that throws they are what they were.
    template <class Change>
    void Edit(Change change) {
        MakeOwn();
        change(*m_own);
        m_count = m_own->Count();
    }

private:
    std::shared_ptr<RowStore> m_own;         ///< null where the rows are kept ones, or none
    std::shared_ptr<const RowStore> m_store; ///< null where there are none
    int m_first = 0;
    int m_count = 0;
};

} // namespace dbsection
