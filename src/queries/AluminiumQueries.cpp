// Material of aluminium sections.
#include "interface/SectionDBInterface.h"

#include "dataaccess/NameSearch.h"
#include "interface/RequireOpen.h"
#include "interface/Selection.h"
#include "queries/QueryCall.h"
#include "queries/QueryText.h"

#include <array>
#include <string>

void SectionDBInterface::GetAluminiumMaterialProperty(int catalogue, int type, const char* name,
                                                      unsigned product, unsigned alclad,
                                                      unsigned welded, float thickness,
                                                      CSectionDatabase** db,
                                                      CSectionRecordset** rs) {
    dbsection::QueryCall("GetAluminiumMaterialProperty()", rs, [&] {
        static constexpr std::array Products{"All", "Extrusions", "Drawn_Tube", "Pipe"};
        if (!dbsection::RequireOpen(db) || product >= Products.size())
            return;
        const CString table = GetTableFromSectionType(catalogue, type);
        if (table.IsEmpty())
            return;
        CDWordArray selection;
        if (!dbsection::ReadSelection(catalogue, table, selection)) {
            closeRecordset(rs);
            return;
        }
        const auto decimal = [](unsigned number) {
            return CString(std::to_string(static_cast<int>(number)));
        };
        const CString t = dbsection::Fixed(thickness);
        const CString restriction =
            " AND " + t + " >= [ThLower] AND " + t +
            " <= [ThHigher] AND [Welded] = " + decimal(welded) +
            " AND [Alclad] = " + decimal(alclad) + " AND [Product] = '" + Products[product] + "'" +
            dbsection::SelectionClause(selection, dbsection::SelectionForm::And);
        const dbsection::RowsOfName wanted{
            table.View(), {"VessaName", dbsection::NameMatch::InAnyCase, name}, restriction.View()};
        dbsection::OpenByName(db, rs, wanted, CSectionRecordset::Snapshot);
    });
}
