// The text sources of catalogues: reading them, refusing faulty ones, and the geometry behind it.
#include "TestSupport.h"
#include "sectiondb/CatalogueSource.h"
#include "sectiondb/CsvTable.h"
#include "sectiondb/Geometry.h"
#include "sectiondb/GeometryOutline.h"

#include <gtest/gtest.h>

#include <numbers>

using namespace dbsection;

namespace {

/// A folder with a small catalogue that is in order, of which a test spoils one file.
class Sources {
public:
    Sources() {
        Write("_catalogue.csv", "Key,Value\nTitle,Pipes\nStandard,ASME B36.10M\nSource,a note\n");
        Write("_tables.csv", "Table,Layout,Geometry,Parameters\nPipe,round tube,round tube,\n");
        Write("_tolerances.csv", "Table,Column,Percent\nPipe,AX,1\n");
        Write("_exceptions.csv", "Table,Name,Column,Reason\n");
        Write("Pipe.csv", "Name,VessaName,OD,T,AX\n"
                          "TEXT,TEXT,MM,MM,CM^2\n"
                          "P100,PIP100,100,10,28.3\n"
                          "P50,PIP50,50,5,7.07\n");
    }

    void Write(const std::string& file, const std::string& text) const {
        testsupport::WriteFile(m_folder.File(file), text);
    }

    std::string Path(const std::string& file) const { return m_folder.File(file); }

    CatalogueSource Load() const { return CatalogueSource::Load(m_folder.Path()); }

    /// The first fault, without the folder's path.
    std::string Fault() const {
        try {
            Load();
        } catch (const SourceError& error) {
            return std::string(error.what()).substr(m_folder.Path().size() + 1);
        }
        return "";
    }

private:
    testsupport::TempFolder m_folder;
};

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
    const std::string tables = "Table,Layout,Geometry,Parameters\n";
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
        // geometry
        {"Pipe.csv", pipe + "P,P,100,10,29.3\n",
         "Pipe.csv:3: column AX: \"29.3\": 3.50 % too large, 1.00 % is allowed; the section's "
         "geometry gives 28.274"},
        {"Pipe.csv", pipe + "P,P,100,50,28.3\n", "Pipe.csv:3: the wall (T) fills the whole"},
        {"_tables.csv", tables + "Pipe,round tube,,\n", "Pipe.csv:1: column I: the column is miss"},
        {"_tables.csv", tables + "Pipe,round pipe,,\n",
         "_tables.csv:2: column Layout: \"round pipe\": no layout has this name"},
        {"_tables.csv", tables + "Pipe,round tube,rolled I,\n",
         "_tables.csv:2: column Geometry: \"rolled I\": not a geometry of this layout"},
        {"_tables.csv", tables + "Pipe,round tube,round tube,outside=2\n",
         R"(_tables.csv:2: column Parameters: "outside=2": "outside=2" is not a parameter)"},
        {"_tables.csv", tables + "Pipe,round tube,round tube,\nPIPE,round tube,round tube,\n",
         "_tables.csv:3: column Table: \"PIPE\": the table is named twice"},
        {"_tables.csv", tables + "Tube,round tube,round tube,\n",
         "Tube.csv: the file cannot be read"},
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
    };
    for (const Case& bad : cases) {
        const Sources sources;
        sources.Write(bad.file, bad.text);
        EXPECT_TRUE(sources.Fault().starts_with(bad.fault)) << sources.Fault();
    }
}

TEST(CatalogueSource, ComputesWhatIsLeftOutInTheUnitsOfTheTable) {
    const Sources sources;
    const CatalogueSource source = sources.Load();
    EXPECT_EQ(source.title, "Pipes");
    EXPECT_EQ(source.standard, "ASME B36.10M");
    EXPECT_EQ(source.sourceNote, "a note");
    ASSERT_EQ(source.tables.size(), 1U);
    const SourceTable& pipes = source.tables[0];
    const std::vector<std::string> units{"NUMBER", "TEXT", "TEXT", "MM",
                                         "MM",     "CM^2", "CM^4", "CM^3"};
    EXPECT_EQ(pipes.units, units);
    ASSERT_EQ(pipes.rows.size(), 2U);
    EXPECT_EQ(pipes.rows[0].vessaName, "PIP100");
    const std::vector<SourceValue> values{100.0, 10.0, 28.3, 289.81, 81.333};
    EXPECT_EQ(pipes.rows[0].values, values);
}

TEST(CatalogueSource, TakesParametersFromTheCatalogueOrFromEachSection) {
    const Sources sources;
    const std::string tables = "Table,Layout,Geometry,Parameters\nBox,rectangular tube,";
    sources.Write("_tolerances.csv", "Table,Column,Percent\nBox,AX,0.1\n");
    std::filesystem::remove(sources.Path("Pipe.csv"));
    sources.Write("_tables.csv", tables + "rectangular tube,outside=1.5\n");
    const std::string header = "Name,VessaName,D,B,T,AX,inside\nTEXT,TEXT,MM,MM,MM,CM^2,";
    sources.Write("Box.csv", header + "NUMBER\nB,B,100,100,10,34.9,1\n"); // EN 10210
    EXPECT_EQ(sources.Fault(), "");
    const std::string hash = sources.Load().sourceHash;
    EXPECT_EQ(hash.size(), 64U);

    sources.Write("Box.csv", header + "NUMBER\nB,B,100,100,10,34.9,0\n");
    EXPECT_TRUE(sources.Fault().starts_with("Box.csv:3: column AX: \"34.9\": ")) << sources.Fault();
    sources.Write("Box.csv", header + "MM\n");
    EXPECT_EQ(sources.Fault(),
              "Box.csv:2: column inside: \"MM\": the unit of this column is NUMBER");
    sources.Write("Box.csv", header + "NUMBER\r\nB,B,100,100,10,34.9,1\n");
    EXPECT_NE(sources.Load().sourceHash, hash) << "every byte counts";
    const char* const fault =
        "Box.csv:1: column inside: the geometry needs this parameter either here or in _tables.csv";
    sources.Write("_tables.csv", tables + "rectangular tube,outside=1.5 inside=1\n");
    EXPECT_EQ(sources.Fault(), fault);
    sources.Write("Box.csv", "Name,VessaName,D,B,T\nTEXT,TEXT,MM,MM,MM\n");
    sources.Write("_tables.csv", tables + "rectangular tube,outside=1.5\n");
    EXPECT_EQ(sources.Fault(), fault);
    sources.Write("_tables.csv", tables + ",\n");
    sources.Write("Box.csv", "Name,VessaName,AX,D,B,T,IZ,IX,IY,ZZ,ZY\nTEXT,TEXT,CM^2,MM,MM,MM,CM^4,"
                             "CM^4,CM^4,CM^3,CM^3\nB,B,34.9,100,100,10,462,761,462,116,116\n");
    EXPECT_EQ(sources.Fault(),
              "Box.csv:3: _tables.csv names no geometry to check this section with");
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

TEST(AmericanSources, AreWholeAndRefuseAWrongDigit) {
    const std::filesystem::path data = std::filesystem::path(SECTIONDB_DATA_DIR) / "AISCSections";
    const CatalogueSource source = CatalogueSource::Load(data);
    EXPECT_EQ(source.stem, "AISCSections");
    EXPECT_EQ(source.tables.size(), 18U);
    std::size_t rows = 0;
    for (const SourceTable& table : source.tables)
        rows += table.rows.size();
    EXPECT_GE(rows, 1200U);

    const testsupport::TempFolder copy;
    std::filesystem::copy(data, copy.Path());
    std::string shapes = testsupport::ReadFile(copy.File("W Shape.csv"));
    const std::size_t inertia = shapes.find(",38700,");
    ASSERT_NE(inertia, std::string::npos);
    shapes[inertia + 2] = '7'; // 37700
    testsupport::WriteFile(copy.File("W Shape.csv"), shapes);
    try {
        CatalogueSource::Load(copy.Path());
        FAIL() << "a wrong digit was accepted";
    } catch (const SourceError& error) {
        EXPECT_NE(std::string(error.what()).find("W Shape.csv:3: column IZ: \"37700\": 2."),
                  std::string::npos)
            << error.what();
    }
}
