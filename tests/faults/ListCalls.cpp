// The façade: section lists, display values and section records.
#include "faults/PublicCall.h"

#include "interface/SectionDBInterface.h"

#include <array>

using Facade = SectionDBInterface;

namespace faults {
namespace {

constexpr unsigned Inch = 1001, Millimetre = 1004, Kip = 2001, Newton = 2005;

using Values = std::array<float, 16>;

std::string First(const Values& values) {
    return Tell(double{values[0]}, double{values[1]}, double{values[2]});
}

/// A list call with the identifiers of the sections; the list and the identifiers agree.
template <class Ask>
PublicCall WithIdentifiers(const char* name, Ask ask, const char* right) {
    return Call(name, right, {"null", "empty"}, [=] {
        CUIntArray ids;
        CStringList* list = Under([&] { return ask(&ids); });
        const bool isWhole = list != nullptr && !list->IsEmpty();
        return Tell(list) + (isWhole ? " " + Tell(ids) : "");
    });
}

template <class Ask>
PublicCall IntoVector(const char* name, Ask ask, const char* right) {
    return Call(name, right, {""}, [=] {
        CUIntArray ids;
        std::vector<CString> names;
        Under([&] { ask(&ids, names); });
        std::string text;
        for (const CString& each : names)
            text += std::string(each) + ";";
        return text;
    });
}

PublicCalls Lists() {
    return {
        Call("GetSectionNameList", "W12x26,W4x13", {"null", "empty"},
             [] { return Facade::GetSectionNameList(American, WShape, 1); }),
        Call("GetSectionPublicNameList", "Rod 1,Rod 2", {"null", "empty"},
             [] { return Facade::GetSectionPublicNameList(American, Rod, 0); }),
        WithIdentifiers(
            "GetSectionNameList with identifiers",
            [](CUIntArray* ids) { return Facade::GetSectionNameList(American, Rod, ids, 1); },
            "R1,R2 1,2"),
        WithIdentifiers(
            "GetSectionPublicNameList with identifiers",
            [](CUIntArray* ids) { return Facade::GetSectionPublicNameList(American, Rod, ids, 1); },
            "Rod 1,Rod 2 1,2"),
        IntoVector(
            "GetSectionNameList into a vector",
            [](CUIntArray* ids, auto& out) {
                Facade::GetSectionNameList(American, Rod, ids, out, 1);
            },
            "R1;R2;"),
        IntoVector(
            "GetSectionPublicNameList into a vector",
            [](CUIntArray* ids, auto& out) {
                Facade::GetSectionPublicNameList(American, Rod, ids, out, 1);
            },
            "Rod 1;Rod 2;"),
        Call("GetSortedSectionNameList", "W4x13,W12x26", {"null", "empty"},
             [] {
                 CStringArray fields;
                 fields.Add("AX");
                 return Tell(Under([&] {
                     return Facade::GetSortedSectionNameList(American, WShape, &fields, 0);
                 }));
             }),
        Call("GetSectionFieldNameArray", "RECNO,Name,VessaName,D,AX,I", {"null", "empty"},
             [] { return Facade::GetSectionFieldNameArray(American, Rod); }),
        Call("GetSectionFieldUnitsArray", "NUMBER,TEXT,TEXT,INCHES,INCHES^2,INCHES^4",
             {"null", "empty"}, [] { return Facade::GetSectionFieldUnitsArray(American, Rod); }),
    };
}

PublicCalls DisplayValues() {
    return {

        // 0.785 in^2, and 2 in
        Call("GetAllSectionDataForGUI", "R1,R2 506.45 50.8", {"empty"},
             [] {
                 CStringArray names;
                 float values[2][16] = {};
                 Under([&] {
                     Facade::GetAllSectionDataForGUI(American, Rod, &names, values, "", Millimetre,
                                                     Newton);
                 });
                 return Tell(names) + (names.IsEmpty() ? "" : " ") +
                        (names.IsEmpty() ? "" : Tell(double{values[0][0]}, double{values[1][1]}));
             }),

        // 3.14 in^2, 2 in, 0.785 in^4
        Call("GetSectionDataForGUI by record number", "1 R2 2025.8 50.8 3.2674e+05", {"0"},
             [] {
                 CString name;
                 Values values{};
                 const int result = Under([&] {
                     return Facade::GetSectionDataForGUI(American, Rod, 2, &name, values.data(), "",
                                                         Millimetre, Newton);
                 });
                 return result == 0 ? "0" : Tell(result, name) + " " + First(values);
             }),

        // 7.65 in^2, 12.2 in, 6.49 in
        Call("GetSectionDataForGUI by name", "1 1 4935.5 309.88 164.85", {"0"},
             [] {
                 int shape = -1;
                 Values values{};
                 const int result = Under([&] {
                     return Facade::GetSectionDataForGUI(American, "w12X26", &shape, values.data(),
                                                         "", Millimetre, Newton);
                 });
                 return result == 0 ? "0" : Tell(result, shape) + " " + First(values);
             }),
        Call("GetSectionDataForGUI_NoDbi", "1 6 0.785 1 0.0491", {"0"},
             [] {
                 int shape = -1;
                 Values values{};
                 const int result = Under([&] {
                     return Facade::GetSectionDataForGUI_NoDbi(American, "R1", &shape,
                                                               values.data(), "", Inch, Kip);
                 });
                 return result == 0 ? "0" : Tell(result, shape) + " " + First(values);
             }),
        Call("GetSectionDataForGUIAllValues", "1 15 1 0.785 1 0.0491", {"0"},
             [] {
                 int type = WShape;
                 int record = -1;
                 Values values{};
                 const int result = Under([&] {
                     return Facade::GetSectionDataForGUIAllValues(American, "R1", &type, &record,
                                                                  values.data(), Inch, Kip);
                 });
                 return result == 0 ? "0" : Tell(result, type, record) + " " + First(values);
             }),

        // by hand from area, legs and thickness
        Call("GetSectionPrincipalAngle", "1 29.136", {"0 0"},
             [] {
                 double angle = -1;
                 const CString name("L40304");
                 const int result = Under(
                     [&] { return Facade::GetSectionPrincipalAngle(American, "L40304", &angle); });
                 return Tell(result, angle);
             }),
    };
}

std::string Released(void* record, int type) {
    const auto* section = static_cast<const SectionRecord*>(record);
    std::string text = "null";
    if (const auto* info = dynamic_cast<const SECTIONINFO*>(section))
        text = Tell(type, info->VessaName, info->Area, info->MajorInertia);
    else if (section != nullptr)
        text = Tell(type, section->VessaName, section->Number(3));
    Facade::FreeSectionData(record);
    return text;
}

PublicCalls Records() {
    return {
        Call("GetSectionData", "1 W12x26 7.65", {"null"},
             [] {
                 int type = -1;
                 void* record =
                     Under([&] { return Facade::GetSectionData(American, "w12x26", type, ""); });
                 return Released(record, type);
             }),

        // 204 in^4
        Call("GetSectionStructProperty", "1 W12x26 4935.5 8.4911e+07", {"null"},
             [] {
                 int type = -1;
                 void* record = Under([&] {
                     return Facade::GetSectionStructProperty(American, "w12x26", type, Millimetre,
                                                             Newton, "");
                 });
                 return Released(record, type);
             }),
        Call("FreeSectionData", "done", {},
             [] {
                 int type = 0;
                 Facade::FreeSectionData(Facade::GetSectionData(American, "R1", type, ""));
             }),
    };
}

} // namespace

PublicCalls ListCalls() { return AllOf({Lists(), DisplayValues(), Records()}); }

} // namespace faults
