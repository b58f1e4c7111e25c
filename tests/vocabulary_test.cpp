// The façade's vocabulary: names of catalogues, symbolic names, tables and section types.
#include "FacadeSupport.h"

#include <memory>

using namespace testsupport;

namespace {

TEST_F(FacadeTest, NamesCataloguesAndTheirFilesLetterForLetter) {
    struct {
        const char* file;
        const char* name;
    } const catalogues[] = {
        {"Untitled", "Untitled"},
        {"AISCSections", "American"},
        {"AustralianSections", "Australian"},
        {"BritishSections", "British"},
        {"CanadianSections", "Canadian"},
        {"ChineseSections", "Chinese"},
        {"DutchSections", "Dutch"},
        {"EuropeanSections", "European"},
        {"FrenchSections", "French"},
        {"GermanSections", "German"},
        {"IndianSections", "Indian"},
        {"JapaneseSections", "Japanese"},
        {"RussianSections", "Russian"},
        {"SouthAfricanSections", "SouthAfrican"},
        {"SpanishSections", "Spanish"},
        {"VenezuelanSections", "Venezuelan"},
        {"KoreanSections", "Korean"},
        {"AluminumSections", "Aluminum (US)"},
        {"USColdFormedSections", "ColdFormed (US)"},
        {"ISColdFormedSections", "ColdFormed (IS)"},
        {"MexicanSteelTables", "Mexican"},
        {"AISCSteelJoists", "SteelJoists (US)"},
        {"AITCTimberSections", "Timber (AITC)"},
        {"LysaghtColdFormedSections", "ColdFormed (Lysaght)"},
        {"BSColdFormedSections", "ColdFormed (BS)"},
        {"CanadianTimberSections", "Timber (Canada)"},
        {"ButlerColdFormedSections", "ColdFormed (Butler)"},
        {"KingspanColdFormedSections", "ColdFormed (Kingspan)"},
        {"RCecoColdFormedSections", "ColdFormed (Robertson Ceco)"},
        {"JapaneseColdFormedSections", "ColdFormed (Japanse)"},
        {"AustralianColdFormedSections", "ColdFormed (Australian)"},
        {"GOSTColdFormedSections", "ColdFormed (Russian)"},
        {"STO_ASChMSections", "STOASChM"},
        {"JindalSections", "Jindal"},
        {"EuropeanColdFormedSections", "ColdFormed (European)"},
        {"TataStructuraSections", "Tata Structura"},
        {"BrazilSections", "Brazilian"},
        {"APLApolloTubesSections", "APL Apollo Tubes"},
    };
    int index = 0;
    for (const auto& [file, name] : catalogues) {
        EXPECT_STREQ(Facade::m_saSectionFile[index], file);
        EXPECT_STREQ(Facade::m_saCountryName[index], name);
        EXPECT_EQ(Facade::GetCountryName(index), name);
        ++index;
    }
    EXPECT_EQ(index, 38);
}

TEST_F(FacadeTest, MatchesDisplayNamesLetterForLetter) {
    for (int index = 1; index <= LastCatalogueIndex; ++index)
        EXPECT_EQ(Facade::GetCountryID(Facade::GetCountryName(index)), index);
    for (const char* name : {"Untitled", "american", "ColdFormed (Japanese)", ""})
        EXPECT_EQ(Facade::GetCountryID(name), 38) << name;
}

TEST_F(FacadeTest, NoTextOfACallerIsASymbolicName) {
    Facade::InitialiseAllMaps();
    SectionDBBase* american = Facade::m_SectionDBDrv.GetSectionDBObject(1);
    Facade::InitialiseAllMaps();
    EXPECT_EQ(Facade::m_SectionDBDrv.GetSectionDBObject(1), american);
    EXPECT_EQ(Facade::m_bInit, 1);
    for (const auto* map : {&Facade::m_mapCountryEnums, &Facade::m_mapSectionTypeEnums})
        for (const auto& [name, number] : *map) {
            CString key = name;
            EXPECT_EQ(Facade::GetCountryEnumVal(key) + Facade::GetSectionTypeEnumVal(key), 0);
        }
}

TEST_F(FacadeTest, TranslatesTablesTypesAndShapes) {
    MakeCatalogue(File("AISCSections.db3"), 0);
    MakeCatalogue(File("generic.db3"), 0);
    Facade::SetGenericTableFileName(File("generic.db3").c_str());
    struct Case {
        int index;
        const char* table;
        int typeFromTable;
        int type;
        int shapeFromType;
    };
    for (const Case& c : {Case{1, "W Shape", 1, 1, 1},
                          {1, "B Shape", 5, 8, 3},
                          {1, "w shape", 16, 17, 0}, // the last one visited
                          {1010, "Rectangle", 7, 7, 10},
                          {1010, "None", 20, 4, 3},
                          {2, "UB Shape", -1, 1, 0},
                          {38, "W Shape", -1, 1, 0}}) {
        EXPECT_EQ(Facade::GetSectionTypeFromTable(c.index, c.table), c.typeFromTable)
            << c.index << ' ' << c.table;
        EXPECT_EQ(Facade::GetShapeTypeFromSection(c.index, c.type), c.shapeFromType)
            << c.index << ' ' << c.type;
    }
}

TEST_F(FacadeTest, ListsTheTablesThatItKnowsInTheirOrder) {
    {
        CatalogueFile file(File("AISCSections.db3"));
        for (const char* table : {"Pipe", "Mine", "~W Shape", "W Shape"})
            file.AddTable(table, LayoutId::IShape);
    }
    const std::unique_ptr<CStringList> types(Facade::GetSectionTypeList(1));
    ASSERT_NE(types, nullptr);
    EXPECT_EQ(std::vector<CString>(types->begin(), types->end()),
              (std::vector<CString>{"Pipe", "W Shape"}));
    EXPECT_EQ(Facade::GetSectionTypeList(2), nullptr);
}

} // namespace
