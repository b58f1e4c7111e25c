// The façade: finding sections by name.
#include "faults/PublicCall.h"

#include "interface/SectionDBInterface.h"

using Facade = SectionDBInterface;

namespace faults {
namespace {

constexpr std::size_t TablesOfEach = 4;

/// In all catalogues. What was found before a failure stays in the arrays, and a table that cannot
/// be opened is reported and passed over.
PublicCall InAll(const char* name, int (*search)(const char*, CUIntArray&, CUIntArray&),
                 const char* section) {
    return Call(name, "1 1,7 1,7", {"0*", "1 1 1", "1 7 7"},
                [=] {
                    CUIntArray catalogues;
                    CUIntArray types;
                    const int result = Under([&] { return search(section, catalogues, types); });
                    return Tell(result, catalogues, types);
                })
        .Reporting(TablesOfEach + 1);
}

PublicCall InOne(const char* name, int (*search)(int, const char*, CUIntArray&),
                 const char* section) {
    return Call(name, "1 15", {"0 empty"}, [=] {
        CUIntArray types;
        const int result = Under([&] { return search(American, section, types); });
        return Tell(result, types);
    });
}

template <class Names>
PublicCall WithOtherName(const char* name, int (*search)(int, const char*, CUIntArray&, Names&),
                         const char* section, const char* right) {
    return Call(name, right, {"0 empty"}, [=] {
        CUIntArray types;
        Names names;
        const int result = Under([&] { return search(American, section, types, names); });
        return Tell(result, types) + (names.begin() == names.end() ? "" : " ") +
               std::string(names.begin() == names.end() ? "" : *names.begin());
    });
}

} // namespace

PublicCalls NameCalls() {
    using Vector = std::vector<CString>;
    return {
        InAll("GetCountryAndSectionTypeFromVessaName",
              Facade::GetCountryAndSectionTypeFromVessaName, "w12X26"),
        InAll("GetCountryAndSectionTypeFromPublicName",
              Facade::GetCountryAndSectionTypeFromPublicName, "W12X26"),
        InOne("GetSectionTypeFromVessaName", Facade::GetSectionTypeFromVessaName, "r2"),
        InOne("GetSectionTypeFromPublicName", Facade::GetSectionTypeFromPublicName, "Rod 2"),
        WithOtherName<CStringArray>("GetSectionTypeAndVessaNameFromPublicName",
                                    Facade::GetSectionTypeAndVessaNameFromPublicName, "Rod 2",
                                    "1 15 R2"),
        WithOtherName<Vector>("GetSectionTypeAndVessaNameFromPublicName, vector",
                              Facade::GetSectionTypeAndVessaNameFromPublicName, "Rod 2", "1 15 R2"),
        WithOtherName<CStringArray>("GetSectionTypeAndPublicNameFromVessaName",
                                    Facade::GetSectionTypeAndPublicNameFromVessaName, "r2",
                                    "1 15 Rod 2"),
        WithOtherName<Vector>("GetSectionTypeAndPublicNameFromVessaName, vector",
                              Facade::GetSectionTypeAndPublicNameFromVessaName, "r2", "1 15 Rod 2"),
        Call("GetTableNameFromSection", "1 Castellated NonComp Beam", {"0 empty"},
             [] {
                 CString table;
                 const int result = Under(
                     [&] { return Facade::GetTableNameFromSection(American, "CB18X26", table); });
                 return Tell(result, table);
             }),
    };
}

} // namespace faults
