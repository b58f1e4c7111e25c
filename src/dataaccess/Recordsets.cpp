#include "dataaccess/DataAccess.h"

#include "dataaccess/Guard.h"
#include "dataaccess/NameSearch.h"
#include "dataaccess/Observation.h"
#include "platform/CallState.h"
#include "platform/MessageBox.h"

#include <utility>

using dbsection::FailureRule;
using dbsection::Guarded;
using dbsection::ShowMessageBox;

namespace {

StatementObserver statementObserver = nullptr;

void Tell(const char* sql, int openType) {
    if (statementObserver == nullptr)
        return;
    const dbsection::HostScope host;
    statementObserver(sql, openType);
}

/// Opens what is asked for in place of the recordset that there is.
template <class Asked>
int OpenNew(CSectionDatabase* db, CSectionRecordset** rs, int openType, const Asked& asked) {
    closeRecordset(rs);
    const int result = Guarded({"openRecordset()", "Failed to open Recordset.", -1}, [&] {
        *rs = new CSectionRecordset(db);
        (*rs)->Open(openType, asked);
        return 1;
    });
    if (result != 1)
        closeRecordset(rs);
    return result;
}

bool IsUsable(CSectionRecordset** rs) { return *rs != nullptr && (*rs)->IsOpen(); }

int MoveRecordset(CSectionRecordset** rs, const char* label, void (CSectionRecordset::*move)()) {
    if (!IsUsable(rs))
        return 0;
    const FailureRule rule{
        label, "Failed to set Recordset pointer.", 0, {SectionError::NoCurrentRecord}};
    return Guarded(rule, [&] {
        ((*rs)->*move)();
        return 1;
    });
}

/// Shows why nothing can be deleted, or returns the number of rows.
int CountDeletable(CSectionRecordset** rs, const char* notOpen, const char* noRecords,
                   const char* caption) {
    if (!IsUsable(rs)) {
        ShowMessageBox(notOpen, caption);
        return 0;
    }
    const dbsection::FailureWatch watch;
    const int count = getRecordCount(rs);
    if (count == 0 && !watch.HasSeenAny())
        ShowMessageBox(noRecords, caption);
    return count;
}

const FailureRule& DeletionFailure() {
    static const FailureRule rule{
        "deleteRecordset()", "Failed to delete Recordset.", 0, {SectionError::NoCurrentRecord}};
    return rule;
}

} // namespace

int getFieldCount(CSectionRecordset** rs) {
    if (!IsUsable(rs))
        return 0;
    return Guarded({"getFieldCount()", "Failed to get field count."},
                   [&] { return (*rs)->GetFieldCount(); });
}

bool dbsection::IsObserved() { return statementObserver != nullptr; }

StatementObserver SetStatementObserver(StatementObserver observer) {
    return std::exchange(statementObserver, observer);
}

int openRecordset(CSectionDatabase** db, CSectionRecordset** rs, const char* sql, int openType,
                  int /*options*/) {
    if (sql == nullptr) {
        ShowMessageBox("Failed to open Recordset. SQL statement not provided.",
                       "Error - openRecordset()");
        return -1;
    }
    Tell(sql, openType);
    return OpenNew(*db, rs, openType, sql);
}

int dbsection::OpenRows(CSectionDatabase** db, CSectionRecordset** rs, const RowsOfName& rows,
                        int openType) {
    if (IsObserved())
        Tell(StatementFor(rows).c_str(), openType);
    return OpenNew(*db, rs, openType, rows);
}

void closeRecordset(CSectionRecordset** rs) {
    if (*rs == nullptr)
        return;
    if ((*rs)->IsOpen())
        (*rs)->Close();
    delete *rs;
    *rs = nullptr;
}

int getRecordCount(CSectionRecordset** rs) {
    if (!IsUsable(rs))
        return 0;
    const FailureRule rule{
        "getRecordCount()", "Failed to get record count.", 0, {SectionError::NoCurrentRecord}};
    return Guarded(rule, [&] {
        CSectionRecordset& rows = **rs;
        const long position = rows.GetAbsolutePosition();
        if (position < 0)
            return 0;
        rows.Requery();
        rows.MoveLast();
        const auto count = static_cast<int>(rows.GetRecordCount());
        rows.SetAbsolutePosition(position);
        return count;
    });
}

int setRecordsetTo(CSectionRecordset** rs, CString criteria, long findType) {
    if (!IsUsable(rs) || criteria.IsEmpty())
        return 0;
    const FailureRule rule{
        "setRecordsetTo()", "Failed to set Recordset pointer.", 0, {SectionError::NoCurrentRecord}};
    return Guarded(rule, [&] { return (*rs)->Find(findType, criteria) != 0 ? 1 : 0; });
}

int setRecordsetToFirst(CSectionRecordset** rs) {
    return MoveRecordset(rs, "setRecordsetToFirst()", &CSectionRecordset::MoveFirst);
}

int setRecordsetToLast(CSectionRecordset** rs) {
    return MoveRecordset(rs, "setRecordsetToLast()", &CSectionRecordset::MoveLast);
}

int setRecordsetToNext(CSectionRecordset** rs) {
    return MoveRecordset(rs, "setRecordsetToNext()", &CSectionRecordset::MoveNext);
}

int setRecordsetToPrevious(CSectionRecordset** rs) {
    return MoveRecordset(rs, "setRecordsetToPrevious()", &CSectionRecordset::MovePrev);
}

int IsExistentRecord(CSectionRecordset** rs, CString where) {
    if (where.IsEmpty()) {
        ShowMessageBox("Failed to check existence. SQL WHERE statement not provided.",
                       "Error - IsExistentRecord()");
        return 0;
    }
    if (!IsUsable(rs) || getRecordCount(rs) == 0)
        return 0;
    const FailureRule rule{"IsExistentRecord()",
                           "Failed to check existence.",
                           0,
                           {SectionError::NoCurrentRecord, SectionError::UnknownNameInCondition}};
    return Guarded(rule, [&] {
        CSectionRecordset& rows = **rs;
        const long position = rows.GetAbsolutePosition();
        rows.Requery();
        rows.SetAbsolutePosition(
            position); // where a find without success or with an error leaves it
        const bool found = rows.Find(CSectionRecordset::FindFirst, where) != 0;
        rows.SetAbsolutePosition(position);
        return found ? 1 : 0;
    });
}

int deleteRecord(CSectionRecordset** rs, CString where) {
    constexpr const char* Caption = "Error - deleteRecordset()";
    return Guarded(DeletionFailure(), [&] {
        const int count = CountDeletable(
            rs, "Failed to delete Recordset. Recordset does not exist or is not opened.",
            "Failed to delete Recordset. No records in database.", Caption);
        if (count == 0)
            return 0;
        const dbsection::FailureWatch watch;
        if (!where.IsEmpty() && setRecordsetTo(rs, where, CSectionRecordset::FindFirst) == 0) {
            if (!watch.HasSeenAny())
                ShowMessageBox("Failed to delete Recordset. Specified record not found.", Caption);
            return 0;
        }
        CSectionRecordset& rows = **rs;
        rows.Delete();
        if (count - 1 > 0) {
            rows.MoveNext();
            if (rows.IsEOF())
                rows.MoveLast();
            if (rows.IsBOF())
                rows.SetFieldNull(nullptr, 1);
        }
        return 1;
    });
}

int deleteAllRecords(CSectionRecordset** rs) {
    return Guarded(DeletionFailure(), [&] {
        const int count = CountDeletable(
            rs, "Failed to delete records. Recordset does not exist or is not opened.",
            "Failed to delete records. No records in database.", "Error - deleteAllRecords()");
        return count == 0 ? 0 : (*rs)->DeleteAll();
    });
}
