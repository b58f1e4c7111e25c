// Mass, painted surface and section factor of lists of members.
#include "ProgramSupport.h"
#include "sources/CsvTable.h"

#include <fstream>
#include <gtest/gtest.h>
#include <memory>

using namespace testsupport;

namespace {

class TakeoffTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        folder = std::make_unique<TempFolder>();
        const std::string data = SECTIONDB_DATA_DIR;
        ASSERT_EQ(Program("build " + data + "/AISCSections " + data + "/EuropeanSections " + data +
                          "/JapaneseSections -o " + folder->Path())
                      .status,
                  0);
    }
    static void TearDownTestSuite() { folder.reset(); }

    static Outcome TakeOff(const std::string& list, const std::string& options = "") {
        const std::string file = folder->Path() + "/list.csv";
        std::ofstream(file) << list;
        return Program("takeoff " + Quote(file) + " --folder " + folder->Path() + " " + options);
    }

    static std::unique_ptr<TempFolder> folder;
};

std::unique_ptr<TempFolder> TakeoffTest::folder;

constexpr const char* Members = "catalogue,name,length,quantity\n"
                                "European,ipe 300,6 m,10\n"
                                ",HE 200 A,4500 mm,4\n"
                                "US,W310x38.7,20 ft,3\n";

/// By what the standards print of a metre: 42.2 kg and 1.160 m^2, 42.3 kg and 1.136 m^2, 26 lb/ft.
struct Line {
    const char* name;
    double mass;
    double surface;
    double factor;
};
constexpr Line Printed[] = {{"IPE 300", 60 * 42.2, 60 * 1.160, 1.160 / 53.8e-4},
                            {"HE 200 A", 18 * 42.3, 18 * 1.136, 1.136 / 53.8e-4},
                            {"W12X26", 60 * 26 * 0.45359237, 22.94, 1.2543 / 49.35e-4},
                            {"total", 4001.0, 112.99, 112.99 / (78 * 53.8e-4 + 18.288 * 49.35e-4)}};

} // namespace

TEST_F(TakeoffTest, SumsUpWhatTheStandardsPrint) {
    const Outcome outcome = TakeOff(Members, "--csv");
    ASSERT_EQ(outcome.status, 0) << outcome.output;
    const dbsection::CsvTable table("takeoff", outcome.output);
    ASSERT_EQ(table.Records().size(), 1 + std::size(Printed));
    for (std::size_t i = 0; i < std::size(Printed); ++i) {
        const auto& record = table.Records()[i + 1];
        const auto& [name, mass, surface, factor] = Printed[i];
        EXPECT_EQ(table.Text(record, "name"), name);
        EXPECT_NEAR(table.Number(record, "mass"), mass, 0.003 * mass) << name;
        EXPECT_NEAR(table.Number(record, "surface"), surface, 0.003 * surface) << name;
        EXPECT_NEAR(table.Number(record, "A/V"), factor, 0.003 * factor) << name;
    }
}

TEST_F(TakeoffTest, PrintsTheUnitsAndFormsThatAreChosen) {
    const std::string text = TakeOff(Members, "--length ft --force lb").output;
    EXPECT_NE(text.find("ft^2/ft^3"), std::string::npos) << text;
    EXPECT_NE(text.find("1562.4"), std::string::npos) << text; // 60 ft of W12X26
    EXPECT_NE(TakeOff(Members, "--json").output.find(R"("name": "total", "length": null)"),
              std::string::npos);
    const std::string family = TakeOff("family,name,length\nPipe,Pipe10STD,1 m\n"
                                       "shs,\u25A1-450x450x16,1 m\n")
                                   .output;
    EXPECT_NE(family.find("60.27"), std::string::npos) << family; // 40.5 lb/ft
    EXPECT_NE(family.find("212.9"), std::string::npos) << family; // 271.2 cm^2
}

TEST_F(TakeoffTest, RefusesAListWithALineAtFault) {
    struct Refused {
        const char* list;
        const char* told;
    };
    for (const auto& [list, told] :
         {Refused{
              "name,length\nIPE 301,6 m\n",
              R"(:2: column name: "IPE 301": there is no such section; did you mean "IPE 300")"},
          Refused{"name,length\nIPE 300,6 m\nIPE 300,6\n",
                  ":3: column length: \"6\": not a number"},
          Refused{"name,length\nIPE 300,6 kg\n", "\"kg\" measures"},
          Refused{"name,length\nIPE 300,6 cubits\n", "\"cubits\" is no unit"},
          Refused{"name,length\nIPE 300,-6 m\n", "not a number"},
          Refused{"name,length\nIPE 300,0 m\n", "not above zero"},
          Refused{"name,length\nIPE 300,\n", "the field is empty"},
          Refused{"name,length,quantity\nIPE 300,6 m,1.5\n", "not a whole number"},
          Refused{"name,length,quantity\nIPE 300,6 m,0\n", "not a whole number"},
          Refused{"name,length,quantity\nIPE 300,6 m,1e9\n", "not a whole number"},
          Refused{"name,length,pieces\nIPE 300,6 m,2\n", "column pieces: not a column"},
          Refused{"name\nIPE 300\n", "column length: the column is missing"},
          Refused{"name,length\n", "there are no sections"}, Refused{"", "the file is empty"},
          Refused{"catalogue,name,length\nMars,IPE 300,6 m\n", "no catalogue \"Mars\""},
          Refused{"catalogue,name,length\nGerman,IPE 300,6 m\n", "German"},
          Refused{"name,length\n\"=cmd(\"\"\x01\xC3\x97\"\")\",6 m\n", R"(no such section)"},
          Refused{"name,length\nIPE\xFF 300,6 m\n", "not UTF-8"},
          Refused{"name,length\n\u25A1-450x450x16,6 m\n",
                  "with different figures in Japanese (Tube) and Japanese (SHS)"}}) {
        const Outcome outcome = TakeOff(list);
        EXPECT_EQ(outcome.status, 1) << list << outcome.output;
        EXPECT_NE(outcome.output.find(told), std::string::npos) << list << outcome.output;
        EXPECT_EQ(outcome.output.find("total"), std::string::npos) << outcome.output;
    }
}
