// Reading one catalogue.
#include "CatalogueFixture.h"

#include "catalogues/Catalogues.h"
#include "records/CatalogueRecords.h"
#include "units/UNIT.h"

#include <cmath>
#include <limits>
#include <memory>
#include <optional>

using namespace testsupport;

namespace {

/// The American catalogue with a few sections among tables of other kinds.
class CatalogueTest : public DataAccessTest {
protected:
    CatalogueTest() : m_file(m_folder.File("AISCSections.db3")) {
        m_file.AddTextTable("~Old", {"VessaName"}, {{"W12x26"}});
        m_file.AddTable(
            "Rod", LayoutId::RoundBar,
            {{"R3", "r3", {1.0, 3.0}}, {"R1", "r1", {2.0, 2.0}}, {"R2", "r2", {2.0, 1.0}}});
        m_file.AddTextTable("Notes", {"Remark"}, {{"W12x26"}});
        m_file.AddTable(
            "W Shape", LayoutId::IShape,
            {{"W4X13", "W4x13", {3.83}}, W12X26, {"Twin", "TWIN", {}}, {"Twin", "twin", {}}});
        m_file.AddTextTable("Mine", {"RECNO", "Name", "VessaName"}, {{"1", "M1", "M1"}});
        m_catalogue.SetDatabase(m_file.Database());
    }

    /// What an operation that fills a list lists, joined by blanks.
    template <class Operation>
    static std::string Listed(Operation operation) {
        CStringList list;
        operation(&list);
        std::string text;
        for (const CString& item : list)
            text.append(text.empty() ? "" : " ").append(item);
        return text;
    }
    std::string Names(int type, int sorted = 0, int publicName = 0, CUIntArray* ids = nullptr) {
        return Listed([&](CStringList* list) {
            m_catalogue.GetSectionNameList(type, list, ids, sorted, publicName);
        });
    }
    std::string SortedNames(int type, const std::vector<const char*>& columns) {
        CStringArray fields;
        for (const char* column : columns)
            fields.Add(column);
        return Listed([&](CStringList* list) {
            m_catalogue.GetSortedSectionNameList(type, list, nullptr, &fields, 0);
        });
    }

    std::unique_ptr<SectionRecord> Data(const char* name, int& type) {
        return std::unique_ptr<SectionRecord>(m_catalogue.GetSectionData(name, &type));
    }
    std::unique_ptr<SECTIONINFO> Summary(const char* name, unsigned length = 1001,
                                         unsigned force = 2001) {
        int type = 0;
        return std::unique_ptr<SECTIONINFO>(
            m_catalogue.GetSectionStructProperty(name, length, force, &type));
    }

    static constexpr int WShape = 1, Rod = 15, Cable = 16;

    CatalogueFile m_file;
    AISCSectionDB m_catalogue;
};

TEST_F(CatalogueTest, ListsItsTablesInTheOrderOfTheFile) {
    CStringList list;
    list.AddTail("before");
    EXPECT_EQ(m_catalogue.GetSectionTypeList(&list), 1);
    std::vector<CString> tables(list.begin(), list.end());
    EXPECT_EQ(tables, (std::vector<CString>{"before", "Rod", "W Shape"}));
}

TEST_F(CatalogueTest, ListsTheNamesOfItsSections) {
    CUIntArray ids;
    EXPECT_EQ(Names(Rod, 0, 0, &ids), "r3 r1 r2");
    EXPECT_EQ(Names(Rod, 1, 1), "R3 R1 R2");
    EXPECT_EQ(std::vector(ids.begin(), ids.end()), (std::vector{1u, 2u, 3u}));
    EXPECT_EQ(SortedNames(Rod, {"VessaName"}), "r1 r2 r3");
    EXPECT_EQ(SortedNames(Rod, {"D", "AX"}), "r3 r2 r1");
    EXPECT_EQ(SortedNames(Rod, {"D", "RECNO"}), "r3 r1 r2");
    EXPECT_EQ(SortedNames(Rod, {}), "r3 r1 r2");
    EXPECT_EQ(SortedNames(Rod, {"D", "Colour"}), "");
    EXPECT_EQ(TakeQuietError(), SectionError::UnknownNameInStatement);
    m_file.AddTextTable("Cable", {"ID", "Name", "VessaName"},
                        {{"2", "B", "b"}, {"1", "A", "a"}, {"3", "C", "c"}});
    EXPECT_EQ(Names(Cable), "b a c");
    EXPECT_EQ(Names(Cable, 1), "a b c"); // by the first column
}

/// As in the file of another program.
TEST_F(CatalogueTest, MakesNoNumberOfOneThatDoesNotFit) {
    struct Case {
        double recno;
        unsigned listed;
        int read;
    };
    const Case cases[] = {{-5, 4294967291U, -5},
                          {65537, 65537, 65537},
                          {3e9, 3000000000U, 0},
                          {4294967297.0, 0, 0},
                          {1e300, 0, 0}};
    std::vector<std::vector<COleVariant>> rows;
    for (const Case& c : cases)
        rows.push_back({c.recno, COleVariant("C"),
                        COleVariant(("C" + std::to_string(rows.size())).c_str()), -1e300, 2.0,
                        1.0});
    m_file.AddPlainTable("Cable",
                         {{"RECNO", SectionField::Double},
                          {"Name"},
                          {"VessaName"},
                          {"D", SectionField::Double},
                          {"AX", SectionField::Double},
                          {"W", SectionField::Double}},
                         rows);
    CUIntArray ids;
    EXPECT_EQ(Names(Cable, 0, 0, &ids), "C0 C1 C2 C3 C4");
    for (int i = 0; i < std::ssize(cases); ++i) {
        const std::string name = "C" + std::to_string(i);
        int type = 0;
        int recordNo = 7;
        std::array<float, 16> values{};
        EXPECT_EQ(ids[i], cases[i].listed) << name;
        EXPECT_EQ(Data(name.c_str(), type)->RecordNumber, cases[i].read) << name;
        EXPECT_EQ(m_catalogue.GetSectionDataForGUI(1, name.c_str(), &type, &recordNo, values.data(),
                                                   1001, 2001),
                  1);
        EXPECT_EQ(recordNo, cases[i].read) << name;
        EXPECT_EQ(values[1], std::numeric_limits<float>::lowest()) << "within the finite range";
    }
}

TEST_F(CatalogueTest, TellsColumnsUnitsAndCounts) {
    CStringArray names;
    names.Add("replaced");
    EXPECT_EQ(m_catalogue.GetSectionFieldNameArray(Rod, &names), 1);
    EXPECT_EQ(std::vector(names.begin(), names.end()),
              (std::vector<CString>{"RECNO", "Name", "VessaName", "D", "AX", "I"}));
    CStringArray units;
    EXPECT_EQ(m_catalogue.GetSectionFieldUnitsArray(Rod, &units), 1);
    EXPECT_EQ(std::vector(units.begin(), units.end()),
              (std::vector<CString>{"NUMBER", "TEXT", "TEXT", "INCHES", "INCHES^2", "INCHES^4"}));
    EXPECT_EQ(m_catalogue.GetSectionCount(Rod), 3);
    EXPECT_EQ(m_catalogue.GetSectionFieldCount(Rod), 3);
    m_file.AddTextTable("Cable", {"RECNO", "Name", "VessaName"});
    EXPECT_EQ(m_catalogue.GetSectionCount(Cable), 0);
    EXPECT_EQ(m_catalogue.GetSectionFieldCount(Cable), 0);
    EXPECT_EQ(Names(Cable, 1), "");
}

TEST_F(CatalogueTest, KnowsNothingOfOtherTypesAndWithoutADatabase) {
    const auto expectNothing = [this](int type) {
        CStringArray array;
        EXPECT_EQ(Names(type) + Names(type, 1, 1) + SortedNames(type, {"D"}), "");
        EXPECT_EQ(m_catalogue.GetSectionFieldNameArray(type, &array), 0);
        m_catalogue.GetSectionFieldUnitsArray(type, &array);
        EXPECT_EQ(array.GetSize(), 0);
        EXPECT_EQ(m_catalogue.GetSectionCount(type), 0);
        EXPECT_EQ(m_catalogue.GetSectionFieldCount(type), 0);
    };
    expectNothing(17);
    expectNothing(2); // known, but not in the file
    CSectionDatabase closed;
    for (CSectionDatabase* database : {&closed, static_cast<CSectionDatabase*>(nullptr)}) {
        m_catalogue.SetDatabase(database);
        expectNothing(Rod);
        CString table = "W Shape";
        EXPECT_EQ(m_catalogue.FindSectionTable("W12x26", table), 0);
        EXPECT_EQ(table, "");
        EXPECT_EQ(Listed([&](CStringList* list) { m_catalogue.GetSectionTypeList(list); }), "");
    }
}

TEST_F(CatalogueTest, FindsTheTableOfASection) {
    m_file.AddTextTable("OWJoistMaster", {"JoistID", "Designation"}, {{"1", "10K1"}});
    struct {
        const char* name;
        const char* exact;
        const char* upper;
        const char* anyCase;
    } const cases[] = {
        {"W12x26", "W Shape", "", "W Shape"},
        {"W12X26", "", "W Shape", "W Shape"},
        {"w12X26", "", "", "W Shape"},
        {"r1", "Rod", "", "Rod"},
        {"M1", "Mine", "Mine", "Mine"},
        {"10K1", "", "OWJoistMaster", ""},
        {"W12", "", "", ""},
        {"", "", "", ""},
        {"W%", "", "", ""},
    };
    for (const auto& [name, exact, upper, anyCase] : cases) {
        SCOPED_TRACE(name);
        CString table = "left over";
        EXPECT_EQ(m_catalogue.FindSectionTableExact(name, table), *exact != '\0');
        EXPECT_EQ(table, exact);
        EXPECT_EQ(m_catalogue.GetTableNameFromSection(name, table), *upper != '\0');
        EXPECT_EQ(table, upper);
        EXPECT_EQ(m_catalogue.FindSectionTable(name, table), *anyCase != '\0');
        EXPECT_EQ(table, anyCase);
    }
    EXPECT_EQ(TakeQuietError(), 0); // tables without names are no failure
}

TEST_F(CatalogueTest, ReadsTheRowOfASection) {
    int type = 0;
    const auto record = Data("w12X26", type);
    ASSERT_TRUE(record);
    EXPECT_EQ(type, WShape);
    EXPECT_EQ(record->RecordNumber, 2);
    EXPECT_EQ(record->PublicName, "W12X26");
    EXPECT_EQ(record->VessaName, "W12x26");
    const auto& shape = dynamic_cast<const AISCSECTION::AM_WShape&>(*record);
    EXPECT_EQ(shape.AX, 7.65);
    EXPECT_EQ(shape.TW, 0.23);
    EXPECT_EQ(shape.ZY, 8.17);
    EXPECT_EQ(record->Number(3), 7.65);
    EXPECT_EQ(record->Number(14), 0);
    EXPECT_EQ(Data("W4x13", type)->Number(4), 0); // null
}

TEST_F(CatalogueTest, ReadsNoSectionThatIsNotUnique) {
    for (const char* name : {"twin", "W1", "", "M1", "it's"}) {
        int type = -5;
        EXPECT_EQ(Data(name, type), nullptr) << name;
        EXPECT_EQ(type, -5);
    }
}

TEST_F(CatalogueTest, MayOutliveItsDatabase) {
    auto* database = new CSectionDatabase;
    database->Open(m_file.Database()->GetName());
    m_catalogue.SetDatabase(database);
    int type = 0;
    EXPECT_TRUE(Data("W12x26", type)); // which leaves its rows open
    closeDatabase(&database, 1);
    m_catalogue.SetDatabase(m_file.Database());
    EXPECT_TRUE(Data("W12x26", type));
    m_catalogue.CloseDB();
    EXPECT_TRUE(m_file.Database()->IsOpen());
}

TEST_F(CatalogueTest, OpensAFileByTheNameThatItKnows) {
    CSectionDatabase database;
    database.Open(m_file.Database()->GetName());
    m_catalogue.SetDatabase(&database);
    database.Close();
    EXPECT_EQ(m_catalogue.OpenSectionDatabase(), 1);
    EXPECT_EQ(m_catalogue.GetSectionCount(Rod), 3);
    EXPECT_FALSE(database.IsOpen());
    m_catalogue.CloseDB();
    EXPECT_EQ(m_catalogue.GetSectionCount(Rod), 0);

    AISCSectionDB unattached;
    int type = 0;
    EXPECT_EQ(unattached.GetSectionData("W12x26", &type), nullptr);
    EXPECT_EQ(SectionLibraryState::GetExceptionType(), 2);
    ASSERT_EQ(shownBoxes.size(), 1u);
    EXPECT_EQ(shownBoxes[0].caption, "CFileException occurred - OpenSectionDatabase()");
    EXPECT_EQ(shownBoxes[0].text.find("Database filename not provided.\n\nCAUSE:\n"), 0u);
}

TEST_F(CatalogueTest, SummarisesAWShapeInTheUnitsOfTheCaller) {
    struct {
        unsigned length, force;
        double inch, kilogram; // in these units
        double metre;
    } const systems[] = {{1001, 2001, 1, 1 / 453.59237, 1 / 0.0254},
                         {1004, 2007, 25.4, 9.80665e-3, 1000},
                         {1007, 2005, 0.0254, 9.80665, 1}};
    for (const auto& [length, force, inch, kilogram, metre] : systems) {
        SCOPED_TRACE(length);
        const auto info = Summary("w12x26", length, force);
        ASSERT_TRUE(info);
        const double inch2 = inch * inch, inch3 = inch2 * inch, inch4 = inch3 * inch;
        const double density = 7851.535 * kilogram / (metre * metre * metre);
        const auto expect = [](double value, double expected) {
            EXPECT_NEAR(value / expected, 1, 1e-6);
        };
        EXPECT_EQ(info->PublicName, "W12X26");
        EXPECT_EQ(info->VessaName, "W12x26");
        expect(info->WeightPerLength, density * 7.65 * inch2);
        expect(info->Area, 7.65 * inch2);
        expect(info->MajorInertia, 204 * inch4);
        expect(info->MajorModulus, 2 * 204 / 12.2 * inch3);
        expect(info->MajorRadius, std::sqrt(204 / 7.65) * inch);
        expect(info->MinorInertia, 17.3 * inch4);
        expect(info->MinorModulus, 2 * 17.3 / 6.49 * inch3);
        expect(info->MinorRadius, std::sqrt(17.3 / 7.65) * inch);
        expect(info->Further[0], 37.2 * inch3);
        expect(info->Further[1], 8.17 * inch3);
        expect(info->Last, 0.3 * inch4);
        EXPECT_EQ(info->Values.size(), 11u);
        EXPECT_EQ(info->Values[5], 204); // as in the row
    }
}

TEST_F(CatalogueTest, SummarisesEveryAmericanFamilyFromItsOwnColumns) {
    CatalogueFile file(m_folder.File("all.db3"));
    m_catalogue.SetDatabase(file.Database());
    for (const SectionFamily& family : m_catalogue.Families()) {
        SCOPED_TRACE(family.table);
        const auto columns = GetSectionLayout(family.layout).columns;
        std::vector<COleVariant> properties;
        for (std::size_t i = 0; i < columns.size(); ++i)
            properties.push_back(columns[i].quantity == Quantity::Text
                                     ? COleVariant("root")
                                     : COleVariant(static_cast<double>(i + 2)));
        const auto value = [&](const char* name) {
            for (std::size_t i = 0; i < columns.size(); ++i)
                if (std::string_view(columns[i].name) == name)
                    return std::optional(static_cast<double>(i + 2));
            return std::optional<double>();
        };
        file.AddTable(family.table, family.layout, {{"X", family.table, properties}});

        const auto info = Summary(family.table);
        ASSERT_TRUE(info);
        const double area = *value("AX");
        const std::optional<double> round = value("I");
        const double major = value("IZ").value_or(round.value_or(0));
        EXPECT_EQ(info->Area, area);
        const std::optional<double> weight = value("W"); // in kips per foot
        EXPECT_NEAR(info->WeightPerLength,
                    weight ? *weight / 12 : area * 7851.535 * 0.0254 * 0.0254 * 0.0254 / 453.59237,
                    1e-6 * area);
        EXPECT_EQ(info->MajorInertia, major);
        EXPECT_EQ(info->MinorInertia, value("IY").value_or(round.value_or(0)));
        EXPECT_EQ(info->MajorRadius, std::sqrt(major / area));
        EXPECT_EQ(info->Last, round ? 2 * *round : value("IX").value_or(0));
    }
    m_catalogue.CloseDB(); // frees the record of each family
}

TEST_F(CatalogueTest, SummarisesAsymmetricSectionsAtTheirFarFibre) {
    m_file.AddTable("Channel", LayoutId::Channel,
                    {{"C", "C", {6, 15, 3.4, 0.65, 0.4, 315, 1.0, 358, 8.1, 57, 8, 0.8}}});
    m_file.AddTable("Angle", LayoutId::Angle,
                    {{"L", "L", {6.0, 4.0, 0.5, 4.75, 17.3, 6.22, 0.4, 1.98, 0.98, 0.86, 23.7}}});
    const auto channel = Summary("C");
    EXPECT_NEAR(channel->MajorModulus, 315 / 7.5, 1e-9);
    EXPECT_NEAR(channel->MinorModulus, 8.1 / (3.4 - 0.8), 1e-9);
    const auto angle = Summary("L");
    EXPECT_EQ(angle->Area, 4.75);
    EXPECT_NEAR(angle->MajorModulus, 17.3 / (6 - 1.98), 1e-9);
    EXPECT_NEAR(angle->MinorModulus, 6.22 / (4 - 0.98), 1e-9);
    EXPECT_EQ(angle->Further, (std::array{0.86, 23.7}));
}

TEST_F(CatalogueTest, SummarisesOnlyWhatHasUnits) {
    EXPECT_EQ(Summary("no such section"), nullptr);
    m_file.AddTable("S Shape", LayoutId::IShape, {{"S1", "S1", {-1.0, 1.0, 1.0, 1.0, 1.0, 4.0}}});
    EXPECT_TRUE(std::isnan(Summary("S1")->MajorRadius));
    UNIT::DeleteFieldUnits(m_file.Database(), "S Shape");
    EXPECT_EQ(Summary("S1"), nullptr);
    m_file.AddUnits("S Shape", {"NUMBER", "TEXT", "TEXT", "INCHES^2"});
    EXPECT_TRUE(IsRefused([&] { Summary("S1"); })) << "a short list of units";
    EXPECT_TRUE(Summary("W12x26"));
}

} // namespace
