// Sections found by names as people type them, over all catalogues.
#include "BuiltCatalogues.h"
#include "records/CatalogueList.h"
#include "sections/Error.h"
#include "sections/Library.h"
#include "sections/NameIndex.h"
#include "sources/CsvTable.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <sstream>

using namespace testsupport;
using dbsection::CsvTable;
using sections::Hit;
using sections::Match;

namespace {

class FindTest : public OnBuiltCatalogues<> {
protected:
    static void SetUpTestSuite() {
        BuildAll();
        const sections::Library library(folder->Path());
        std::vector<sections::Catalogue> catalogues;
        for (const int number : library.numbers())
            catalogues.push_back(library.open(number));
        names = std::make_unique<sections::NameIndex>(catalogues);
    }
    static void TearDownTestSuite() {
        names.reset();
        OnBuiltCatalogues::TearDownTestSuite();
    }

    static CsvTable Table(const char* name) {
        return {name, ReadFile(SECTIONDB_DATA_DIR "/../tests/" + std::string(name))};
    }

    static std::string TextOf(const std::vector<Hit>& hits) {
        std::string text;
        for (const Hit& hit : hits)
            text += CatalogueOf(hit) + ": " + hit.section.name() + " (" + hit.name + "); ";
        return text;
    }
    static std::string CatalogueOf(const Hit& hit) {
        return FindCatalogue(hit.section.family().catalogue().number())->name;
    }

    static inline std::unique_ptr<sections::NameIndex> names;
};

} // namespace

TEST_F(FindTest, KnowsTheSpellingsInUse) {
    const std::map<std::string, Match> matches{
        {"exact", Match::Exact}, {"alias", Match::Alias}, {"superseded", Match::Superseded}};
    const CsvTable spellings = Table("spellings.csv");
    for (const CsvTable::Record& spelling : spellings.Records()) {
        const std::string& typed = spellings.Text(spelling, "typed");
        const std::vector<Hit> hits = names->find(typed);
        const auto hit = std::ranges::find_if(hits, [&](const Hit& one) {
            return CatalogueOf(one) == spellings.Text(spelling, "catalogue") &&
                   one.section.name() == spellings.Text(spelling, "name");
        });
        ASSERT_NE(hit, hits.end()) << typed << ": " << TextOf(hits);
        EXPECT_EQ(hit->match, matches.at(spellings.Text(spelling, "match"))) << typed;
        EXPECT_TRUE(std::ranges::is_sorted(hits, {}, &Hit::match)) << typed;
    }
}

TEST_F(FindTest, SuggestsWhatWasMeant) {
    const CsvTable misspellings = Table("misspellings.csv");
    for (const CsvTable::Record& misspelling : misspellings.Records()) {
        const std::string& typed = misspellings.Text(misspelling, "typed");
        EXPECT_TRUE(names->find(typed).empty()) << typed;
        const std::vector<Hit> near = names->nearest(typed);
        EXPECT_TRUE(std::ranges::any_of(near,
                                        [&](const Hit& hit) {
                                            return hit.match == Match::Near &&
                                                   hit.name ==
                                                       misspellings.Text(misspelling, "name");
                                        }))
            << typed << ": " << TextOf(near);
    }
    EXPECT_TRUE(names->nearest("what no section is called").empty());
    EXPECT_TRUE(names->find("").empty());
    EXPECT_TRUE(names->find(" - ").empty());
}

TEST_F(FindTest, KnowsHowNamesBegin) {
    const std::vector<Hit> hits = names->beginning("w12x2");
    const auto in = [&](const char* name) {
        return std::ranges::count_if(hits,
                                     [&](const Hit& hit) { return hit.section.name() == name; });
    };
    EXPECT_EQ(in("W12X26"), 1);
    EXPECT_EQ(in("W12X22"), 1);
    EXPECT_EQ(in("W12X210"), 1);
    EXPECT_EQ(in("W12X30"), 0);
    EXPECT_TRUE(names->beginning("-").empty());
    EXPECT_TRUE(
        Holds(On("find --like 'hea 28' --csv"), "\nEuropean,HE Shape,HE280A,HE 280 A,exact\n"));
    EXPECT_EQ(On("find --like 'hea 281'").status, 1);
    EXPECT_EQ(On("find").status, 2);
    EXPECT_EQ(On("find IPE300 --like IPE").status, 2);
}

TEST_F(FindTest, KnowsCataloguesByTheirUsualNames) {
    using sections::Library;
    const std::pair<const char*, int> usualNames[] = {{"US", 1},
                                                      {"aisc", 1},
                                                      {"AS/NZS", 2},
                                                      {"uk", 3},
                                                      {"GB/T", 5},
                                                      {"EN", 7},
                                                      {"7", 7},
                                                      {"IS", 10},
                                                      {"\u0433\u043E\u0441\u0442", 12},
                                                      {"south africa", 13},
                                                      {"ColdFormed (Japanse)", 29},
                                                      {"jis coldformed", 29},
                                                      {"brazilsections", 36}};
    for (const auto& [name, number] : usualNames)
        EXPECT_EQ(Library::numberOf(name), number) << name;
    for (const char* name : {"", "-", "0", "38", "1001", "User tables", "Atlantis"})
        EXPECT_THROW(Library::numberOf(name), sections::Error) << name;
    for (const SectionCatalogue& catalogue : GetCatalogues().first(LastCatalogueIndex)) {
        std::istringstream usual(catalogue.usualNames);
        for (std::string name; std::getline(usual, name, ';');)
            EXPECT_EQ(Library::numberOf(name), catalogue.index) << name;
    }
}

TEST_F(FindTest, NeverTakesANearNameForTheOneThatWasAskedFor) {
    EXPECT_TRUE(Ended(On("show European 'HEA 201'"), 1, "did you mean \"HE 200 A\" (European)"));
    const Outcome alias = On("show American W360X134");
    EXPECT_EQ(alias.status, 0);
    EXPECT_EQ(alias.output.find("W14X90 (American, W Shape)"), 0U) << alias.output;
    EXPECT_TRUE(Holds(On("find 'hea 200' --json"), R"("name": "HE 200 A", "match": "exact")"));
}

TEST_F(FindTest, ComparesSectionsInTheUnitsOfTheFirst) {
    const std::string table = On("compare US:W12X26 'EN:IPE 300' --csv").output;
    for (const char* row :
         {"property,unit,American:W12X26,European:IPE 300,ratio\n", "\nAX,in^2,7.65,8.339",
          ",1.090\n", "\nIZ,in^4,204,200.8", ",0.985\n", "\nWeight,lb/ft,26.0"})
        EXPECT_TRUE(Holds(table, row)) << row;
    EXPECT_TRUE(Holds(On("compare 'w 14 x 90' W14X99 W14X109 --csv"),
                      "\nAX,in^2,26.5,29.1,32,1.098,1.208\n"));
    struct {
        const char* arguments;
        int status;
        const char* message;
    } const faults[] = {
        {"compare W12X26", 2, "two sections or more"},
        {"compare W12X26 'L 100x100x10'", 1, "Several sections are called \"L 100x100x10\""},
        {"compare W12X26 W12X27", 1, "did you mean"},
        {"compare W12X26 'IPE 300'", 0, R"("IPE 300" has the same figures in "Dutch:IPE Shape:)"},
        {"compare W12X26 'JP:□-300x300x16'", 1, "stands in the families SHS, Tube of"},
        {"compare W12X26 JP:Pipe:□-300x300x16", 1, "name one of them with CATALOGUE:FAMILY:NAME"},
        {"compare W12X26 JP:SHS:□-300x300x16", 0, "\nAX,in^2,7.65,27.156"},
        {"equivalent JP □-300x300x16", 1, "name one of them with --family"},
        {"equivalent JP □-300x300x16 --family SHS --limit 1", 0, "BCR 295,□-300x300x16"},
        {"compare W12X26 Mars:W12X26", 1, "There is no catalogue \"Mars\""},
        {"equivalent US W12X26 --limit 0", 2, "no whole number"},
        {"equivalent US W12X26 --in Mars", 1, "There is no catalogue"},
        {"equivalent Aluminium 6061-T6", 1, "has no area, moments of inertia and depth"},
    };
    for (const auto& [arguments, status, message] : faults) {
        EXPECT_TRUE(Ended(On(arguments + std::string(" --csv")), status, message)) << arguments;
    }
}

TEST_F(FindTest, FindsSectionsOfOtherStandards) {
    const std::string british = On("equivalent US W12X26 --in UK --limit 1 --csv").output;
    EXPECT_TRUE(Holds(british,
                      "\nBritish,UB Shape,UB 305 x 165 x 40,EN 10365:2017,3.7,3.9,0.1,6.1,-2.1\n"));
    const std::string all = On("equivalent EN 'IPE 300' --csv").output;
    EXPECT_FALSE(Holds(all, "EN 10365"));
    EXPECT_EQ(std::ranges::count(all, '\n'), 12); // names, units, ten sections
}
