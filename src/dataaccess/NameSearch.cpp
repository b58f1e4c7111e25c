#include "dataaccess/NameSearch.h"

#include "dataaccess/CSectionException.h"
#include "dataaccess/Guard.h"
#include "platform/Text.h"

#include <cstring>

namespace dbsection {

namespace {

/// The parts of a condition, before the column, the name and the end.
struct Comparison {
    std::string_view beforeColumn;
    std::string_view beforeName;
    std::string_view behind;
};

constexpr Comparison ComparisonFor(NameMatch match) {
    switch (match) {
    case NameMatch::Exactly:
        return {"[", "] = '", "'"};
    case NameMatch::InCapitals:
        return {"UPPER([", "]) = '", "'"};
    default:
        return {"UPPER([", "]) = UPPER('", "')"};
    }
}

} // namespace

CString ConditionOf(const NameQuestion& question) {
    const auto [beforeColumn, beforeName, behind] = ComparisonFor(question.match);
    return CString(Joined({beforeColumn, question.column, beforeName, question.name, behind}));
}

std::string StatementFor(const RowsOfName& rows) {
    return Joined({"Select * From [", rows.table, "] WHERE ", ConditionOf(rows.question).View(),
                   rows.restriction});
}

bool IsSearchable(const char* name) {
    if (name == nullptr || std::strchr(name, '\'') == nullptr)
        return true;
    return Guarded({"openRecordset()", "Failed to open Recordset."}, [&]() -> int {
               throw new CSectionException(SectionError::BadStatement,
                                           "The name " + CString(name) +
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

int OpenByName(CSectionDatabase** db, CSectionRecordset** rs, const RowsOfName& rows,
               int openType) {
    if (IsSearchable(rows.question.name))
        return OpenRows(db, rs, rows, openType);
    closeRecordset(rs);
    return -1;
}

} // namespace dbsection
