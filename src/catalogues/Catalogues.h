// The catalogue classes. Each is a table of shape families in a source of its own.
#pragma once

#include "catalogues/AISCSteelJoistSectionDB.h"
#include "catalogues/CatalogueSectionDB.h"
#include "catalogues/TimberSectionDB.h"

/// 1: American hot-rolled.
class DBSECTION_API AISCSectionDB : public CatalogueSectionDB {
public:
    AISCSectionDB();

    int GetSectionDataForGUIAllValues(int index, const char* name, int* sectionType, int* recordNo,
                                      float* values) override;

protected:
    const SectionFamily* EditedFamily(const CString& table) const override;
    CString DuplicateCaption(const SectionFamily& family) const override;
};

/// 2: Australian.
class DBSECTION_API AustralianSectionDB : public CatalogueSectionDB {
public:
    AustralianSectionDB();
};

/// 3: British.
class DBSECTION_API BritishSectionDB : public CatalogueSectionDB {
public:
    BritishSectionDB();
};

/// 4: Canadian.
class DBSECTION_API CanadianSectionDB : public CatalogueSectionDB {
public:
    CanadianSectionDB();
};

/// 5: Chinese.
class DBSECTION_API ChineseSectionDB : public CatalogueSectionDB {
public:
    ChineseSectionDB();
};

/// 6: Dutch.
class DBSECTION_API DutchSectionDB : public CatalogueSectionDB {
public:
    DutchSectionDB();
};

/// 7: European.
class DBSECTION_API EuropeanSectionDB : public CatalogueSectionDB {
public:
    EuropeanSectionDB();
};

/// 8: French.
class DBSECTION_API FrenchSectionDB : public CatalogueSectionDB {
public:
    FrenchSectionDB();
};

/// 9: German.
class DBSECTION_API GermanSectionDB : public CatalogueSectionDB {
public:
    GermanSectionDB();
};

/// 10: Indian.
class DBSECTION_API IndianSectionDB : public CatalogueSectionDB {
public:
    IndianSectionDB();
};

/// 11: Japanese.
class DBSECTION_API JapaneseSectionDB : public CatalogueSectionDB {
public:
    JapaneseSectionDB();
};

/// 12: Russian.
class DBSECTION_API RussianSectionDB : public CatalogueSectionDB {
public:
    RussianSectionDB();
};

/// 13: South African.
class DBSECTION_API SouthAfricanSectionDB : public CatalogueSectionDB {
public:
    SouthAfricanSectionDB();
};

/// 14: Spanish.
class DBSECTION_API SpanishSectionDB : public CatalogueSectionDB {
public:
    SpanishSectionDB();
};

/// 15: Venezuelan.
class DBSECTION_API VenezuelanSectionDB : public CatalogueSectionDB {
public:
    VenezuelanSectionDB();
};

/// 16: Korean.
class DBSECTION_API KoreanSectionDB : public CatalogueSectionDB {
public:
    KoreanSectionDB();
};

/// 17: aluminium (US).
class DBSECTION_API AluminumSectionDB : public CatalogueSectionDB {
public:
    AluminumSectionDB();

protected:
    double Density() const override { return 2712.6; } // 0.098 lb/in^3
};

/// 18: cold-formed (US).
class DBSECTION_API USColdFormSectionDB : public CatalogueSectionDB {
public:
    USColdFormSectionDB();

    /// Does nothing.
    void GetAllSectionDataForGUI(int sectionType, CStringArray* names, float (*values)[16],
                                 unsigned int unit1, unsigned int unit2) override;
    const char* AreaColumn() const override { return "Area"; }
};

/// 19: cold-formed (Indian).
class DBSECTION_API ISColdFormSectionDB : public CatalogueSectionDB {
public:
    ISColdFormSectionDB();
};

/// 20: Mexican.
class DBSECTION_API MexicanSectionDB : public CatalogueSectionDB {
public:
    MexicanSectionDB();
};

/// 22: timber (US).
class DBSECTION_API AITCTimberSectionDB : public TimberSectionDB {
public:
    AITCTimberSectionDB();
};

/// 23: cold-formed (Lysaght).
class DBSECTION_API LysaghtSectionDB : public CatalogueSectionDB {
public:
    LysaghtSectionDB();
};

/// 24: cold-formed (British).
class DBSECTION_API BSColdFormSectionDB : public CatalogueSectionDB {
public:
    BSColdFormSectionDB();
};

/// 25: timber (Canadian).
class DBSECTION_API CanadianTimberSectionDB : public TimberSectionDB {
public:
    CanadianTimberSectionDB();
};

/// 26: cold-formed (Butler).
class DBSECTION_API ButlerSectionDB : public CatalogueSectionDB {
public:
    ButlerSectionDB();

    // None of these is supported.
    SECTIONINFO* GetSectionStructProperty(const char* name, unsigned int unit1, unsigned int unit2,
                                          int* sectionType) override;
    int AddSectionData(WORD id, SECTIONINFO* record) override;
    int UpdateSectionData(WORD id, SECTIONINFO* record) override;
};

/// 27: cold-formed (Kingspan).
class DBSECTION_API KingspanSectionDB : public CatalogueSectionDB {
public:
    KingspanSectionDB();
};

/// 28: cold-formed (Robertson Ceco).
class DBSECTION_API RCecoColdFormSectionDB : public CatalogueSectionDB {
public:
    RCecoColdFormSectionDB();
};

/// 29: cold-formed (Japanese).
class DBSECTION_API JapaneseColdformSectionDB : public CatalogueSectionDB {
public:
    JapaneseColdformSectionDB();
};

/// 30: cold-formed (Australian).
class DBSECTION_API AUSColdFormSectionDB : public CatalogueSectionDB {
public:
    AUSColdFormSectionDB();
};

/// 31: cold-formed (Russian).
class DBSECTION_API RusColdFormedSectionDB : public CatalogueSectionDB {
public:
    RusColdFormedSectionDB();
};

/// 32: STO ASChM.
class DBSECTION_API STOASChMSectionDB : public CatalogueSectionDB {
public:
    STOASChMSectionDB();
};

/// 33: Jindal.
class DBSECTION_API JindalSectionDB : public CatalogueSectionDB {
public:
    JindalSectionDB();
};

/// 34: cold-formed (European).
class DBSECTION_API EUColdFormSectionDB : public CatalogueSectionDB {
public:
    EUColdFormSectionDB();
};

/// 35: Tata Structura.
class DBSECTION_API TataStructuraSectionDB : public CatalogueSectionDB {
public:
    TataStructuraSectionDB();
};

/// 36: Brazilian.
class DBSECTION_API BrazilianSectionDB : public CatalogueSectionDB {
public:
    BrazilianSectionDB();
};

/// 37: APL Apollo Tubes.
class DBSECTION_API APLApolloTubesSectionDB : public CatalogueSectionDB {
public:
    APLApolloTubesSectionDB();
};

/// 1001: user tables.
class DBSECTION_API UserSectionDB : public CatalogueSectionDB {
public:
    UserSectionDB();
};

/// 1010: generic shapes.
class DBSECTION_API GenericSectionDB : public CatalogueSectionDB {
public:
    GenericSectionDB();
};
