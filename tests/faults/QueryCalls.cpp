// The façade: queries, which open a recordset.
#include "faults/PublicCall.h"
#include "faults/World.h"

#include "dataaccess/CCrack.h"
#include "interface/SectionDBInterface.h"

using Facade = SectionDBInterface;

namespace faults {
namespace {

/// The names in column 2 of the rows that a query has opened; "none" where it has opened none.
template <class Query>
PublicCall Opens(const char* name, int catalogue, Query query, const char* right) {
    return Call(name, right, {"none"},
                [=] {
                    Under([&] { query(&gblSectionDatabase, &rows); });
                    if (rows == nullptr)
                        return std::string("none");
                    std::string names;
                    for (; !rows->IsEOF(); rows->MoveNext())
                        names += std::string(CCrack::strVARIANT(rows->GetFieldValue(2))) + ";";
                    return names;
                })
        .On([=] { Facade::GetDatabasePtr(catalogue); });
}

constexpr int ByArea[][2] = {{3, 0}, {-1, 0}};

PublicCalls OfSections() {
    return {
        Opens(
            "GetSortedSectionRecords", American,
            [](auto base, auto opened) {
                Facade::GetSortedSectionRecords(American, WShape, ByArea, base, opened);
            },
            "W4x13;W12x26;"),
        Opens(
            "GetSortedSectionRecords of a selection", American,
            [](auto base, auto opened) {
                Facade::GetSortedSectionRecords(American, Rod, ByArea, base, opened);
            },
            "R2;"),
        Opens(
            "GetLikeSortedSectionRecords", American,
            [](auto base, auto opened) {
                Facade::GetLikeSortedSectionRecords(American, WShape, ByArea, "W12", base, opened);
            },
            "W12x26;"),
        Opens(
            "GetRangeSortedSectionRecords", American,
            [](auto base, auto opened) {
                Facade::GetRangeSortedSectionRecords(American, WShape, ByArea, 3, 5.0F, 3.0F, base,
                                                     opened);
            },
            "W4x13;"),
        Opens(
            "GetSectionRecord", American,
            [](auto base, auto opened) {
                Facade::GetSectionRecord(American, WShape, "w4X13", base, opened);
            },
            "W4x13;"),
        Opens(
            "GetAssignSectionRecords", American,
            [](auto base, auto opened) {
                Facade::GetAssignSectionRecords(American, WShape, "none", base, opened);
            },
            "W12x26;"),
        Opens(
            "GetAluminiumMaterialProperty", Aluminium,
            [](auto base, auto opened) {
                Facade::GetAluminiumMaterialProperty(Aluminium, Alloy, "6061", 1, 0, 0, 0.5F, base,
                                                     opened);
            },
            "6061;"),
    };
}

PublicCalls OfJoists() {
    return {
        Opens(
            "GetOWSteelJoistKSeries", Joists,
            [](auto base, auto opened) {
                Facade::GetOWSteelJoistKSeries(Joists, 1, 20, 250, 150, base, opened);
            },
            "k-light;k-heavy;"),
        Opens(
            "GetOWSteelJoistKCSSeries", Joists,
            [](auto base, auto opened) {
                Facade::GetOWSteelJoistKCSSeries(Joists, 2, 500, 3000, base, opened);
            },
            "KCS;"),
        Opens(
            "GetLongSpanJoistSeries", Joists,
            [](auto base, auto opened) {
                Facade::GetLongSpanJoistSeries(Joists, 3, 1, 30, 20, 8000, 0, base, opened);
            },
            "lh-20;"),
        Opens(
            "GetJoistGirders", Joists,
            [](auto base, auto opened) {
                Facade::GetJoistGirders(Joists, 5, 30, 5, 5, 24, base, opened);
            },
            "20;"),
        Opens(
            "GetSteelJoist", Joists,
            [](auto base, auto opened) {
                Facade::GetSteelJoist(Joists, 1, "k-heavy", base, opened);
            },
            "k-heavy;"),
        Opens(
            "GetJoistGirder", Joists,
            [](auto base, auto opened) {
                Facade::GetJoistGirder(Joists, 5, "30S24G5N4.5K", base, opened);
            },
            "20;"),
        Call("FindLongSpanJoistLoadType", "2", {"0", "-1"},
             [] {
                 int loadType = -1;
                 Under([&] {
                     Facade::FindLongSpanJoistLoadType(Joists, 3, 22, 24, &loadType,
                                                       &gblSectionDatabase);
                 });
                 return Tell(loadType);
             })
            .On([] { Facade::GetDatabasePtr(Joists); }),
    };
}

PublicCall Castellated_(const char* name, void (*read)(int, int, const char*, CastellatedRecord&)) {
    return Call(name, "CB18X26 18.3", {"empty 0"}, [=] {
        CastellatedRecord record;
        Under([&] { read(American, Castellated, "cb18x26", record); });
        return Tell(record.VessaName, record.D);
    });
}

} // namespace

PublicCalls QueryCalls() {
    PublicCalls all = OfSections();
    for (const PublicCall& call : OfJoists())
        all.push_back(call);
    all.push_back(
        Castellated_("GetCastellatedNonCompBeamData", Facade::GetCastellatedNonCompBeamData));
    all.push_back(Castellated_("GetCastellatedCompBeamData", Facade::GetCastellatedCompBeamData));
    return all;
}

} // namespace faults
