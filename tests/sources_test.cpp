// The text sources of catalogues: reading them, and refusing faulty ones.
#include "PipeSources.h"
#include "interface/SectionDBInterface.h"
#include "sources/CatalogueSource.h"
#include "sources/CsvTable.h"

#include <gtest/gtest.h>

#include <algorithm>

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
