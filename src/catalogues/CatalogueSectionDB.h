// The mechanism that the catalogue classes share: a class is a table of shape families.
//
// What the operations do is told in SectionDBBase.h. Display values are a section's numbers in the
// order that GetDisplayOrder (SectionLayout.h) tells, 16 at most.
#pragma once

#include "catalogues/SectionDBBase.h"
#include "records/CatalogueList.h"
#include "records/SectionRecord.h"

#include <memory>
#include <span>
#include <vector>

class DBSECTION_API CatalogueSectionDB : public SectionDBBase {
public:
    void FreeSectionRecords() override { InitSectionRecords(); }
    void InitSectionRecords() override;
    void InitTableNameMap() override;

    SectionRecord* GetSectionData(const char* name, int* sectionType) override;
    SECTIONINFO* GetSectionStructProperty(const char* name, unsigned int unit1, unsigned int unit2,
                                          int* sectionType) override;

    void GetAllSectionDataForGUI(int sectionType, CStringArray* names, float (*values)[16],
                                 unsigned int unit1, unsigned int unit2) override;
    int GetSectionDataForGUI(int index, int sectionType, int recordNo, CString* name, float* values,
                             const char* unitText, unsigned int unit1, unsigned int unit2) override;
    int GetSectionDataForGUI(int index, const char* name, int* sectionType, int* recordNo,
                             float* values, unsigned int unit1, unsigned int unit2) override;

    int AddSectionData(WORD id, SECTIONINFO* record) override;
    int UpdateSectionData(WORD id, SECTIONINFO* record) override;

    /// Fills a record of a layout from the row of a section in a table, the only one of its
    /// VessaName. Returns 1, or 0 without such a row.
    int ReadSection(const CString& table, const char* name, SectionRecord& record, LayoutId layout);

    /// The shape families in the order in which table names are compared.
    std::span<const SectionFamily> Families() const { return m_catalogue.families; }

    /// The family of a table, or null.
    const SectionFamily* FindFamily(const CString& table) const;

    /// The name of the column of cross-sectional areas.
    virtual const char* AreaColumn() const { return "AX"; }

protected:
    /// The index is one of Catalogues.def.
    explicit CatalogueSectionDB(int index);

    /// The family as whose rows the rows of a table are read; null for an unknown table.
    virtual const SectionFamily* RecordFamily(const CString& table) const {
        return FindFamily(table);
    }

    /// The family as whose rows rows are added to a table and changed; null for none.
    virtual const SectionFamily* EditedFamily(const CString& table) const {
        return FindFamily(table);
    }

    /// Caption of the message that a section's name is taken.
    virtual CString DuplicateCaption(const SectionFamily& family) const { return family.table; }

    /// Opens the row of a section, the only one of its VessaName, and makes its table the working
    /// table. Returns the row's family, or null.
    const SectionFamily* OpenSection(const char* name);

    /// Fills a record of a layout from the current row; false when it cannot be read.
    bool ReadCurrentRow(SectionRecord& record, LayoutId layout) const;

    /// How display values are converted: to a length unit and a force unit.
    struct DisplayUnits {
        unsigned int length;
        unsigned int force;
    };

    /// Fills in display values, record number and section type of a section; unconverted without
    /// units. Returns 1, or 0 without such a section.
    int DisplaySection(const char* name, int* sectionType, int* recordNo, float* values,
                       const DisplayUnits* units);

private:
    /// Fills the maps by section type anew, both or none.
    void MapFamilies();

    bool OpenRow(const char* name);
    bool FindDisplayColumns(const SectionFamily& family, const DisplayUnits* units,
                            std::vector<struct DisplayColumn>& columns) const;
    int StoreSection(const char* label, const char* message, WORD id, const SECTIONINFO* record,
                     bool isNew);

    const SectionCatalogue& m_catalogue;
    std::vector<std::unique_ptr<SectionRecord>> m_records; ///< last read, one slot a family
};
