// The data-access functions of recordsets.
#include "faults/PublicCall.h"
#include "faults/World.h"

#include "dataaccess/CCrack.h"

namespace faults {
namespace {

std::string CurrentName() {
    return rows == nullptr || rows->IsEOF() || rows->IsBOF()
               ? "none"
               : std::string(CCrack::strVARIANT(rows->GetFieldValue(1)));
}

/// Opens a statement and tells the names in its rows.
PublicCall Opens(const char* name, const char* sql, int type, const char* right) {
    return Call(name, right, {"-1"},
                [=] {
                    const int result =
                        Under([&] { return openRecordset(&db, &rows, sql, type, 1); });
                    std::string names = Tell(result);
                    for (; rows != nullptr && !rows->IsEOF(); rows->MoveNext())
                        names += " " + CurrentName();
                    return names;
                })
        .On(OpenShapes);
}

/// Positions the rows, of which the second is current before, and tells which is current then.
template <class Move>
PublicCall Moves(const char* name, Move move, const char* right) {
    return Call(name, right, {"0"},
                [=] {
                    const int result = Under([&] { return move(&rows); });
                    return result == 1 ? CurrentName() : "0";
                })
        .On([] {
            OpenOrdered();
            rows->MoveNext();
        });
}

const char* const WithoutB = "A A 1.000000e+00 C C 3.000000e+00";

} // namespace

PublicCalls RecordsetCalls() {
    const std::string unchanged = std::string("0 -> ") + AllShapes;
    return {
        Opens("openRecordset of a table", "Shape", 1, "1 A B C"),
        Opens("openRecordset, dynaset", Ordered, 2, "1 A B C"),
        Opens("openRecordset, snapshot", "Select * From [Shape] WHERE [Name] = 'C' AND [AX] > 2", 4,
              "1 C"),
        Call("closeRecordset", "done", {}, [] { closeRecordset(&rows); }).On(OpenOrdered),
        Call("getRecordCount", "3", {"0"}, [] { return getRecordCount(&rows); }).On(OpenOrdered),
        Call("getFieldCount of rows", "4", {"0"}, [] { return getFieldCount(&rows); })
            .On(OpenOrdered),
        Moves(
            "setRecordsetTo",
            [](auto to) { return setRecordsetTo(to, "[AX] = 3", CSectionRecordset::FindFirst); },
            "C"),
        Moves("setRecordsetToFirst", setRecordsetToFirst, "A"),
        Moves("setRecordsetToLast", setRecordsetToLast, "C"),
        Moves("setRecordsetToNext", setRecordsetToNext, "C"),
        Moves("setRecordsetToPrevious", setRecordsetToPrevious, "A"),
        Call("IsExistentRecord", "1", {"0"}, [] { return IsExistentRecord(&rows, "[AX] = 3"); })
            .On(OpenOrdered),
        Call("deleteRecord", std::string("1 -> ") + WithoutB, {unchanged},
             [] { return deleteRecord(&rows, "[AX] = 2"); })
            .On(OpenOrdered)
            .Leaving(Shapes),
        Call("deleteRecord, the current one", std::string("1 -> ") + WithoutB, {unchanged},
             [] { return deleteRecord(&rows, ""); })
            .On([] {
                OpenOrdered();
                rows->MoveNext();
            })
            .Leaving(Shapes),
        Call("deleteAllRecords", "3 -> ", {unchanged}, [] { return deleteAllRecords(&rows); })
            .On(OpenOrdered)
            .Leaving(Shapes),
    };
}

} // namespace faults
