// Resolving section names over the tables of one catalogue and of all of them.
#include "FacadeSupport.h"

using namespace testsupport;

namespace {

using Numbers = std::vector<unsigned int>;
using Texts = std::vector<CString>;

template <class Array>
auto Content(const Array& array) {
    return std::vector(array.begin(), array.end());
}

class NamesTest : public FacadeTest {
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

TEST_F(NamesTest, ANameWithAQuoteIsReportedOnce) {
    MakeAmerican();
    CUIntArray types;
    types.Add(1);
    CUIntArray catalogues;
    CStringArray names;
    CString table;
    for (const char* name : {"VW1'", "x' OR '1'='1", "'"})
        for (const int result :
             {Facade::GetSectionTypeFromVessaName(1, name, types),
              Facade::GetSectionTypeAndPublicNameFromVessaName(1, name, types, names),
              Facade::GetCountryAndSectionTypeFromPublicName(name, catalogues, types),
              Facade::GetTableNameFromSection(1, name, table)})
            EXPECT_EQ(result, 0) << name;
    EXPECT_EQ(Facade::m_nDaoErrorRepeats, 3 * 4 - 1); // not for each table
    EXPECT_EQ(TakeQuietError(), SectionError::BadStatement);
    EXPECT_EQ(types.GetSize(), 1);
    EXPECT_EQ(shownBoxes, std::vector<Box>{});
}

} // namespace
