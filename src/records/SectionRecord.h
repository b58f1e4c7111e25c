// Section records: one row of a section table, as a typed record.
//
// Every record derives from SectionRecord; the records of the layouts (LayoutRecords.h) name their
// property columns. Columns count from 0 as in the table, the bookkeeping columns included.
#pragma once

#include "platform/COleVariant.h"
#include "platform/CString.h"
#include "platform/Export.h"
#include "records/SectionLayout.h"

#include <bitset>
#include <cstddef>
#include <memory>

class DBSECTION_API SectionRecord {
public:
    SectionRecord() = default;
    SectionRecord(const SectionRecord&) = default;
    SectionRecord(SectionRecord&&) = default;
    SectionRecord& operator=(const SectionRecord&) = default;
    SectionRecord& operator=(SectionRecord&&) = default;
    virtual ~SectionRecord();

    /// The number of property columns.
    virtual int ColumnCount() const { return 0; }

    /// The value of a table column; 0 for a text, or for a column that the record does not have.
    virtual double Number(int /*column*/) const { return 0; }

    /// The text of a table column; empty for a number, or for a column that the record does not
    /// have.
    virtual CString Text(int /*column*/) const { return {}; }

    /// Takes over the value of a table column. Nulls leave it as it is.
    virtual void SetColumn(int /*column*/, const COleVariant& /*value*/) {}

    /// Whether the row has a value in a table column of the record: neither a null, nor a column
    /// that the table lacks.
    bool IsKept(int column) const {
        return column >= 0 && column < static_cast<int>(MostColumns) &&
               m_kept[static_cast<std::size_t>(column)];
    }

    int RecordNumber = 0;
    CString PublicName; ///< as the standard prints it
    CString VessaName;  ///< as the analysis program names it

protected:
    void MarkAsKept(int column) { m_kept.set(static_cast<std::size_t>(column)); }

private:
    static constexpr std::size_t MostColumns = 32;

    std::bitset<MostColumns> m_kept;
};

namespace dbsection {

/// A new, empty record of a layout.
DBSECTION_API std::unique_ptr<SectionRecord> MakeSectionRecord(LayoutId layout);

} // namespace dbsection
