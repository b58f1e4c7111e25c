// Property summaries of sections that are not symmetric about both axes, of what is not kept, and
// of rows that are handed back. Figures are in the units of their tables (inches and kips); the
// expected moduli are the moment of inertia by the distance of the extreme fibre.
#include "CatalogueFixture.h"

#include "catalogues/Catalogues.h"
#include "catalogues/SectionDBDriver.h"
#include "units/UNIT.h"

#include <map>
#include <memory>

using namespace testsupport;

namespace {

constexpr WORD American = 1;
constexpr WORD European = 7;
constexpr WORD Aluminium = 17;
constexpr WORD ColdFormed = 28;
constexpr WORD User = 1001;

class SummaryTest : public DataAccessTest {
protected:
    SummaryTest() : m_file(m_folder.File("sections.db3")) { m_driver.CreateSectionDBObjects(); }

    /// The catalogue's object with the file attached, working on a table.
    SectionDBBase& Catalogue(WORD index, const char* table) {
        SectionDBBase* catalogue = m_driver.GetSectionDBObject(index);
        catalogue->SetDatabase(m_file.Database());
        catalogue->SetWorkingTable(table);
        return *catalogue;
    }

    std::unique_ptr<SECTIONINFO> Summary(WORD index, const char* name) {
        int type = 0;
        return std::unique_ptr<SECTIONINFO>(
            Catalogue(index, "").GetSectionStructProperty(name, 1001, 2001, &type));
    }

    /// The rows of a table, their values joined by blanks; "-" for a null.
    std::vector<std::string> Rows(const char* table) const {
        std::vector<std::string> all;
        CSectionRecordset rows(m_file.Database());
        rows.Open(CSectionRecordset::Snapshot, ("Select * From [" + CString(table) + "]"));
        for (; !rows.IsEOF(); rows.MoveNext()) {
            std::string& row = all.emplace_back();
            for (int column = 0; column < rows.GetFieldCount(); ++column) {
                const COleVariant value = rows.GetFieldValue(column);
                CString text = value.vt == VT_NULL ? CString("-") : value.strVal;
                if (const auto number = dbsection::NumberIn(value))
                    text.Format("%g", *number);
                row += (row.empty() ? "" : " ") + std::string(text);
            }
        }
        return all;
    }

    /// The moduli of a row that is alone in its table.
    void ExpectModuli(const char* what, WORD index, const char* table, LayoutId layout,
                      const std::vector<COleVariant>& row, double major, double minor) {
        SCOPED_TRACE(what);
        m_file.AddTable(table, layout, {{"S", "S", row}});
        const auto info = Summary(index, "S");
        ASSERT_TRUE(info);
        EXPECT_NEAR(info->MajorModulus, major, major * 5e-4);
        EXPECT_NEAR(info->MinorModulus, minor, minor * 5e-4);
        m_file.RemoveTable(table);
        UNIT::DeleteFieldUnits(m_file.Database(), table);
    }

    CatalogueFile m_file;
    SectionDBDriverImpl m_driver;
};

TEST_F(SummaryTest, TakesTheExtremeFibreOrNone) {
    using enum LayoutId;
    const COleVariant none = COleVariant::Null();
    // Two L 100 x 100 x 10 (each 19.2 cm2, 177 cm4, centroid 2.82 cm): Iy = 2 (177 + 19.2
    // (2.82 + gap / 2)^2); 354 / 7.18 = 49.30, 776.3 / 10.5 = 73.93, 659.4 / 10 = 65.94.
    ExpectModuli("gap of 10 mm", User, "Double Angle", DoubleAngle,
                 {10., 10., 1., 38.4, 354., 776.3, 12.8, 2.82, 2.82, 1.95, 0., 1.}, 49.30, 73.93);
    ExpectModuli("angles that touch", User, "Double Angle", DoubleAngle,
                 {10., 10., 1., 38.4, 354., 659.4, 12.8, 2.82, 2.82, 1.95, 0., 0.}, 49.30, 65.94);
    ExpectModuli("gap not told", User, "Double Angle", DoubleAngle,
                 {10., 10., 1., 38.4, 354., 776.3, 12.8, 2.82, 2.82, 1.95, 0., none}, 49.30, 0);
    // 78 / (10 - 2.737) = 10.74, where half the leg would give 15.6.
    ExpectModuli("equal legs", ColdFormed, "Angle without Lips", ColdFormedAngle,
                 {7.84, 10., 10., .4, .4, 78., .42, 78., 0., 2.737, 2.737}, 10.74, 10.74);
    ExpectModuli("centroid along one leg", ColdFormed, "Angle without Lips", ColdFormedAngle,
                 {7.84, 10., 10., .4, .4, 78., .42, 78., 0., 2.737, none}, 0, 10.74);
    // 24 / (8 - 3.04) = 4.839; 5.4 / (4 - 1.04) = 1.824
    ExpectModuli("lips", ColdFormed, "Angle with Lips", ColdFormedAngleLipped,
                 {2.84, 8., 4., 1.5, .2, .2, 24., .038, 5.4, 1., 1.04, 3.04}, 4.839, 1.824);
    // 40 / 5 = 8; 6 / (5 - 1.5) = 1.714
    ExpectModuli("channel", ColdFormed, "Channel without Lips", ColdFormedChannel,
                 {3.8, 10., 5., .2, .2, 40., .05, 6., 90., 1.5}, 8, 1.714);
    ExpectModuli("channel without centroid", ColdFormed, "Channel with Lips",
                 ColdFormedChannelLipped, {3.8, 10., 5., 1., .2, .2, 40., .05, 6., 90., none}, 8,
                 0);
    // 64 / (8 - 0.2 / 2) = 8.101, where half the flange would give 16.
    ExpectModuli("zee", ColdFormed, "Zee without Lips", ColdFormedZee,
                 {6., 20., 8., .2, .2, 350., .08, 64., 9e3, .1}, 35, 8.101);
    ExpectModuli("zee with lips", ColdFormed, "Zee with Lips", ColdFormedZeeLipped,
                 {6., 20., 8., 2., .2, .2, 350., .08, 64., 9e3, none}, 35, 8.101);
    // 95 / 5.69 = 16.70, where half the depth would give 19; 150 / (8 / 2 + 2.5) = 23.08
    ExpectModuli("hat", ColdFormed, "Hat", Hat,
                 {7., 10., 8., .2, .2, 95., .09, 150., 300., 4., 2.5, 5.69}, 16.70, 23.08);
    ExpectModuli("hat of version 1", ColdFormed, "Hat", Hat,
                 {7., 10., 8., .2, .2, 95., .09, 150., 300., 4., none, none}, 0, 0);
    // 300 / (20 - 9) = 27.27; 50 / (7 - 2) = 10
    ExpectModuli("eave strut", ColdFormed, "Eave Struts", EaveStrut,
                 {6., 20., 7., 2., .2, .2, 300., .08, 50., 9e3, 2., 9.}, 27.27, 10);
    // 9.98 / (6 - 1.27) = 2.110; 1.72 / (4 / 2) = 0.86
    ExpectModuli("tee", User, "Tee", Tee,
                 {2.99, 6., 4., .32, .25, 9.98, .09, .11, 1.72, 3.7, 1.3, 1.27}, 2.110, .86);
    // HP 200 x 10: 25.6 cm2, 1020 cm4, centroid 11.9 cm: 1020 / 11.9 = 85.7
    ExpectModuli("bulb flat", European, "Bulb Flat", BulbFlat,
                 {20., 1., 2.8, .8, 25.6, 1020., 11.9}, 85.71, 0);
    ExpectModuli("depth not told", User, "Wide Flange", IShape,
                 {7.65, none, 6.49, .38, .23, 204., .3, 607., 17.3, 37.2, 8.17}, 0, 5.331);
    ExpectModuli("the table's own", User, "General", General,
                 {10., 9., 8., 100., 5., 50., 21., 12., 25., 15., 4., 3.}, 21, 12);
}

TEST_F(SummaryTest, WeighsACableAsItsTableSays) {
    m_file.AddTable("Cable", LayoutId::Cable, {{"C", "C", {3.0, 7.07, 0.077}}, {"N", "N", {3.0}}});
    EXPECT_NEAR(Summary(American, "C")->WeightPerLength, 0.077 / 12, 1e-9); // kips per foot
    EXPECT_EQ(Summary(American, "N")->WeightPerLength, 0);
    EXPECT_EQ(Summary(American, "N")->MajorRadius, 0);
}

TEST_F(SummaryTest, OfAnAlloyHasNoDimensions) {
    m_file.AddTable("Alloy", LayoutId::AluminiumAlloy,
                    {{"6061", "6061", {COleVariant("Pipe"), 0., 1., 0., 0., 38., 35., 35., 24.}}});
    const auto info = Summary(Aluminium, "6061");
    for (const double value :
         {info->WeightPerLength, info->Area, info->MajorInertia, info->MajorModulus,
          info->MajorRadius, info->MinorInertia, info->MinorModulus, info->MinorRadius, info->Last})
        EXPECT_EQ(value, 0);
    EXPECT_EQ(info->Texts, std::vector<CString>{"Pipe"});
    EXPECT_EQ(info->Values, (std::vector{0., 1., 0., 0., 38., 35., 35., 24., 0.}));
}

TEST_F(SummaryTest, HandedBackStoresTheSameRow) {
    struct {
        WORD index;
        const char* table;
        LayoutId layout;
        std::vector<COleVariant> row;
        const char* stored;
    } const cases[] = {
        {Aluminium,
         "Alloy",
         LayoutId::AluminiumAlloy,
         {COleVariant("Pipe"), 0., 1., 0., 1., 38., 35., 34., 24., 10100.},
         " Pipe 0 1 0 1 38 35 34 24 10100"},
        {User,
         "Double Angle",
         LayoutId::DoubleAngle,
         {10., 10., 1., 38.4, 354., 776., 12.8, 2.82, 2.82, 1.95, 45., 0.},
         " 10 10 1 38.4 354 776 12.8 2.82 2.82 1.95 45 0"},
        {User,
         "Double Angle",
         LayoutId::DoubleAngle, // its gap is not told, which is not 0
         {10., 10., 1., 38.4, 354., 776., 12.8, 2.82, 2.82, 1.95, 45.},
         " 10 10 1 38.4 354 776 12.8 2.82 2.82 1.95 45 -"},
    };
    for (const auto& [index, table, layout, row, stored] : cases) {
        SCOPED_TRACE(stored);
        m_file.AddTable(table, layout, {{"S", "s", row}});
        int type = 0;
        const std::unique_ptr<SECTIONINFO> info(
            Catalogue(index, table).GetSectionStructProperty("s", 1004, 2005, &type));
        ASSERT_TRUE(info);
        EXPECT_EQ(Catalogue(index, table).UpdateSectionData(1, info.get()), 1);
        info->PublicName = "T";
        EXPECT_EQ(Catalogue(index, table).AddSectionData(2, info.get()), 1);
        EXPECT_EQ(Rows(table),
                  (std::vector{"1 S s" + std::string(stored), "2 T s" + std::string(stored)}));
        m_file.RemoveTable(table);
        UNIT::DeleteFieldUnits(m_file.Database(), table);
    }
}

/// The columns of a double angle in files of layout version 1, and one that its user added.
std::vector<Column> OlderDoubleAngle(const char* further) {
    std::vector<Column> columns{{"RECNO", SectionField::Long}, "Name", "VessaName"};
    for (const char* name :
         {"D", "B", "T", "AX", "IZ", "IY", "IX", "CY", "CZ", "RV", "ALPHA", further})
        if (*name != '\0')
            columns.emplace_back(name, SectionField::Double);
    return columns;
}

TEST_F(SummaryTest, ReadsAndWritesTablesOfAnOlderLayout) {
    SECTIONINFO section;
    section.PublicName = section.VessaName = "S";
    section.Values = {10, 10, 1, 38.4, 354, 776, 12.8, 2.82, 2.82, 1.95, 45, 1};
    for (const char* further : {"", "GAPS"}) { // in the place of the gap
        SCOPED_TRACE(further);
        m_file.AddPlainTable("Double Angle", OlderDoubleAngle(further));
        m_file.AddUnits("Double Angle", {"NUMBER", "TEXT", "TEXT", "INCHES", "INCHES", "INCHES",
                                         "INCHES^2", "INCHES^4", "INCHES^4", "INCHES^4", "INCHES",
                                         "INCHES", "INCHES", "DEGREE"});
        EXPECT_EQ(Catalogue(User, "Double Angle").AddSectionData(1, &section), 1);
        const std::string stored = "1 S S 10 10 1 38.4 354 776 12.8 2.82 2.82 1.95 45";
        const std::string own = *further == '\0' ? "" : " -";
        EXPECT_EQ(Rows("Double Angle"), std::vector{stored + own});
        const auto info = Summary(User, "S");
        ASSERT_TRUE(info);
        EXPECT_NEAR(info->MajorModulus, 49.30, .02);
        EXPECT_EQ(info->MinorModulus, 0); // the gap is not told
        EXPECT_EQ(info->Values.size(), 11U);
        EXPECT_EQ(Catalogue(User, "Double Angle").UpdateSectionData(1, info.get()), 1);
        EXPECT_EQ(Rows("Double Angle"), std::vector{stored + own});
        float values[16] = {};
        int type = 0;
        int row = 0;
        EXPECT_EQ(Catalogue(User, "").GetSectionDataForGUI(User, "S", &type, &row, values, 0, 0),
                  1);
        EXPECT_EQ(values[3], 1);  // the thickness
        EXPECT_EQ(values[11], 0); // the gap
        m_file.RemoveTable("Double Angle");
        UNIT::DeleteFieldUnits(m_file.Database(), "Double Angle");
    }
}

TEST(SectionLayouts, HaveFewColumnsThatOlderTablesLack) {
    const std::map<std::string, std::string> added{{"double angle", " GAP"},
                                                   {"cold-formed angle", " CY"},
                                                   {"cold-formed angle with lips", " CY"},
                                                   {"hat", " L CY"},
                                                   {"eave strut", " CY"}};
    for (const SectionLayout& layout : GetSectionLayouts()) {
        std::string names;
        for (const LayoutColumn& column : layout.columns)
            if (column.isAdded)
                names.append(" ").append(column.name);
        EXPECT_EQ(names, added.contains(layout.name) ? added.at(layout.name) : "") << layout.name;
    }
}

} // namespace
