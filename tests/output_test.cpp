// How the program writes texts, figures and tables.
#include "TestSupport.h"
#include "output/Escapes.h"
#include "output/Table.h"

#include <limits>

using namespace dbsection;
using testsupport::Holds;

TEST(Escapes, AreValidWhateverAFileHolds) {
    struct {
        std::string text;
        const char* plain;
        const char* json;
        const char* csv;
    } const cases[] = {
        {"W12X26", "W12X26", R"("W12X26")", "W12X26"},
        {"a\"b\\c,d", "a\"b\\c,d", R"("a\"b\\c,d")", R"("a""b\c,d")"},
        {"R\xC3\xB6hre \xF0\x9F\x94\xA9", "R\xC3\xB6hre \xF0\x9F\x94\xA9",
         "\"R\xC3\xB6hre \xF0\x9F\x94\xA9\"", "R\xC3\xB6hre \xF0\x9F\x94\xA9"},
        {std::string("\0\n\x7F", 3), R"(\u0000\u000a\u007f)", R"("\u0000\u000a\u007f")",
         R"(\u0000\u000a\u007f)"},
        {"\xE2\x80\xA8", R"(\u2028)", R"("\u2028")", R"(\u2028)"},
        // a lone lead byte, an overlong form, a surrogate, beyond the last character
        {"\xC3", "\xEF\xBF\xBD", "\"\xEF\xBF\xBD\"", "\xEF\xBF\xBD"},
        {"\xC1\x9B", "\xEF\xBF\xBD\xEF\xBF\xBD", "\"\xEF\xBF\xBD\xEF\xBF\xBD\"",
         "\xEF\xBF\xBD\xEF\xBF\xBD"},
        {"\xED\xA0\x80", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD",
         "\"\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\"", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},
        {"\xF4\x90\x80\x80", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD",
         "\"\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\"",
         "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},
    };
    for (const auto& [text, plain, json, csv] : cases) {
        EXPECT_EQ(PlainText(text), plain);
        EXPECT_EQ(JsonText(text), json);
        EXPECT_EQ(CsvText(text), csv);
    }
}

TEST(Figure, HasTheDigitsOfItsSourceOrThoseThatReadBack) {
    constexpr double Infinite = std::numeric_limits<double>::infinity();
    constexpr double InchPerMm = 0.03937008; // as the library has it
    struct {
        Figure figure;
        const char* readable;
        const char* exact;
    } const cases[] = {
        // as published
        {{12.2}, "12.2", "12.2"},
        {{8360}, "8360", "8360"},
        {{999999}, "999999", "999999"},
        {{1000000}, "1e6", "1000000"},
        {{-84910000}, "-8.491e7", "-84910000"},
        {{0}, "0", "0"},
        {{0.00012}, "0.00012", "0.00012"},
        {{0.000012}, "1.2e-5", "1.2e-05"},
        {{28.300000000000004}, "28.300000000000004", "28.300000000000004"},
        // inches in mm, mm^2, mm^4 and mm^6: exact products
        {{12.2, 25.4}, "309.9", "309.88"},
        {{7.65, 645.16}, "4935", "4935.474"},
        {{0.3, 416231.4256}, "124900", "124869.42768"},
        {{204, 416231.4256}, "8.491e7", "84911210.8224"},
        {{97.124, 25.4}, "2466.95", "2466.9496"},
        // a factor with an error of rounding, as powers have one
        {{12.2, 25.399999999999995}, "309.9", "309.88"},
        {{8.17, 16387.063999999995}, "133900", "133882.31288"},
        // mm in inches, cm^2 in m^2
        {{300, InchPerMm}, "11.81", "11.811024"},
        {{53.8, 1e-4}, "0.00538", "0.00538"},
        {{0, 25.4}, "0", "0"},
        // not finite
        {{Infinite}, "inf", "null"},
        {{-1e300, 1e300}, "-inf", "null"},
        {{std::numeric_limits<double>::quiet_NaN()}, "nan", "null"},
    };
    for (const auto& [figure, readable, exact] : cases) {
        EXPECT_EQ(ReadableText(figure), readable) << figure.stored << " * " << figure.factor;
        EXPECT_EQ(ExactText(figure, "null"), exact) << figure.stored << " * " << figure.factor;
    }
}

TEST(Table, IsTheSameInEveryForm) {
    Table table({{"name"}, {"AX", "mm^2"}, {"count"}});
    table.rows = {
        {"R\u00F6hre, \"1\"", Figure{7.65, 645.16}, 12}, {"B", {}, 3}, {{}, Figure{10}, 0}};
    EXPECT_EQ(TextOf({&table, 1}), "name          AX  count\n"
                                   "            mm^2\n"
                                   "R\u00F6hre, \"1\"  4935     12\n"
                                   "B              -      3\n"
                                   "-             10      0\n");
    EXPECT_EQ(CsvOf({&table, 1}), "name,AX,count\n"
                                  ",mm^2,\n"
                                  "\"R\u00F6hre, \"\"1\"\"\",4935.474,12\n"
                                  "B,,3\n"
                                  ",10,0\n");
    EXPECT_EQ(JsonOf({&table, 1}),
              "[\n"
              "  {\"name\": \"R\u00F6hre, \\\"1\\\"\", \"AX\": 4935.474, \"count\": 12, \"units\": "
              "{\"AX\": \"mm^2\"}},\n"
              "  {\"name\": \"B\", \"AX\": null, \"count\": 3, \"units\": {\"AX\": \"mm^2\"}},\n"
              "  {\"name\": null, \"AX\": 10, \"count\": 0, \"units\": {\"AX\": \"mm^2\"}}\n"
              "]\n");
    table.rows.clear();
    EXPECT_EQ(TextOf({&table, 1}), "name  AX    count\n      mm^2\n");
    EXPECT_EQ(JsonOf({&table, 1}), "[\n]\n");
}

TEST(Table, MarksComputedFigures) {
    Table table({{"name"}, {"SZ", "in^3"}, {"RZ"}});
    table.marksComputed = true;
    table.rows = {{"W1", Figure{33.44262295081967, 1, true}, Figure{5.17}},
                  {"W2", Figure{40}, Figure{WithoutNoise(6.099999999999996), 1, true}}};
    EXPECT_EQ(TextOf({&table, 1}), "name       SZ     RZ\n"
                                   "         in^3\n"
                                   "W1    33.443*  5.17\n"
                                   "W2        40    6.1*\n"
                                   "* computed\n");
    EXPECT_EQ(CsvOf({&table, 1}), "name,SZ,RZ,computed\n,in^3,,\nW1,33.44262295081967,5.17,SZ\n"
                                  "W2,40,6.1,RZ\n");
    EXPECT_TRUE(Holds(JsonOf({&table, 1}), R"("RZ": 6.1, "computed": "RZ", "units")"));
}

TEST(Table, OfSubjectsSaysWhatEachIs) {
    Table first({{"column"}, {"value"}});
    first.subject = {"W1 (US)", {{"catalogue", "US"}, {"name", "W1"}}, "properties"};
    first.rows = {{"AX", Figure{7.65}}, {"D", Figure{12.2}}};
    Table second = first;
    second.subject.title = "W1 (UK)";
    second.subject.facts[0].second = "U,K";
    second.rows.pop_back();
    const Table tables[] = {first, second};
    EXPECT_EQ(TextOf(tables), "W1 (US)\n  column  value\n  AX       7.65\n  D        12.2\n"
                              "W1 (UK)\n  column  value\n  AX       7.65\n");
    EXPECT_EQ(CsvOf(tables), "catalogue,name,column,value\nUS,W1,AX,7.65\nUS,W1,D,12.2\n"
                             "\"U,K\",W1,AX,7.65\n");
    EXPECT_EQ(JsonOf(tables), "[\n"
                              "  {\"catalogue\": \"US\", \"name\": \"W1\", \"properties\": [\n"
                              "    {\"column\": \"AX\", \"value\": 7.65},\n"
                              "    {\"column\": \"D\", \"value\": 12.2}\n"
                              "  ]},\n"
                              "  {\"catalogue\": \"U,K\", \"name\": \"W1\", \"properties\": [\n"
                              "    {\"column\": \"AX\", \"value\": 7.65}\n"
                              "  ]}\n"
                              "]\n");
}
