// The Fortran module and the example on it: what they print is what the library says.
#include "EngineSupport.h"
#include "JoistFixture.h"
#include "ProgramSupport.h"
#include "dataaccess/CCrack.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <sstream>

using namespace testsupport;

namespace {

constexpr std::int32_t American = 1, Joists = 21, Aluminium = 17;
constexpr std::int32_t WShape = 1, Rod = 15, Castellated = 13, Alloy = 22;
constexpr std::int32_t Kcs = 2, Girders = 5;

/// An answer, as the scenario prints it.
struct Line {
    std::string label;
    std::string name;
    std::vector<float> numbers;
    bool operator==(const Line&) const = default;

    friend void PrintTo(const Line& line, std::ostream* out) {
        *out << line.label << "|" << line.name << "|" << ::testing::PrintToString(line.numbers);
    }
};

std::vector<Line> ReadLines(const std::string& output) {
    std::vector<Line> lines;
    std::istringstream stream(output);
    for (Line line; std::getline(stream, line.label, '|');) {
        std::string numbers;
        std::getline(stream, line.name, '|');
        std::getline(stream, numbers);
        std::istringstream words(numbers);
        for (std::string word; words >> word;) {
            float number = NAN;
            std::from_chars(word.data(), word.data() + word.size(), number);
            line.numbers.push_back(number);
        }
        lines.push_back(line);
        line.numbers.clear();
    }
    return lines;
}

class FortranScenario : public EngineCallTest {
protected:
    FortranScenario() {
        CatalogueFile american(File("AISCSections.db3"));
        american.AddTable(
            "W Shape", LayoutId::IShape,
            {W12X26, {"W4X13", "W4X13", {3.83, 4.16, 4.06, 0.345, 0.28, 11.3, 0.151}}});
        american.AddTable("Rod", LayoutId::RoundBar,
                          {{"A", "RB", {3.0, 7.0, 1.0}},
                           {"B", "RA", {1.0, 0.8, 2.0}},
                           {"C", "SC", {2.0, 3.1, 2.0}}});
        american.AddTable("Castellated NonComp Beam", LayoutId::Castellated,
                          {{"CB", "CB18", {COleVariant("w12x26"), 18.3}}});
        CatalogueFile(File("AluminumSections.db3"))
            .AddTable("Alloy", LayoutId::AluminiumAlloy,
                      {{"6061",
                        "6061",
                        {COleVariant("Pipe"), 0.0, 1.0, 0.0, 0.0, 38.0, 35.0, 35.0, 24.0, 1e4}}});
        MakeJoistCatalogue(File("AISCSteelJoists.db3"));
    }

    /// The entry points' own answers, from the arguments that the scenario gives to the module.
    std::vector<Line> Expected() {
        Count();
        Add("open", Open(American));
        ListSections();
        LookSectionsUp();
        Open(Joists);
        ListJoists();
        LookJoistsUp();
        Open(Aluminium);
        LookAlloyUp();
        std::int32_t err = -7;
        CLOSESECTIONDATABASE(&err);
        Add("close", err);
        return m_lines;
    }

private:
    void Add(const char* label, std::int32_t number) {
        m_lines.push_back({label, "", {static_cast<float>(number)}});
    }
    void Add(const char* label, const EngineAnswer& answer) {
        const auto end = std::ranges::find(answer.values, -1.0F); // the others were written
        m_lines.push_back({label, answer.name, {answer.values.begin(), end}});
    }
    void AddWalk(const char* label, std::int32_t slot) {
        EngineAnswer row = Move(GETFIRSTSECTION, slot);
        for (; row.status != 0; row = Move(GETNEXTSECTION, slot))
            Add(label, row);
        Add(label, row);
    }

    void Count() {
        std::int32_t number = -7, err = -7;
        GETSECTIONCOUNT(&American, &WShape, &number, &err);
        Add("sections", number);
        GETFIELDCOUNT(&American, &WShape, &number, &err);
        Add("values", number);
        ISSECTIONDATABASECUSTOMIZED(&American, &number, &err);
        Add("customized", number);
    }

    void ListSections() {
        const std::int32_t sorted[] = {5, 2, -1, 1, 0, 0}, byName[] = {2, -1, 0, 0},
                           descending[] = {3, -1, 1, 0}, none[] = {-1, 0};
        constexpr std::int32_t Column = 3, Centimetre = 1005;
        Add("sorted", Ask(GETSORTEDSECTIONS, American, Rod, sorted, 3, Millimetre).count);
        Add("sorted", 0);
        AddWalk("sorted", 1);
        Add("last", Move(GETLASTSECTION, 1));
        EngineAnswer cut = Move(GETPREVSECTION, 1);
        cut.name.resize(1);
        Add("cut", cut);
        std::int32_t err = -7;
        Enter(CLOSESECTIONRECORDSET, 1, &err);
        AddWalk("closed", 1);
        Ask(GETSORTEDSECTIONS, American, Rod, none, 1, AsStored);
        AddWalk("unsorted", 1);
        Ask(GETLIKESORTEDSECTIONS, American, Rod, byName, 2, "R", Inch);
        AddWalk("like", 2);
        float upper = 51, lower = 25;
        Ask(GETRANGESORTEDSECTIONS, American, Rod, descending, 2, Column, &upper, &lower,
            Millimetre);
        AddWalk("range", 3);
        Ask(GETASSIGNSECTIONS, American, Rod, "", Centimetre);
        AddWalk("assign", 4);
    }

    void LookSectionsUp() {
        Add("section", Get(American, WShape, "W12X26", Millimetre));
        Add("joined", Get(American, WShape, "W12X26+W4X13", Inch));
        Add("nothing", Get(American, WShape, "nothing", Inch));
        for (const char* name : {"ra", "W4X13", "nothing"}) {
            const EngineAnswer found =
                FindType(GETSECTIONTYPEFROMVESSANAME, American, 0, name, AsStored);
            Add("type", found.type);
            if (name == std::string("ra"))
                Add("type", found);
        }
        Add("type", 0);
        Get(American, Castellated, "CB18");
        const EngineAnswer root =
            FindType(GETCASTELLATEDROOTBEAMSECTION, American, Castellated, "cb18", Inch);
        Add("root", root.type);
        Add("root", root);
        constexpr std::int32_t Index = 4, Metre = 1007;
        std::int32_t unit = -7, err = -7;
        float factor = -7;
        Enter(GETUNITFORFIELDANDCONVFACT, American, WShape, Index, Metre, &unit, &factor, &err);
        m_lines.push_back({"unit", "", {static_cast<float>(unit), factor}});
        m_lines.push_back({"unit", "", {0, 0}}); // of a value that there is not
    }

    void ListJoists() {
        constexpr std::int32_t K = 1, Lh = 3, Dlh = 4, FiveJoists = 5;
        std::int32_t loadType = -7, err = -7;
        Ask(GETKSERIESSTEELJOISTS, Joists, K, 20.F, 250.F, 150.F, AsStored);
        AddWalk("K", 5);
        Ask(GETKCSSERIESSTEELJOISTS, Joists, Kcs, 500.F, 3900.F, AsStored);
        AddWalk("KCS", 6);
        Enter(FINDLHSERIESLOADTYPE, Joists, Lh, 30.F, 20.F, &loadType, &err);
        Add("LH", loadType);
        Ask(GETLHSERIESSTEELJOISTS, Joists, Lh, loadType, 30.F, 20.F, 7900.F, 0.F, AsStored);
        AddWalk("LH", 7);
        Enter(FINDDLHSERIESLOADTYPE, Joists, Dlh, 22.F, 24.F, &loadType, &err);
        Add("DLH", loadType);
        Ask(GETDLHSERIESSTEELJOISTS, Joists, Dlh, loadType, 22.F, 20.F, 900.F, 590.F, AsStored);
        AddWalk("DLH", 7);
        Ask(GETJOISTGIRDERS, Joists, Girders, 29.F, FiveJoists, 4.F, 27.F, AsStored);
        AddWalk("girders", 8);
    }

    void LookJoistsUp() {
        Add("joist", Find(GETSTEELJOIST, Joists, Kcs, "KCS", AsStored));
        Add("girder", Find(GETJOISTGIRDER, Joists, Girders, "36S28G6N4.5K", AsStored));
    }

    void LookAlloyUp() {
        constexpr std::int32_t Pipe = 3, No = 0, Kilonewton = 2007;
        Add("aluminium", Find(GETALUMINIUMMATERIALPROPERTY, Aluminium, Alloy, "6061", Pipe, No, No,
                              0.5F, Millimetre, Kilonewton));
    }

    std::vector<Line> m_lines;
};

TEST_F(FortranScenario, HandsOnWhatTheEntryPointsSay) {
    const Outcome run =
        Shell("SECTIONDB_FOLDER=" + Quote(File("")) + " " + Quote(FORTRAN_SCENARIO));
    ASSERT_EQ(run.status, 0) << run.output;
    const std::vector<Line> lines = ReadLines(run.output);
    const std::vector<Line> expected = Expected();
    ASSERT_EQ(lines.size(), expected.size()) << run.output;
    for (std::size_t i = 0; i < lines.size(); ++i)
        EXPECT_EQ(lines[i], expected[i]) << "line " << i;
    // Every query found something, so that no two wrong sides agree on nothing.
    for (const char* label :
         {"sorted", "last", "cut", "unsorted", "like", "range", "assign", "section", "joined",
          "type", "root", "K", "KCS", "LH", "DLH", "girders", "joist", "girder", "aluminium"})
        EXPECT_TRUE(std::ranges::any_of(lines, [&](const Line& line) {
            return line.label == label && line.numbers.size() > 1;
        })) << label;
}

TEST_F(FortranScenario, TellsOfEachCallByItself) {
    WriteFile(File("KoreanSections.db3"), std::string(4096, 'x'));
    const Outcome run = Shell("SECTIONDB_FOLDER=" + Quote(File("")) + " " + Quote(FORTRAN_ANSWERS));
    EXPECT_EQ(run.status, 0);
    std::istringstream lines(run.output);
    std::string missing;
    std::getline(lines, missing);
    EXPECT_TRUE(
        missing.starts_with("open 3: F 2 Catalogue 3 has no file in the folder " + m_folder.Path()))
        << missing;
    std::string damaged;
    std::getline(lines, damaged);
    EXPECT_TRUE(damaged.starts_with("open 16: F 4 ")) << damaged;
    EXPECT_TRUE(Holds(damaged, "KoreanSections.db3"));
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(lines), {}), "password: 4\n"
                                                                      "open 1: T 0 \n"
                                                                      "value: IZ in mm^4\n"
                                                                      "value:  in \n"
                                                                      "section: T 11 0\n"
                                                                      "section: F 0 0\n"
                                                                      "sorted: 4\n"
                                                                      "sorted: 0\n");
}

/// The loads that a beam carries, and how the lightest W shape for them is found by trying all.
struct Beam {
    double span, dead, live; // ft, kip/ft

    bool Carries(double area, double width, double flange, double inertia, double modulus) const {
        constexpr double E = 29000;
        constexpr double Fy = 50;
        const double load = 1.2 * (dead + area * 0.49 / 144) + 1.6 * live;
        const double moment = load * span * span / 8 * 12; // kip-in
        const double length = 12 * span;
        return width / flange / 2 <= 0.38 * std::sqrt(E / Fy) && moment <= 0.9 * Fy * modulus &&
               5 * live / 12 * std::pow(length, 4) / (384 * E * inertia) <= length / 360;
    }

    std::string Lightest(CSectionDatabase* database) const {
        CSectionRecordset rows(database);
        rows.Open(CSectionRecordset::Snapshot,
                  "SELECT [VessaName], [AX], [BF], [TF], [IZ], [ZZ] FROM [W Shape]");
        std::string name;
        double leastArea = HUGE_VAL;
        double modulusThere = 0;
        for (; !rows.IsEOF(); rows.MoveNext()) {
            const auto value = [&](int column) { return rows.GetFieldValue(column).dblVal; };
            const double area = value(1);
            const double modulus = value(5);
            if (std::pair(area, -modulus) < std::pair(leastArea, -modulusThere) &&
                Carries(area, value(2), value(3), value(4), modulus)) {
                name = CCrack::strVARIANT(rows.GetFieldValue(0));
                leastArea = area;
                modulusThere = modulus;
            }
        }
        return name;
    }
};

class BeamDesign : public FacadeTest {
protected:
    BeamDesign() {
        const Outcome built = Program("build " + Quote(SECTIONDB_DATA_DIR "/AISCSections") +
                                      " --output " + Quote(File("")));
        EXPECT_EQ(built.status, 0) << built.output;
    }
    Outcome Design(const std::string& arguments) const {
        return Shell("SECTIONDB_FOLDER=" + Quote(File("")) + " " + Quote(BEAM_DESIGN) + " " +
                     arguments);
    }
};

TEST_F(BeamDesign, PicksTheLightestShapeOfTheRealCatalogue) {
    CSectionDatabase* american = Facade::GetDatabasePtr(American);
    ASSERT_NE(american, nullptr);
    std::vector<std::string> chosen;
    for (const Beam& beam : {Beam{30, 0.8, 1.2}, Beam{20, 2, 0}, Beam{45, 0.3, 2.4},
                             Beam{8, 0.1, 0}, Beam{60, 1.5, 3}, Beam{12, 0.4, 0.7}}) {
        std::ostringstream arguments;
        arguments << beam.span << " " << beam.dead << " " << beam.live;
        const Outcome run = Design(arguments.str());
        EXPECT_EQ(run.status, 0) << run.output;
        chosen.push_back(beam.Lightest(american));
        EXPECT_TRUE(Holds(run, "Lightest W shape: " + chosen.back() + "\n")) << arguments.str();
    }
    std::ranges::sort(chosen);
    EXPECT_EQ(std::ranges::adjacent_find(chosen), chosen.end()); // six different ones
}

TEST_F(BeamDesign, PrintsBothUnitsAndFailsClearly) {
    const Outcome run = Design("20 0.5 1");
    // The span in ft and m; the limit of the deflection in inches and mm.
    for (const char* text : {"20.000 ft           6.096 m\n", "0.667 in          16.933 mm\n",
                             " in:\n", " mm:\n", "+W12X26:\n", "in^4", "mm^4"})
        EXPECT_TRUE(Holds(run, text)) << text;
    EXPECT_TRUE(Ended(Design("900 50 50"), 1, "No W shape"));
    EXPECT_TRUE(
        Ended(Shell("SECTIONDB_FOLDER=/nowhere " + Quote(BEAM_DESIGN)), 1, "cannot be opened"));
    for (const char* bad : {"long", "nan", "inf", "/", "30,5", "2*30", "'30 40'",
                            "30.0000000000000000000000000000001"}) {
        EXPECT_TRUE(Ended(Design(bad), 1, " is not a number")) << bad;
    }
    EXPECT_TRUE(Holds(Design("30 1 1 1"), "Usage"));
}

} // namespace
