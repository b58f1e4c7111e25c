#include "dataaccess/NameSearch.h"

#include "dataaccess/CSectionException.h"
#include "dataaccess/Guard.h"

namespace dbsection {

CString ConditionOf(const NameQuestion& question) {
    const CString column = CString("[") + question.column + "]";
    const CString name = CString("'") + question.name + "'";
    switch (question.match) {
    case NameMatch::Exactly:
        return column + " = " + name;
    case NameMatch::InCapitals:
        return "UPPER(" + column + ") = " + name;
    default:
        return "UPPER(" + column + ") = UPPER(" + name + ")";
    }
}

bool IsSearchable(const CString& name) {
    if (name.Find('\'') < 0)
        return true;
    return Guarded({"openRecordset()", "Failed to open Recordset."}, [&]() -> int {
               throw new CSectionException(SectionError::BadStatement,
                                           "The name " + name +
                                               " contains a quote; leave the quote out.");
           }) == 1;
}

int OpenByName(CSectionDatabase** db, CSectionRecordset** rs, const CString& name,
               const CString& sql, int openType) {
    if (IsSearchable(name))
        return openRecordset(db, rs, sql, openType, 1);
    closeRecordset(rs);
    return -1;
}

} // namespace dbsection
