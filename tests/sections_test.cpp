// Catalogues, families and sections as values.
#include "BuiltCatalogues.h"
#include "CatalogueFixture.h"
#include "JoistFixture.h"
#include "files/CatalogueBuilder.h"

#include "dataaccess/CSectionException.h"
#include "sections/Error.h"
#include "sections/Library.h"
#include "sections/UserFile.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <thread>

using namespace testsupport;
using namespace sections::units;

namespace {

class SectionsTest : public OnBuiltCatalogues<> {
protected:
    static void SetUpTestSuite() {
        Build({"AISCSections"});
        Build({"EuropeanSections"}, "--password secret");
    }

    static sections::Library Library() { return sections::Library(folder->Path(), "secret"); }
};

TEST_F(SectionsTest, TellTheirFiguresInAnyUnit) {
    const sections::Section beam = Library().open("american").at("w12x26");
    EXPECT_EQ(beam.name(), "W12X26");
    EXPECT_EQ(beam.family().name(), "W Shape");
    EXPECT_EQ(beam["IZ"].figure(), 204);
    EXPECT_EQ(beam["IZ"].unit(), "INCHES^4");
    EXPECT_DOUBLE_EQ(beam["IZ"].in("cm^4"), 204 * 41.6231425600);
    EXPECT_EQ(beam.area().in(in * in), 7.65);
    EXPECT_DOUBLE_EQ(beam.area().in("mm^2"), 4935.474);
    EXPECT_DOUBLE_EQ(beam.depth().in(mm), 309.88);
    EXPECT_DOUBLE_EQ(beam["AX"].as<2>().in(cm * cm), 49.35474);

    // As the manual prints them.
    EXPECT_NEAR(beam.majorElasticModulus().in("in^3"), 33.4, 0.05);
    EXPECT_NEAR(beam.minorElasticModulus().in("in^3"), 5.34, 0.01);
    EXPECT_NEAR(beam.majorRadius().in("in"), 5.17, 0.01);
    EXPECT_NEAR(beam.minorRadius().in("in"), 1.51, 0.01);
    EXPECT_NEAR(beam.weight().in("lb/ft"), 26, 0.1);
    EXPECT_NEAR(beam.weight().in("kg/m"), 38.7, 0.1);

    const sections::Section angle = Library().open(1).at("L6X4X1/2");
    EXPECT_NEAR(angle.majorElasticModulus().in("in^3"), 4.31, 0.03);
    EXPECT_EQ(angle.principalAngle(), 23.75);
    EXPECT_NEAR(Library().open(1).at("PIPE6SCH40").torsionConstant().in("in^4"), 52.9, 0.2);
}

TEST_F(SectionsTest, TellTheirOutlines) {
    const sections::Catalogue american = Library().open("American");
    const sections::Section beam = american.at("W12X26");
    const dbsection::Outline outline = beam.outline();
    EXPECT_NEAR(outline.Area() / beam.area().in("mm^2"), 1, 0.0015) << "with fillets of kdes - tf";
    EXPECT_NEAR(outline.MajorAxis().inertia / beam.majorInertia().in("mm^4"), 1, 0.005);
    EXPECT_NEAR(outline.GetExtent().high.y - outline.GetExtent().low.y, 309.88, 1e-9);
    EXPECT_EQ(american.at("PIPE6SCH40").outline().Loops().size(), 2);
    const sections::Section tube = american.at("HSS8X4X.250");
    EXPECT_NEAR(tube.outline().Area() / tube.area().in("mm^2"), 1, 0.005);
}

TEST_F(SectionsTest, AreOrdinaryRanges) {
    const sections::Catalogue american = Library().open("AISCSections");
    const sections::Sections shapes = american.family("w shape").sections();
    static_assert(std::ranges::random_access_range<const sections::Sections>);
    static_assert(std::ranges::view<sections::Sections>);
    ASSERT_EQ(shapes.size(), 289);
    EXPECT_EQ((*std::ranges::find(shapes, "W12X26", &sections::Section::name))["D"].figure(), 12.2);
    std::vector<sections::Section> strong;
    std::ranges::copy_if(shapes, std::back_inserter(strong), [](const sections::Section& shape) {
        return shape.majorPlasticModulus() >= sections::Modulus(95.4, pow<3>(in));
    });
    EXPECT_EQ(std::ranges::min(strong, {}, &sections::Section::weight).name(), "W21X44");
    std::vector<sections::Section> sorted(shapes.begin(), shapes.end());
    std::ranges::sort(sorted, {}, &sections::Section::area);
    EXPECT_EQ(sorted.front().name(), "W6X8.5");

    std::size_t count = 0;
    for (const sections::Family& family : american.families())
        count += family.size();
    EXPECT_EQ(count, american.size());
    EXPECT_FALSE(american.family("Pipe").find("W12X26"));
    EXPECT_TRUE(american.family("W Shape").find("W12X26"));
}

TEST_F(SectionsTest, OutliveTheirLibrary) {
    std::optional<sections::Section> kept;
    {
        const sections::Library library = Library();
        kept = library.open("European").find("IPE300");
    }
    ASSERT_TRUE(kept);
    EXPECT_DOUBLE_EQ(kept->majorInertia().in("cm^4"), 8360);
    EXPECT_EQ(kept->family().catalogue().name(), "European");
}

TEST_F(SectionsTest, TellWhatIsWrong) {
    const sections::Library library = Library();
    const sections::Section beam = library.open("American").at("W12X26");
    WriteFile(folder->File("BritishSections.db3"), std::string(4096, 'x'));
    struct Case {
        std::function<void()> call;
        int number;
        std::string text;
    };
    for (const auto& [call, number, text] :
         {Case{[&] { library.open("Atlantean"); }, SectionError::NoSuchItem, "Atlantean"},
          Case{[&] { library.open(1001); }, SectionError::NoSuchItem, "1001"},
          Case{[&] { library.open("Canadian"); }, SectionError::FileNotFound,
               "CanadianSections.db3"},
          Case{[&] { library.open("British"); }, SectionError::NotADatabase, "BritishSections.db3"},
          Case{[&] { sections::Library(folder->Path(), "wrong").open("European"); },
               SectionError::WrongPassword, "password"},
          Case{[&] { library.open("American").at("W1X1"); }, SectionError::NoSuchItem, "W1X1"},
          Case{[&] { library.open("American").family("Q"); }, SectionError::NoSuchItem, "W Shape"},
          Case{[&] { beam["GAP"]; }, SectionError::NoSuchItem, "W12X26"},
          Case{[&] { beam.text("AX"); }, SectionError::NoSuchItem, "AX"},
          Case{[&] { beam.thickness(); }, SectionError::NoSuchItem, "thickness"},
          Case{[&] { beam.area().in("cubit^2"); }, SectionError::NoSuchItem, "cubit^2"},
          Case{[&] { beam.area().in("mm"); }, SectionError::WrongValueType, "length^2"},
          Case{[&] { beam["AX"].as<3>(); }, SectionError::WrongValueType, "length^3"}}) {
        try {
            call();
            ADD_FAILURE() << "nothing was wrong: " << text;
        } catch (const sections::Error& error) {
            EXPECT_EQ(error.number(), number) << text;
            EXPECT_TRUE(Holds(error.what(), text));
        }
    }
}

TEST_F(SectionsTest, OfEveryCatalogueAreRead) {
    const TempFolder all;
    for (const auto& source : std::filesystem::directory_iterator(SECTIONDB_DATA_DIR))
        if (std::filesystem::exists(source.path() / "_catalogue.csv"))
            dbsection::BuildCatalogue(dbsection::CatalogueSource::Load(source),
                                      all.File(source.path().filename().string() + ".db3"), "",
                                      [] {});
    const sections::Library library(all.Path());
    EXPECT_EQ(library.numbers().size(), LastCatalogueIndex);
    for (const int number : library.numbers())
        EXPECT_FALSE(library.open(number).families().empty()) << number;
}

/// Thin strips without bends, in inches: long legs of 200 and short ones of 100 between middle
/// lines.
TEST_F(SectionsTest, TellTheirPrincipalAngles) {
    const std::string path = folder->File("angles.db3");
    {
        CatalogueFile file(path);
        std::vector<Column> columns{{"RECNO", SectionField::Long}, {"Name"}, {"VessaName"}};
        for (const char* name : {"Area", "D", "B", "T", "R", "IZ", "IX", "IY", "CW", "CZ"})
            columns.emplace_back(name, SectionField::Double);
        file.AddPlainTable("Angle without Lips", columns,
                           {{1, COleVariant("L"), COleVariant("L"), 6.0, 2.01, 1.01, 0.02, 0.0},
                            {2, COleVariant("E"), COleVariant("E"), 6.0, 2.01, 2.01, 0.02, 0.0}});
        file.AddPlainTable("Zee without Lips", columns,
                           {{1, COleVariant("Z"), COleVariant("Z"), 8.0, 2.02, 1.01, 0.02, 0.0},
                            {2, COleVariant("none"), COleVariant("none"), 8.0, 2.02}});
        file.AddPlainTable("Channel without Lips", columns,
                           {{1, COleVariant("C"), COleVariant("C"), 8.0}});
        for (const char* table : {"Angle without Lips", "Zee without Lips"})
            file.AddUnits(table, {"NUMBER", "TEXT", "TEXT", "INCHES^2", "INCHES", "INCHES",
                                  "INCHES", "INCHES"});
    }
    const sections::Catalogue catalogue = sections::Catalogue::read(path, 18);
    EXPECT_NEAR(catalogue.at("L").principalAngle(), 15.80, 0.1);
    EXPECT_NEAR(catalogue.at("E").principalAngle(), 45, 1e-6);
    EXPECT_NEAR(catalogue.at("Z").principalAngle(), -22.5, 0.1);
    EXPECT_THROW(catalogue.at("none").principalAngle(), sections::Error);
    EXPECT_EQ(catalogue.at("C").principalAngle(), 0);
    EXPECT_EQ(catalogue.at("Z").area().in("in^2"), 8) << "which this catalogue calls Area";
}

TEST_F(SectionsTest, KeepWhatATableHasBesidesItsLayout) {
    const std::string path = folder->File("more.db3");
    {
        CatalogueFile file(path);
        file.AddPlainTable(
            "Rod",
            {{"RECNO", SectionField::Long},
             "Name",
             "VessaName",
             {"D", SectionField::Double},
             {"AX", SectionField::Double},
             {"I", SectionField::Double},
             {"Paint", SectionField::Double},
             "Colour"},
            {{2, COleVariant("R2"), COleVariant("R2"), 1.0, 2.0, 3.0, 5.5, COleVariant("red")},
             {1, COleVariant("R1"), COleVariant("R1"), 1.0, 2.0, 3.0}});
        file.AddPlainTable("Cable", {{"RECNO", SectionField::Long}, "Name", "VessaName"}, {});
        file.AddUnits("Rod", {"NUMBER", "TEXT", "TEXT", "INCHES", "INCHES^2", "INCHES^4", "CM^2"});
    }
    const auto read = [&] { return sections::Catalogue::read(path, 1); };
    EXPECT_THROW(read(), sections::Error) << "a table lacks columns of its layout";
    {
        CSectionDatabase database;
        database.Open(path.c_str());
        database.DeleteTableDef("Cable");
    }
    const sections::Section painted = read().at("R2");
    EXPECT_EQ(painted["Paint"].in("mm^2"), 550);
    EXPECT_EQ(painted.text("colour"), "red");
    EXPECT_FALSE(read().at("R1").findText("Colour"));
    EXPECT_THROW(read().at("R1").text("Colour"), sections::Error);
    EXPECT_EQ(read().family("Rod")[0].name(), "R1") << "by record number";
}

TEST_F(SectionsTest, OfJoistsStandInTheirSeries) {
    const std::string path = folder->File("joists.db3");
    MakeJoistCatalogue(path);
    const sections::Catalogue joists = sections::Catalogue::read(path, 21);
    std::vector<std::size_t> sizes;
    for (const sections::Family& family : joists.families())
        sizes.push_back(family.size());
    EXPECT_EQ(sizes, (std::vector<std::size_t>{2, 1, 2, 1, 3}));
    EXPECT_EQ(joists.at("LH-24").family().sectionType(), 3);
    EXPECT_EQ(joists.at("LH-24")["Weight"].figure(), 13);
}

TEST_F(SectionsTest, OfOneNameAreFoundInAllFamilies) {
    const std::string path = folder->File("twins.db3");
    {
        CatalogueFile file(path);
        file.AddTable("Rod", LayoutId::RoundBar, {{"Twin", "R1", {1.0}}, {"R2", "TWIN", {2.0}}});
        file.AddTable("W Shape", LayoutId::IShape, {{"twin", "twin", {3.0}}});
    }
    std::vector<std::string> names;
    for (const sections::Section& section : sections::Catalogue::read(path, 1).findAll("TWIN"))
        names.push_back(section.family().name() + ' ' + section.name());
    EXPECT_EQ(names, (std::vector<std::string>{"W Shape twin", "Rod Twin", "Rod R2"}));
    EXPECT_EQ(sections::Catalogue::read(path, 1).family("Rod").find("TWIN")->name(), "Twin");
}

TEST_F(SectionsTest, OfOneNameAreReadAlone) {
    const sections::Catalogue whole = sections::Library(folder->Path()).open("American");
    const auto named = [&](const char* name) {
        return sections::Catalogue::readNamed(name, whole.path(), whole.number());
    };
    const sections::Catalogue one = named("w12x26");
    EXPECT_EQ(one.size(), 1);
    EXPECT_EQ(one.families().size(), whole.families().size());
    const sections::Section beam = one.at("W12X26");
    EXPECT_EQ(beam["AX"].figure(), 7.65);
    EXPECT_EQ(beam["AX"].unit(), "INCHES^2");
    ASSERT_NE(beam.origin(), nullptr);
    EXPECT_EQ(beam.origin()->standard, "AISC Steel Construction Manual, 16th Edition");
    EXPECT_EQ(beam.source("AX"), sections::FigureSource::Published);
    EXPECT_EQ(std::ranges::count(beam.aliases(), "IR 305 x 38.7", &sections::Alias::name), 1);
    EXPECT_NEAR(beam.outline().Area() / 645.16, 7.65, 0.05);

    EXPECT_EQ(named("HSS8X8X1/2").findAll("hss8x8x1/2").size(), whole.findAll("HSS8X8X1/2").size());
    for (const char* none : {"W12X27", "W 12 X 26", "IR 305 x 38.7", "O'Neil", "' Or '1'='1", ""})
        EXPECT_EQ(named(none).size(), 0) << none;
}

TEST_F(SectionsTest, AreFoundByNamesOfAnyLengthWhateverTheirLetterCase) {
    const std::string path = folder->File("names.db3");
    std::vector<std::string> names;
    for (std::string name; const char letter : std::string("W12x26.5-Long/Name*[z]{y}"))
        names.push_back(name += letter);
    std::vector<Section> rows;
    rows.reserve(names.size());
    for (const std::string& name : names)
        rows.push_back({name.c_str(), name.c_str(), {}});
    CatalogueFile(path).AddTable("Rod", LayoutId::RoundBar, rows);
    const sections::Catalogue catalogue = sections::Catalogue::read(path, 1);
    for (const std::string& known : names)
        for (const std::string& typed : {known, dbsection::UpperCase(known)})
            EXPECT_EQ(catalogue.at(typed).name(), known);
    for (const char* unknown : {"", "W12x26:5", "X", "W12x26.5-Long/Name*{z}{y}"})
        EXPECT_FALSE(catalogue.find(unknown)) << unknown;
}

TEST_F(SectionsTest, OpenWithPasswordsOfAnyCharacters) {
    const std::string path = folder->File("locked.db3");
    for (const auto& [password, connect] : {std::pair("a;b", "a;b"), {"a=b", ";PWD=a=b"}}) {
        std::filesystem::remove(path);
        CatalogueFile(path, connect).AddTable("Rod", LayoutId::RoundBar);
        EXPECT_EQ(sections::Catalogue::read(path, 1, password).families().size(), 1) << password;
        for (const char* wrong : {"a", "b", " ", "a=;b"})
            EXPECT_THROW(sections::Catalogue::read(path, 1, wrong), sections::Error) << wrong;
    }
}

TEST_F(SectionsTest, TellMissingValuesFromZero) {
    const std::string path = folder->File("user.db3");
    {
        CatalogueFile file(path);
        file.AddTable("Pipe", LayoutId::RoundTube, {{"P1", "P1", {4.5, 0, 3.17}}});
    }
    const sections::Section pipe = sections::Catalogue::read(path, 1001).at("P1");
    EXPECT_EQ(pipe["T"].figure(), 0);
    EXPECT_EQ(pipe["AX"].figure(), 3.17);
    EXPECT_FALSE(pipe.find("I"));
    EXPECT_THROW(pipe.majorRadius(), sections::Error);
}

TEST_F(SectionsTest, AreChangedTogetherOrNotAtAll) {
    const std::string path = folder->File("mine.db3");
    {
        CatalogueFile file(path);
        file.AddTable("Pipe", LayoutId::RoundTube, {{"P1", "P1", {4.5, 0.25, 3.34}}});
        MakeUserTables(file);
    }
    const sections::UserFile mine(path);
    {
        sections::Change change = mine.change();
        change.add("Pipe", {.name = "P 60.3x5", .figures = {{"OD", {60.3, "mm"}}}});
        EXPECT_THROW(change.add("Pipe", {.name = "p60.3X5"}), sections::Error);
        EXPECT_THROW(change.add("Pipe", {.name = "it's"}), sections::Error);
        EXPECT_THROW(change.add("Pipe", {.name = "P2", .figures = {{"OD", {1, "mm^2"}}}}),
                     sections::Error);
        EXPECT_THROW(mine.change(), sections::Error) << "somebody else writes";
        EXPECT_EQ(mine.read().size(), 1);
        EXPECT_EQ(change.read().size(), 2);
        change.commit();
    }
    const sections::Catalogue both = mine.read();
    EXPECT_EQ(both.size(), 2);
    EXPECT_EQ(both.at("P60.3X5").name(), "P 60.3x5");
    EXPECT_DOUBLE_EQ(both.at("P60.3X5").depth().in("mm"), 60.3);
    EXPECT_DOUBLE_EQ(both.at("P60.3X5")["OD"].figure(), 60.3 / 25.4);
    {
        sections::Change change = mine.change();
        EXPECT_THROW(change.update(both.at("P1"), {.figures = {{"T", {1, "in"}}}}), sections::Error)
            << "its area is that of another wall";
        change.update(both.at("P1"),
                      {.name = "P one", .figures = {{"T", {1, "in"}}, {"AX", {11, "in^2"}}}});
        change.remove(both.at("P60.3X5"));
        EXPECT_THROW(change.remove(both.at("P60.3X5")), sections::Error);
        change.commit();
    }
    EXPECT_EQ(mine.read().size(), 1);
    EXPECT_EQ(mine.read().at("P1").name(), "P one");
    EXPECT_EQ(mine.read().at("P1").thickness().in("in"), 1);
    mine.change().remove(mine.read().at("P1"));
    EXPECT_EQ(mine.read().size(), 1) << "not committed";
    EXPECT_THROW(sections::UserFile(folder->File("AISCSections.db3")).read(), sections::Error);
}

TEST_F(SectionsTest, OfAPersonAreCompletedAndJudged) {
    const std::string path = folder->File("own.db3");
    {
        CatalogueFile file(path);
        file.AddTable("Wide Flange", LayoutId::IShape);
        file.AddTable("Tube", LayoutId::RectangularTube);
        file.AddTable("General", LayoutId::General);
        MakeUserTables(file);
    }
    const sections::UserFile own(path);
    const auto add = [&](const char* family, const sections::Draft& draft) {
        sections::Change change = own.change();
        change.add(family, draft);
        change.commit();
        return own.read().at(draft.name);
    };
    const std::map<std::string, sections::Quantity, std::less<>> ipe300{
        {"D", {300, "mm"}}, {"BF", {15, "cm"}}, {"TF", {10.7, "mm"}}, {"TW", {7.1, "mm"}}};
    auto withRadius = ipe300;
    withRadius.emplace("radius", sections::Quantity(15, "mm"));
    const sections::Section beam = add("Wide Flange", {.name = "I1", .figures = withRadius});
    EXPECT_NEAR(beam.area().in("cm^2"), 53.81, 0.01);
    EXPECT_NEAR(beam.majorInertia().in("cm^4"), 8356, 1);
    EXPECT_NEAR(*beam.shape().assumedRadius, 15, 0.05) << "which the area tells";

    const struct {
        const char* family;
        const char* column;
        sections::Quantity figure;
        double asPublished;
        const char* fault; ///< empty: accepted
    } cases[] = {
        {"Wide Flange", "AX", {53.8, "cm^2"}, 0, ""},
        {"Wide Flange", "AX", {9999, "cm^2"}, 0, "AX is 9999 cm^2, its dimensions give 62.8"},
        {"Wide Flange", "AX", {9999, "cm^2"}, 0.5, "AX is 9999 cm^2"},
        {"Wide Flange", "IZ", {8000, "mm^4"}, 0, "as if it were in CM^4"},
        {"Wide Flange", "TW", {-7.1, "mm"}, 0, "web thickness (TW) is -7.1 mm; it must be"},
        {"Wide Flange", "TW", {160, "mm"}, 0, "the web (TW) is not thinner than the flange"},
        {"Wide Flange", "IZ", {7700, "cm^4"}, 0, "IZ is 7700 cm^4, its dimensions give 7999"},
        {"Wide Flange", "IZ", {7700, "cm^4"}, 0.05, ""},
        {"Wide Flange", "RV", {1, "cm"}, 0, "it has no figure RV"},
        {"General", "AX", {9999, "cm^2"}, 0, ""},
    };
    for (const auto& [family, column, figure, asPublished, fault] : cases) {
        sections::Draft draft{.name = "S", .asPublished = asPublished};
        if (std::string_view(family) == "Wide Flange")
            draft.figures = ipe300;
        draft.figures.insert_or_assign(column, figure);
        try {
            own.change().add(family, draft);
            EXPECT_STREQ(fault, "") << column;
        } catch (const sections::Error& error) {
            EXPECT_TRUE(*fault != '\0' &&
                        std::string(error.what()).find(fault) != std::string::npos)
                << error.what();
        }
    }
    const sections::Section tube = add(
        "Tube",
        {.name = "T1",
         .figures = {
             {"D", {200, "mm"}}, {"B", {100, "mm"}}, {"T", {8, "mm"}}, {"AX", {44.8, "cm^2"}}}});
    EXPECT_NEAR(tube.majorInertia().in("cm^4") / 2230, 1, 0.01);
    EXPECT_NEAR(tube.outline().Area(), 4480, 1);
}

TEST_F(SectionsTest, ServeSeveralThreads) {
    const auto work = [](const char* password, int* found) {
        for (int round = 0; round < 5; ++round) {
            const sections::Library library(folder->Path(), password);
            for (const char* name : {"American", "European"})
                for (const char* section : {"W12X26", "IPE300", "HE200A", "none"})
                    *found += library.open(name).find(section) ? 1 : 0;
        }
    };
    std::array<int, 4> found{};
    {
        std::vector<std::jthread> threads;
        for (int& count : found)
            threads.emplace_back(work, "secret", &count);
    }
    for (const int count : found)
        EXPECT_EQ(count, 15);
}

} // namespace
