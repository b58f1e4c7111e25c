// The façade: queries, which open a recordset.
#include "faults/PublicCall.h"
#include "faults/World.h"

#include "dataaccess/CCrack.h"
#include "interface/SectionDBInterface.h"

using Facade = SectionDBInterface;

namespace faults {
namespace {

/// The names in column 2 of the rows that a query has opened; "none" where it has opened none.
template <class Query, class... Items>
PublicCall Opens(const char* name, const char* right, Query query, int catalogue, Items... items) {
    return Call(name, right, {"none"},
                [=] {
                    Under([&] { query(catalogue, items..., &gblSectionDatabase, &rows); });
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
        Opens("GetSortedSectionRecords", "W4x13;W12x26;", Facade::GetSortedSectionRecords, American,
              WShape, ByArea),
        Opens("GetSortedSectionRecords of a selection", "R2;", Facade::GetSortedSectionRecords,
              American, Rod, ByArea),
        Opens("GetLikeSortedSectionRecords", "W12x26;", Facade::GetLikeSortedSectionRecords,
              American, WShape, ByArea, "W12"),
        Opens("GetRangeSortedSectionRecords", "W4x13;", Facade::GetRangeSortedSectionRecords,
              American, WShape, ByArea, 3, 5.0F, 3.0F),
        Opens("GetSectionRecord", "W4x13;", Facade::GetSectionRecord, American, WShape, "w4X13"),
        Opens("GetAssignSectionRecords", "W12x26;", Facade::GetAssignSectionRecords, American,
              WShape, "none"),
        Opens("GetAluminiumMaterialProperty", "6061;", Facade::GetAluminiumMaterialProperty,
              Aluminium, Alloy, "6061", 1U, 0U, 0U, 0.5F),
    };
}

PublicCalls OfJoists() {
    return {
        Opens("GetOWSteelJoistKSeries", "k-light;k-heavy;", Facade::GetOWSteelJoistKSeries, Joists,
              1, 20.F, 250.F, 150.F),
        Opens("GetOWSteelJoistKCSSeries", "KCS;", Facade::GetOWSteelJoistKCSSeries, Joists, 2,
              500.F, 3000.F),
        Opens("GetLongSpanJoistSeries", "lh-20;", Facade::GetLongSpanJoistSeries, Joists, 3, 1,
              30.F, 20.F, 8000.F, 0.F),
        Opens("GetJoistGirders", "20;", Facade::GetJoistGirders, Joists, 5, 30.F, 5, 5.F, 24.F),
        Opens("GetSteelJoist", "k-heavy;", Facade::GetSteelJoist, Joists, 1, "k-heavy"),
        Opens("GetJoistGirder", "20;", Facade::GetJoistGirder, Joists, 5, "30S24G5N4.5K"),
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
