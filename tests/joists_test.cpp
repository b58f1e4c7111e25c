// The steel joist catalogue. Its rows here are made up: no published joist is among them.
#include "JoistFixture.h"

#include "catalogues/AISCSteelJoistSectionDB.h"
#include "records/CatalogueRecords.h"
#include "records/GirderDesignation.h"

#include <memory>

using namespace testsupport;

namespace {

constexpr int KSeries = 1;
constexpr int LHSeries = 3;
constexpr int Girders = 5;

class JoistTest : public DataAccessTest {
protected:
    JoistTest() : m_file(m_folder.File("AISCSteelJoists.db3")) {
        using namespace joistrows;
        m_file.AddPlainTable("OWJoistMaster", JoistColumns(),
                             {Joist(7, "11K1", KSeries, 11, 5.5), Joist(3, "9K9", KSeries, 9, 4),
                              Joist(8, "19LH01", LHSeries, 19, 9), Joist(9, "Twin", 4, 1, 1),
                              Joist(10, "Twin", 4, 1, 1)});
        m_file.AddPlainTable("JoistGirderMaster", GirderColumns(),
                             {Master(2, "31S27G5N", Numbers({21, 31, 5, 6.2, 27})),
                              Master(1, "31S24G5N", Numbers({20, 31, 5, 6.2, 24}))});
        m_file.AddPlainTable(
            "JoistGirderLoad", Columns({"JoistID", "PanelPtLoad", "Weight"}),
            {Numbers({20, 4.5, 17}), Numbers({20, 6, 21}), Numbers({21, 4.5, 15})});
        m_joists.SetDatabase(m_file.Database());
    }

    std::string Names(int type, int sorted, CUIntArray* ids = nullptr) {
        CStringList list;
        m_joists.GetSectionNameList(type, &list, ids, sorted, 0);
        std::string text;
        for (const CString& name : list)
            text.append(text.empty() ? "" : " ").append(name);
        return text;
    }

    std::unique_ptr<SectionRecord> Data(const char* name, int& type) {
        return std::unique_ptr<SectionRecord>(m_joists.GetSectionData(name, &type));
    }

    CatalogueFile m_file;
    AISCSteelJoistSectionDB m_joists;
};

TEST_F(JoistTest, ListsSeriesAndDesignations) {
    CStringList types;
    EXPECT_EQ(m_joists.GetSectionTypeList(&types), 1);
    EXPECT_EQ(types.GetCount(), 5);
    CUIntArray ids;
    EXPECT_EQ(Names(KSeries, 0), "11K1 9K9");
    EXPECT_EQ(Names(KSeries, 1, &ids), "9K9 11K1");
    EXPECT_EQ(std::vector(ids.begin(), ids.end()), (std::vector{3u, 7u}));
    EXPECT_EQ(Names(LHSeries, 0), "19LH01");
    EXPECT_EQ(Names(2, 1, &ids), "");
    EXPECT_EQ(ids.GetSize(), 0);
    EXPECT_EQ(Names(6, 1), "");
    EXPECT_EQ(Names(Girders, 1, &ids), "31S24G5N4.5K 31S24G5N6.0K 31S27G5N4.5K");
    EXPECT_EQ(std::vector(ids.begin(), ids.end()), (std::vector{1u, 1u, 2u}));
    EXPECT_EQ(m_joists.GetSectionCount(KSeries), 5); // of the table that four series share
}

TEST_F(JoistTest, ReadsAJoistAndAGirderByDesignation) {
    int type = 0;
    const auto joist = Data("19lh01", type);
    ASSERT_TRUE(joist);
    EXPECT_EQ(type, LHSeries);
    EXPECT_EQ(joist->RecordNumber, 8);
    EXPECT_EQ(dynamic_cast<const AISCSTEELJOISTSECTION::Joist&>(*joist).Weight, 9);

    const auto girder = Data("31s24g5n6.00k", type);
    ASSERT_TRUE(girder);
    EXPECT_EQ(type, Girders);
    EXPECT_EQ(girder->VessaName, "31S24G5N6.0K");
    const auto& found = dynamic_cast<const AISCSTEELJOISTSECTION::JoistGirder&>(*girder);
    EXPECT_EQ(found.Weight, 21);
    EXPECT_EQ(found.Space, 6.2);

    type = -5;
    for (const char* unknown :
         {"", "Twin", "K", "11K2", "31S24G5N6.5K", "31S24G5N", "24G31S5N6K", "it's"})
        EXPECT_EQ(Data(unknown, type), nullptr) << unknown;
    EXPECT_EQ(type, -5);
}

TEST_F(JoistTest, DisplaysWhatIsStored) {
    float values[16] = {};
    CString name;
    EXPECT_EQ(m_joists.GetSectionDataForGUI(21, KSeries, 7, &name, values, "", 1004, 2007), 1);
    EXPECT_EQ(name, "11K1");
    EXPECT_EQ(values[1], 11);
    EXPECT_EQ(values[2], 5.5F);
    EXPECT_EQ(m_joists.GetSectionDataForGUI(21, Girders, 2, &name, values, "", 1004, 2007), 1);
    EXPECT_EQ(name, "31S27G5N4.5K");
    EXPECT_EQ(values[5], 15);
    int type = 0;
    int id = 0;
    EXPECT_EQ(m_joists.GetSectionDataForGUI(21, "9K9", &type, &id, values, 1004, 2007), 1);
    EXPECT_EQ(type, KSeries);
    EXPECT_EQ(id, 3);
    EXPECT_EQ(m_joists.GetSectionDataForGUI(21, KSeries, 20, &name, values, "", 0, 0), 0);
    EXPECT_EQ(m_joists.GetSectionDataForGUI(21, "9K8", &type, &id, values, 0, 0), 0);

    // What joists do not have.
    CStringArray names;
    float all[8][16];
    m_joists.SetWorkingTable("OWJoistMaster");
    m_joists.GetAllSectionDataForGUI(KSeries, &names, all, 1004, 2007);
    SECTIONINFO info;
    EXPECT_EQ(names.GetSize() + m_joists.AddSectionData(1, &info) +
                  m_joists.UpdateSectionData(7, &info),
              0);
    EXPECT_EQ(m_joists.GetSectionStructProperty("11K1", 1004, 2007, &type), nullptr);
    EXPECT_EQ(m_joists.GetSectionCount(KSeries), 5);
}

TEST(GirderDesignationText, IsReadAndWritten) {
    for (const char* text : {"40S48g8N12.25kip", " 40 S 48 g +8 N\t12.25 k"}) {
        const auto girder = GirderDesignation::Parse(text);
        ASSERT_TRUE(girder);
        EXPECT_EQ(girder->span, 40);
        EXPECT_EQ(girder->depth, 48);
        EXPECT_EQ(girder->joists, 8);
        EXPECT_EQ(girder->panelLoad, 12.25);
        EXPECT_EQ(girder->Text(), "40S48G8N12.2K");
    }
    EXPECT_EQ(GirderDesignation::Parse("SGNK")->span, 0);
    for (const char* text : {"", "40", "40S48G8N12", "40S48G8K12N", "40G48S8N12K"})
        EXPECT_FALSE(GirderDesignation::Parse(text)) << text;
}

} // namespace
