// The catalogue objects, as hosts call them directly: on the American catalogue and on the user's
// tables.
#include "faults/PublicCall.h"
#include "faults/World.h"

#include "interface/SectionDBInterface.h"

#include <array>
#include <memory>

using Facade = SectionDBInterface;

namespace faults {
namespace {

SectionDBBase* object = nullptr;

void Attach(int index, const char* file) {
    openDatabase(&db, file, 1, 0, 0, Connect(), nullptr);
    object = Facade::m_SectionDBDrv.GetSectionDBObject(static_cast<WORD>(index));
    object->SetDatabase(db);
}

void AttachAmerican() { Attach(American, "AISCSections.db3"); }

void AttachTheUsers() { object = AttachUserTables("User.db3", "Wide Flange"); }

std::string UserRows() { return RowsOf("User.db3", "Wide Flange"); }

PublicCall Finds(const char* name, int (SectionDBBase::*find)(const char*, CString&),
                 const char* section) {
    return Call(name, "1 Castellated NonComp Beam", {"0 empty"},
                [=] {
                    CString found;
                    const int result = Under([&] { return (object->*find)(section, found); });
                    return Tell(result, found);
                })
        .On(AttachAmerican);
}

PublicCalls Reading() {
    return {
        Finds("FindSectionTableExact", &SectionDBBase::FindSectionTableExact, "CB18X26"),
        Finds("FindSectionTable", &SectionDBBase::FindSectionTable, "cb18x26"),
        Finds("GetTableNameFromSection of an object", &SectionDBBase::GetTableNameFromSection,
              "CB18X26"),
        Call("GetSectionData of an object", "15 Rod 1 0.785", {"null"},
             [] {
                 int type = -1;
                 const std::unique_ptr<SectionRecord> record(
                     Under([&] { return object->GetSectionData("r1", &type); }));
                 return record ? Tell(type, record->PublicName, record->Number(4)) : "null";
             })
            .On(AttachAmerican),

        // cm^2
        Call("GetSectionStructProperty of an object", "15 Rod 1 5.0645", {"null"},
             [] {
                 int type = -1;
                 const std::unique_ptr<SECTIONINFO> info(Under(
                     [&] { return object->GetSectionStructProperty("r1", 1005, 2007, &type); }));
                 return info ? Tell(type, info->PublicName, info->Area) : "null";
             })
            .On(AttachAmerican),
        Call("GetSectionTypeList of an object", "1 W Shape,Rod,Angle,Castellated NonComp Beam",
             {"0*", "1 empty"},
             [] {
                 auto* list = new CStringList;
                 const int result = Under([&] { return object->GetSectionTypeList(list); });
                 return Tell(result) + " " + Tell(list);
             })
            .On(AttachAmerican),
        Call("GetSectionNameList of an object", "1 Rod 1,Rod 2", {"0*"},
             [] {
                 auto* list = new CStringList;
                 const int result =
                     Under([&] { return object->GetSectionNameList(Rod, list, nullptr, 1, 1); });
                 return Tell(result) + " " + Tell(list);
             })
            .On(AttachAmerican),
        Call("GetSectionCount of an object", "2", {"0"},
             [] { return object->GetSectionCount(Rod); })
            .On(AttachAmerican),
        Call("SetDatabase", "done", {"done"}, [] { object->SetDatabase(db); }).On(AttachAmerican),
        Call("OpenSectionDatabase of an object", "1", {"0"},
             [] { return object->OpenSectionDatabase(); })
            .On([] {
                AttachAmerican();
                closeDatabase(&db, 1);
            }),
        Call("CloseDB", "done", {}, [] { object->CloseDB(); }).On(AttachAmerican),
    };
}

} // namespace

PublicCalls CatalogueCalls() {
    PublicCalls all = Reading();
    const std::string before = "MY 1 MY1 7.650000e+00";
    all.push_back(
        Call("AddSectionData",
             "1 -> " + before + " A section of a long name A section of a long name 7.650000e+00",
             {"0 -> " + before},
             [] {
                 SECTIONINFO section = NewSection("A section of a long name");
                 return Tell(Under([&] { return object->AddSectionData(2, &section); }));
             })
            .On(AttachTheUsers)
            .Leaving(UserRows));
    all.push_back(Call("UpdateSectionData", "1 -> MY 2 MY 2 7.650000e+00", {"0 -> " + before},
                       [] {
                           SECTIONINFO section = NewSection("MY 2");
                           return Tell(
                               Under([&] { return object->UpdateSectionData(1, &section); }));
                       })
                      .On(AttachTheUsers)
                      .Leaving(UserRows));
    return all;
}

} // namespace faults
