// Resolving section names over the tables of one catalogue and of all of them.
#include "QuerySupport.h"

#include "catalogues/Catalogues.h"
#include "units/UNIT.h"

#include <functional>

using namespace testsupport;

namespace {

using Numbers = std::vector<unsigned int>;
using Texts = std::vector<CString>;

template <class Array>
auto Content(const Array& array) {
    return std::vector(array.begin(), array.end());
}

class NamesTest : public QueryTest {
protected:
    std::string FileFor(int index) const {
        return File((std::string(Facade::m_saSectionFile[index]) + ".db3").c_str());
    }

    /// Tables that take part in searches and tables that do not, with names that occur twice.
    void MakeAmerican() {
        CatalogueFile file(FileFor(1));
        file.AddTextTable("Notes", {"RECNO", "Remark"}, {{"1", "W1"}});
        file.AddTextTable("Makers", {"RECNO", "Name"}, {{"1", "Acme"}});
        file.AddTable("~Hidden", LayoutId::Cable, {{"C1", "VC1", {}}});
        file.AddTable("MC Channel", LayoutId::Cable,
                      {{"C1", "vc1", {}}, {"Twin", "T1", {}}, {"Twin", "T2", {}}});
        file.AddTable("W Shape", LayoutId::Cable,
                      {{"C1", "VC1", {}}, {"W1", "VW1", {}}, {"x", "SAME", {}}, {"y", "Same", {}}});
        file.AddTable("Mine", LayoutId::Cable, {{"M1", "VM1", {}}});
    }
};

TEST_F(NamesTest, TheFirstTableWithAMatchCounts) {
    MakeAmerican();
    struct Case {
        const char* name;
        Numbers byVessaName;
        Numbers byPublicName;
    };
    for (const Case& c : {Case{"VC1", {7}, {}}, // in an earlier table in another letter case
                          {"vw1", {1}, {}},     // typed in lower case
                          {"C1", {}, {7}},      // in two tables
                          {"c1", {}, {}},       // public names are matched as they stand
                          {"Twin", {}, {7, 7}}, // once for each row
                          {"same", {1, 1}, {}},
                          {"VM1", {16}, {}}, // a table of no type: the last type visited
                          {"M1", {}, {16}},
                          {"Acme", {}, {16}}, // a table without VessaName
                          {"title", {}, {}},  // in "DBInfo"
                          {"INCHES", {}, {}}, // in "Field Units"
                          {"", {}, {}}}) {
        CUIntArray byVessaName;
        CUIntArray byPublicName;
        EXPECT_EQ(Facade::GetSectionTypeFromVessaName(1, c.name, byVessaName),
                  c.byVessaName.empty() ? 0 : 1);
        EXPECT_EQ(Facade::GetSectionTypeFromPublicName(1, c.name, byPublicName),
                  c.byPublicName.empty() ? 0 : 1);
        EXPECT_EQ(Content(byVessaName), c.byVessaName) << c.name;
        EXPECT_EQ(Content(byPublicName), c.byPublicName) << c.name;
    }
    EXPECT_EQ(Facade::m_nCountry, 1);
    EXPECT_EQ(TakeQuietError(), 0); // a table without the column is no error
    EXPECT_EQ(Facade::GetExceptionType(), 0);

    CString table = "kept";
    EXPECT_EQ(Facade::GetTableNameFromSection(2, "VW1", table), 0);
    EXPECT_EQ(table, "kept");
    EXPECT_EQ(Facade::GetTableNameFromSection(1, "VW1", table), 1);
    EXPECT_EQ(table, "W Shape");
    EXPECT_EQ(Facade::GetTableNameFromSection(1, "vw1", table), 0);
}

TEST_F(NamesTest, TranslatesNamesAndRepeatsTheFirstRow) {
    MakeAmerican();
    CUIntArray types;
    types.Add(99);
    CStringArray names;
    names.Add("before");
    EXPECT_EQ(Facade::GetSectionTypeAndVessaNameFromPublicName(1, "Twin", types, names), 1);
    EXPECT_EQ(Facade::GetSectionTypeAndPublicNameFromVessaName(1, "Same", types, names), 1);
    EXPECT_EQ(Content(types), (Numbers{99, 7, 7, 1, 1}));
    EXPECT_EQ(Content(names), (Texts{"before", "T1", "T1", "x", "x"}));

    CUIntArray same;
    Texts vector{"before"};
    EXPECT_EQ(Facade::GetSectionTypeAndVessaNameFromPublicName(1, "Twin", same, vector), 1);
    EXPECT_EQ(Facade::GetSectionTypeAndPublicNameFromVessaName(1, "Same", same, vector), 1);
    EXPECT_EQ(Content(same), (Numbers{7, 7, 1, 1}));
    EXPECT_EQ(vector, Content(names));

    // What was there before counts as found, unless the catalogue cannot be opened.
    EXPECT_EQ(Facade::GetSectionTypeFromVessaName(1, "nothing", types), 1);
    EXPECT_EQ(Facade::GetSectionTypeFromVessaName(2, "VW1", types), 0);
    EXPECT_EQ(types.GetSize(), 5);
}

TEST_F(NamesTest, SearchesAllCataloguesUntilOneIsMissing) {
    Facade::InitSectionDBInterface();
    for (int index = 1; index <= LastCatalogueIndex; ++index) {
        auto* catalogue = Facade::m_SectionDBDrv.GetSectionDBObject(static_cast<WORD>(index));
        const char* name = index % 12 == 3 ? "W12X26" : "Other";
        CatalogueFile(FileFor(index))
            .AddTable(catalogue->TableNames().begin()->second, LayoutId::Cable, {{name, name, {}}});
    }
    const auto expectFound = [](int result, const Numbers& catalogues) {
        for (const auto search : {Facade::GetCountryAndSectionTypeFromVessaName,
                                  Facade::GetCountryAndSectionTypeFromPublicName}) {
            CUIntArray found;
            CUIntArray types;
            EXPECT_EQ(search("W12X26", found, types), result);
            EXPECT_EQ(Content(found), catalogues);
            EXPECT_EQ(Content(types), Numbers(catalogues.size(), 1));
        }
    };
    expectFound(1, {3, 15, 27});
    CUIntArray found;
    CUIntArray types;
    EXPECT_EQ(Facade::GetCountryAndSectionTypeFromVessaName("nothing", found, types), 0);
    EXPECT_EQ(Facade::m_nCountry, 37);
    std::filesystem::remove(FileFor(20));
    expectFound(0, {3, 15});
    WriteFile(FileFor(10), std::string(4096, 'x'));
    expectFound(0, {3});
    EXPECT_EQ(shownBoxes, std::vector<Box>{});
}

TEST_F(NamesTest, ATableOfTwoColumnsIsFoundByEveryForm) {
    CatalogueFile(FileFor(1)).AddTextTable("Makers", {"RECNO", "Name"}, {{"1", "Acme"}});
    CUIntArray types;
    CStringArray names;
    EXPECT_EQ(Facade::GetSectionTypeFromPublicName(1, "Acme", types), 1);
    EXPECT_EQ(Facade::GetSectionTypeAndVessaNameFromPublicName(1, "Acme", types, names), 1);
    EXPECT_EQ(Content(types), (Numbers{16, 16}));
    EXPECT_EQ(Content(names), Texts{""}) << "it has no other name";
    EXPECT_EQ(TakeQuietError(), 0);
}

TEST_F(NamesTest, OnlyTablesWithTheColumnAreAsked) {
    MakeAmerican();
    Facade::GetDatabasePtr(1);
    openedStatements.clear();
    CUIntArray types;
    Facade::GetSectionTypeFromVessaName(1, "vw1", types);
    const std::vector<std::string> statements{
        "4 SELECT * FROM [MC Channel] WHERE UPPER([VessaName]) = UPPER('vw1')",
        "4 SELECT * FROM [W Shape] WHERE UPPER([VessaName]) = UPPER('vw1')"};
    EXPECT_EQ(openedStatements, statements);
    openedStatements.clear();
    Facade::GetSectionTypeFromPublicName(1, "C1", types);
    EXPECT_EQ(openedStatements,
              (std::vector<std::string>{"4 SELECT * FROM [Makers] WHERE [Name] = 'C1'",
                                        "4 SELECT * FROM [MC Channel] WHERE [Name] = 'C1'"}));
    openedStatements.clear();
    CString table;
    EXPECT_EQ(Facade::GetTableNameFromSection(1, "VM1", table), 1);
    EXPECT_EQ(openedStatements.size(), 3U);
    EXPECT_EQ(openedStatements.back(), "4 Select * From [Mine] WHERE UPPER([VessaName]) = 'VM1'");
    EXPECT_EQ(Facade::GetExceptionType(), 0);
}

TEST_F(NamesTest, ANameThatIsNullIsNoSectionsAlsoWhereRowsAreKept) {
    MakeAmerican();
    LetSettle();
    CString table;
    for (int time = 0; time < 3; ++time) {
        CUIntArray types;
        EXPECT_EQ(Facade::GetSectionTypeFromVessaName(1, nullptr, types), 0);
        EXPECT_EQ(Facade::GetTableNameFromSection(1, nullptr, table), 0);
        EXPECT_EQ(Facade::GetSectionTypeFromVessaName(1, "vw1", types), 1);
    }
}

TEST_F(NamesTest, NoLookUpTakesANameWithAQuote) {
    MakeAmerican();
    {
        CatalogueFile joists(FileFor(21));
        joists.AddTextTable("OWJoistMaster", {"JoistID", "Designation"}, {{"1", "8K1"}});
    }
    CSectionDatabase*& db = gblSectionDatabase;
    const std::string before = ReadFile(FileFor(1));
    CUIntArray types;
    types.Add(1);
    CUIntArray catalogues;
    CStringArray names;
    CString table;
    int type = 0;
    float values[20] = {};
    double angle = 0;
    RecordsetHandle rows;
    AISCSECTION::AM_CastellatedCompBeam beam;
    constexpr int None[][2] = {{-1, 0}};
    const auto object = [](int index) {
        CSectionDatabase* database = Facade::GetDatabasePtr(index);
        SectionDBBase* catalogue =
            Facade::m_SectionDBDrv.GetSectionDBObject(static_cast<WORD>(index));
        catalogue->SetDatabase(database);
        return catalogue;
    };
    const auto query = [&](auto ask, auto... items) {
        Facade::GetDatabasePtr(1);
        EXPECT_EQ(openRecordset(&db, rows.Address(), "Select * From [W Shape]", 4, 1), 1);
        ask(1, 1, items..., &db, rows.Address());
        return rows.Get() == nullptr ? 0 : 1; // what was found before does not stay
    };
    using LookUp = std::function<int(const char*)>;
    const std::pair<const char*, LookUp> lookUps[] = {
        {"type by VessaName",
         [&](auto name) { return Facade::GetSectionTypeFromVessaName(1, name, types); }},
        {"names by VessaName",
         [&](auto name) {
             return Facade::GetSectionTypeAndPublicNameFromVessaName(1, name, types, names);
         }},
        {"all catalogues",
         [&](auto name) {
             return Facade::GetCountryAndSectionTypeFromPublicName(name, catalogues, types);
         }},
        {"table", [&](auto name) { return Facade::GetTableNameFromSection(1, name, table); }},
        {"table, exactly",
         [&](auto name) { return object(1)->FindSectionTableExact(name, table); }},
        {"table, in capitals",
         [&](auto name) { return object(1)->GetTableNameFromSection(name, table); }},
        {"row", [&](auto name) { return object(1)->GetSectionData(name, &type) != nullptr; }},
        {"joist", [&](auto name) { return object(21)->GetSectionData(name, &type) != nullptr; }},
        {"summary",
         [&](auto name) {
             return object(1)->GetSectionStructProperty(name, 1001, 2001, &type) != nullptr;
         }},
        {"display",
         [&](auto name) {
             return Facade::GetSectionDataForGUI(1, name, &type, values, "", 1001, 2001);
         }},
        {"angle", [&](auto name) { return Facade::GetSectionPrincipalAngle(1, name, &angle); }},
        {"castellated",
         [&](auto name) {
             Facade::GetCastellatedCompBeamData(1, 1, name, beam);
             return beam.RecordNumber;
         }},
        {"section", [&](auto name) { return query(Facade::GetSectionRecord, name); }},
        {"pattern",
         [&](auto name) { return query(Facade::GetLikeSortedSectionRecords, None, name); }},
        {"steel joist", [&](auto name) { return query(Facade::GetSteelJoist, name); }},
        {"aluminium",
         [&](auto name) {
             return query(Facade::GetAluminiumMaterialProperty, name, 0U, 0U, 0U, 1.0F);
         }},
        {"units", [&](auto name) { return UNIT::GetFieldUnitList(db, name) != nullptr; }},
        {"units deleted", [&](auto name) { return UNIT::DeleteFieldUnits(db, name), 0; }},
        {"unit changed", [&](auto name) { return UNIT::UpdateFieldUnit(db, name, 0, "x"), 0; }},
    };
    for (const auto& [what, lookUp] : lookUps)
        for (const char* name : {"VW1'", "x' OR '1'='1", "'", "VW1') OR ('1'='1"}) {
            SCOPED_TRACE(std::string(what) + ": " + name);
            Facade::SetExceptionType(0);
            Facade::m_nDaoErrorRepeats = 0;
            EXPECT_EQ(lookUp(name), 0);
            EXPECT_EQ(Facade::GetExceptionType(), 4);
            EXPECT_EQ(Facade::m_nDaoErrorRepeats, 0) << "told once, not for each table";
            EXPECT_EQ(TakeQuietError(), SectionError::BadStatement);
        }
    EXPECT_EQ(types.GetSize(), 1);
    EXPECT_EQ(shownBoxes, std::vector<Box>{});
    Facade::ExitSectionDBInterface();
    EXPECT_TRUE(ReadFile(FileFor(1)) == before);
}

} // namespace
