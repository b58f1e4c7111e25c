// What the timber catalogues share: a table of glued-laminated timber, and one of sawn lumber for
// each species. Their sections cannot be edited, and have no weight: it depends on the grade.
#pragma once

#include "catalogues/CatalogueSectionDB.h"

class DBSECTION_API TimberSectionDB : public CatalogueSectionDB {
public:
    int AddSectionData(WORD id, SECTIONINFO* record) override;
    int UpdateSectionData(WORD id, SECTIONINFO* record) override;

protected:
    /// The first family is that of glued-laminated timber, the second one of sawn lumber, type 2.
    using CatalogueSectionDB::CatalogueSectionDB;

    /// Whatever is not glued is sawn lumber, of type 2.
    const SectionFamily* RecordFamily(const CString& table) const override;
};
