// The catalogue classes: one a catalogue of Catalogues.def. Most behave as CatalogueSectionDB does;
// those that do not stand here.
#pragma once

#include "catalogues/AISCSteelJoistSectionDB.h"
#include "catalogues/CatalogueSectionDB.h"
#include "catalogues/TimberSectionDB.h"

#define SECTION_CATALOGUE(index, Class, Record, stem, name, density)                               \
    class DBSECTION_API Class : public CatalogueSectionDB {                                        \
    public:                                                                                        \
        Class() : CatalogueSectionDB(index) {}                                                     \
    };
#define SECTION_OWN_CATALOGUE(index, Class, Record, stem, name, density)
#include "records/Catalogues.def"

/// American hot-rolled.
class DBSECTION_API AISCSectionDB : public CatalogueSectionDB {
public:
    AISCSectionDB() : CatalogueSectionDB(1) {}

    int GetSectionDataForGUIAllValues(int index, const char* name, int* sectionType, int* recordNo,
                                      float* values) override;

protected:
    const SectionFamily* EditedFamily(const CString& table) const override;
    CString DuplicateCaption(const SectionFamily& family) const override;
};

/// Cold-formed (US).
class DBSECTION_API USColdFormSectionDB : public CatalogueSectionDB {
public:
    USColdFormSectionDB() : CatalogueSectionDB(18) {}

    /// Does nothing.
    void GetAllSectionDataForGUI(int sectionType, CStringArray* names, float (*values)[16],
                                 unsigned int unit1, unsigned int unit2) override;
    const char* AreaColumn() const override { return "Area"; }
};

class DBSECTION_API AITCTimberSectionDB : public TimberSectionDB {
public:
    AITCTimberSectionDB() : TimberSectionDB(22) {}
};

class DBSECTION_API CanadianTimberSectionDB : public TimberSectionDB {
public:
    CanadianTimberSectionDB() : TimberSectionDB(25) {}
};

/// Cold-formed (Butler).
class DBSECTION_API ButlerSectionDB : public CatalogueSectionDB {
public:
    ButlerSectionDB() : CatalogueSectionDB(26) {}

    // None of these is supported.
    SECTIONINFO* GetSectionStructProperty(const char* name, unsigned int unit1, unsigned int unit2,
                                          int* sectionType) override;
    int AddSectionData(WORD id, SECTIONINFO* record) override;
    int UpdateSectionData(WORD id, SECTIONINFO* record) override;
};
