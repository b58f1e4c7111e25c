#include "catalogues/AISCSteelJoistSectionDB.h"

#include "dataaccess/Guard.h"
#include "dataaccess/NameSearch.h"
#include "platform/Numbers.h"
#include "records/GirderDesignation.h"
#include "records/LayoutRecords.h"

#include <array>
#include <cmath>
#include <string>

using dbsection::Operation;
using dbsection::WholeNumber;

namespace {

constexpr int GirderSeries = 5;

constexpr std::array SeriesNames{"K Series", "KCS Series", "LH Series", "DLH Series",
                                 "Joist Girders"};

// Both select the bookkeeping columns, then the record's.

constexpr const char* SelectJoists = "SELECT [RECNO], [Name], [VessaName], [SeriesID], [Depth], "
                                     "[Weight] FROM [OWJoistMaster] WHERE ";

constexpr const char* SelectGirders =
    "SELECT [JoistGirderMaster].[RECNO], [JoistGirderMaster].[Name], "
    "[JoistGirderMaster].[VessaName], [JoistGirderMaster].[Span], "
    "[JoistGirderMaster].[NumberOfJoist], [JoistGirderMaster].[Space], "
    "[JoistGirderLoad].[PanelPtLoad], [JoistGirderMaster].[Depth], [JoistGirderLoad].[Weight] "
    "FROM [JoistGirderMaster], [JoistGirderLoad] "
    "WHERE [JoistGirderMaster].[JoistID] = [JoistGirderLoad].[JoistID]";

GirderDesignation DesignationOf(const JoistGirderRecord& girder) {
    return {WholeNumber<int>(girder.Span), WholeNumber<int>(girder.Depth),
            WholeNumber<int>(girder.NumberOfJoist), girder.PanelPtLoad};
}

/// The girders of a designation, which tells the load to one decimal.
CString SelectGirder(const GirderDesignation& girder) {
    const std::string load = std::to_string(std::llround(girder.panelLoad * 10));
    return SelectGirders + CString(" AND [Span] = " + std::to_string(girder.span) +
                                   " AND [Depth] = " + std::to_string(girder.depth) +
                                   " AND [NumberOfJoist] = " + std::to_string(girder.joists) +
                                   " AND ROUND([PanelPtLoad] * 10) = " + load);
}

int Numbers(const SectionRecord& record, float* values) {
    for (int i = 0; i < record.ColumnCount(); ++i)
        values[i] = dbsection::ToSingle(record.Number(BookkeepingColumns + i));
    return 1;
}

} // namespace

int AISCSteelJoistSectionDB::GetSectionTypeList(CStringList* list) {
    return Operation("GetSectionTypeList()", [&] {
        for (const char* series : SeriesNames)
            list->AddTail(series);
        return 1;
    });
}

/// All joists, or girders, that a statement selects.
AISCSteelJoistSectionDB::Records AISCSteelJoistSectionDB::Read(const CString& sql,
                                                               LayoutId layout) {
    Records records;
    if (OpenSectionDatabase() != 1 || OpenSql(sql, CSectionRecordset::Snapshot) != 1)
        return records;
    const dbsection::FailureRule rule{"GetSectionData()", "Failed to read the section."};
    const bool areRead = dbsection::Completes(rule, [&] {
        for (; !m_pRecordset->IsEOF(); m_pRecordset->MoveNext())
            if (auto record = dbsection::MakeSectionRecord(layout); ReadCurrentRow(*record, layout))
                records.push_back(std::move(record));
    });
    closeRecordset(&m_pRecordset);
    if (!areRead)
        return {};
    for (const auto& record : records)
        if (auto* girder = dynamic_cast<JoistGirderRecord*>(record.get()))
            girder->PublicName = girder->VessaName = DesignationOf(*girder).Text();
    return records;
}

int AISCSteelJoistSectionDB::GetSectionNameList(int sectionType, CStringList* list, CUIntArray* ids,
                                                int sorted, int /*publicName*/) {
    return Operation("GetSectionNameList()", [&] {
        if (GetTableName(sectionType).IsEmpty())
            return 0;
        const bool isGirder = sectionType == GirderSeries;
        CString sql = isGirder
                          ? CString(SelectGirders)
                          : SelectJoists + CString("[SeriesID] = " + std::to_string(sectionType));
        if (sorted != 0)
            sql += isGirder ? " ORDER BY [JoistGirderMaster].[RECNO] ASC" : " ORDER BY [RECNO] ASC";
        CStringList names = *list;
        CUIntArray identifiers;
        for (const auto& record : Read(sql, isGirder ? LayoutId::JoistGirder : LayoutId::Joist)) {
            names.AddTail(record->VessaName);
            identifiers.Add(static_cast<unsigned int>(record->RecordNumber));
        }
        dbsection::RequireMemory();
        *list = std::move(names);
        if (ids != nullptr)
            *ids = std::move(identifiers);
        return 1;
    });
}

SectionRecord* AISCSteelJoistSectionDB::GetSectionData(const char* name, int* sectionType) {
    return Operation("GetSectionData()", [&]() -> SectionRecord* {
        if (!dbsection::IsSearchable(name))
            return nullptr;
        Records found = Read(SelectJoists + CString("UPPER([Designation]) = UPPER('") + name + "')",
                             LayoutId::Joist);
        const auto girder = GirderDesignation::Parse(name);
        if (found.empty() && girder)
            found = Read(SelectGirder(*girder), LayoutId::JoistGirder);
        if (found.size() != 1)
            return nullptr;
        SectionRecord* read = dbsection::HandOver(std::move(found[0]));
        const auto* joist = dynamic_cast<const JoistRecord*>(read);
        *sectionType = joist == nullptr ? GirderSeries : WholeNumber<int>(joist->SeriesID);
        return read;
    });
}

int AISCSteelJoistSectionDB::GetSectionDataForGUI(int /*index*/, int sectionType, int recordNo,
                                                  CString* name, float* values,
                                                  const char* /*unitText*/, unsigned int /*unit1*/,
                                                  unsigned int /*unit2*/) {
    return Operation("GetSectionDataForGUI()", [&] {
        const CString number(std::to_string(recordNo));
        const Records found =
            sectionType == GirderSeries
                ? Read(SelectGirders + (" AND [JoistGirderMaster].[RECNO] =" + number),
                       LayoutId::JoistGirder)
                : Read(SelectJoists + ("[RECNO] =" + number), LayoutId::Joist);
        if (found.empty())
            return 0;
        *name = found[0]->VessaName;
        return Numbers(*found[0], values);
    });
}

int AISCSteelJoistSectionDB::GetSectionDataForGUI(int /*index*/, const char* name, int* sectionType,
                                                  int* recordNo, float* values,
                                                  unsigned int /*unit1*/, unsigned int /*unit2*/) {
    return Operation("GetSectionDataForGUI()", [&] {
        const std::unique_ptr<SectionRecord> record(GetSectionData(name, sectionType));
        if (!record)
            return 0;
        *recordNo = record->RecordNumber;
        return Numbers(*record, values);
    });
}

void AISCSteelJoistSectionDB::GetAllSectionDataForGUI(int, CStringArray*, float (*)[16],
                                                      unsigned int, unsigned int) {}

SECTIONINFO* AISCSteelJoistSectionDB::GetSectionStructProperty(const char*, unsigned int,
                                                               unsigned int, int*) {
    return nullptr;
}

int AISCSteelJoistSectionDB::AddSectionData(WORD, SECTIONINFO*) { return 0; }

int AISCSteelJoistSectionDB::UpdateSectionData(WORD, SECTIONINFO*) { return 0; }
