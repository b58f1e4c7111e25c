// 21: steel joists and joist girders (US).
//
// Its tables are not one per shape family: the joists of four series stand in one table and are
// known by their designation; a girder is a row of the girder table with a row of the load table,
// and its designation is composed of both. The section types are the series: 1 K, 2 KCS, 3 LH,
// 4 DLH, 5 joist girders. Values are as stored.
#pragma once

#include "catalogues/CatalogueSectionDB.h"

class DBSECTION_API AISCSteelJoistSectionDB : public CatalogueSectionDB {
public:
    AISCSteelJoistSectionDB() : CatalogueSectionDB(21) {}

    /// The names of the series, in the order of their section types.
    int GetSectionTypeList(CStringList* list) override;
    int GetSectionNameList(int sectionType, CStringList* list, CUIntArray* ids, int sorted,
                           int publicName) override;

    /// A joist or girder by its designation; the section type is its series.
    SectionRecord* GetSectionData(const char* name, int* sectionType) override;

    /// Display values are the record's numbers in order.
    int GetSectionDataForGUI(int index, int sectionType, int recordNo, CString* name, float* values,
                             const char* unitText, unsigned int unit1, unsigned int unit2) override;
    int GetSectionDataForGUI(int index, const char* name, int* sectionType, int* recordNo,
                             float* values, unsigned int unit1, unsigned int unit2) override;

    // None of these does anything.
    void GetAllSectionDataForGUI(int sectionType, CStringArray* names, float (*values)[16],
                                 unsigned int unit1, unsigned int unit2) override;
    SECTIONINFO* GetSectionStructProperty(const char* name, unsigned int unit1, unsigned int unit2,
                                          int* sectionType) override;
    int AddSectionData(WORD id, SECTIONINFO* record) override;
    int UpdateSectionData(WORD id, SECTIONINFO* record) override;

private:
    using Records = std::vector<std::unique_ptr<SectionRecord>>;

    Records Read(const CString& sql, LayoutId layout);
};
