// Conversion of units, and the units that a catalogue keeps of its columns.
#include "CatalogueFixture.h"

#include "units/UNIT.h"
#include "units/UnitText.h"

#include <cmath>
#include <memory>

using namespace dbsection;
using namespace testsupport;

namespace {

constexpr unsigned Kip = 2001, Newton = 2005, KiloNewton = 2007;
constexpr unsigned Inch = 1001, Millimetre = 1004, Metre = 1007;

/// Half a unit of the last digit of a number as it is printed.
double Rounding(double number) {
    double scale = 1;
    while (std::round(number * scale) / scale != number)
        scale *= 10;
    return 0.5 / scale;
}

TEST(ConversionTables, RoundTheDefinitionsOfTheUnitsToTheirDigits) {
    // In millimetres and newtons.
    const double lengths[8] = {25.4, 304.8, 914.4, 1, 10, 100, 1000, 1e6};
    const double forces[8] = {4448.2216152605, 4.4482216152605, 9.80665, 9806.65, 1, 10, 1e3, 1e6};
    // What a definition gives, times what the pound of some figures is of that of the definition.
    constexpr double InNewtons = 4.448222468 / 4.4482216152605;
    constexpr double InKilograms = 0.4535922922 / 0.45359237;
    constexpr double OfNewtons = 0.2248089237 * 4.4482216152605;
    for (unsigned from = 0; from < 8; ++from)
        for (unsigned to = 0; to < 8; ++to) {
            SCOPED_TRACE(testing::Message() << from << " to " << to);
            const auto expect = [](double factor, double exact) {
                EXPECT_NEAR(factor, exact, Rounding(factor) + exact * 1e-10);
            };
            const double pound = from < 2 && to >= 4   ? InNewtons
                                 : from < 2 && to >= 2 ? InKilograms
                                 : from >= 4 && to < 2 ? OfNewtons
                                                       : 1;
            expect(UNIT::LengthConversionArray[from][to], lengths[from] / lengths[to]);
            expect(UNIT::ForceConversionArray[from][to], forces[from] / forces[to] * pound);
        }
}

TEST(Units, AreKnownByTheirNamesOnly) {
    struct {
        unsigned id;
        std::vector<const char*> names;
    } const cases[] = {
        {1001, {"INCHES", "IN", "inches^3", "In"}},
        {1002, {"FEET", "FT", "ft"}},
        {1003, {"YARD", "YD"}},
        {1004, {"MMS", "MM", "mm^4"}},
        {1005, {"CM"}},
        {1006, {"DME", "DM"}},
        {1007, {"METER", "M"}},
        {1008, {"KM"}},
        {2001, {"KIP", "KIPS"}},
        {2002, {"POUND", "LB"}},
        {2003, {"KG"}},
        {2004, {"MTON", "TON", "T", "MT"}},
        {2005, {"NEWTON", "N"}},
        {2006, {"DNS"}},
        {2007, {"KNS"}},
        {2008, {"MNS", "mns^"}},
        {0, {"", "^2", "INCH", "METERS", "MMSS", "K", "KN", "LBS", " MM", "MM ", "XYZ"}},
    };
    for (const auto& [id, names] : cases)
        for (const char* name : names)
            EXPECT_EQ(UNIT::StringToId(name), id) << '"' << name << '"';
}

TEST(Units, ReadTheExponentBehindTheFirstCaret) {
    struct {
        const char* unit;
        double exponent;
    } const cases[] = {{"", 1},     {"MM", 1},      {"MM^4", 4},   {"MM^-2", -2}, {"M^+3", 3},
                       {"M^ 2", 2}, {"M^0.5", 0.5}, {"M^2^3", 2},  {"M^", 0},     {"M^two", 0},
                       {"^2", 2},   {"M^2x", 2},    {"M^1e1", 10}, {"M^+-2", 0},  {"M^inf", 0}};
    for (const auto& [unit, exponent] : cases)
        EXPECT_EQ(UNIT::GetExponent(unit), exponent) << unit;
}

TEST(Units, ConvertCompoundUnitsFromLeftToRight) {
    const double ksi = 4448.222468 / (25.4 * 25.4);
    struct {
        const char* unit;
        double factor;
        unsigned force = Newton, length = Millimetre;
    } const cases[] = {
        {"INCHES", 0.0254, Kip, Metre},
        {"INCHES^4", 416231.4256},
        {"KIPS/INCHES^2", ksi},
        {"kips/inches^2", ksi},
        {"KSI", ksi},
        {"Ksi", ksi},
        {"ksi", ksi},
        {"kSi", 1},
        {"PSI", ksi / 1000},
        {"pSi", 1},
        {"KNS.M", 1e6},
        {"KNS.M/MM^2", 1e6},
        {"KNS.M/MM^2", 1e6, KiloNewton, Metre},
        {"M/MM.CM", 1000.0 / 1 * 10},
        {"M/MM/CM", 1000.0 / 1 / 10},
        {"MM^0.5", 1, Newton, Metre}, // "MM^0" times the unknown "5"
        {"KG/M^3", 9.80665e-9},
        {"FURLONG.KNS", 1000},
        {"KNS/FURLONG", 1000},
        {"/CM", 0.1},
        {"CM/", 10},
        {"", 1},
        {"NUMBER", 1},
        {"Deg", 1},
        {"Degrees", 1},
        {"radian", 1},
        {"TEXT", 0},
        {"text", 0},
        {"tEXT", 1},
    };
    for (const auto& [unit, factor, force, length] : cases)
        EXPECT_NEAR(UNIT::ConvertUnitTo(3.0, unit, force, length), 3 * factor, 3e-9 * factor)
            << '"' << unit << '"';
}

TEST(Units, StayUnconvertedWhereAnIdentifierIsNoneOfItsKind) {
    for (const unsigned id : {0u, 1000u, 1009u, 2000u, 2009u, 0xFFFFFFFFu}) {
        EXPECT_EQ(UNIT::LengthConvertTo(3, id, Inch, 2), 3);
        EXPECT_EQ(UNIT::LengthConvertTo(3, Inch, id, 2), 3);
        EXPECT_EQ(UNIT::ForceConvertTo(3, id, Kip, 2), 3);
        EXPECT_EQ(UNIT::ForceConvertTo(3, Kip, id, 2), 3);
        EXPECT_EQ(UNIT::ConvertUnitTo(3, "KIPS/INCHES^2", id, id), 3);
    }
    EXPECT_EQ(UNIT::LengthConvertTo(3, Kip, Inch, 1), 3); // a force among lengths
    EXPECT_EQ(UNIT::ConvertUnitTo(3, "MM", Kip, Kip), 3);
}

TEST(UnitTexts, TellWhatTheyMeasure) {
    constexpr double Pound = 4.4482216152605;
    struct {
        const char* unit;
        std::optional<UnitDimension> dimension;
        double size = 0;
        UnitNames names = UnitNames::Kept;
    } const cases[] = {
        {"inches^4", UnitDimension{4}, 416231.4256},
        {"KIPS/INCHES^2", UnitDimension{-2, 1}, 1000 * Pound / 645.16},
        {"ksi", UnitDimension{-2, 1}, 1000 * Pound / 645.16},
        {"MPa", std::nullopt}, // printed only
        {"MPa", UnitDimension{-2, 1}, 1, UnitNames::Printed},
        {"gpa", UnitDimension{-2, 1}, 1000, UnitNames::Printed},
        {"PSI", UnitDimension{-2, 1}, Pound / 645.16},
        {"KG/METER", UnitDimension{-1, 1}, 9.80665e-3},
        {"KNS.M/MM^2", UnitDimension{-1, 1}, 1e6},
        {"POUND/FEET", UnitDimension{-1, 1}, Pound / 304.8},
        {"kN/m", UnitDimension{-1, 1}, 1, UnitNames::Printed},
        {"kN/m", std::nullopt},
        {"daN.YD^2/t", UnitDimension{2, 0}, 10 * 914.4 * 914.4 / 9806.65, UnitNames::Printed},
        {"", std::nullopt},
        {"NUMBER", std::nullopt},
        {"MM^", std::nullopt},
        {"MM^0", std::nullopt},
        {"MM^-1", std::nullopt},
        {"MM^1.5", std::nullopt},
        {"MM^2x", std::nullopt},
        {"MM/", std::nullopt},
    };
    for (const auto& [unit, dimension, size, names] : cases) {
        EXPECT_EQ(DimensionOf(unit, names), dimension) << unit;
        if (dimension) {
            EXPECT_NEAR(SizeOf(unit, names) / size, 1, 1e-12) << unit;
        }
    }
}

TEST(UnitTexts, ReadAsTheyArePrinted) {
    constexpr UnitChoice None{};
    constexpr UnitChoice Metric{Millimetre, Newton};
    struct {
        const char* unit;
        UnitChoice choice;
        const char* label;
    } const cases[] = {
        {"KIPS/INCHES^2", None, "kip/in^2"},
        {"KIPS/INCHES^2", Metric, "N/mm^2"},
        {"KSI", {0, KiloNewton}, "kN/in^2"},
        {"KNS.M/MM^2", None, "kN.m/mm^2"},
        {"TON/METER", {Inch, 0}, "t/in"},
        {"DNS/YD.KM", None, "daN/yd.km"},
        {"FURLONG^2/FEET", Metric, "FURLONG^2/mm"},
        {"NUMBER", Metric, ""},
        {"", Metric, ""},
        {"/CM^2", None, "/cm^2"},
        {"Text", Metric, ""},
        {"degree", Metric, "deg"},
        {"RADIAN", Metric, "rad"},
    };
    for (const auto& [unit, choice, label] : cases)
        EXPECT_EQ(LabelOf(unit, choice), label) << unit;
}

class FieldUnitsTest : public DataAccessTest {
protected:
    FieldUnitsTest() : m_file(m_folder.File("units.db3")) {}

    static CStringArray Array(std::initializer_list<const char*> texts) {
        CStringArray array;
        for (const char* text : texts)
            array.Add(text);
        return array;
    }

    void Write(std::initializer_list<const char*> texts) {
        const CStringArray units = Array(texts);
        UNIT::WriteFieldUnits(Db(), &units);
    }
    void Update(std::initializer_list<const char*> texts) {
        const CStringArray units = Array(texts);
        UNIT::UpdateFieldUnits(Db(), &units);
    }

    /// The units of a table joined by blanks, "-" for an element without one; "none" without list.
    std::string Units(const char* table) {
        const std::unique_ptr<CStringArray> list(UNIT::GetFieldUnitList(Db(), table));
        return list ? Joined(*list) : "none";
    }
    static std::string Joined(const CStringArray& units) {
        std::string text;
        for (const CString& unit : units)
            text.append(text.empty() ? "" : " ").append(unit.IsEmpty() ? "-" : unit);
        return text;
    }

    CSectionDatabase* Db() const { return m_file.Database(); }

    CatalogueFile m_file;
};

TEST_F(FieldUnitsTest, AreWrittenOnceAndUpdatedOnlyWhereTheyAre) {
    Update({"Rod", "MM"});
    EXPECT_EQ(Units("Rod"), "none");
    Write({"Rod", "NUMBER", "TEXT", "TEXT", "INCHES"});
    EXPECT_EQ(Units("Rod"), "NUMBER TEXT TEXT INCHES");
    Write({"Rod", "MM"});
    EXPECT_EQ(Units("Rod"), "NUMBER TEXT TEXT INCHES");
    Write({"Pipe", "CM"});
    Update({"Rod", "MM", "MM"}); // the columns behind stay
    EXPECT_EQ(Units("Rod"), "MM MM TEXT INCHES");
    EXPECT_EQ(Units("Pipe"), "CM");
    EXPECT_EQ(shownBoxes, std::vector<Box>{});
    EXPECT_EQ(TakeQuietError(), 0);
}

TEST_F(FieldUnitsTest, AreSetOneByOneFromColumnZero) {
    Write({"Rod", "NUMBER", "TEXT"});
    Write({"Pipe", "NUMBER"});
    UNIT::UpdateFieldUnit(Db(), "Rod", 0, "MM");
    UNIT::UpdateFieldUnit(Db(), "Rod", 4, "CM");
    UNIT::UpdateFieldUnit(Db(), "Tube", 0, "CM");
    EXPECT_EQ(Units("Rod"), "MM TEXT - - CM"); // nulls between are left empty
    EXPECT_EQ(Units("Pipe"), "NUMBER");
    EXPECT_EQ(Units("Tube"), "none");
}

TEST_F(FieldUnitsTest, AreDeletedForOneTable) {
    Write({"Rod", "NUMBER"});
    Write({"Pipe", "CM"});
    Write({"", "MM"}); // a row that no name deletes
    const auto all = [this] { return Units("Rod") + " " + Units("Pipe") + " " + Units(""); };
    UNIT::DeleteFieldUnits(Db(), "");
    UNIT::DeleteFieldUnits(Db(), "Tube");
    EXPECT_EQ(all(), "NUMBER CM MM");
    UNIT::DeleteFieldUnits(Db(), "Rod");
    EXPECT_EQ(all(), "none CM MM");
}

TEST_F(FieldUnitsTest, AreFoundByTheTableNameInAnyCaseUnlessItRepeats) {
    Write({"W Shape", "NUMBER", "TEXT"});
    EXPECT_EQ(Units("w sHAPE"), "NUMBER TEXT");
    m_file.AddUnits("W SHAPE", {"MM"});
    EXPECT_EQ(Units("W Shape"), "none");
}

TEST_F(FieldUnitsTest, AreReadIntoTheArrayOfTheCaller) {
    Write({"Rod", "MM"});
    UNIT::UpdateFieldUnit(Db(), "Rod", 2, "");
    CStringArray units = Array({"a", "b", "c", "d"});
    UNIT::GetFieldUnitArray(Db(), "Tube", &units);
    EXPECT_EQ(Joined(units), "a b c d");
    UNIT::GetFieldUnitArray(Db(), "Rod", &units); // a null leaves its element, an empty unit counts
    EXPECT_EQ(Joined(units), "MM b - d");
}

TEST_F(FieldUnitsTest, NeedAnArrayThatNamesItsTable) {
    const CStringArray empty;
    for (const auto write : {UNIT::WriteFieldUnits, UNIT::UpdateFieldUnits}) {
        write(Db(), nullptr);
        EXPECT_TRUE(IsRefused([&] { write(Db(), &empty); }));
    }
    RecordsetHandle rows;
    CSectionDatabase* db = Db();
    ASSERT_EQ(openRecordset(&db, rows.Address(), "Field Units", 1, 1), 1);
    EXPECT_EQ(getRecordCount(rows.Address()), 0);
}

TEST_F(FieldUnitsTest, ThatDoNotFitAreReportedAndNotHalfWritten) {
    Write({"Rod", "MM"});
    CStringArray units = Array({"Pipe"});
    while (units.GetSize() < 30)
        units.Add("CM");
    UNIT::WriteFieldUnits(Db(), &units);
    EXPECT_EQ(TakeQuietError(), SectionError::NoSuchItem);
    units.SetAt(0, "Rod");
    UNIT::UpdateFieldUnits(Db(), &units);
    EXPECT_EQ(TakeQuietError(), SectionError::NoSuchItem);
    EXPECT_EQ(Units("Pipe") + Units("Rod"), "noneMM");
}

TEST_F(FieldUnitsTest, OfADatabaseThatIsNotThereAreNone) {
    Write({"Rod", "MM"});
    CSectionDatabase closed;
    for (CSectionDatabase* db : {&closed, static_cast<CSectionDatabase*>(nullptr)}) {
        const CStringArray units = Array({"Rod", "MM"});
        CStringArray kept = units;
        UNIT::WriteFieldUnits(db, &units);
        UNIT::UpdateFieldUnits(db, &units);
        UNIT::UpdateFieldUnit(db, "Rod", 0, "CM");
        UNIT::DeleteFieldUnits(db, "Rod");
        EXPECT_EQ(UNIT::GetFieldUnitList(db, "Rod"), nullptr);
        UNIT::GetFieldUnitArray(db, "Rod", &kept);
        EXPECT_EQ(Joined(kept), "Rod MM");
    }
    m_file.RemoveTable("Field Units");
    EXPECT_EQ(Units("Rod"), "none");
    EXPECT_EQ(TakeQuietError(), SectionError::NoSuchTable);
    EXPECT_EQ(shownBoxes, std::vector<Box>{});
}

} // namespace
