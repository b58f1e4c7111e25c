// Castellated beams and aluminium. The beams are made from a root beam by the geometry of the cut;
// the strengths of the alloys are made up.
#include "ProgramSupport.h"
#include "QuerySupport.h"

#include <cmath>
#include <numbers>

using namespace testsupport;

namespace {

constexpr int American = 1;
constexpr int Aluminium = 17;
constexpr int Alloy = 22;

/// The castellated beam of 1.5 times the depth that is cut from the W12X26 at 60 degrees.
std::vector<COleVariant> CutFromW12X26() {
    const double depth = 12.2;
    const double flange = 0.38;
    const double web = 0.23;
    const double expanded = 1.5 * depth;
    const double opening = 2 * (expanded - depth);
    const double area = 7.65 - web * (depth - (expanded - opening));
    const double wayOut = (expanded - depth) / 2; // of each tee
    const double major = 204 + 7.65 * wayOut * wayOut - web * std::pow(opening, 3) / 12;
    const double post = 3;
    const double spacing = 2 * (post + opening / 2 / std::tan(std::numbers::pi / 3));
    const double tee = (expanded - opening) / 2;
    std::vector<COleVariant> row{COleVariant("W12X26")};
    for (const double value :
         {expanded, area, 6.49, flange, web, major, 17.3, opening, spacing, post, tee, 60.0})
        row.emplace_back(value);
    return row;
}

class MaterialQueryTest : public QueryTest {
protected:
    MaterialQueryTest() {
        CatalogueFile american(File("AISCSections.db3"));
        american.AddTable("W Shape", LayoutId::IShape, {W12X26});
        american.AddTable("Castellated NonComp Beam", LayoutId::Castellated,
                          {{"CB18X26", "CB18X26", CutFromW12X26()}});
        american.AddTable("Castellated Comp Beam", LayoutId::Castellated,
                          {{"CB18X26", "CC18X26", CutFromW12X26()}});
        AddAlloys();
    }

    /// Several rows of one alloy, in the catalogue file as it is built.
    void AddAlloys() const {
        const Outcome built = Program("build " + Quote(SECTIONDB_DATA_DIR "/AluminumSections") +
                                      " -o " + Quote(File("")));
        ASSERT_EQ(built.status, 0) << built.output;
        CSectionDatabase aluminium;
        aluminium.Open(File("AluminumSections.db3").c_str(), 0, 0, "");
        CSectionRecordset rows(&aluminium);
        rows.Open(CSectionRecordset::Table, "Alloy");
        int number = 1000; // beyond those that are built
        const auto add = [&](const char* product, double lower, double upper, double welded) {
            rows.AddNew();
            rows.SetFieldValue(0, COleVariant(++number));
            int column = 1;
            for (const char* text : {"6061", "6061", product})
                rows.SetFieldValue(column++, text);
            for (const double value : {lower, upper, welded, 0.0, 38.0, 35.0, 35.0, 24.0, 10000.0})
                rows.SetFieldValue(column++, COleVariant(value));
            rows.Update();
        };
        add("Extrusions", 0, 0.5, 0);
        add("Extrusions", 0.5, 3, 0);
        add("Extrusions", 0, 3, 1);
        add("All", 0, 1, 0);
        add("Pipe", 0, 1, 0);
        add("Drawn_Tube", 0, 2, 0);
    }

    Result Strengths(unsigned product, unsigned welded, float thickness) {
        Facade::GetDatabasePtr(Aluminium);
        return Run(Facade::GetAluminiumMaterialProperty, Aluminium, Alloy, "6061", product, 0U,
                   welded, thickness);
    }
};

TEST_F(MaterialQueryTest, FillsTheRecordsOfCastellatedBeams) {
    Facade::GetDatabasePtr(Aluminium);
    CastellatedRecord beam;
    Facade::GetCastellatedNonCompBeamData(American, 13, "cb18x26", beam);
    EXPECT_EQ(Facade::m_nCountry, American);
    EXPECT_EQ(beam.RootBeam, "W12X26");
    EXPECT_NEAR(beam.D, 18.3, 1e-9);
    EXPECT_NEAR(beam.THETA, 60, 1e-9);
    EXPECT_EQ(beam.RecordNumber, 1);
    CastellatedRecord composite;
    Facade::GetCastellatedCompBeamData(American, 14, "CC18X26", composite);
    EXPECT_EQ(composite.VessaName, "CC18X26");
    for (const char* unknown : {"CB99", "", "it's"}) {
        Facade::GetCastellatedNonCompBeamData(American, 13, unknown, beam);
        EXPECT_EQ(beam.VessaName, "CB18X26"); // as it was
    }
    Facade::GetCastellatedNonCompBeamData(2, 13, "CB18X26", composite); // no such file
    EXPECT_EQ(composite.VessaName, "CC18X26");
}

TEST_F(MaterialQueryTest, FindsTheStrengthsOfAProductAndThickness) {
    EXPECT_EQ(Strengths(1, 0, 0.25F),
              (Result{{"4 Select * From [Alloy] WHERE UPPER([VessaName]) = UPPER('6061') AND "
                       "0.250000 >= [ThLower] AND 0.250000 <= [ThHigher] AND [Welded] = 0 AND "
                       "[Alclad] = 0 AND [Product] = 'Extrusions'"},
                      "6061"}));
    EXPECT_EQ(Strengths(1, 0, 0.5F).names, "6061 6061"); // both ends are included
    EXPECT_EQ(Strengths(1, 0, 3.5F).names, "");
    EXPECT_EQ(Strengths(1, 1, 3).names, "6061");
    EXPECT_EQ(Strengths(0, 0, 1).names, "6061");
    EXPECT_EQ(Strengths(2, 0, 1.5F).names, "6061"); // that of drawn tubes
    EXPECT_EQ(Strengths(3, 0, 1.5F).names, "");
    EXPECT_EQ(Strengths(3, 0, 1).names, "6061");
    EXPECT_EQ(Strengths(4, 0, 1), (Result{{}, "none"})); // no such product
    CDWordArray selection;
    selection.Add(1002); // the thicker extrusions
    Facade::SetDBIFileName(File("selections.dbi").c_str());
    Facade::SaveUserSelectedSections(Aluminium, Alloy, selection);
    EXPECT_EQ(Strengths(1, 0, 0.5F).names, "6061");
    EXPECT_EQ(Strengths(1, 0, 0.25F).names, "");
}

} // namespace
