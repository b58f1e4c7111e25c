// The text sources of catalogues: reading them, refusing faulty ones, and the geometry behind it.
#include "PipeSources.h"
#include "interface/SectionDBInterface.h"
#include "sources/CatalogueSource.h"
#include "sources/CsvTable.h"
#include "sources/Geometry.h"
#include "sources/GeometryOutline.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numbers>

using namespace dbsection;
using testsupport::PipeSources;

namespace {

/// The first fault, without the folder's path.
std::string FaultOf(const PipeSources& sources) {
    try {
        CatalogueSource::Load(sources.Path());
    } catch (const SourceError& error) {
        return std::string(error.what()).substr(sources.File("").size());
    }
    return "";
}

constexpr const char* PipeHeader = "Name,VessaName,OD,T,AX\nTEXT,TEXT,MM,MM,CM^2\n";

} // namespace

TEST(CsvTable, ReadsQuotesLineEndsAndByteOrderMark) {
    const CsvTable table("a.csv", "\xEF\xBB\xBF"
                                  "Name,Note\r\n"
                                  "A,\"1, \"\"2\"\"\r\n3\"\r\n"
                                  "B,");
    ASSERT_EQ(table.Records().size(), 2U);
    const CsvTable::Record& first = table.Records()[0];
    EXPECT_EQ(table.Text(first, "Name"), "A");
    EXPECT_EQ(table.Text(first, "Note"), "1, \"2\"\r\n3");
    const CsvTable::Record& second = table.Records()[1];
    EXPECT_EQ(second.line, 4) << "a line end inside quotes counts";
    EXPECT_EQ(table.Text(second, "Note"), "");
}

TEST(CatalogueSource, RefusesFaultySourcesAndSaysWhere) {
    struct Case {
        const char* file;
        std::string text;
        const char* fault; ///< the message begins with it
    };
    const std::string pipe = PipeHeader;
    const std::string tables = "Table,Geometry,Parameters\n";
    const Case cases[] = {
        // the text
        {"Pipe.csv", "", "Pipe.csv: the file is empty"},
        {"Pipe.csv", pipe + "P,P,100,10\n", "Pipe.csv:3: 4 fields, but the first line names 5"},
        {"Pipe.csv", pipe + "P,P,100,10,28.3,1\n", "Pipe.csv:3: 6 fields, but"},
        {"Pipe.csv", pipe + "\"P,P,100,10,28.3\n", "Pipe.csv:3: the quote that begins a field"},
        {"Pipe.csv", pipe + "\"P\"Q,P,100,10,28.3\n", "Pipe.csv:3: text after the closing quote"},
        {"Pipe.csv", pipe + "P\"Q,P,100,10,28.3\n", "Pipe.csv:3: a quote inside a field"},
        // columns and units
        {"Pipe.csv", "Name,VessaName,OD,T,T,AX\n", "Pipe.csv:1: column T: the column occurs twice"},
        {"Pipe.csv", "Name,VessaName,OD,T,,AX\n", "Pipe.csv:1: a column without a name"},
        {"Pipe.csv", "Name,VessaName,OD,T,BF\n", "Pipe.csv:1: column BF: not a column of the"},
        {"Pipe.csv", "Name,VessaName,OD,AX\n", "Pipe.csv:1: column T: the column is missing, and"},
        {"Pipe.csv", "Name,OD,T,AX\n", "Pipe.csv:1: column VessaName: the column is missing"},
        {"Pipe.csv", "Name,VessaName,OD,T\n", "Pipe.csv:2: the line of units is missing"},
        {"Pipe.csv", "Name,VessaName,OD,T\nTEXT,TEXT,INCH,MM\n",
         "Pipe.csv:2: column OD: \"INCH\": not a known unit"},
        {"Pipe.csv", "Name,VessaName,OD,T\nTEXT,TEXT,MM,MM^1.5\n",
         "Pipe.csv:2: column T: \"MM^1.5\": not a known unit"},
        {"Pipe.csv", "Name,VessaName,OD,T,I\nTEXT,TEXT,MM,MM,CM^3\n",
         "Pipe.csv:2: column I: \"CM^3\": not a unit of length^4"},
        {"Pipe.csv", "Name,VessaName,OD,T\nTEXT,NUMBER,MM,MM\n",
         "Pipe.csv:2: column VessaName: \"NUMBER\": the unit of this column is TEXT"},
        // figures and names
        {"Pipe.csv", pipe + "P,P,100,10,7.6x\n", "Pipe.csv:3: column AX: \"7.6x\": not a number"},
        {"Pipe.csv", pipe + "P,P,100,10,inf\n", "Pipe.csv:3: column AX: \"inf\": not a number"},
        {"Pipe.csv", pipe + "P,P,100,10,\"28,3\"\n", "Pipe.csv:3: column AX: \"28,3\": not a"},
        {"Pipe.csv", pipe + "P,P,100,10,\n", "Pipe.csv:3: column AX: the field is empty"},
        {"Pipe.csv", pipe + "P,P,-100,10,28.3\n", "Pipe.csv:3: column OD: \"-100\": not above"},
        {"Pipe.csv", pipe + "P,P,100,0,28.3\n", "Pipe.csv:3: column T: \"0\": not above zero"},
        {"Pipe.csv", pipe + ",P,100,10,28.3\n", "Pipe.csv:3: column Name: the field is empty"},
        {"Pipe.csv", pipe + "P,Q,100,10,28.3\np,R,100,10,28.3\n",
         "Pipe.csv:4: column Name: \"p\": also the name in line 3"},
        {"Pipe.csv", pipe + "P,Q,100,10,28.3\nR,q,100,10,28.3\n",
         "Pipe.csv:4: column VessaName: \"q\": also the name in line 3"},
        {"Pipe.csv", pipe + "P,P+Q,100,10,28.3\n", "Pipe.csv:3: column VessaName: \"P+Q\": not a"},
        {"Pipe.csv", pipe + "P's,P,100,10,28.3\n", "Pipe.csv:3: column Name: \"P's\": not a name"},
        // geometry
        {"Pipe.csv", pipe + "P,P,100,10,29.3\n",
         "Pipe.csv:3: column AX: \"29.3\": 3.50 % too large, 1.00 % is allowed; the section's "
         "geometry gives 28.274"},
        {"Pipe.csv", pipe + "P,P,100,50,28.3\n", "Pipe.csv:3: the wall (T) fills the whole"},
        {"_tables.csv", tables + "Pipe,,\n", "_tables.csv:2: column Geometry: the field is empty"},
        {"_tables.csv", tables + "Pipe,round pipe,\n",
         R"(_tables.csv:2: column Geometry: "round pipe": no geometry has this name)"},
        {"_tables.csv", tables + "Pipe,rolled I,\n",
         R"(_tables.csv:2: column Geometry: "rolled I": not a geometry of the layout "round tube)"},
        {"_tables.csv", tables + "Pipe,round tube,outside=2\n",
         R"(_tables.csv:2: column Parameters: "outside=2": "outside=2" is not a parameter)"},
        {"_tables.csv", tables + "Pipe,round tube,\nPipe,round tube,\n",
         "_tables.csv:3: column Table: \"Pipe\": the table is named twice"},
        {"_tables.csv", tables + "W Shape,rolled I,\n",
         "_tables.csv:2: column Table: \"W Shape\": the catalogue has no table of this name"},
        {"_tables.csv", tables + "Tube,rectangular tube,\n", "Tube.csv: the file cannot be read"},
        {"Old.csv", pipe, "Old.csv: _tables.csv does not name this table"},
        // rules
        {"_tolerances.csv", "Table,Column,Percent\n",
         "_tolerances.csv: no tolerance for table Pipe, column AX; add one"},
        {"_tolerances.csv", "Table,Column,Percent\nPipe,AX,1\nPipe,I,1\n",
         "_tolerances.csv:3: no figure is checked by this rule"},
        {"_exceptions.csv", "Table,Name,Column,Reason\nPipe,P99,AX,why\n",
         "_exceptions.csv:2: no figure is checked by this rule"},
        {"_exceptions.csv", "Table,Name,Column,Reason\nPipe,P50,AX,why\n",
         "_exceptions.csv:2: this figure is within its tolerance of 1.00 %"},
        {"_exceptions.csv", "Table,Name,Column,Reason\nPipe,P50,AX,\n",
         "_exceptions.csv:2: column Reason: the field is empty"},
        // title
        {"_catalogue.csv", "Key,Value\nTitle,Pipes\n", "_catalogue.csv: the key Source is missing"},
        {"_catalogue.csv", "Key,Value\nEdition,1\n", "_catalogue.csv:2: column Key: \"Edition\""},
        {"_catalogue.csv", "Key,Value\nTitle,a\nStandard,b\nSource,c\nUnits,SI\n",
         R"(_catalogue.csv: "SI" is no system of units; give metric or US)"},
    };
    for (const Case& bad : cases) {
        const PipeSources sources;
        sources.Write(bad.file, bad.text);
        EXPECT_TRUE(FaultOf(sources).starts_with(bad.fault)) << FaultOf(sources);
    }
}

TEST(CatalogueSource, ComputesWhatIsLeftOutInTheUnitsOfTheTable) {
    const PipeSources sources;
    const CatalogueSource source = CatalogueSource::Load(sources.Path());
    EXPECT_EQ(source.title, "Pipes");
    EXPECT_EQ(source.standard, "ASME B36.10M");
    EXPECT_EQ(source.sourceNote, "a note");
    ASSERT_EQ(source.tables.size(), 5U); // all of the catalogue
    const SourceTable& pipes = source.tables[4];
    EXPECT_EQ(pipes.name, "Pipe");
    std::vector<std::string> units;
    for (const SourceColumn& column : pipes.columns)
        units.push_back(column.unit);
    EXPECT_EQ(units, (std::vector<std::string>{"NUMBER", "TEXT", "TEXT", "MM", "MM", "CM^2", "CM^4",
                                               "CM^3"}));
    ASSERT_EQ(pipes.rows.size(), 2U);
    EXPECT_EQ(pipes.rows[0].vessaName, "PIP100");
    const std::vector<SourceValue> values{100.0, 10.0, 28.3, 289.81, 81.333};
    EXPECT_EQ(pipes.rows[0].values, values);
}

TEST(CatalogueSource, TakesParametersFromTheCatalogueOrFromEachSection) {
    const PipeSources sources;
    const std::string tables = "Table,Geometry,Parameters\nTube,";
    sources.Write("_tolerances.csv", "Table,Column,Percent\nTube,AX,0.1\n");
    std::filesystem::remove(sources.File("Pipe.csv"));
    sources.Write("_tables.csv", tables + "rectangular tube,outside=1.5\n");
    const std::string header = "Name,VessaName,D,B,T,AX,inside\nTEXT,TEXT,MM,MM,MM,CM^2,";
    sources.Write("Tube.csv", header + "NUMBER\nB,B,100,100,10,34.9,1\n"); // EN 10210
    EXPECT_EQ(FaultOf(sources), "");
    const std::string hash = CatalogueSource::Load(sources.Path()).sourceHash;
    EXPECT_EQ(hash.size(), 64U);

    sources.Write("Tube.csv", header + "NUMBER\nB,B,100,100,10,34.9,0\n");
    EXPECT_TRUE(FaultOf(sources).starts_with("Tube.csv:3: column AX: \"34.9\": "))
        << FaultOf(sources);
    sources.Write("Tube.csv", header + "MM\n");
    EXPECT_EQ(FaultOf(sources),
              "Tube.csv:2: column inside: \"MM\": the unit of this column is NUMBER");
    sources.Write("Tube.csv", header + "NUMBER\r\nB,B,100,100,10,34.9,1\n");
    EXPECT_NE(CatalogueSource::Load(sources.Path()).sourceHash, hash) << "every byte counts";
    const char* const fault = "Tube.csv:1: column inside: the geometry needs this parameter either "
                              "here or in _tables.csv";
    sources.Write("_tables.csv", tables + "rectangular tube,outside=1.5 inside=1\n");
    EXPECT_EQ(FaultOf(sources), fault);
    sources.Write("Tube.csv", "Name,VessaName,D,B,T\nTEXT,TEXT,MM,MM,MM\n");
    sources.Write("_tables.csv", tables + "rectangular tube,outside=1.5\n");
    EXPECT_EQ(FaultOf(sources), fault);
}

TEST(Outline, AgreesWithClosedFormulas) {
    const double pi = std::numbers::pi;
    const Corner disc[] = {{{1, 1}, 2}, {{5, 1}, 2}, {{5, 5}, 2}, {{1, 5}, 2}}; // radius 2 at 3, 3
    const Outline round(disc);
    EXPECT_NEAR(round.Area() / (4 * pi), 1, 1e-3);
    EXPECT_NEAR(round.MinorAxis().centroid, 3, 1e-9);
    EXPECT_NEAR(round.MajorAxis().plasticModulus / (32.0 / 3), 1, 2e-3);

    const Corner outer[] = {{{0, 0}}, {{6, 0}}, {{6, 10}}, {{0, 10}}};
    const Corner inner[] = {{{1, 2}}, {{5, 2}}, {{5, 8}}, {{1, 8}}};
    Outline box(outer);
    box.Cut(inner);
    EXPECT_NEAR(box.Area(), 36, 1e-9);
    EXPECT_NEAR(box.MajorAxis().inertia, 6 * 1000 / 12.0 - 4 * 216 / 12.0, 1e-9);
    EXPECT_NEAR(box.MinorAxis().inertia, 10 * 216 / 12.0 - 6 * 64 / 12.0, 1e-9);
    EXPECT_NEAR(box.MajorAxis().plasticModulus, 6 * 100 / 4.0 - 4 * 36 / 4.0, 1e-9);

    const Corner triangle[] = {{{0, 0}}, {{3, 0}}, {{0, 6}}};
    const Outline leaning(triangle);
    EXPECT_NEAR(leaning.MajorAxis().centroid, 2, 1e-9);
    EXPECT_NEAR(leaning.MajorAxis().inertia, 3 * 216 / 36.0, 1e-9);
    EXPECT_NEAR(leaning.ProductOfInertia(), -9 * 36 / 72.0, 1e-9);
}

TEST(Geometry, GivesPublishedFiguresOfOtherStandards) {
    struct Case {
        const char* section;
        const char* model;
        Figures given;
        Figures parameters;
        Figures published;
        double percent;
    };
    const Case cases[] = {
        {"IPE 300, EN 10365",
         "rolled I",
         {{"D", 300}, {"BF", 150}, {"TF", 10.7}, {"TW", 7.1}, {"AX", 5381}},
         {{"slope", 0}, {"toe", 0}},
         {{"IZ", 8356e4},
          {"IY", 603.8e4},
          {"IX", 19.9e4},
          {"CW", 125.9e9},
          {"ZZ", 628.4e3},
          {"ZY", 125.2e3}},
         0.4},
        {"UPE 200, EN 10365",
         "rolled channel",
         {{"D", 200}, {"BF", 80}, {"TF", 11}, {"TW", 6}, {"AX", 2901}},
         {{"slope", 0}, {"toe", 0}},
         {{"IZ", 1909e4}, {"IY", 187.3e4}, {"CZ", 25.6}, {"ZZ", 220.1e3}, {"IX", 8.89e4}},
         1.5},
        {"L 100x100x10, EN 10056-1",
         "rolled angle",
         {{"D", 100}, {"B", 100}, {"T", 10}, {"AX", 1915}},
         {{"toe", 0.5}},
         {{"IZ", 176.7e4},
          {"IY", 176.7e4},
          {"CY", 28.2},
          {"CZ", 28.2},
          {"RV", 19.5},
          {"ALPHA", 45}},
         0.5},
        {"IPN 300, EN 10024: the flange is measured at a quarter of its width",
         "tapered I",
         {{"D", 300}, {"BF", 125}, {"TF", 16.2}, {"TW", 10.8}},
         {{"radius", 10.8}, {"toe", 0.6}, {"slope", 0.14}, {"place", 31.25}},
         {{"AX", 6900}, {"IZ", 9800e4}, {"IY", 451e4}, {"ZZ", 762e3}, {"ZY", 121e3}},
         0.7},
        {"UPN 350, DIN 1026-1: at half of the outstand",
         "tapered channel",
         {{"D", 350}, {"BF", 100}, {"TF", 16}, {"TW", 14}},
         {{"radius", 16}, {"toe", 0.5}, {"slope", 0.05}, {"place", 43}},
         {{"AX", 7730}, {"IZ", 12840e4}, {"IY", 570e4}, {"CZ", 24}},
         0.4},
        {"L 200x150x18, EN 10056-1",
         "angle",
         {{"D", 200}, {"B", 150}, {"T", 18}},
         {{"radius", 15}, {"toe", 0.5}},
         {{"AX", 6010},
          {"IZ", 2380e4},
          {"IY", 1150e4},
          {"IX", 67.9e4},
          {"RV", 32.2},
          {"CY", 63.3},
          {"CZ", 38.5},
          {"ALPHA", 28.77}},
         0.6},
        {"SHS 100x100x10, EN 10210-2",
         "European tube",
         {{"D", 100}, {"B", 100}, {"T", 10}},
         {{"outside", 1.5}, {"inside", 1}},
         {{"AX", 3490}, {"IX", 761e4}},
         0.2},
        {"SHS 100x100x10, EN 10210-2",
         "rectangular tube",
         {{"D", 100}, {"B", 100}, {"T", 10}},
         {{"outside", 1.5}, {"inside", 1}},
         {{"AX", 3490}, {"IZ", 462e4}, {"IY", 462e4}, {"ZZ", 116e3}, {"ZY", 116e3}},
         0.4},
    };
    for (const auto& [section, model, given, parameters, published, percent] : cases) {
        const Figures computed = FindGeometryModel(model)->compute(given, parameters);
        for (const auto& [column, figure] : published)
            EXPECT_NEAR(computed.at(column) / figure, 1, percent / 100) << section << " " << column;
    }
}

TEST(AllSources, BuildEveryCatalogue) {
    int sections = 0;
    for (int index = 1; index <= LastCatalogueIndex; ++index) {
        const std::string stem = SectionDBInterface::m_saSectionFile[index];
        SCOPED_TRACE(stem);
        const auto source = CatalogueSource::Load(std::filesystem::path(SECTIONDB_DATA_DIR) / stem);
        const auto& catalogue = dynamic_cast<const CatalogueSectionDB&>(
            *SectionDBInterface::m_SectionDBDrv.GetSectionDBObject(static_cast<WORD>(index)));
        for (const SourceTable& table : source.tables)
            sections += static_cast<int>(table.rows.size());
        for (const SectionFamily& family : catalogue.Families()) {
            const auto table =
                std::ranges::find(source.tables, std::string(family.table), &SourceTable::name);
            ASSERT_NE(table, source.tables.end()) << family.table;
            if (family.layout == LayoutId::Joist || family.layout == LayoutId::JoistGirder)
                continue; // columns of their own
            const auto columns = GetSectionLayout(family.layout).columns;
            ASSERT_EQ(table->columns.size(), columns.size() + BookkeepingColumns);
            for (std::size_t i = 0; i < columns.size(); ++i)
                EXPECT_EQ(
                    UnitFault(table->columns[i + BookkeepingColumns].unit, columns[i].quantity), "")
                    << family.table << ", " << columns[i].name;
        }
    }
    EXPECT_GT(sections, 4000);

    const testsupport::TempFolder elsewhere;
    try {
        CatalogueSource::Load(elsewhere.Path());
        FAIL() << "a folder of no catalogue was accepted";
    } catch (const SourceError& error) {
        EXPECT_NE(std::string(error.what())
                      .find("file stem of a catalogue: AISCSections, AustralianSections, "),
                  std::string::npos)
            << error.what();
    }
}

TEST(AllSources, NameTheColumnsThatTheStatementsUse) {
    const auto load = [](const char* stem) {
        return CatalogueSource::Load(std::filesystem::path(SECTIONDB_DATA_DIR) / stem);
    };
    const CatalogueSource coldFormed = load("USColdFormedSections");
    for (const SourceTable& table : coldFormed.tables) {
        EXPECT_EQ(table.columns[3].name, table.name == "Pipe" ? "OD" : "Area");
        EXPECT_NE(std::ranges::find(table.indexes, std::string("[Area]"), &SourceIndex::columns),
                  table.indexes.end())
            << table.name;
    }
}
