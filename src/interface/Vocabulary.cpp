// The vocabulary: catalogue names, symbolic names, and what a catalogue calls its section types.
#include "interface/SectionDBInterface.h"

#include "catalogues/SectionTables.h"
#include "interface/PublicCall.h"

#include <list>
#include <memory>
#include <span>
#include <string>
#include <utility>

using dbsection::PublicCall;

const char* const SectionDBInterface::m_saSectionFile[LastCatalogueIndex + 1] = {
    "Untitled",
#define SECTION_CATALOGUE(index, Class, Record, stem, name, density) stem,
#define SECTION_PERSONAL_CATALOGUE(index, Class, Record, title, density)
#include "records/Catalogues.def"
};

const char* const SectionDBInterface::m_saCountryName[LastCatalogueIndex + 1] = {
    "Untitled",
#define SECTION_CATALOGUE(index, Class, Record, stem, name, density) name,
#define SECTION_PERSONAL_CATALOGUE(index, Class, Record, title, density)
#include "records/Catalogues.def"
};

namespace {

struct NamedNumber {
    const char* name;
    int number;
};

// clang-format off
constexpr NamedNumber CountryNames[] = {
    {"stcAmerican", 1}, {"stcAustralian", 2}, {"stcBritish", 3}, {"stcCanadian", 4},
    {"stcChinese", 5}, {"stcDutch", 6}, {"stcEuropean", 7}, {"stcFrench", 8}, {"stcGerman", 9},
    {"stcIndian", 10}, {"stcJapanese", 11}, {"stcRussian", 12}, {"stcSouthAfrican", 13},
    {"stcSpanish", 14}, {"stcVenezuelan", 15}, {"stcKorean", 16}, {"stcAluminum", 17},
    {"stcAmericanColdFormed", 18}, {"stcIndianColdFormed", 19}, {"stcMexican", 20},
    {"stcAmericanSteelJoist", 21}, {"stcAITCTimber", 22}, {"stcLysaghtColdFormed", 23},
    {"stcBritishColdFormed", 24}, {"stcCanadianTimber", 25}, {"stcUserDefined", UserTableIndex},
    {"stcButlerColdFormed", 26}, {"stcKingspanColdFormed", 27}, {"stcRCecoColdFormed", 28},
    {"stcJapaneseColdFormed", 29}, {"stcAustralianColdFormed", 30}, {"stcRussianColdFormed", 31},
    {"stcSTOASChM", 32}, {"stcJindal", 33}, {"stcTataStructura", 35}, {"stcAPLApolloTubes", 37},
};

// By catalogue. Gaps and repeats belong to the vocabulary.
constexpr NamedNumber SectionTypeNames[] = {
    // American
    {"AmericanWShape", 1}, {"AmericanMShape", 2}, {"AmericanSShape", 3}, {"AmericanHPShape", 4},
    {"AmericanBShape", 5}, {"AmericanChannel", 6}, {"AmericanMCChannel", 7}, {"AmericanAngle", 8},
    {"AmericanTube", 9}, {"AmericanPipe", 10}, {"AmericanHSSRectangle", 11},
    {"AmericanHSSRound", 12}, {"AmericanCastellatedNonCompBeam", 13},
    {"AmericanCastellatedCompBeam", 14}, {"AmericanRodShape", 15}, {"AmericanCableShape", 16},
    {"AmericanHSSRectangleA1085", 23}, {"AmericanHSSRoundA1085", 24},
    // Australian
    {"AustralianUBShape", 1}, {"AustralianUCShape", 2}, {"AustralianWBShape", 3},
    {"AustralianWCShape", 4}, {"AustralianChannel", 5}, {"AustralianAngle", 6},
    // Mexican
    {"MexicanIEShape", 1}, {"MexicanIRShape", 2}, {"MexicanISShape", 3}, {"MexicanCEChannel", 4},
    {"MexicanLDAngle", 5}, {"MexicanLIAngle", 6}, {"MexicanOCPipe", 7}, {"MexicanORTube", 8},
    {"MexicanORTubeR", 9},
    // British
    {"BritishUBShape", 1}, {"BritishUCShape", 2}, {"BritishUPShape", 3}, {"BritishJOShape", 4},
    {"BritishChannel", 5}, {"BritishAngle", 6}, {"BritishTube", 7}, {"BritishPipe", 8},
    // Canadian
    {"CanadianWShape", 1}, {"CanadianMShape", 2}, {"CanadianSShape", 3}, {"CanadianHPShape", 4},
    {"CanadianWWShape", 5}, {"CanadianChannel", 6}, {"CanadianMCChannel", 7},
    {"CanadianAngle", 8}, {"CanadianTube", 9}, {"CanadianPipe", 10}, {"CanadianHSSRect", 11},
    {"CanadianHSSRound", 12},
    // Chinese
    {"ChineseIShape", 1}, {"ChineseChannel", 2}, {"ChineseAngle", 3}, {"ChineseTube", 4},
    {"ChinesePipe", 5},
    // Dutch
    {"DutchHEShape", 1}, {"DutchIPEShape", 2}, {"DutchIPNShape", 3}, {"DutchUPNChannel", 4},
    {"DutchAngle", 5}, {"DutchTube", 6}, {"DutchPipe", 7}, {"DutchPlateStrip", 8},
    {"DutchSolidRound", 9}, {"DutchSolidSquare", 10},
    // European
    {"EuropeanIPEShape", 1}, {"EuropeanHEShape", 2}, {"EuropeanDILShape", 3},
    {"EuropeanIPNShape", 4}, {"EuropeanUChannel", 5}, {"EuropeanUPNChannel", 6},
    {"EuropeanAngle", 7}, {"EuropeanTube", 8}, {"EuropeanPipe", 9}, {"EuropeanBulbFlat", 10},
    {"EuropeanFlatBar", 11}, {"EuropeanHDShape", 12}, {"EuropeanHLShape", 13},
    {"EuropeanHPShape", 14}, {"EuropeanIPEShape", 1}, {"EuropeanSolidSquare", 15},
    {"EuropeanUPEChannel", 16}, {"EuropeanUAPChannel", 17},
    // French
    {"FrenchIPEShape", 1}, {"FrenchHEShape", 2}, {"FrenchIPNShape", 3}, {"FrenchChannel", 4},
    {"FrenchAngle", 5}, {"FrenchTube", 6}, {"FrenchPipe", 7},
    // German
    {"GermanIPEShape", 1}, {"GermanHEShape", 2}, {"GermanIShape", 3}, {"GermanUChannel", 4},
    {"GermanAngle", 5}, {"GermanTube", 6}, {"GermanPipe", 7},
    // Indian
    {"IndianSShape", 1}, {"IndianIShape", 2}, {"IndianMShape", 3}, {"IndianWShape", 4},
    {"IndianTShape", 5}, {"IndianChannel", 6}, {"IndianAngle", 7}, {"IndianTube", 8},
    {"IndianPipe", 9}, {"IndianNPBShape", 11}, {"IndianWPBShape", 10},
    // Japanese
    {"JapaneseHShape", 1}, {"JapaneseIShape", 2}, {"JapaneseTShape", 3}, {"JapaneseChannel", 4},
    {"JapaneseAngle", 5}, {"JapaneseTube", 6}, {"JapanesePipe", 7}, {"JapaneseRhs", 8},
    {"JapaneseShs", 9}, {"JapaneseChs", 10},
    // Russian
    {"RussianBShape", 1}, {"RussianSHShape", 2}, {"RussianKShape", 3}, {"RussianIShape", 4},
    {"RussianChannel", 5}, {"RussianAngle", 6}, {"RussianTube", 7}, {"RussianPipe", 8},
    // SouthAfrican
    {"SouthAfricanIShape", 1}, {"SouthAfricanHShape", 2}, {"SouthAfricanPGShape", 3},
    {"SouthAfricanCChannel", 4}, {"SouthAfricanAngle", 5}, {"SouthAfricanTube", 6},
    {"SouthAfricanPipe", 7},
    // Spanish
    {"SpanishIPEShape", 1}, {"SpanishHEShape", 2}, {"SpanishIPNShape", 3}, {"SpanishChannel", 4},
    {"SpanishAngle", 5}, {"SpanishTube", 6}, {"SpanishPipe", 7},
    // Venezuelan
    {"VenezuelanBeam", 1}, {"VenezuelanChannel", 2}, {"VenezuelanAngle", 3},
    {"VenezuelanTube", 4}, {"VenezuelanPipe", 5},
    // Korean
    {"KoreanWShape", 1}, {"KoreanHShape", 2}, {"KoreanIShape", 3}, {"KoreanWTShape", 4},
    {"KoreanChannel", 5}, {"KoreanAngle", 6}, {"KoreanPipe", 7}, {"KoreanTube", 8},
    // Aluminum
    {"AluminumAAStandardIBeams", 1}, {"AluminumHBeam", 2}, {"AluminumArmyNavyIBeam", 3},
    {"AluminumAmericanStandardIBeam", 4}, {"AluminumIBeam", 5}, {"AluminumAAStandardChannel", 6},
    {"AluminumChannel", 7}, {"AluminumArmyNavyChannel", 8}, {"AluminumSpecialChannel", 9},
    {"AluminumAmericanStandardChannel", 10}, {"AluminumEqualLegAngle", 11},
    {"AluminumSquareEndEqualLegAngle", 12}, {"AluminumUnequalLegAngle", 13},
    {"AluminumSquareEndUnequalLegAngle", 14}, {"AluminumSquareTube", 15},
    {"AluminumRectangularTube", 16}, {"AluminumRoundTube", 17}, {"AluminumPipe", 18},
    {"AluminumArmyNavyTee", 19}, {"AluminumTee", 20}, {"AluminumSpecialPipe", 21},
    // User
    {"UserWideFlange", 1}, {"UserChannel", 2}, {"UserAngle", 3}, {"UserDblAngle", 4},
    {"UserTee", 5}, {"UserPipe", 6}, {"UserTube", 7}, {"UserGeneral", 8}, {"UserISection", 9},
    {"UserPrismatic", 10},
    // AmericanColdFormed
    {"AmericanColdFormedAngle", 1}, {"AmericanColdFormedAngleS", 2},
    {"AmericanColdFormedChannel", 3}, {"AmericanColdFormedChannelS", 4},
    {"AmericanColdFormedZee", 5}, {"AmericanColdFormedZeeS", 6}, {"AmericanColdFormedHat", 7},
    {"AmericanColdFormedPipe", 8}, {"AmericanColdFormedTube", 9},
    // RCecoColdFormed
    {"RCecoColdFormedAngle", 1}, {"RCecoColdFormedAngleS", 2}, {"RCecoColdFormedChannel", 3},
    {"RCecoColdFormedChannelS", 4}, {"RCecoColdFormedZee", 5}, {"RCecoColdFormedZeeS", 6},
    {"RCecoColdFormedHat", 7}, {"RCecoColdFormedPipe", 8}, {"RCecoColdFormedTube", 9},
    {"RCecoEaveStrut", 10},
    // IndianColdFormed
    {"IndianColdFormedAngle", 1}, {"IndianColdFormedAngleS", 2}, {"IndianColdFormedChannel", 3},
    {"IndianColdFormedChannelS", 4}, {"IndianColdFormedZee", 5}, {"IndianColdFormedZeeS", 6},
    {"IndianColdFormedHat", 7},
    // timber (AITC)
    {"Aspen", 2}, {"Balsam Fir", 3}, {"Beech-Birch-Hickory", 4}, {"Coast Sitka Spruce", 5},
    {"Cottonwood", 6}, {"Douglas Fir-Larch", 7}, {"Douglas Fir-Larch (North)", 8},
    {"Douglas Fir-Larch (South)", 9}, {"Eastern Hemlock", 10}, {"Eastern Hemlock-Tamarack", 11},
    {"Eastern Hemlock-Tamarack (N)", 12}, {"Eastern Softwoods", 13}, {"Eastern Spruce", 14},
    {"Eastern White Pine", 15}, {"Glued Laminated Timber", 1}, {"Hem-Fir", 16},
    {"Hem-Fir (North)", 17}, {"Mixed Maple", 18}, {"Mixed Oak", 19}, {"Mixed Southern Pine", 20},
    {"Mountain Hemlock", 21}, {"Northern Pine", 22}, {"Northern Red Oak", 23},
    {"Northern Species", 24}, {"Northern White Cedar", 25}, {"Ponderosa Pine", 26},
    {"Red Maple", 27}, {"Red Oak", 28}, {"Red Pine", 29}, {"Redwood", 30}, {"Sitka Spruce", 31},
    {"Southern Pine", 32}, {"Spruce-Pine-Fir", 33}, {"Spruce-Pine-Fir (South)", 34},
    {"Western Cedars", 35}, {"Western Cedars (North)", 36}, {"Western Hemlock", 37},
    {"Western Hemlock (North)", 38}, {"Western White Pine", 39}, {"Western Woods", 40},
    {"White Oak", 41}, {"Yellow Poplar", 42},
    // American steel joists
    {"AmericanKJoist", 1}, {"AmericanKCSJoist", 2}, {"AmericanLHJoist", 3},
    {"AmericanDLHJoist", 4}, {"AmericanJoistGirder", 5},
    // Lysaght
    {"LysaghtChannelS", 4}, {"LysaghtZeeS", 6},
    // BritishColdFormed
    {"BritishColdFormedAngle", 1}, {"BritishColdFormedAngleS", 2},
    {"BritishColdFormedChannel", 3}, {"BritishColdFormedChannelS", 4},
    {"BritishColdFormedZee", 5}, {"BritishColdFormedZeeS", 6}, {"BritishColdFormedHat", 7},
    {"BritishColdFormedPipe", 8}, {"BritishColdFormedTube", 9},
    // timber (Canada)
    {"Glued Laminated Timber", 1}, {"Douglas Fir-Larch", 2}, {"Hem-Fir", 3},
    {"Northern Species", 4}, {"Spruce-Pine-Fir", 5},
    // Butler
    {"ButlerZeePurlin", 6}, {"ButlerEaveStrut", 4}, {"ButlerBoxStrut", 9},
    {"ButlerWideFlange", 10}, {"ButlerTaperedWideFlange", 11},
    // KingspanColdFormed
    {"KingspanColdFormedChannel", 3}, {"KingspanColdFormedChannelS", 4},
    // JapaneseColdFormed
    {"JapaneseColdFormedBCP", 11}, {"JapaneseColdFormedBCPT", 12}, {"JapaneseColdFormedBCR", 13},
    // AustralianColdFormed
    {"AustralianColdFormedRHS", 1}, {"AustralianColdFormedSHS", 2}, {"AustralianColdFormedCHS", 3},
    // Jindal
    {"JindalIPEShape", 3}, {"JindalHEShape", 2}, {"JindalUBShape", 1}, {"JindalUCShape", 4},
    {"JindalISMCShape", 5}, {"JindalNPBShape", 7}, {"JindalWPBShape", 6},
    // TataStructura
    {"TataStructuraRhs", 1}, {"TataStructuraShs", 2}, {"TataStructuraChs", 3},
    // APLApolloTubes
    {"APLApolloTubesRhs", 1}, {"APLApolloTubesShs", 2}, {"APLApolloTubesChs", 3},
};
// clang-format on

/// Fills an empty map, or leaves it empty. Every key is a text of its own, kept for the life of the
/// process: keys are told apart by their identity, so that a name inserted twice makes two entries.
void Fill(CMap<const char*, const char*, int, int>& map, unsigned int buckets,
          std::span<const NamedNumber> entries) {
    static std::list<std::string> keys;
    if (!map.IsEmpty())
        return;
    CMap<const char*, const char*, int, int> filled;
    std::list<std::string> names;
    filled.InitHashTable(buckets);
    for (const NamedNumber& entry : entries)
        filled.SetAt(names.emplace_back(entry.name).c_str(), entry.number);
    keys.splice(keys.end(), names);
    map = std::move(filled);
}

constexpr int NoCatalogue = LastCatalogueIndex + 1;

int CatalogueOf(const CString& name) {
    int index = 1;
    while (index < NoCatalogue && name != SectionDBInterface::m_saCountryName[index])
        ++index;
    return index;
}

} // namespace

CMap<const char*, const char*, int, int> SectionDBInterface::m_mapCountryEnums;
CMap<const char*, const char*, int, int> SectionDBInterface::m_mapSectionTypeEnums;

void SectionDBInterface::InitialiseCountryEnumMap() {
    PublicCall("InitialiseCountryEnumMap()", [&] { Fill(m_mapCountryEnums, 37, CountryNames); });
}

void SectionDBInterface::InitialiseSectionTypeEnumMap() {
    PublicCall("InitialiseSectionTypeEnumMap()",
               [&] { Fill(m_mapSectionTypeEnums, 1850, SectionTypeNames); });
}

void SectionDBInterface::InitialiseAllMaps() {
    PublicCall("InitialiseAllMaps()", [&] {
        m_bInit = 1; // also where memory is too short for a part
        m_SectionDBDrv.CreateSectionDBObjects();
        InitialiseCountryEnumMap();
        InitialiseSectionTypeEnumMap();
    });
}

int SectionDBInterface::GetCountryEnumVal(CString& key) {
    return PublicCall("GetCountryEnumVal()", [&] {
        int index = 0;
        m_mapCountryEnums.Lookup(key, index);
        return index;
    });
}

int SectionDBInterface::GetSectionTypeEnumVal(CString& key) {
    return PublicCall("GetSectionTypeEnumVal()", [&] {
        int sectionType = 0;
        m_mapSectionTypeEnums.Lookup(key, sectionType);
        return sectionType;
    });
}

CString SectionDBInterface::GetCountryName(int index) {
    return PublicCall("GetCountryName()", [&]() -> CString { return m_saCountryName[index]; });
}

int SectionDBInterface::GetCountryID(CString name) {
    return PublicCall(
        "GetCountryID()", [&] { return CatalogueOf(name); }, NoCatalogue);
}

CString SectionDBInterface::GetTableFromSectionType(int index, int sectionType) {
    return PublicCall("GetTableFromSectionType()", [&] {
        const SectionDBBase* catalogue = OpenCatalogue(index);
        return catalogue == nullptr ? CString() : catalogue->GetTableName(sectionType);
    });
}

int SectionDBInterface::GetSectionTypeFromTable(int index, CString tableName) {
    const auto find = [&] {
        const SectionDBBase* catalogue = OpenCatalogue(index);
        return catalogue == nullptr ? dbsection::NoSectionType
                                    : dbsection::SectionTypeOf(*catalogue, tableName);
    };
    return PublicCall("GetSectionTypeFromTable()", find, dbsection::NoSectionType);
}

int SectionDBInterface::GetShapeTypeFromSection(int index, int sectionType) {
    return PublicCall("GetShapeTypeFromSection()", [&] {
        const SectionDBBase* catalogue = OpenCatalogue(index);
        return catalogue == nullptr ? 0 : catalogue->GetShapeType(sectionType);
    });
}

CStringList* SectionDBInterface::GetSectionTypeList(int index) {
    return PublicCall("GetSectionTypeList()", [&]() -> CStringList* {
        SectionDBBase* catalogue = OpenCatalogue(index);
        if (catalogue == nullptr)
            return nullptr;
        auto list = std::make_unique<CStringList>(10);
        catalogue->GetSectionTypeList(list.get());
        return dbsection::HandOver(std::move(list));
    });
}
