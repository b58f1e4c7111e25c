// Adding and changing sections of user tables.
#include "CatalogueFixture.h"

#include "catalogues/Catalogues.h"
#include "records/CatalogueRecords.h"

#include <cmath>
#include <limits>
#include <memory>
#include <sstream>

using namespace testsupport;

namespace {

constexpr int Accepted = 1;
constexpr int Refused = 0;

SECTIONINFO MakeSection(const char* name, const char* vessaName, std::vector<double> values) {
    SECTIONINFO section;
    section.PublicName = name;
    section.VessaName = vessaName;
    section.Values = std::move(values);
    return section;
}

class EditingTest : public DataAccessTest {
protected:
    EditingTest() : m_file(m_folder.File("user.db3")) {
        m_file.AddTable("Pipe", LayoutId::RoundTube, {{"P1", "p1", {4.0, 0.2, 2.4, 4.3, 2.9}}});
        m_user.SetDatabase(m_file.Database());
        m_user.SetWorkingTable("Pipe");
    }

    int Add(WORD id, const SECTIONINFO& section) {
        SECTIONINFO copy = section;
        return m_user.AddSectionData(id, &copy);
    }
    int Change(WORD id, const SECTIONINFO& section) {
        SECTIONINFO copy = section;
        return m_user.UpdateSectionData(id, &copy);
    }

    /// The rows of a table, "identifier Name VessaName first last" each.
    std::vector<std::string> Rows(const char* table = "Pipe") {
        std::vector<std::string> rows;
        CSectionRecordset all(m_file.Database());
        all.Open(CSectionRecordset::Snapshot, "Select * From [" + CString(table) + "]");
        const auto number = [&](int column) {
            return dbsection::NumberIn(all.GetFieldValue(column)).value_or(-1);
        };
        for (; !all.IsEOF(); all.MoveNext()) {
            std::ostringstream row;
            row << number(0) << ' ' << all.GetFieldValue(1).strVal << ' '
                << all.GetFieldValue(2).strVal << ' ' << number(3) << ' '
                << number(all.GetFieldCount() - 1);
            rows.push_back(row.str());
        }
        return rows;
    }

    /// The first property of the first row of a table where it is a text.
    CString FirstText(const char* table) {
        CSectionRecordset rows(m_file.Database());
        rows.Open(CSectionRecordset::Table, table);
        return rows.GetFieldValue(BookkeepingColumns).strVal;
    }

    CatalogueFile m_file;
    UserSectionDB m_user;
};

TEST_F(EditingTest, RecordNumbersEndWhereTheirTypeDoes) {
    const auto section = MakeSection("P2", "p2", {4.0, 0.2, 2.4, 4.3, 2.9});
    EXPECT_EQ(Add(65535, section), Accepted);
    const auto next = static_cast<WORD>(65535 + 1);
    const auto rows = Rows();
    EXPECT_EQ(Add(next, MakeSection("P3", "p3", section.Values)), Refused);
    EXPECT_EQ(Change(next, MakeSection("P3", "p3", section.Values)), Refused);
    EXPECT_EQ(shownBoxes, std::vector<Box>(
                              2, {"Record numbers go from 1 to 65535. Record not saved.", "Pipe"}));
    EXPECT_EQ(Rows(), rows);
}

TEST_F(EditingTest, AddsAndChangesRows) {
    EXPECT_EQ(Add(40000, MakeSection("P2", "p2", {6, 0.25, 4.5, 18.5, 8.3})), Accepted);
    EXPECT_EQ(Rows().back(), "40000 P2 p2 6 8.3");
    EXPECT_EQ(Change(40000, MakeSection("P3", "p3", {7, 0.25, 5.3, 30, 11})), Accepted);
    EXPECT_EQ(Change(40000, MakeSection("P3", "P3", {7, 0.25, 5.3, 30, 12})), Accepted); // its own
    EXPECT_EQ(Rows(), (std::vector<std::string>{"1 P1 p1 4 2.9", "40000 P3 P3 7 12"}));
    EXPECT_TRUE(shownBoxes.empty());
    int type = 0;
    const std::unique_ptr<SectionRecord> record(m_user.GetSectionData("p3", &type));
    ASSERT_TRUE(record);
    EXPECT_EQ(type, 2006);
    EXPECT_EQ(dynamic_cast<const USERSECTION::Pipe&>(*record).OD, 7);
}

TEST_F(EditingTest, RefusesATakenName) {
    const auto before = Rows();
    const SECTIONINFO taken = MakeSection("P1", "other", {6, 0.25, 4.5, 18.5, 8.3});
    EXPECT_EQ(Add(2, taken), Refused);
    ASSERT_EQ(shownBoxes.size(), 1u);
    EXPECT_EQ(shownBoxes[0].text, "Duplicate section name!! Record not saved.");
    EXPECT_EQ(shownBoxes[0].caption, "Pipe");
    EXPECT_EQ(Rows(), before);

    EXPECT_EQ(Add(2, MakeSection("P2", "p2", {6, 0.25, 4.5, 18.5, 8.3})), Accepted);
    EXPECT_EQ(Change(2, taken), Refused);
    EXPECT_EQ(shownBoxes.size(), 2u);
    EXPECT_EQ(Rows().back(), "2 P2 p2 6 8.3");
}

TEST_F(EditingTest, RefusesWhatIsNoWholeSection) {
    const auto before = Rows();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const SECTIONINFO good = MakeSection("P2", "p2", {6, 0.25, 4.5, 18.5, 8.3});
    EXPECT_EQ(Add(1, good), Refused); // the identifier is taken
    EXPECT_EQ(TakeQuietError(), SectionError::DuplicateKey);
    EXPECT_EQ(Change(9, good), Refused); // no such row
    EXPECT_EQ(TakeQuietError(), SectionError::NoCurrentRecord);
    EXPECT_EQ(Add(2, MakeSection("6' pipe", "p2", good.Values)), Refused);
    EXPECT_EQ(TakeQuietError(), SectionError::BadStatement);
    for (const std::vector<double>& values : {std::vector<double>{},
                                              {6, 0.25, 4.5, 18.5},
                                              {6, 0.25, 4.5, 18.5, 8.3, 1},
                                              {6, 0.25, 4.5, 18.5, nan}}) {
        EXPECT_EQ(Add(2, MakeSection("P2", "p2", values)), Refused);
        EXPECT_EQ(TakeQuietError(), SectionError::WrongValueType);
        EXPECT_EQ(Change(1, MakeSection("P1", "p1", values)), Refused);
        EXPECT_EQ(TakeQuietError(), SectionError::WrongValueType);
    }
    SECTIONINFO withText = good;
    withText.Texts = {"a pipe has none"};
    EXPECT_EQ(Add(2, withText), Refused);
    EXPECT_EQ(TakeQuietError(), SectionError::WrongValueType);
    for (const char* table : {"", "Field Units", "Tube", "No such table"}) {
        m_user.SetWorkingTable(table);
        EXPECT_EQ(Add(2, good) + Change(1, good), 2 * Refused) << table;
    }
    EXPECT_EQ(Rows(), before);
}

TEST_F(EditingTest, LeavesTheTableAsItWasWhenTheDiskIsFull) {
    const auto before = Rows();
    const std::string path = m_folder.File("user.db3");
    const int result = RunInChild([&] {
        TempFolder small;
        const std::string copy = small.File("user.db3");
        LimitDisk(small.Path(), 131072);
        std::filesystem::copy_file(path, copy);
        CSectionDatabase database;
        database.Open(copy.c_str());
        UserSectionDB user;
        user.SetDatabase(&database);
        int added = 0;
        for (WORD id = 2; id < 5000; ++id) {
            user.SetWorkingTable("Pipe");
            const std::string name(100, 'x');
            SECTIONINFO section =
                MakeSection((name + std::to_string(id)).c_str(), "p", {6, 0.25, 4.5, 18.5, 8.3});
            if (user.AddSectionData(id, &section) != Accepted)
                break;
            ++added;
        }
        return added > 10 && added < 4000 && user.GetSectionCount(2006) == added + 1 ? 0 : 1;
    });
    EXPECT_EQ(result, 0);
    EXPECT_EQ(Rows(), before);
}

TEST_F(EditingTest, KeepsTheAmericanTablesAndCaptions) {
    AISCSectionDB american;
    american.SetDatabase(m_file.Database());
    struct {
        const char* table;
        LayoutId layout;
        const char* caption; ///< null: not edited
    } const cases[] = {
        {"W Shape", LayoutId::IShape, "Wide Flange"},
        {"Angle", LayoutId::Angle, "Wide Flange"},
        {"HSS Round A1085", LayoutId::RoundTube, "HSS Round A1085"},
        {"Rod", LayoutId::RoundBar, "Rod"},
        {"Cable", LayoutId::Cable, "Rod"},
        {"CastellatedNonCompBeam", LayoutId::Castellated, "Wide Flange"},
        {"CastellatedCompBeam", LayoutId::Castellated, "Wide Flange"},
        {"Castellated NonComp Beam", LayoutId::Castellated, nullptr},
        {"Castellated Comp Beam", LayoutId::Castellated, nullptr},
    };
    for (const auto& [table, layout, caption] : cases) {
        SCOPED_TRACE(table);
        shownBoxes.clear();
        m_file.AddTable(table, layout);
        std::vector<double> values;
        for (const LayoutColumn& column : GetSectionLayout(layout).columns)
            if (column.quantity != Quantity::Text)
                values.push_back(static_cast<double>(values.size() + 1));
        SECTIONINFO section = MakeSection("X", "x", values);
        if (layout == LayoutId::Castellated)
            section.Texts = {"W12X26"};
        american.SetWorkingTable(table);
        EXPECT_EQ(american.AddSectionData(1, &section), caption == nullptr ? Refused : Accepted);
        EXPECT_EQ(american.AddSectionData(2, &section), Refused);
        ASSERT_EQ(shownBoxes.size(), caption == nullptr ? 0u : 1u);
        if (caption != nullptr) {
            EXPECT_EQ(shownBoxes[0].caption, caption);
            EXPECT_EQ(Rows(table).size(), 1u);
            EXPECT_EQ(FirstText(table), layout == LayoutId::Castellated ? "W12X26" : "");
        }
    }
}

} // namespace
