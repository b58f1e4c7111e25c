// The text sources of catalogues: reading them, and refusing faulty ones.
#include "PipeSources.h"
#include "interface/SectionDBInterface.h"
#include "sources/CatalogueSource.h"
#include "sources/CsvTable.h"
#include "sources/MisprintCount.h"
#include "sources/SourceFamilies.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace dbsection;
using namespace testsupport;

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
    const char* const pipes = "families/pipes.csv";
    const char* const list = "families/_families.csv";
    const char* const tolerances = "families/_tolerances.csv";
    const char* const exceptions = "families/_exceptions.csv";
    const char* const tables = "VenezuelanSections/_tables.csv";
    const char* const catalogue = "VenezuelanSections/_catalogue.csv";
    const std::string pipe = PipeHeader;
    const std::string families = PipeSources::FamiliesHeader;
    const std::string tolerance = "Family,Column,Percent,Reason\n";
    const std::string exception = "Family,Name,Column,Percent,Reason\n";
    const char* const corrections = "families/_corrections.csv";
    const std::string correction = "Family,Name,Column,Printed,Kept,Reason\npipes,";
    const Case cases[] = {
        // the text
        {pipes, "", "families/pipes.csv: the file is empty"},
        {pipes, pipe + "P,P,100,10\n", "families/pipes.csv:3: 4 fields, but the first line names"},
        {pipes, pipe + "P,P,100,10,28.3,1\n", "families/pipes.csv:3: 6 fields, but"},
        {pipes, pipe + "\"P,P,100,10,28.3\n", "families/pipes.csv:3: the quote that begins a"},
        {pipes, pipe + "\"P\"Q,P,100,10,28.3\n", "families/pipes.csv:3: text after the closing"},
        {pipes, pipe + "P\"Q,P,100,10,28.3\n", "families/pipes.csv:3: a quote inside a field"},
        // columns and units
        {pipes, "Name,VessaName,OD,T,T,AX\n", "families/pipes.csv:1: column T: the column occurs"},
        {pipes, "Name,VessaName,OD,T,,AX\n", "families/pipes.csv:1: a column without a name"},
        {pipes, "Name,VessaName,OD,T,BF\n", "families/pipes.csv:1: column BF: not a column of the"},
        {pipes, "Name,VessaName,OD,AX\n", "families/pipes.csv:1: column T: the column is missing"},
        {pipes, "Name,OD,T,AX\n", "families/pipes.csv:1: column VessaName: the column is missing"},
        {pipes, "Name,VessaName,OD,T\n", "families/pipes.csv:2: the line of units is missing"},
        {pipes, pipe, "families/pipes.csv: there are no sections below the line of units"},
        {pipes, pipe + "P\xE4,P,100,10,28.3\n",
         "families/pipes.csv:3: not UTF-8; save the text in"},
        {pipes, pipe + "P\xED\xA0\x80,P,100,10,28.3\n", "families/pipes.csv:3: not UTF-8"},
        {pipes, "Name,VessaName,OD,T\nTEXT,TEXT,INCH,MM\n",
         "families/pipes.csv:2: column OD: \"INCH\": not a known unit"},
        {pipes, "Name,VessaName,OD,T\nTEXT,TEXT,FEET,FEET\n",
         "families/pipes.csv:2: no system of units has its lengths in \"FEET\""},
        {pipes, "Name,VessaName,OD,T,I\nTEXT,TEXT,MM,MM,CM^3\n",
         "families/pipes.csv:2: column I: \"CM^3\": not a unit of length^4"},
        {pipes, "Name,VessaName,OD,T\nTEXT,NUMBER,MM,MM\n",
         "families/pipes.csv:2: column VessaName: \"NUMBER\": the unit of this column is TEXT"},
        {pipes, "Name,VessaName,OD,T\nTEXT,TEXT,MM,CM\nP,P,100,1\n",
         "VenezuelanSections/_tables.csv: table Pipe: the family pipes has its column T in CM, "
         "others of the catalogue in MM"},
        // figures and names
        {pipes, pipe + "P,P,100,10,7.6x\n", "families/pipes.csv:3: column AX: \"7.6x\": not a"},
        {pipes, pipe + "P,P,100,10,inf\n", "families/pipes.csv:3: column AX: \"inf\": not a"},
        {pipes, pipe + "P,P,100,10,1e-2\n", // half a unit of its last digit would be anything
         "families/pipes.csv:3: column AX: \"1e-2\": not a decimal, as figures are printed"},
        {pipes, pipe + "P,P,100,10,\"28,3\"\n", "families/pipes.csv:3: column AX: \"28,3\": not"},
        {pipes, pipe + "P,P,100,,28.3\n", "families/pipes.csv:3: column T: the field is empty"},
        {pipes, pipe + "P,P,-100,10,28.3\n",
         "families/pipes.csv:3: column OD: \"-100\": not above"},
        {pipes, pipe + "P,P,100,0,28.3\n", "families/pipes.csv:3: column T: \"0\": not above zero"},
        {pipes, pipe + ",P,100,10,28.3\n", "families/pipes.csv:3: column Name: the field is empty"},
        {pipes, pipe + "P,Q,100,10,28.3\np,R,100,10,28.3\n",
         "families/pipes.csv:4: column Name: \"p\": also the name in line 3"},
        {pipes, pipe + "P,Q,100,10,28.3\nR,q,100,10,28.3\n",
         "families/pipes.csv:4: column VessaName: \"q\": also the name in line 3"},
        {pipes, pipe + "P,P+Q,100,10,28.3\n",
         "families/pipes.csv:3: column VessaName: \"P+Q\": not a"},
        {pipes, pipe + "P's,P,100,10,28.3\n", "families/pipes.csv:3: column Name: \"P's\": not a"},
        {pipes, "Name,VessaName,Alias,OD,T\nTEXT,TEXT,TEXT,MM,MM\nP,P,a;;b,100,10\n",
         R"(families/pipes.csv:3: column Alias: "a;;b": "": not a name)"},
        {pipes, "Name,VessaName,Alias,OD,T\nTEXT,TEXT,TEXT,MM,MM\nP,P,,100,10\nQ,Q,~p,90,10\n",
         R"(VenezuelanSections/_tables.csv: "P" names two sections: P of table Pipe and Q of)"},
        {list, families + "pipes,round tube,,a,b,OD T\n",
         "families/pipes.csv:3: the sizes are not those of the name"},
        // geometry
        {pipes, pipe + "P,P,100,10,29.3\n",
         "families/pipes.csv:3: column AX: \"29.3\": 3.50 % too large, 0.17 % is allowed; the "
         "section's geometry gives 28.274"},
        {pipes, pipe + "P,P,100,50,28.3\n", "families/pipes.csv:3: the wall (T) fills the whole"},
        {list, families + "pipes,round pipe,,a,b,\n",
         R"(families/_families.csv:2: column Geometry: "round pipe": no geometry has this name)"},
        {list, families + "pipes,rolled I,,a,b,\n",
         R"(families/_families.csv:2: column Family: "pipes": not a family of the layout "round)"},
        {list, families + "pipes,round tube,outside=2,a,b,\n",
         R"(families/_families.csv:2: column Parameters: "outside=2": "outside=2" is not a)"},
        {list, families + "pipes,round tube,,,b,\n", "families/_families.csv:2: column Standard: "},
        {list, families + "pipes,round tube,,a,b,\npipes,round tube,,a,b,\n",
         "families/_families.csv:3: column Family: \"pipes\": the family is named twice"},
        {list, families + "tubes,round tube,,a,b,\n",
         "families/pipes.csv: _families.csv does not name this family"},
        {list, families + "pipes,round tube,,a,b,\ntubes,round tube,,a,b,BF\n", ""},
        // tables
        {tables, "Table,Families\nPipe,pipes\nPipe,pipes\n",
         "VenezuelanSections/_tables.csv:3: column Table: \"Pipe\": the table is named twice"},
        {tables, "Table,Families\nW Shape,pipes\n",
         "VenezuelanSections/_tables.csv:2: column Table: \"W Shape\": the catalogue has no table"},
        {tables, "Table,Families\nPipe,pipes;tubes\n",
         "VenezuelanSections/_tables.csv:2: column Families: \"pipes;tubes\": there is no family "
         "\"tubes\""},
        {tables, "Table,Families\nTube,pipes\n",
         "families/_families.csv:2: column Family: \"pipes\": not a family of the layout "
         "\"rectangular tube\""},
        {tables, "Table,Families\nPipe,pipes;pipes\n",
         "VenezuelanSections/_tables.csv: \"PIP100\" names two sections: "},
        {tables, "Table,Families,NameFrom\nPipe,pipes,OC\n",
         "VenezuelanSections/_tables.csv: the section P100 must have one alias \"OC ...\""},
        {"VenezuelanSections/Old.csv", pipe, "VenezuelanSections/Old.csv: not a text of a"},
        // rules
        {tolerances, tolerance + "pipes,I,1,why\n",
         "families/_tolerances.csv:2: no figure needs this tolerance"},
        {tolerances, tolerance + "pipes,AX,1,why\n",
         "families/_tolerances.csv:2: no figure needs this tolerance"}, // printing explains it
        {tolerances, tolerance + "pipes,AX,0,why\n",
         "families/_tolerances.csv:2: column Percent: \"0\": not a bound"},
        {tolerances, tolerance + "pipes,AX,1,\n",
         "families/_tolerances.csv:2: column Reason: the field is empty"},
        {tolerances, tolerance + "tubes,AX,1,why\n",
         "families/_tolerances.csv:2: column Family: \"tubes\": _families.csv does not name"},
        {exceptions, exception + "pipes,P99,AX,1,why\n",
         "families/_exceptions.csv:2: no figure needs this exception"},
        {exceptions, exception + "pipes,P50,AX,1,why\n",
         "families/_exceptions.csv:2: no figure needs this exception"},
        {exceptions, exception + "pipes,P50,AX,1,why\npipes,P50,AX,2,why\n",
         "families/_exceptions.csv:3: a rule for the same figures stands further up"},
        // corrections
        {corrections, correction + "P50,AX,1,2,\n",
         "families/_corrections.csv:2: column Reason: the field is empty"},
        {corrections, correction + "P50,AX,7.7,7.07,why\n", ""},
        {corrections, correction + "P50,AX,7.7,7.070,why\n", ""},
        {corrections, correction + "P50,AX,7.7,7.06,why\n",
         "families/_corrections.csv:2: P50: AX is 7.07"},
        {corrections, correction + "P50,AX,7.7,computed,why\n",
         "families/_corrections.csv:2: P50: AX is not computed, but 7.07"},
        {corrections, correction + ",AX,,computed,why\n",
         "families/_corrections.csv:2: P100: AX is not computed, but 28.3"},
        {corrections, correction + ",I,,computed,why\n", ""},
        {corrections, correction + "P5,AX,7.7,7.07,why\n",
         "families/_corrections.csv:2: the family has no section \"P5\""},
        {corrections, correction + "P5,I,7.7,computed,why\n",
         "families/_corrections.csv:2: the family has no section \"P5\""},
        {corrections, correction + "P50,,,left out,why\n",
         "families/_corrections.csv:2: P50 is not left out"},
        {corrections, correction + "P5,,,left out,why\n", ""},
        // title
        {catalogue, "Key,Value\nTitle,Pipes\nUnits,US\n",
         "VenezuelanSections/_catalogue.csv: the key Source is missing"},
        {catalogue, "Key,Value\nStandard,ASME\n",
         "VenezuelanSections/_catalogue.csv:2: column Key: \"Standard\": not a key of this"},
        {catalogue, "Key,Value\nTitle,a\nSource,c\nUnits,SI\n",
         R"(VenezuelanSections/_catalogue.csv: "SI" is no system of units; give metric or US)"},
    };
    for (const Case& bad : cases) {
        const PipeSources sources;
        sources.Write(bad.file, bad.text);
        const std::string fault = FaultOf(sources);
        EXPECT_TRUE(fault.starts_with(bad.fault) && fault.empty() == (*bad.fault == '\0'))
            << bad.text << "gives: " << fault;
    }
}

TEST(CatalogueSource, KeepsAnExceptionWithinItsBound) {
    const PipeSources sources;
    const std::string exceptions = "Family,Name,Column,Percent,Reason\npipes,P100,AX,";
    const std::string pipes = PipeHeader;
    sources.Write("families/pipes.csv", pipes + "P100,PIP100,100,10,29.3\n"); // 3.50 % too large
    sources.Write("families/_exceptions.csv", exceptions + "3.6,as printed\n");
    EXPECT_EQ(FaultOf(sources), "");
    sources.Write("families/_exceptions.csv", exceptions + "3.4,as printed\n");
    EXPECT_TRUE(
        FaultOf(sources).starts_with("families/pipes.csv:3: column AX: \"29.3\": 3.50 % too "
                                     "large, 3.40 % is allowed"))
        << FaultOf(sources);
    sources.Write("families/_exceptions.csv", exceptions + "10.6,as printed\n");
    EXPECT_EQ(FaultOf(sources),
              "families/_exceptions.csv:2: column Percent: \"10.6\": no figure is "
              "further away than 3.5 %; lower the bound");
    sources.Write("families/_exceptions.csv", exceptions + "3.6,as printed\n");
    sources.Write("families/pipes.csv", pipes + "P100,PIP100,100,10,283\n");
    EXPECT_TRUE(FaultOf(sources).starts_with("families/pipes.csv:3: column AX: \"283\": 90.01 %"))
        << FaultOf(sources);
}

TEST(CatalogueSource, ComputesWhatIsLeftOut) {
    const PipeSources sources;
    sources.Write("families/pipes.csv", "Name,VessaName,OD,T,AX\nTEXT,TEXT,MM,MM,CM^2\n"
                                        "P100,PIP100,100,10,28.3\nP50,PIP50,50,5,\n");
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
    EXPECT_EQ(pipes.rows[0], (SourceRow{"P100", "PIP100", 100.0, 10.0, 28.3, 289.81, 81.333}));
    EXPECT_EQ(pipes.rows[1], (SourceRow{"P50", "PIP50", 50.0, 5.0, 7.0686, 18.113, 10.167}));
}

TEST(CatalogueSource, ConvertsFamiliesOfAnotherSystemOfUnitsAndNamesThemByTheirAlias) {
    const PipeSources sources;
    sources.Write("VenezuelanSections/_tables.csv", "Table,Families,NameFrom\nPipe,pipes,OC\n");
    sources.Write("families/pipes.csv", "Name,VessaName,Alias,OD,T,AX\n"
                                        "TEXT,TEXT,TEXT,INCHES,INCHES,INCHES^2\n"
                                        "Pipe6STD,PIPE6SCH40,~P6;OC 152 STD,6.63,0.261,5.2\n");
    const CatalogueSource source = CatalogueSource::Load(sources.Path());
    const SourceTable& pipes = source.tables[4];
    EXPECT_EQ(pipes.columns[5].unit, "CM^2");
    // pi / 64 (6.63^4 - 6.108^4) = 26.524 in^4, (6.63^3 - 6.108^3) / 6 = 10.593 in^3
    EXPECT_EQ(pipes.rows[0],
              (SourceRow{"OC 152 STD", "OC152STD", 168.402, 6.6294, 33.5483, 1104.0, 173.59}));
}

TEST(CatalogueSource, TakesParametersFromTheFamilyOrFromEachSection) {
    const PipeSources sources;
    sources.Write("VenezuelanSections/_tables.csv", "Table,Families\nTube,pipes\n");
    const std::string families = std::string(PipeSources::FamiliesHeader) + "pipes,";
    sources.Write("families/_families.csv", families + "rectangular tube,outside=1.5,EN 1,x,\n");
    const std::string header = "Name,VessaName,D,B,T,AX,inside\nTEXT,TEXT,MM,MM,MM,CM^2,";
    const char* const file = "families/pipes.csv";
    sources.Write(file, header + "NUMBER\nB,B,100,100,10,34.9,1\n"); // EN 10210
    EXPECT_EQ(FaultOf(sources), "");
    const std::string hash = CatalogueSource::Load(sources.Path()).sourceHash;
    EXPECT_EQ(hash.size(), 64U);

    sources.Write(file, header + "NUMBER\nB,B,100,100,10,34.9,0\n");
    EXPECT_TRUE(FaultOf(sources).starts_with("families/pipes.csv:3: column AX: \"34.9\": "));
    sources.Write(file, header + "MM\n");
    EXPECT_EQ(FaultOf(sources),
              "families/pipes.csv:2: column inside: \"MM\": the unit of this column is NUMBER");
    sources.Write(file, header + "NUMBER\r\nB,B,100,100,10,34.9,1\n");
    EXPECT_NE(CatalogueSource::Load(sources.Path()).sourceHash, hash) << "every byte counts";
    sources.Write(file, header + "NUMBER\nB,B,100,100,10,34.9,\n");
    EXPECT_EQ(FaultOf(sources), "families/pipes.csv:3: the figure inside is missing");
    sources.Write("families/_families.csv",
                  families + "rectangular tube,outside=1.5 inside=1,EN 1,x,\n");
    EXPECT_EQ(FaultOf(sources), "") << "the family's";
    sources.Write(file, header + "NUMBER\nB,B,100,100,10,34.9,0\n");
    EXPECT_NE(FaultOf(sources), "") << "the section's own comes first";
}

TEST(MisprintCount, TriesInputsAndComputedFigures) {
    const PipeSources sources;
    SourceFamilies families(sources.File("families"));
    SourceFamily pipes = families.Get("pipes", GetSectionLayout(LayoutId::RoundTube));
    MisprintCount count = CountMisprints(pipes); // of 100, 10, 28.3 and 50, 5, 7.07
    EXPECT_EQ(count.swaps, 5);
    EXPECT_EQ(count.swapsPassed, 0);
    EXPECT_EQ(count.shifts, 12);
    EXPECT_EQ(count.shiftsPassed, 0);
    EXPECT_TRUE(count.IsSharp());

    pipes.rules.columns["AX"].tolerance.share = 9.5;
    count = CountMisprints(pipes);
    EXPECT_EQ(count.swapsPassed, 3);  // T 01, AX 82.3 and 7.70
    EXPECT_EQ(count.shiftsPassed, 6); // T a tenth, AX a tenth and ten times
    EXPECT_FALSE(count.IsSharp());

    EXPECT_TRUE((MisprintCount{100, 2, 200, 0}.IsSharp()));
    EXPECT_FALSE((MisprintCount{100, 3, 200, 0}.IsSharp()));
    EXPECT_FALSE((MisprintCount{100, 0, 200, 1}.IsSharp()));
}

TEST(AllSources, BuildEveryCatalogue) {
    int sections = 0;
    SourceLibrary library;
    for (int index = 1; index <= LastCatalogueIndex; ++index) {
        const std::string stem = SectionDBInterface::m_saSectionFile[index];
        SCOPED_TRACE(stem);
        const auto folder = std::filesystem::path(SECTIONDB_DATA_DIR) / stem;
        const auto source = CatalogueSource::Load(folder, library);
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
    EXPECT_GT(sections, 32000);

    const TempFolder elsewhere;
    try {
        CatalogueSource::Load(elsewhere.Path());
        FAIL() << "a folder of no catalogue was accepted";
    } catch (const SourceError& error) {
        EXPECT_TRUE(
            Holds(error.what(), "file stem of a catalogue: AISCSections, AustralianSections, "));
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
