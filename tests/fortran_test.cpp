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

    /// Runs a list query and gives its number of rows.
    template <class Call>
    static std::int32_t Rows(Call call) {
        std::int32_t rows = -7, valueCount = -7, err = -7;
        call(&rows, &valueCount, &err);
        return rows;
    }
    template <class Call>
    static EngineAnswer Lookup(Call call) {
        EngineAnswer answer;
        call(answer, answer.values.data(), &answer.count, &answer.valueCount, &answer.err);
        return answer;
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
        const std::int32_t three = 3, two = 2, one = 1, column = 3, slot = 1, cm = 1005;
        Add("sorted", Rows([&](auto... out) {
                GETSORTEDSECTIONS(&American, &Rod, sorted, &three, &Millimetre, out...);
            }));
        Add("sorted", 0);
        AddWalk("sorted", 1);
        Add("last", Move(GETLASTSECTION, 1));
        EngineAnswer cut = Move(GETPREVSECTION, 1);
        cut.name.resize(1);
        Add("cut", cut);
        std::int32_t err = -7;
        CLOSESECTIONRECORDSET(&slot, &err);
        AddWalk("closed", 1);
        Rows([&](auto... out) {
            GETSORTEDSECTIONS(&American, &Rod, none, &one, &AsStored, out...);
        });
        AddWalk("unsorted", 1);
        Rows([&](auto... out) {
            GETLIKESORTEDSECTIONS(&American, &Rod, byName, &two, "R", 1, &Inch, out...);
        });
        AddWalk("like", 2);
        float upper = 51, lower = 25;
        Rows([&](auto... out) {
            GETRANGESORTEDSECTIONS(&American, &Rod, descending, &two, &column, &upper, &lower,
                                   &Millimetre, out...);
        });
        AddWalk("range", 3);
        Rows([&](auto... out) { GETASSIGNSECTIONS(&American, &Rod, "", 0, &cm, out...); });
        AddWalk("assign", 4);
    }

    void LookSectionsUp() {
        Add("section", Get(American, WShape, "W12X26", Millimetre));
        Add("joined", Get(American, WShape, "W12X26+W4X13", Inch));
        Add("nothing", Get(American, WShape, "nothing", Inch));
        for (const char* name : {"ra", "W4X13", "nothing"}) {
            const EngineAnswer found = Lookup([&](EngineAnswer& answer, auto... out) {
                answer.type = 0;
                GETSECTIONTYPEFROMVESSANAME(&American, &answer.type, name, Length(name), &AsStored,
                                            out...);
            });
            Add("type", found.type);
            if (name == std::string("ra"))
                Add("type", found);
        }
        Add("type", 0);
        Get(American, Castellated, "CB18");
        const EngineAnswer root = Lookup([&](EngineAnswer& answer, auto... out) {
            answer.type = Castellated;
            GETCASTELLATEDROOTBEAMSECTION(&American, &answer.type, "cb18", 4, &Inch, out...);
        });
        Add("root", root.type);
        Add("root", root);
        const std::int32_t index = 4, metre = 1007;
        std::int32_t unit = -7, err = -7;
        float factor = -7;
        GETUNITFORFIELDANDCONVFACT(&American, &WShape, &index, &metre, &unit, &factor, &err);
        m_lines.push_back({"unit", "", {static_cast<float>(unit), factor}});
        m_lines.push_back({"unit", "", {0, 0}}); // of a value that there is not
    }

    void ListJoists() {
        const std::int32_t k = 1, kcs = 2, lh = 3, dlh = 4, girders = 5, five = 5;
        const float depth = 20, none = 0;
        std::int32_t loadType = -7, err = -7;
        const float kLoads[] = {20, 250, 150}, kcsLoads[] = {500, 3900}, lhLoads[] = {30, 7900},
                    dlhLoads[] = {22, 900, 590, 24}, girder[] = {29, 4, 27};
        Rows([&](auto... out) {
            GETKSERIESSTEELJOISTS(&Joists, &k, &kLoads[0], &kLoads[1], &kLoads[2], &AsStored,
                                  out...);
        });
        AddWalk("K", 5);
        Rows([&](auto... out) {
            GETKCSSERIESSTEELJOISTS(&Joists, &kcs, &kcsLoads[0], &kcsLoads[1], &AsStored, out...);
        });
        AddWalk("KCS", 6);
        FINDLHSERIESLOADTYPE(&Joists, &lh, &lhLoads[0], &depth, &loadType, &err);
        Add("LH", loadType);
        Rows([&](auto... out) {
            GETLHSERIESSTEELJOISTS(&Joists, &lh, &loadType, &lhLoads[0], &depth, &lhLoads[1], &none,
                                   &AsStored, out...);
        });
        AddWalk("LH", 7);
        FINDDLHSERIESLOADTYPE(&Joists, &dlh, &dlhLoads[0], &dlhLoads[3], &loadType, &err);
        Add("DLH", loadType);
        Rows([&](auto... out) {
            GETDLHSERIESSTEELJOISTS(&Joists, &dlh, &loadType, &dlhLoads[0], &depth, &dlhLoads[1],
                                    &dlhLoads[2], &AsStored, out...);
        });
        AddWalk("DLH", 7);
        Rows([&](auto... out) {
            GETJOISTGIRDERS(&Joists, &girders, &girder[0], &five, &girder[1], &girder[2], &AsStored,
                            out...);
        });
        AddWalk("girders", 8);
    }

    void LookJoistsUp() {
        const std::int32_t kcs = 2, girders = 5;
        Add("joist", Lookup([&](EngineAnswer&, auto... out) {
                GETSTEELJOIST(&Joists, &kcs, "KCS", 3, &AsStored, out...);
            }));
        Add("girder", Lookup([&](EngineAnswer&, auto... out) {
                GETJOISTGIRDER(&Joists, &girders, "36S28G6N4.5K", 12, &AsStored, out...);
            }));
    }

    void LookAlloyUp() {
        const std::int32_t pipe = 3, no = 0, kn = 2007;
        const float thickness = 0.5F;
        Add("aluminium", Lookup([&](EngineAnswer&, auto... out) {
                GETALUMINIUMMATERIALPROPERTY(&Aluminium, &Alloy, "6061", 4, &pipe, &no, &no,
                                             &thickness, &Millimetre, &kn, out...);
            }));
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
