// All catalogues of an installation: built into files, then opened and read through the façade.
#include "BuiltCatalogues.h"
#include "FacadeSupport.h"
#include "catalogues/AISCSteelJoistSectionDB.h"
#include "units/UNIT.h"

#include <sstream>

using namespace testsupport;

namespace {

constexpr WORD Joists = 21;

class InstallationTest : public OnBuiltCatalogues<FacadeTest> {
protected:
    static void SetUpTestSuite() { BuildAll(); }

    InstallationTest() { Facade::SetProfileDBFolder(folder->Path().c_str()); }
};

/// Whether every factor of a unit such as "KIPS/INCHES^2" is known, or it is the mark of a column
/// without a unit.
bool IsKnownUnit(std::string unit) {
    if (unit == "NUMBER" || unit == "TEXT" || unit == "DEGREE")
        return true;
    std::ranges::replace(unit, '.', '/');
    std::istringstream factors(unit);
    int known = 0;
    for (std::string factor; std::getline(factors, factor, '/'); ++known)
        if (UNIT::StringToId(factor.c_str()) == 0)
            return false;
    return known > 0;
}

/// The columns of a table in the file, each with a unit that is known.
std::string ColumnsWithUnits(CSectionDatabase* database, const char* table) {
    CSectionRecordset rows(database);
    rows.Open(CSectionRecordset::Table, table);
    CStringArray units;
    UNIT::GetFieldUnitArray(database, table, &units);
    EXPECT_EQ(units.GetSize(), rows.GetFieldCount()) << table;
    std::string columns;
    for (int i = 0; i < units.GetSize() && i < rows.GetFieldCount(); ++i) {
        CSectionFieldInfo field;
        rows.GetFieldInfo(i, field);
        EXPECT_TRUE(IsKnownUnit(std::string(units[i].View()))) << table << ", " << field.m_strName;
        columns += (columns.empty() ? "" : " ") + std::string(field.m_strName.View());
    }
    return columns;
}

} // namespace

TEST_F(InstallationTest, EveryTableIsThereAndEveryColumnHasAUnit) {
    for (WORD index = 1; index <= LastCatalogueIndex; ++index) {
        SCOPED_TRACE(Facade::m_saSectionFile[index]);
        CSectionDatabase* database = Facade::GetDatabasePtr(index);
        ASSERT_NE(database, nullptr);
        const auto& catalogue = dynamic_cast<const CatalogueSectionDB&>(
            *Facade::m_SectionDBDrv.GetSectionDBObject(index));
        for (const SectionFamily& family : catalogue.Families()) {
            ASSERT_EQ(IsExistentTable(database, family.table), 1) << family.table;
            const std::string columns = ColumnsWithUnits(database, family.table);
            EXPECT_TRUE(columns.starts_with("RECNO Name VessaName ")) << columns;
        }
    }
}

TEST_F(InstallationTest, JoistTablesHaveTheColumnsThatTheirStatementsName) {
    const struct {
        const char* table;
        const char* columns;
    } tables[] = {
        {"OWJoistMaster", "RECNO Name VessaName JoistID Designation SeriesID Depth Weight"},
        {"OWJoistLoad", "JoistID Span TotalLoad LiveLoad TitleID ColorID"},
        {"OWJoistSafeLoad", "JoistID Span SafeLoad TitleID ColorID"},
        {"OWKCSJoistLoad", "JoistID MomentCapacity ShearCapacity GrossMI BridgTableSectNO TitleID"},
        {"JoistGirderMaster", "RECNO Name VessaName JoistID Span NumberOfJoist Space Depth"},
        {"JoistGirderLoad", "JoistID PanelPtLoad Weight TitleID ColorID"},
    };
    CSectionDatabase* database = Facade::GetDatabasePtr(Joists);
    for (const auto& [table, columns] : tables)
        EXPECT_EQ(ColumnsWithUnits(database, table), columns) << table;
}

TEST_F(InstallationTest, HollowSectionsHaveThePrintedFigures) {
    const struct {
        int index;
        const char* name;
        double area;    ///< cm^2
        double inertia; ///< cm^4
    } sections[] = {
        {3, "SHS100X100X10", 34.9, 462},                                           // EN 10210-2
        {7, "CHS88.9X3.2", 8.62, 79.2},        {34, "SHS100X100X5", 18.36, 271.1}, // EN 10219-2
        {34, "RHS150X100X6.3", 28.55, 848.27}, {34, "RHS300X200X10", 92.57, 11312.7},
    };
    for (const auto& [index, name, area, inertia] : sections) {
        const auto info = SummaryOf(index, name, 1005, 2007);
        ASSERT_TRUE(info) << name;
        EXPECT_NEAR(info->Area / area, 1, 1e-6) << name;
        EXPECT_NEAR(info->MajorInertia / inertia, 1, 1e-6) << name;
    }
}
