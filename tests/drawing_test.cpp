// Drawings, read back from the files that they are written to.
#include "TestSupport.h"
#include "drawing/Drawing.h"

#include <cmath>
#include <sstream>
#include <string>
#include <vector>

using namespace dbsection;
using testsupport::Holds;

namespace {

/// An unequal angle 150x100x10 with its radii, whose area is printed as 24.2 cm^2.
Outline Angle() {
    return Outline(Corners{
        {{0, 0}, 0}, {{100, 0}, 0}, {{100, 10}, 6}, {{10, 10}, 12}, {{10, 150}, 6}, {{0, 150}, 0}});
}

Outline Tube() {
    Outline tube(RectangleCorners(100, 50, 8));
    tube.Cut(RectangleCorners(90, 40, 3));
    return tube;
}

/// The area inside the closed lines of a DXF file, from its vertices and bulges.
double AreaInDxf(const std::string& dxf) {
    struct Vertex {
        double x = 0, y = 0, bulge = 0;
    };
    std::vector<std::vector<Vertex>> loops;
    std::istringstream lines(dxf);
    std::string code;
    std::string value;
    bool isVertex = false;
    while (std::getline(lines, code) && std::getline(lines, value)) {
        if (code == "0") {
            isVertex = value == "VERTEX";
            if (value == "POLYLINE")
                loops.emplace_back();
            if (isVertex)
                loops.back().emplace_back();
        } else if (isVertex && code == "10") {
            loops.back().back().x = std::stod(value);
        } else if (isVertex && code == "20") {
            loops.back().back().y = std::stod(value);
        } else if (isVertex && code == "42") {
            loops.back().back().bulge = std::stod(value);
        }
    }
    double area = 0;
    for (const auto& loop : loops)
        for (std::size_t i = 0; i < loop.size(); ++i) {
            const Vertex& from = loop[i];
            const Vertex& to = loop[(i + 1) % loop.size()];
            area += (from.x * to.y - from.y * to.x) / 2;
            if (from.bulge == 0)
                continue;
            const double chord = std::hypot(to.x - from.x, to.y - from.y);
            const double angle = 4 * std::atan(from.bulge);
            const double radius = chord / 2 / std::sin(std::abs(angle) / 2);
            area += radius * radius / 2 * (angle - std::sin(angle));
        }
    return area;
}

std::size_t Count(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size()))
        ++count;
    return count;
}

} // namespace

TEST(DrawingTest, KeepsTheShapeInDxf) {
    const std::string angle = Dxf(DrawSection(Angle(), {.title = "L"}));
    EXPECT_NEAR(AreaInDxf(angle), 2415.5, 0.1);
    EXPECT_NEAR(AreaInDxf(Dxf(DrawSection(Tube(), {.title = "T"}))), 5000 - 55.0 - (3600 - 7.7),
                0.5); // corners take (4 - pi) r^2
    EXPECT_EQ(Count(angle, "\nCENTER\n"), 2U);
    EXPECT_TRUE(angle.ends_with("0\nENDSEC\n0\nEOF\n"));
}

TEST(DrawingTest, FindsThePrincipalAxes) {
    EXPECT_NEAR(std::tan(PrincipalAngleOf(Angle()) * M_PI / 180), 0.438, 0.002); // as printed
    EXPECT_EQ(PrincipalAngleOf(Tube()), 90); // it lies on its side
    EXPECT_EQ(PrincipalAngleOf(Outline(RectangleCorners(10, 20))), 0);
}

TEST(DrawingTest, WritesTextsThatFilesCanHold) {
    const Drawing drawing = DrawSection(
        Tube(), {.title = "U 10\" <&> Б\n", .values = {{"AX", "53.8 cm^2"}}, .remarks = {"r"}});
    const std::string svg = Svg(drawing);
    EXPECT_TRUE(Holds(svg, ">U 10&quot; &lt;&amp;&gt; Б <"));
    EXPECT_TRUE(Holds(svg, ">53.8 cm^2<"));
    EXPECT_TRUE(Holds(svg, ">100<"));
    EXPECT_TRUE(Holds(svg, ">50<"));
    EXPECT_EQ(Count(svg, "A8 8 0 0 0 "), 4U);
    EXPECT_TRUE(Holds(Dxf(drawing), "\nU 10\" <&> \\U+0411 \n"));
}

TEST(DrawingTest, NamesAxesAndKeepsDimensionsReadable) {
    const auto texts = [](const Outline& outline) {
        std::vector<std::string> found;
        for (const DrawnText& text : DrawSection(outline, {.title = "S"}).texts)
            found.push_back(text.text);
        return found;
    };
    using Texts = std::vector<std::string>;
    EXPECT_EQ(texts(Angle()), (Texts{"u", "v", "150", "100", "S"}));
    EXPECT_EQ(texts(Tube()), (Texts{"Z", "Y", "50", "100", "S"})); // though it lies on its side
    const Drawing strip = DrawSection(Outline(RectangleCorners(2, 100)), {.title = "S"});
    EXPECT_GT(strip.texts[3].at.z - 0.35 * strip.texts[3].height, 1); // beside its line
    for (const DrawnText& text : strip.texts)
        EXPECT_GT(strip.extent.high.y, text.at.y + text.height) << text.text;
}

TEST(DrawingTest, FillsCharacters) {
    EXPECT_EQ(Picture(Outline(RectangleCorners(40, 40)), 4), "████\n████\n");
    EXPECT_EQ(Picture(Tube(), 20), "█▛▀▀▀▀▀▀▀▀▀▀▀▀▀▀▀▀▜█\n"
                                   "█                  █\n"
                                   "█                  █\n"
                                   "█                  █\n"
                                   "█▙▄▄▄▄▄▄▄▄▄▄▄▄▄▄▄▄▟█\n");
    EXPECT_FALSE(Holds(Picture(Outline(RectangleCorners(1, 1000)), 10), "██"));
}
