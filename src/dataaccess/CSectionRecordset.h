// The rows of a query, with a current row, editing and finding.
//
//     CSectionRecordset rows(&database);
//     rows.Open(CSectionRecordset::Snapshot, "Select * From [W Shape] ORDER BY [AX] ASC");
//     for (; !rows.IsEOF(); rows.MoveNext())
//         use(rows.GetFieldValue(3));
//
// The rows are read when the recordset is opened or queried again, those of a whole table that was
// opened to be edited or has more than 1024 when they are first asked for; what others write
// meanwhile is seen after Requery. Counting needs no rows. Positions and columns count from 0.
// Failures throw CSectionException*.
#pragma once

#include "dataaccess/CSectionFieldInfo.h"
#include "dataaccess/CSectionTableDef.h"
#include "platform/COleVariant.h"
#include "platform/Export.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

class CSectionDatabase;

namespace dbsection {
class RecordsetState;
struct DatabaseReference;
struct RowsOfName;
} // namespace dbsection

/// The state of a database that rows were read in: equal stamps mean that nothing has changed in
/// between.
struct DBSECTION_API CSectionDataStamp {
    std::int64_t connection = 0;
    std::int64_t ownChanges = 0;
    std::int64_t othersChanges = 0;
    bool operator==(const CSectionDataStamp&) const = default;
};

class DBSECTION_API CSectionRecordset {
public:
    enum OpenType { Table = 1, Dynaset = 2, Snapshot = 4 };

    static constexpr long FindFirst = 0x80000000L;
    static constexpr long FindLast = 0x7FFFFFFFL;
    static constexpr long FindNext = 1;
    static constexpr long FindPrevious = -1;

    /// A recordset that outlives its database is closed with it.
    explicit CSectionRecordset(CSectionDatabase* database);
    virtual ~CSectionRecordset();
    CSectionRecordset(const CSectionRecordset&) = delete;
    CSectionRecordset& operator=(const CSectionRecordset&) = delete;

    /// Runs one reading statement, or reads the table of that name. The first row is then current,
    /// or none. Snapshots cannot be edited; nor can statements over several tables.
    void Open(int openType, const char* sql, int options = 0);

    /// Of use to the library alone (NameSearch.h).
    void Open(int openType, const dbsection::RowsOfName& rows);
    void Close();

    /// False too when the database was closed.
    bool IsOpen() const;

    /// Reads the rows again; the first row is then current, or none.
    void Requery();

    /// Moving past an end makes no row current; moving on from there is error 3021.
    void MoveFirst();
    void MoveLast();
    void MoveNext();
    void MovePrev();
    bool IsBOF() const;
    bool IsEOF() const;

    /// The current row's position, or -1.
    long GetAbsolutePosition() const;
    void SetAbsolutePosition(long position);

    /// Nothing where there were no rows.
    std::optional<CSectionDataStamp> GetDataStamp() const;

    /// Rows visited so far; all of them after MoveLast.
    long GetRecordCount() const;

    /// Makes the row current that satisfies an SQL condition: the first, last, next or previous
    /// one. Returns 1, or 0 when there is none; the current row then stays.
    int Find(long findType, const char* criteria);

    /// The values set between AddNew or Edit and Update are written by Update, all or none. A move
    /// drops them. A row that has changed since it was read is not written to or deleted (error
    /// 3197, or 3021 where it is gone): query it again.
    void AddNew();
    void Edit();
    void Update();

    /// Deletes the current row. It leaves a gap, where no row can be read, until the next move.
    void Delete();

    /// Reads the rows again and deletes all of them, or none. Returns their number.
    int DeleteAll();

    /// Sets the column at `index` to null in the edit buffer. A null field pointer means all.
    void SetFieldNull(void* field, int isNull = 1);

    COleVariant GetFieldValue(int index) const;

    /// The text of a column, of a number as CCrack shows it; nothing of a null.
    std::optional<std::string> GetFieldText(int index) const;

    /// The number of a column, of a text what it begins with; nothing of a null.
    std::optional<double> GetFieldNumber(int index) const;

    /// The numbers of consecutive columns from `first` on, 0 for what is none.
    void GetFieldNumbers(int first, std::span<double> numbers) const;
    void SetFieldValue(int index, const COleVariant& value);
    void SetFieldValue(int index, const char* value);

    int GetFieldCount() const;
    void GetFieldInfo(int index, CSectionFieldInfo& field,
                      unsigned long level = PrimaryInformation) const;

private:
    std::weak_ptr<dbsection::DatabaseReference> m_database;
    std::unique_ptr<dbsection::RecordsetState> m_state;
};

/// Names the recordset and the direction of an exchange of fields.
struct DBSECTION_API CSectionFieldExchange {
    unsigned int m_nOperation = 0;
    CSectionRecordset* m_prs = nullptr;
};
