// The rows of a table as they were in one version of its file, found by their names.
#pragma once

#include "dataaccess/sqlite/RowStore.h"
#include "dataaccess/sqlite/Statement.h"
#include "dataaccess/sqlite/TableQuestion.h"

#include <atomic>
#include <forward_list>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dbsection {

/// What a statement delivers.
struct KeptResult {
    std::shared_ptr<const QueryShape> shape;
    std::shared_ptr<const RowStore> rows;

    std::size_t Size() const { return rows->Size() + sizeof(RowStore); }
};

/// The rows of a column by its texts, whatever their letter case.
class TextIndex {
public:
    TextIndex(const RowStore& rows, int column);

    /// Whether all values are texts or null; only then rows can be found.
    bool IsFit() const { return m_isFit; }

    /// Calls `visit` with each row whose text is that one but for the letter case, in their order.
    template <class Visit>
    void ForEach(std::string_view text, Visit visit) const {
        for (std::uint32_t entry = m_first[Bucket(text)]; entry != 0; entry = m_next[entry - 1])
            if (IsText(entry - 1, text))
                visit(static_cast<int>(entry - 1));
    }

    /// Appends the hashes of all texts, whatever their letter case.
    void AppendHashes(std::vector<std::size_t>& hashes) const;

    std::size_t Size() const { return (m_first.size() + m_next.size()) * sizeof(std::uint32_t); }

private:
    std::size_t Bucket(std::string_view text) const;
    bool IsText(std::size_t row, std::string_view text) const;

    const RowStore& m_rows;
    int m_column;
    bool m_isFit = true;
    std::vector<std::uint32_t> m_first; ///< row plus 1 by bucket, 0 is none
    std::vector<std::uint32_t> m_next;  ///< by row: the next row of its bucket
};

/// A table of a file. Threads may share it.
class KeptTable {
public:
    /// `readOnly` and `editable` are what all columns of the table deliver for either purpose, of
    /// the same rows.
    KeptTable(std::string_view name, KeptResult readOnly, KeptResult editable);

    std::string_view Name() const { return m_name; }
    const KeptResult& ReadOnly() const { return m_readOnly; }
    const KeptResult& Editable() const { return m_editable; }

    /// The one row that answers the question, or -1 for none. Nothing where that is not told for
    /// sure: of several rows the order is the engine's.
    std::optional<int> Find(const TableQuestion& question) const;

    /// The number of rows that answer the question, 0 where there is no such column. Nothing where
    /// that is not told for sure.
    std::optional<int> Count(const TableQuestion& question) const;

    /// Appends the hashes of the texts in a column, if there is such a column; false where it holds
    /// others than texts.
    bool AppendHashes(std::string_view column, std::vector<std::size_t>& hashes) const;

    std::size_t Size() const;

private:
    struct FoundRows {
        int last = -1;
        int count = 0;
    };

    struct ColumnIndex {
        TextIndex index;
        int column;
        const ColumnIndex* before; ///< the one that was made before it
    };

    int FindColumn(std::string_view name) const;
    int FindId(std::int64_t id) const;
    bool IsRecordId(int column) const;
    bool IsSelected(const TableQuestion& question, int row) const;
    std::optional<FoundRows> Search(const TableQuestion& question) const;
    const TextIndex& Index(int column) const;
    static const TextIndex* FindIndex(const ColumnIndex* last, int column);

    std::string m_name;
    KeptResult m_readOnly;
    KeptResult m_editable;
    bool m_hasIds;                                    ///< identifiers, and in their order
    mutable std::mutex m_guard;                       ///< of the list, which only grows
    mutable std::forward_list<ColumnIndex> m_indexes; ///< of the columns that were searched
    mutable std::atomic<const ColumnIndex*> m_lastIndex = nullptr; ///< readers need no lock
};

} // namespace dbsection
