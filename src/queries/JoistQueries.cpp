// Queries of the steel joist catalogue: master tables joined with load tables.
#include "interface/SectionDBInterface.h"

#include "dataaccess/Handles.h"
#include "dataaccess/NameSearch.h"
#include "interface/RequireOpen.h"
#include "queries/QueryCall.h"
#include "queries/QueryText.h"
#include "records/GirderDesignation.h"

#include <string>

using dbsection::Fixed;
using dbsection::QueryCall;

namespace {

// Every piece of a statement ends with a blank.

constexpr const char* JoistColumns =
    "SELECT [OWJoistMaster].[JoistID], [OWJoistMaster].[Designation], "
    "[OWJoistMaster].[Designation], [OWJoistMaster].[Depth], [OWJoistMaster].[Weight]";

constexpr const char* GirderColumns =
    "SELECT [JoistGirderMaster].[JoistID], [JoistGirderMaster].[JoistID], "
    "[JoistGirderMaster].[JoistID], [JoistGirderMaster].[Span], "
    "[JoistGirderMaster].[NumberOfJoist], [JoistGirderMaster].[Space], "
    "[JoistGirderLoad].[PanelPtLoad], [JoistGirderMaster].[Depth], [JoistGirderLoad].[Weight], "
    "[JoistGirderLoad].[TitleID], [JoistGirderLoad].[ColorID] "
    "FROM [JoistGirderMaster], [JoistGirderLoad] "
    "WHERE [JoistGirderMaster].[JoistID] = [JoistGirderLoad].[JoistID] ";

CString Whole(int number) { return CString(std::to_string(number)); }
CString OneDecimal(float number) { return Fixed(number, 1); }

/// The joists of a series joined with their rows of a load table.
CString FromJoists(const CString& loads, int series) {
    return "FROM [OWJoistMaster], [" + loads + "] WHERE [OWJoistMaster].[JoistID] = [" + loads +
           "].[JoistID] AND [OWJoistMaster].[SeriesID] = " + Whole(series) + " ";
}

/// The rows of a load table between the tabulated spans around the one that is asked for.
CString SpanBracket(const CString& loads, const CString& span, const char* where = "WHERE") {
    const CString column = "[" + loads + "].[Span]";
    const CString from = " FROM [" + loads + "] ";
    return "AND " + column + " BETWEEN (SELECT MIN(" + column + ")" + from + where + " " + column +
           " >= " + span + ") AND (SELECT MAX(" + column + ")" + from + "WHERE " + column +
           " <= " + span + ") ";
}

CString SafeLoadBracket(float span) {
    return SpanBracket("OWJoistSafeLoad", OneDecimal(span), "where");
}

CString CarriesLoads(float total, float live) {
    return "AND [OWJoistLoad].[TotalLoad] >= " + OneDecimal(total) +
           " AND [OWJoistLoad].[LiveLoad] >= " + OneDecimal(live) + " ";
}

bool IsLongSpan(int series) { return series == 3 || series == 4; }

void Open(CSectionDatabase** db, CSectionRecordset** rs, const CString& sql) {
    openRecordset(db, rs, sql, CSectionRecordset::Snapshot, 1);
}

/// Whether joists of that depth and about that span stand in a load table: 1, 0, or -1 when it
/// cannot be asked.
int ProbeLoads(CSectionDatabase** db, const char* loads, int series, float depth,
               const CString& bracket) {
    RecordsetHandle rows;
    const CString sql = "SELECT [OWJoistMaster].[JoistID], [OWJoistMaster].[Designation], "
                        "[OWJoistMaster].[Depth], [OWJoistMaster].[Weight], [" +
                        CString(loads) + "].[Span] " + FromJoists(loads, series) +
                        "AND [OWJoistMaster].[Depth] = " + OneDecimal(depth) + " " + bracket;
    if (openRecordset(db, rows.Address(), sql, CSectionRecordset::Snapshot, 1) != 1)
        return -1;
    return getRecordCount(rows.Address()) > 0 ? 1 : 0;
}

} // namespace

void SectionDBInterface::GetOWSteelJoistKSeries(int /*catalogue*/, int series, float span,
                                                float totalLoad, float liveLoad,
                                                CSectionDatabase** db, CSectionRecordset** rs) {
    QueryCall("GetOWSteelJoistKSeries()", rs, [&] {
        if (!dbsection::RequireOpen(db) || series != 1)
            return;
        Open(db, rs,
             JoistColumns +
                 CString(
                     ", [OWJoistLoad].[Span], [OWJoistLoad].[TotalLoad], [OWJoistLoad].[LiveLoad], "
                     "[OWJoistLoad].[TitleID], [OWJoistLoad].[ColorID] ") +
                 FromJoists("OWJoistLoad", series) + CarriesLoads(totalLoad, liveLoad) +
                 (span > 0 ? SpanBracket("OWJoistLoad", Fixed(span)) : CString()) +
                 "ORDER BY [OWJoistMaster].[Weight], [OWJoistMaster].[Depth], "
                 "[OWJoistLoad].[TotalLoad], [OWJoistLoad].[LiveLoad] ASC");
    });
}

void SectionDBInterface::GetOWSteelJoistKCSSeries(int /*catalogue*/, int series, float moment,
                                                  float shear, CSectionDatabase** db,
                                                  CSectionRecordset** rs) {
    QueryCall("GetOWSteelJoistKCSSeries()", rs, [&] {
        if (!dbsection::RequireOpen(db) || series != 2)
            return;
        Open(db, rs,
             JoistColumns +
                 CString(", [OWKCSJoistLoad].[MomentCapacity], [OWKCSJoistLoad].[ShearCapacity], "
                         "[OWKCSJoistLoad].[GrossMI], [OWKCSJoistLoad].[BridgTableSectNO], "
                         "[OWKCSJoistLoad].[TitleID] ") +
                 FromJoists("OWKCSJoistLoad", series) +
                 "AND [OWKCSJoistLoad].[MomentCapacity] >= " + OneDecimal(moment) +
                 " AND [OWKCSJoistLoad].[ShearCapacity] >= " + OneDecimal(shear) +
                 " ORDER BY [OWJoistMaster].[Weight], [OWJoistMaster].[Depth], "
                 "[OWKCSJoistLoad].[MomentCapacity], [OWKCSJoistLoad].[ShearCapacity] ASC");
    });
}

void SectionDBInterface::FindLongSpanJoistLoadType(int /*catalogue*/, int series, float span,
                                                   float depth, int* loadType,
                                                   CSectionDatabase** db) {
    dbsection::PublicCall("FindLongSpanJoistLoadType()", [&] {
        if (!dbsection::RequireOpen(db) || !IsLongSpan(series))
            return;
        *loadType = 0;
        const int safe = ProbeLoads(db, "OWJoistSafeLoad", series, depth, SafeLoadBracket(span));
        const int both = safe != 0 ? 0
                                   : ProbeLoads(db, "OWJoistLoad", series, depth,
                                                SpanBracket("OWJoistLoad", OneDecimal(span)));
        dbsection::RequireMemory(); // or the loads that were not found may stand there
        if (safe == 1 || both == 1)
            *loadType = safe == 1 ? 1 : 2;
    });
}

void SectionDBInterface::GetLongSpanJoistSeries(int /*catalogue*/, int series, int loadType,
                                                float span, float depth, float load1, float load2,
                                                CSectionDatabase** db, CSectionRecordset** rs) {
    QueryCall("GetLongSpanJoistSeries()", rs, [&] {
        if (!dbsection::RequireOpen(db) || !IsLongSpan(series))
            return;
        if (loadType == 1)
            Open(db, rs,
                 JoistColumns +
                     CString(", [OWJoistSafeLoad].[Span], [OWJoistSafeLoad].[SafeLoad], "
                             "[OWJoistSafeLoad].[TitleID], [OWJoistSafeLoad].[ColorID] ") +
                     FromJoists("OWJoistSafeLoad", series) +
                     "AND [OWJoistMaster].[Depth] = " + OneDecimal(depth) +
                     " AND [OWJoistSafeLoad].[SafeLoad] >= " + OneDecimal(load1) + " " +
                     SafeLoadBracket(span) +
                     "ORDER BY [OWJoistMaster].[Depth], [OWJoistMaster].[Weight], "
                     "[OWJoistSafeLoad].[SafeLoad] ASC");
        if (loadType == 2)
            Open(db, rs,
                 JoistColumns +
                     CString(", [OWJoistLoad].[Span], [OWJoistLoad].[TotalLoad], "
                             "[OWJoistLoad].[LiveLoad], [OWJoistLoad].[TitleID], "
                             "[OWJoistLoad].[ColorID] ") +
                     FromJoists("OWJoistLoad", series) +
                     "AND [OWJoistMaster].[Depth] >= " + OneDecimal(depth) + " " +
                     CarriesLoads(load1, load2) + SpanBracket("OWJoistLoad", OneDecimal(span)) +
                     "ORDER BY [OWJoistMaster].[Depth], [OWJoistMaster].[Weight], "
                     "[OWJoistLoad].[TotalLoad], [OWJoistLoad].[LiveLoad] ASC");
    });
}

void SectionDBInterface::GetJoistGirders(int /*catalogue*/, int series, float span,
                                         int numberOfJoist, float panelLoad, float depth,
                                         CSectionDatabase** db, CSectionRecordset** rs) {
    QueryCall("GetJoistGirders()", rs, [&] {
        if (!dbsection::RequireOpen(db) || series != 5)
            return;
        CString sql =
            GirderColumns +
            CString("AND [JoistGirderMaster].[Span]=(SELECT MIN([JoistGirderMaster].[Span]) "
                    "FROM [JoistGirderMaster]  WHERE [JoistGirderMaster].[Span] >= ") +
            Fixed(span) + ") ";
        if (numberOfJoist > 0)
            sql += "AND [JoistGirderMaster].[NumberOfJoist] = " + Whole(numberOfJoist) + " ";
        sql += "AND [JoistGirderLoad].[PanelPtLoad] = (SELECT MIN([JoistGirderLoad].[PanelPtLoad]) "
               "FROM [JoistGirderLoad] WHERE [JoistGirderLoad].[PanelPtLoad] >= " +
               OneDecimal(panelLoad) + ") ";
        if (depth > 0)
            sql += "AND [JoistGirderMaster].[Depth]=(SELECT MAX([JoistGirderMaster].[Depth]) "
                   "FROM [JoistGirderMaster]  WHERE [JoistGirderMaster].[Depth] <= " +
                   OneDecimal(depth) + ") ";
        Open(db, rs,
             sql + "ORDER BY [JoistGirderMaster].[Span], [JoistGirderMaster].[NumberOfJoist], "
                   "[JoistGirderMaster].[Depth] ASC");
    });
}

void SectionDBInterface::GetSteelJoist(int /*catalogue*/, int series, const char* designation,
                                       CSectionDatabase** db, CSectionRecordset** rs) {
    QueryCall("GetSteelJoist()", rs, [&] {
        if (!dbsection::RequireOpen(db) || series < 1 || series > 4)
            return;
        dbsection::OpenByName(
            db, rs, designation,
            JoistColumns +
                CString(" FROM [OWJoistMaster] WHERE [OWJoistMaster].[Designation] = '") +
                designation + "'",
            CSectionRecordset::Snapshot);
    });
}

void SectionDBInterface::GetJoistGirder(int /*catalogue*/, int series, const char* designation,
                                        CSectionDatabase** db, CSectionRecordset** rs) {
    QueryCall("GetJoistGirder()", rs, [&] {
        const auto girder = GirderDesignation::Parse(designation);
        if (!dbsection::RequireOpen(db) || series != 5 || !girder)
            return;
        Open(db, rs,
             GirderColumns + (" AND [JoistGirderMaster].[Span] = " + Whole(girder->span)) +
                 " AND [JoistGirderMaster].[Depth] = " + Whole(girder->depth) +
                 " AND [JoistGirderMaster].[NumberOfJoist] = " + Whole(girder->joists) +
                 " AND [JoistGirderLoad].[PanelPtLoad] = " + Fixed(girder->panelLoad, 1));
    });
}
