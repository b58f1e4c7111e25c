// Section geometry: outlines, thin walls, and the models beside published figures.
#include "GeometryCases.h"
#include "TestSupport.h"

#include "geometry/FigureRules.h"
#include "geometry/Geometry.h"
#include "geometry/RowJudgement.h"
#include "geometry/ThinWalls.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <set>
#include <sstream>

using namespace dbsection;
using geometrycases::Case;
using geometrycases::Cases;
using testsupport::Holds;

namespace {

int PowerOf(Quantity quantity) {
    switch (quantity) {
    case Quantity::Area:
        return 2;
    case Quantity::Modulus:
        return 3;
    case Quantity::Inertia:
        return 4;
    case Quantity::Warping:
        return 6;
    default:
        return 0;
    }
}

/// "D=300 BF=150"
Figures Parse(const char* text) {
    Figures figures;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        const std::size_t equals = word.find('=');
        figures[word.substr(0, equals)] = std::stod(word.substr(equals + 1));
    }
    return figures;
}

/// The size in mm of the unit in which a section has a column.
double SizeOf(const Case& section, const std::string& column) {
    const auto columns = GetSectionLayout(FindGeometryModel(section.model)->layout).columns;
    const Quantity quantity = std::ranges::find(columns, column, &LayoutColumn::name)->quantity;
    return quantity == Quantity::Length ? section.units.length
                                        : std::pow(section.units.power, PowerOf(quantity));
}

SectionGeometry Make(const Case& section) {
    Figures given = Parse(section.given);
    for (auto& [column, figure] : given)
        figure *= SizeOf(section, column);
    return FindGeometryModel(section.model)->make(given, Parse(section.parameters));
}

} // namespace

TEST(Outline, HasTheExactPropertiesOfArcsHolesAndSlopes) {
    const double pi = std::numbers::pi;
    const Corner disc[] = {{{1, 1}, 2}, {{5, 1}, 2}, {{5, 5}, 2}, {{1, 5}, 2}}; // radius 2 at 3, 3
    const Outline round(disc);
    EXPECT_NEAR(round.Area(), 4 * pi, 1e-12);
    EXPECT_NEAR(round.MinorAxis().centroid, 3, 1e-12);
    EXPECT_NEAR(round.MajorAxis().inertia, 4 * pi, 1e-12);
    EXPECT_NEAR(round.MajorAxis().plasticModulus, 32.0 / 3, 1e-12);
    EXPECT_NEAR(round.OuterPerimeter(), 4 * pi, 1e-12);
    EXPECT_NEAR(round.GetExtent().high.z, 5, 1e-12);

    const Corner outer[] = {{{0, 0}}, {{6, 0}}, {{6, 10}}, {{0, 10}}};
    const Corner inner[] = {{{1, 2}}, {{5, 2}}, {{5, 8}}, {{1, 8}}};
    Outline box(outer);
    box.Cut(inner);
    EXPECT_NEAR(box.Area(), 36, 1e-12);
    EXPECT_NEAR(box.MajorAxis().inertia, 428, 1e-9);
    EXPECT_NEAR(box.MinorAxis().inertia, 148, 1e-9);
    EXPECT_NEAR(box.MajorAxis().plasticModulus, 114, 1e-9);
    EXPECT_EQ(box.OuterPerimeter(), 32);
    EXPECT_EQ(box.InnerPerimeter(), 20);
    EXPECT_EQ(box.Loops().size(), 2U);

    const Corner triangle[] = {{{0, 0}}, {{3, 0}}, {{0, 6}}};
    const Outline leaning(triangle);
    EXPECT_NEAR(leaning.MajorAxis().centroid, 2, 1e-12);
    EXPECT_NEAR(leaning.MajorAxis().inertia, 18, 1e-12);
    EXPECT_NEAR(leaning.ProductOfInertia(), -4.5, 1e-12);
    EXPECT_NEAR(Outline(RectangleCorners(100, 50, 8)).ProductOfInertia(), 0, 1e-6);
}

// Flanges of 60, a web of 120, walls of 3 (Timoshenko and Gere, Theory of Elastic Stability, 1961).
TEST(ThinWalls, HaveTheWarpingConstantsOfTheTextbook) {
    ThinWalls channel({{60, 60}, {0, 60}, {0, -60}, {60, -60}});
    ThinWalls zee({{60, 60}, {0, 60}, {0, -60}, {-60, -60}});
    for (ThinWalls* walls : {&channel, &zee})
        for (const int wall : {0, 1, 2})
            walls->Join(wall, wall + 1, 3);
    EXPECT_NEAR(channel.ShearCenter().z, -22.5, 1e-9); // 3 b^2 / (6 b + h) behind the web
    EXPECT_NEAR(channel.WarpingConstant(), 680.4e6, 1);
    EXPECT_NEAR(zee.WarpingConstant(), 972e6, 1);
    EXPECT_NEAR(zee.TorsionConstant(), 2160, 1e-9);

    ThinWalls beam({{-30, 60}, {0, 60}, {30, 60}, {-30, -60}, {0, -60}, {30, -60}});
    for (const auto& [from, to] : {std::pair(0, 1), {1, 2}, {1, 4}, {4, 3}, {4, 5}})
        beam.Join(from, to, 3);
    EXPECT_NEAR(beam.WarpingConstant(), 388.8e6, 1);

    ThinWalls wedge({{0, 0}, {10, 0}});
    wedge.Join(0, 1, 1, 3);
    EXPECT_NEAR(wedge.TorsionConstant(), 10 * (81 - 1) / 24.0, 1e-9);
}

TEST(GeometryModels, GivePublishedFigures) {
    for (const Case& section : Cases) {
        const SectionGeometry geometry = Make(section);
        for (const auto& [column, figure] : Parse(section.properties))
            EXPECT_NEAR(geometry.figures.at(column) / SizeOf(section, column) / figure, 1,
                        section.percent / 100)
                << section.section << ", " << section.model << ": " << column;
    }
}

TEST(GeometryModels, ComputeWhatTheySayOfTheirLayout) {
    std::set<std::string> names;
    for (const GeometryModel& model : GetGeometryModels()) {
        SCOPED_TRACE(model.name);
        EXPECT_TRUE(names.insert(model.name).second);
        EXPECT_EQ(FindGeometryModel(model.name), &model);
        const auto section = std::ranges::find_if(
            Cases, [&](const Case& each) { return std::string_view(each.model) == model.name; });
        ASSERT_NE(section, std::end(Cases)) << "there is no section of this model above";

        std::set<std::string> said, computed;
        for (const ComputedColumn& column : model.computed)
            said.insert(column.name);
        for (const auto& [column, figure] : Make(*section).figures)
            computed.insert(column);
        EXPECT_EQ(computed, said);

        std::set<std::string> columns;
        for (const LayoutColumn& column : GetSectionLayout(model.layout).columns)
            columns.insert(column.name);
        said.insert(model.inputs.begin(), model.inputs.end());
        EXPECT_TRUE(std::ranges::includes(columns, said));
        for (const GeometryParameter& parameter : model.parameters)
            EXPECT_FALSE(columns.contains(parameter.name)) << parameter.name;
    }
    EXPECT_EQ(FindGeometryModel("IPE"), nullptr);
}

TEST(GeometryModels, RefuseImpossibleDimensions) {
    const struct {
        const char* model;
        Figures given;
        Figures parameters;
        const char* fault;
    } cases[] = {
        {"parallel I", {{"D", 300}, {"BF", 150}, {"TF", 10}}, {{"radius", 9}}, "figure TW is miss"},
        {"parallel I", {{"D", 300}, {"BF", 150}, {"TF", 10}, {"TW", 7}}, {}, "figure AX is miss"},
        {"parallel I", {{"D", 300}, {"BF", 7}, {"TF", 10}, {"TW", 7}}, {{"radius", 9}}, "(BF)"},
        {"parallel I",
         {{"D", 20}, {"BF", 50}, {"TF", 10}, {"TW", 7}},
         {{"radius", 9}},
         "depth (D)"},
        {"parallel I", {{"D", 30}, {"BF", 50}, {"TF", 9}, {"TW", 7}}, {{"radius", 30}}, "(radius)"},
        {"tapered I",
         {{"D", 300}, {"BF", 125}, {"TF", 16.2}, {"TW", 10.8}},
         {{"radius", 10.8}, {"slope", 0.14}, {"mass", 60 * 9.80665e-3}}, // 54.2 kg/m
         "(mass)"},
        {"welded I", {{"D", 300}, {"BF", 90}, {"TF", 9}, {"TW", 8}}, {{"weld", 50}}, "(weld)"},
        {"angle", {{"D", 50}, {"B", 80}, {"T", 8}}, {{"radius", 9}}, "D is not the longer leg"},
        {"double angle", {{"D", 50}, {"B", 8}, {"T", 8}}, {{"radius", 9}}, "(T)"},
        {"rectangular tube",
         {{"D", 50}, {"B", 30}, {"T", 9}},
         {{"outside", 2}, {"inside", 1}},
         "(T)"},
        {"round tube", {{"OD", 50}, {"T", 25}}, {}, "whole diameter (OD)"},
        {"round tube", {{"OD", 50}, {"T", -2}}, {}, "figure T is not above zero"},
        {"round bar", {{"D", NAN}}, {}, "figure D is not above zero"},
        {"bulb flat", {{"D", 20}, {"T", 10}, {"C", 28}, {"R", 8}}, {}, "depth (D)"},
        {"castellated",
         {{"D", 300}, {"BF", 90}, {"TF", 9}, {"TW", 8}, {"HO", 290}, {"E", 90}, {"THETA", 60}},
         {},
         "(HO)"},
        {"bent channel", {{"D", 80}, {"B", 5}, {"T", 2}, {"R", 5}}, {}, "bends (R)"},
        {"lipped channel", {{"D", 80}, {"B", 50}, {"L", 5}, {"T", 2}, {"R", 5}}, {}, "bends (R)"},
        {"lipped channel", {{"D", 80}, {"B", 50}, {"L", 41}, {"T", 2}, {"R", 5}}, {}, "lips (L)"},
        {"hat", {{"D", 50}, {"B", 80}, {"L", 2}, {"T", 2}, {"R", 3}}, {}, "bends (R)"},
    };
    for (const auto& [model, given, parameters, fault] : cases)
        try {
            FindGeometryModel(model)->make(given, parameters);
            ADD_FAILURE() << model << " took what it should refuse: " << fault;
        } catch (const GeometryError& error) {
            EXPECT_TRUE(Holds(error.what(), fault));
        }
}

TEST(GeometryModels, TakeTheRadiusFromTheAreaWhereItIsNotGiven) {
    const Figures beam{{"D", 300}, {"BF", 150}, {"TF", 10.7}, {"TW", 7.1}, {"AX", 5381.2}};
    const auto rolled = FindGeometryModel("rolled I")->make(beam, {});
    ASSERT_TRUE(rolled.assumedRadius);
    EXPECT_NEAR(*rolled.assumedRadius, 15, 0.01);
    const auto given = FindGeometryModel("parallel I")->make(beam, {{"radius", 15}});
    EXPECT_FALSE(given.assumedRadius);
}

TEST(Rows, ThatNoStandardPublishesAreJudgedByTheirDimensions) {
    // The figures are in mm; `refused` is the first that is not that of the shape.
    const auto expect = [](const char* row, LayoutId layout, const char* model, const char* refused,
                           const Figures& figures) {
        const RowJudgement judgement = JudgeRow(layout, figures, {});
        EXPECT_EQ(judgement.model, model == nullptr ? nullptr : FindGeometryModel(model)) << row;
        EXPECT_EQ(judgement.refused.empty() ? "" : judgement.refused.front().judged.column, refused)
            << row;
    };
    expect("L 100x100x10, EN 10056-1", LayoutId::Angle, "rolled angle", "",
           {{"D", 100}, {"B", 100}, {"T", 10}, {"AX", 1915}, {"IZ", 176.7e4}, {"RV", 19.5}});
    expect("two square legs", LayoutId::Angle, "rolled angle", "",
           {{"D", 100}, {"B", 100}, {"T", 10}, {"AX", 1900}, {"IZ", 180e4}});
    expect("RHS 200 x 100 x 8, EN 10210-2", LayoutId::RectangularTube, "rectangular tube by area",
           "", {{"D", 200}, {"B", 100}, {"T", 8}, {"AX", 4480}, {"IZ", 2230e4}, {"IX", 1800e4}});
    expect("flange and web for each other", LayoutId::IShape, "rolled I", "IZ",
           {{"D", 300}, {"BF", 150}, {"TF", 7.1}, {"TW", 10.7}, {"AX", 5380}, {"IZ", 8356e4}});
    expect("plates", LayoutId::IShape, "welded I", "",
           {{"D", 300}, {"BF", 300}, {"TF", 9.5}, {"TW", 8}});
    expect("a cable", LayoutId::Cable, nullptr, "", {{"D", 10}, {"AX", 9999}});
    EXPECT_THROW(JudgeRow(LayoutId::RoundTube, {{"OD", 100}, {"T", 50}}, {}), GeometryError);
    using Lists = std::vector<std::vector<std::string>>;
    EXPECT_EQ(MissingFor(LayoutId::Channel, {{"D", 200}, {"BF", 75}}, {}),
              (Lists{{"AX", "TF", "TW"}, {"TF", "TW", "radius"}}));
    EXPECT_EQ(MissingFor(LayoutId::General, {}, {}), Lists());
}

TEST(Rows, AreJudgedAndCompleted) {
    const Figures row{{"OD", 100}, {"T", 10}, {"AX", 3000}};
    const auto pipe = FindGeometryModel("round tube")->make(row, {});
    const auto judged = JudgeFigures(pipe, row);
    ASSERT_EQ(judged.size(), 1U);
    EXPECT_EQ(judged[0].column, "AX");
    EXPECT_EQ(judged[0].figure, 3000);
    EXPECT_NEAR(judged[0].Deviation(), 0.9 * std::numbers::pi / 3 - 1, 1e-9);
    EXPECT_EQ((JudgedFigure{"ALPHA", 0, 0}.Deviation()), 0);

    const Figures whole = CompleteFigures(pipe, row);
    EXPECT_EQ(whole.size(), 5U);
    EXPECT_EQ(whole.at("AX"), 3000) << "what is published stays";
    EXPECT_NEAR(whole.at("I"), 2898119.2, 0.1);
}

TEST(PrintingSteps, AreTheUnitsOfTheLastDigits) {
    const struct {
        std::vector<const char*> printed;
        double figure;
        double step;
    } cases[] = {
        {{"53.8", "149"}, 53.8, 0.1},
        {{"53.8", "149"}, 99.9, 0.1},
        {{"53.8", "149"}, 9.99999, 0.1}, // a converted 10
        {{"53.8", "149"}, 101, 1},
        {{"53.8", "149"}, 5.38, 0.01}, // no such figure: three digits
        {{"5.4", "5.38"}, 5.4, 0.01},
        {{"0.50"}, 0.5, 0.01},
        {{"8360", "9210"}, 8360, 10},
        {{"8360", "8361"}, 8360, 1},
        {{"800000"}, 800000, 1000}, // may be rounded to three digits, not to one
        {{"50"}, 50, 1},
    };
    for (const auto& [printed, figure, step] : cases) {
        PrintingSteps steps;
        for (const char* text : printed)
            steps.Learn(text);
        EXPECT_NEAR(steps.StepOf(figure), step, 1e-9 * step) << printed.front() << ", " << figure;
        EXPECT_EQ(PrintingSteps::FromText(steps.Text()).StepOf(figure), steps.StepOf(figure));
    }
}

TEST(FigureRules, AcceptWhatPrintingToleranceOrExceptionAllow) {
    FigureRules rules;
    rules.columns["AX"].steps.Learn("53.8");
    rules.columns["AX"].tolerance.share = 0.01;
    rules.exceptions[{"IPE 300", "AX"}].share = 0.05;
    const auto isAccepted = [&](const char* name, double deviation) {
        return rules.Judge(name, "AX", 50, deviation).IsAccepted();
    };
    EXPECT_TRUE(isAccepted("IPE 330", 0.0110)); // half of 0.1 is 0.1 % of 50
    EXPECT_TRUE(isAccepted("IPE 330", -0.0110));
    EXPECT_FALSE(isAccepted("IPE 330", 0.0111));
    EXPECT_FALSE(isAccepted("IPE 330", -0.0111));
    EXPECT_TRUE(isAccepted("IPE 300", -0.05));
    EXPECT_FALSE(isAccepted("IPE 300", 0.0501));
    EXPECT_FALSE(rules.Judge("IPE 330", "IZ", 50, 1e-6).IsAccepted()) << "no rule, no leeway";
}
