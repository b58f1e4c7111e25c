// The mechanism that the catalogue classes share: a class is a table of shape families.
#pragma once

#include "catalogues/SectionDBBase.h"
#include "catalogues/SectionFamily.h"

#include <memory>
#include <span>
#include <vector>

class DBSECTION_API CatalogueSectionDB : public SectionDBBase {
public:
    void FreeSectionRecords() override { InitSectionRecords(); }
    void InitSectionRecords() override;
    SectionRecord* GetSectionData(const char* name, int* sectionType) override;
    SECTIONINFO* GetSectionStructProperty(const char* name, unsigned int unit1, unsigned int unit2,
                                          int* sectionType) override;
    void InitTableNameMap() override;

    /// The shape families in the order in which table names are compared.
    std::span<const SectionFamily> Families() const { return m_families; }

    /// The family of a table, or null.
    const SectionFamily* FindFamily(const CString& table) const;

protected:
    /// The families must outlive the object.
    explicit CatalogueSectionDB(std::span<const SectionFamily> families);

private:
    std::unique_ptr<SectionRecord> ReadCurrentRow(LayoutId layout) const;

    std::span<const SectionFamily> m_families;
    std::vector<std::unique_ptr<SectionRecord>> m_records; ///< last read, one slot a family
};
