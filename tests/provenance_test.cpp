// Where sections come from, as built files tell it.
#include "BuiltCatalogues.h"
#include "CatalogueFixture.h"
#include "dbSectionInterface.h"
#include "engine/SectionEngine.h"
#include "sections/Error.h"
#include "sections/Library.h"
#include "sections/UserFile.h"
#include "units/UnitText.h"

#include <algorithm>
#include <array>

using namespace testsupport;
using sections::FigureSource;

namespace {

/// All catalogues of the text sources.
class ProvenanceTest : public OnBuiltCatalogues<> {
protected:
    static void SetUpTestSuite() { BuildAll(); }

    static sections::Section Get(const char* catalogue, const char* name) {
        return sections::Library(folder->Path()).open(catalogue).at(name);
    }

    /// A copy of a catalogue's file, which may be changed.
    static std::string Copy(const TempFolder& to, const char* file) {
        std::filesystem::copy(folder->File(file), to.File(file));
        return to.File(file);
    }
};

/// What the rules of its origin say of the figures of a section that geometry computes, too; true
/// where they accept all of them.
bool IsAccepted(const sections::Section& section) {
    const sections::Origin& origin = *section.origin();
    dbsection::Figures kept;
    for (const sections::Column& column : section.family().columns())
        if (const auto figure = section.find(column.name);
            figure && section.source(column.name) != FigureSource::Computed)
            kept.emplace(column.name, figure->figure() * dbsection::SizeOf(column.unit));
    const auto geometry = origin.model->make(kept, section.parameters());
    const auto isAccepted = [&](const dbsection::JudgedFigure& judged) {
        const double printed =
            judged.figure / dbsection::SizeOf(origin.units.find(judged.column)->second);
        return origin.rules.Judge(section.name(), judged.column, printed, judged.Deviation())
            .IsAccepted();
    };
    return std::ranges::all_of(dbsection::JudgeFigures(geometry, kept), isAccepted);
}

} // namespace

TEST_F(ProvenanceTest, TellsStandardAndSourceOfEachFigure) {
    struct {
        const char* catalogue;
        const char* name;
        const char* standard;
        const char* column;
        FigureSource source;
    } const cases[] = {
        {"European", "IPE 300", "EN 10365:2017", "IZ", FigureSource::Published},
        {"European", "UPN 200", "EN 10365:2017", "CZ", FigureSource::Computed},
        {"European", "IPN 300", "EN 10365:2017", "CW", FigureSource::Computed},
        {"Jindal", "IPE 300", "EN 10365:2017", "IZ", FigureSource::Published},
        {"ColdFormed (European)", "RHS 300 x 200 x 10.0", "EN 10219-2:2019", "IZ",
         FigureSource::Corrected},
        {"Chinese", "I 200x100x7", "GB/T 706-2008", "IX", FigureSource::Computed},
        {"Tata Structura", "SHS 100 x 100 x 5.0", "IS 4923:1997", "IZ", FigureSource::Published},
        {"Korean", "PIPE 1016x22", "KS D 3566", "AX", FigureSource::Computed},
        {"Timber (AITC)", "Hem-Fir Select Structural 2x10",
         "NDS Supplement, 2015 Edition, Table 4A", "FB", FigureSource::Published},
        {"Timber (AITC)", "Hem-Fir Select Structural 2x10",
         "NDS Supplement, 2015 Edition, Table 4A", "IZ", FigureSource::Computed},
    };
    for (const auto& [catalogue, name, standard, column, source] : cases) {
        SCOPED_TRACE(std::string(catalogue) + ", " + name + ", " + column);
        const sections::Section section = Get(catalogue, name);
        ASSERT_NE(section.origin(), nullptr);
        EXPECT_EQ(section.origin()->standard, standard);
        EXPECT_FALSE(Holds(section.origin()->leftOut, "NULL")) << name;
        EXPECT_EQ(section.source(column), source);
    }
    EXPECT_EQ(sections::Library(folder->Path()).open("Dutch").standard(),
              "EN 10365:2017; EN 10056-1:2017; EN 10210-2:2019; EN 10058:2018; DIN 59200:2001; "
              "EN 10060:2003; EN 10059:2003");
}

TEST_F(ProvenanceTest, TellsAStrengthThatIsNotPublishedFromZero) {
    const auto alloys = sections::Library(folder->Path()).open(17).family("Alloy").sections();
    const auto welded = std::ranges::find_if(alloys, [](const sections::Section& alloy) {
        return alloy["Welded"].figure() == 1 && !alloy.find("FCY");
    });
    ASSERT_NE(welded, alloys.end());
    EXPECT_EQ((*welded).source("FCY"), FigureSource::NotPublished);
    EXPECT_EQ((*welded).origin()->standard, "Aluminum Design Manual 2015");
    EXPECT_THROW((*welded)["FCY"], sections::Error);

    const auto wide = sections::Library(folder->Path())
                          .open("Timber (AITC)")
                          .family("Glued Laminated Timber")
                          .sections();
    const auto unknown = std::ranges::find_if(
        wide, [](const sections::Section& section) { return !section.find("FB"); });
    ASSERT_NE(unknown, wide.end());
    const std::string shown = On("show 22 " + Quote((*unknown).name()) + " --json").output;
    EXPECT_TRUE(Holds(shown, R"({"column": "FB", "value": null)"));
    EXPECT_TRUE(Holds(shown, R"("source": "not published")"));

    // Where a value must be told, it is 0.
    SectionDBInterface::SetProfileDBFolder(folder->Path().c_str());
    SectionDBInterface::InitSectionDBInterface();
    int type = 0;
    const std::unique_ptr<SectionRecord> record(static_cast<SectionRecord*>(
        SectionDBInterface::GetSectionData(22, (*unknown).programName().c_str(), type, "")));
    const auto* timber = dynamic_cast<const TimberRecord*>(record.get());
    ASSERT_NE(timber, nullptr);
    EXPECT_EQ(timber->FB, 0);
    EXPECT_GT(timber->FC, 0);

    const std::int32_t catalogue = 22;
    const std::int32_t family = 1;
    const std::int32_t unit = 1001;
    std::array<float, 17> values{};
    std::int32_t count = 0;
    std::int32_t valuesCount = 0;
    std::int32_t error = 0;
    const std::string& name = (*unknown).programName();
    OPENSECTIONDATABASE(&catalogue, &error);
    GETSECTION(&catalogue, &family, name.c_str(), static_cast<std::int32_t>(name.size()), &unit,
               values.data(), &count, &valuesCount, &error);
    EXPECT_EQ(error, 0);
    EXPECT_EQ(valuesCount, 12);
    EXPECT_EQ(values[6], 0) << "FB";
    EXPECT_GT(values[10], 0) << "FC";
    CLOSESECTIONDATABASE(&error);
    SectionDBInterface::ExitSectionDBInterface();
}

TEST_F(ProvenanceTest, KnowsOtherSpellingsOfNames) {
    const auto has = [](const sections::Section& section, const std::string& name) {
        return std::ranges::count(section.aliases(), name, &sections::Alias::name) == 1;
    };
    EXPECT_TRUE(has(Get("European", "IPE A 300"), "IPE 300 A"));
    EXPECT_TRUE(has(Get("European", "HE 200 A"), "HEA 200"));
    EXPECT_TRUE(has(Get("American", "W12X26"), "W310X38.7"));
    EXPECT_TRUE(has(Get("Mexican", "IR 305 x 38.7"), "W12X26"));
    EXPECT_FALSE(has(Get("Mexican", "IR 305 x 38.7"), "IR 305 x 38.7"));
    EXPECT_EQ(Get("Mexican", "IR 305 x 38.7").programName(), "IR305X38.7");
}

TEST_F(ProvenanceTest, GivesOutlinesTheirRadii) {
    EXPECT_EQ(Get("European", "IPE 300").parameters(),
              (dbsection::Figures{{"radius", 15}, {"rest", 0}}));
    // The hot-finished section has corners of 1.5 T, the cold-formed one of 2 T.
    const double hot = Get("European", "SHS 100 x 100 x 5.0").outline().Area();
    const double cold = Get("ColdFormed (European)", "SHS 100 x 100 x 5.0").outline().Area();
    EXPECT_NEAR(hot, 1873, 1);
    EXPECT_NEAR(cold, 1836, 1);
    EXPECT_NEAR(Get("Indian", "MB 300").outline().Area(), 5860, 20);
}

TEST_F(ProvenanceTest, ShowsThatASectionWasChangedSinceTheBuild) {
    const TempFolder other;
    const std::string path = Copy(other, "EuropeanSections.db3");
    const auto read = [&](const char* name) { return sections::Catalogue::read(path, 7).at(name); };
    EXPECT_FALSE(read("IPE300").isChanged());
    {
        CSectionDatabase database;
        database.Open(path.c_str());
        CSectionRecordset rows(&database);
        rows.Open(CSectionRecordset::Dynaset,
                  "Select * From [IPE Shape] WHERE [VessaName] = 'IPE300'");
        SetValue(rows, 8, COleVariant(8361.0));
    }
    const sections::Section changed = read("IPE300");
    EXPECT_TRUE(changed.isChanged());
    EXPECT_EQ(changed.source("IZ"), FigureSource::Unknown);
    EXPECT_EQ(changed.source("AX"), FigureSource::Unknown);
    EXPECT_FALSE(read("IPE330").isChanged());
}

TEST_F(ProvenanceTest, IsNotThereInFilesThatWereNotBuiltFromSources) {
    const TempFolder other;
    const std::string mine = other.File("mine.db3");
    ASSERT_EQ(Program("user create " + mine).status, 0);
    ASSERT_EQ(Program("user add " + mine + " Pipe P OD=100 T=5 AX=14.9 I=168 Z=45.1").status, 0);
    const sections::Section pipe = sections::UserFile(mine).read().at("P");
    EXPECT_EQ(pipe.origin(), nullptr);
    EXPECT_EQ(pipe.source("AX"), FigureSource::Unknown);
    EXPECT_TRUE(pipe.aliases().empty());
    EXPECT_TRUE(pipe.parameters().empty());
    EXPECT_TRUE(pipe.family().origins().empty());
    EXPECT_NEAR(pipe.outline().Area(), 1492.3, 0.1);
    ASSERT_EQ(Program("user add " + mine +
                      " General G AX=35 D=100 B=100 IZ=460 IX=760 IY=460 SZ=92 SY=92 ZZ=115 ZY=115 "
                      "AZ=17 AY=17")
                  .status,
              0);
    EXPECT_THROW(sections::UserFile(mine).read().at("G").outline(), sections::Error)
        << "nothing tells its shape";
}

TEST_F(ProvenanceTest, StaysOutOfListings) {
    CSectionDatabase database;
    database.Open(folder->File("EuropeanSections.db3").c_str(), 0, 1);
    for (const CString& table : database.GetUserTableNames())
        EXPECT_NE(table.View().front(), '~') << table.View();
    const std::string listed = On("list European").output;
    EXPECT_FALSE(Holds(listed, "~"));
    const Outcome found = On("find en10365-ipe");
    EXPECT_EQ(found.status, 1) << "the name of a family is in a hidden table alone";
}

TEST_F(ProvenanceTest, EveryFigureKeepsTheBoundThatItsFileTells) {
    std::size_t judged = 0;
    const sections::Library library(folder->Path());
    for (const int number : library.numbers())
        for (const sections::Family& family : library.open(number).families())
            for (const sections::Section& section : family.sections()) {
                ASSERT_NE(section.origin(), nullptr) << section.name();
                EXPECT_FALSE(section.isChanged()) << section.name();
                if (section.origin()->model == nullptr)
                    continue;
                EXPECT_TRUE(IsAccepted(section)) << section.name() << ", " << family.name();
                ++judged;
            }
    EXPECT_GT(judged, 32000U);
}
