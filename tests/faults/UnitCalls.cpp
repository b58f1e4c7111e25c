// Units, and the units that a catalogue keeps.
#include "faults/PublicCall.h"
#include "faults/World.h"

#include "units/UNIT.h"

#include <memory>

namespace faults {
namespace {

void OpenUserTables() { openDatabase(&db, "User.db3", 1, 0, 0, Connect(), nullptr); }

/// The first units of the user's tables as a file keeps them; "none" without a row.
std::string Kept() {
    const std::string units = RowsOf("User.db3", "Field Units");
    return units.empty() ? "none" : units;
}

const CString WideFlange("Wide Flange"); // NOLINT(cert-err58-cpp): it does not throw
CStringArray units;                      // NOLINT(cert-err58-cpp)

/// A call that writes `units`, which are those of the table.
template <class Write>
PublicCall Changes(const char* name, Write write, const char* after,
                   const char* tableName = "Wide Flange") {
    return Call(name, std::string("done -> ") + after, {"done -> NUMBER TEXT TEXT"}, write)
        .On([=] {
            OpenUserTables();
            units.RemoveAll();
            for (const char* unit : {tableName, "NUMBER", "TEXT", "a unit of a long name"})
                units.Add(unit);
        })
        .Leaving(Kept);
}

} // namespace

PublicCalls UnitCalls() {
    PublicCalls all{

        // N/mm^2
        Call("ConvertUnitTo", "6.8948", {},
             [] {
                 const CString unit("KIPS/INCHES^2");
                 return Tell(Under([&] { return UNIT::ConvertUnitTo(1.0, unit, 2005, 1004); }));
             }),
        Call("StringToId", "1001", {},
             [] { return static_cast<int>(UNIT::StringToId("inches^3")); }),
        Call("GetFieldUnitList",
             "NUMBER,TEXT,TEXT,INCHES^2,INCHES,INCHES,INCHES,INCHES,INCHES^4,INCHES^4,"
             "INCHES^6,INCHES^4,INCHES^3,INCHES^3",
             {"null"}, [] { return UNIT::GetFieldUnitList(db, WideFlange); })
            .On(OpenUserTables),
        Call("GetFieldUnitArray", "14", {"0"},
             [] {
                 CStringArray read;
                 Under([&] { UNIT::GetFieldUnitArray(db, WideFlange, &read); });
                 return Tell(read.GetSize());
             })
            .On(OpenUserTables),
        Changes(
            "UpdateFieldUnits", [] { UNIT::UpdateFieldUnits(db, &units); },
            "NUMBER TEXT a unit of a long name"),
        Changes(
            "UpdateFieldUnit", [] { UNIT::UpdateFieldUnit(db, WideFlange, 1, "MM"); },
            "NUMBER MM TEXT"),
        Changes(
            "DeleteFieldUnits", [] { UNIT::DeleteFieldUnits(db, WideFlange); }, "none"),
        Changes(
            "WriteFieldUnits", [] { UNIT::WriteFieldUnits(db, &units); },
            "NUMBER TEXT TEXT NUMBER TEXT a unit of a long name", "Pipe"),
    };
    return all;
}

} // namespace faults
