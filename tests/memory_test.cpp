// Memory that runs out at any allocation of a call of the engine, of a catalogue object, of the
// units, or when the library is initialised.
#include "MemorySupport.h"

#include "catalogues/Catalogues.h"
#include "units/UNIT.h"

#include <set>

using namespace testsupport;

namespace {

/// A call of the engine, with what it wrote.
template <class Call>
std::string Answered(Call call) {
    EngineAnswer answer;
    AttemptVoid([&] { call(answer); });
    return Text(answer.count, answer.valueCount, answer.values[0], answer.err);
}

constexpr std::int32_t Catalogue = American;
constexpr std::int32_t Rods = Rod;
constexpr std::int32_t Millimetres = 1004;
constexpr std::int32_t NameLength = 21;

TEST_F(MemoryTest, OfTheEngine) {
    m_maybeSilent = true;
    const auto openFirst = [](auto call) {
        return [call] {
            Facade::GetDatabasePtr(American);
            return call();
        };
    };
    const Case cases[] = {
        {"OPENSECTIONDATABASE",
         [] {
             std::int32_t err = -7;
             AttemptVoid([&] { err = Open(American); });
             return Text(err);
         },
         "0", "1"},
        {"GETSECTIONCOUNT",
         [] {
             return Answered([](EngineAnswer& answer) {
                 GETSECTIONCOUNT(&Catalogue, &Rods, &answer.count, &answer.err);
                 Facade::SetEngineMode(1);
             });
         },
         "1 -7 -1 0", "0 -7 -1 1"},
        {"GETSECTION", openFirst([] {
             return Answered([](EngineAnswer& answer) {
                 GETSECTION(&Catalogue, &Rods, First, NameLength, &Millimetres,
                            answer.values.data(), &answer.count, &answer.valueCount, &answer.err);
             });
         }),
         "1 3 38.1 0", "0 0 -1 1"},
        {"GETSECTIONTYPEFROMVESSANAME", openFirst([] {
             return Answered([](EngineAnswer& answer) {
                 GETSECTIONTYPEFROMVESSANAME(&Catalogue, &answer.type, Second, NameLength + 1,
                                             &Millimetres, answer.values.data(), &answer.count,
                                             &answer.valueCount, &answer.err);
             });
         }),
         "1 11 2470.96 0", "0 0 -1 1"},
        {"GETRANGESORTEDSECTIONS",
         [] {
             return Answered([](EngineAnswer& answer) {
                 const std::int32_t keys[] = {-1, 0};
                 const std::int32_t keyCount = 1;
                 const std::int32_t column = 3;
                 float upper = 50; // millimetres: the rod has 38.1
                 float lower = 30;
                 std::int32_t valueCount = 0;
                 GETRANGESORTEDSECTIONS(&Catalogue, &Rods, keys, &keyCount, &column, &upper, &lower,
                                        &Millimetres, &answer.count, &valueCount, &answer.err);
                 Facade::SetEngineMode(1);
             });
         },
         "1 -7 -1 0", "0 -7 -1 1"},
        {"GETFIRSTSECTION", openFirst([] {
             std::int32_t count = 0, valueCount = 0, err = 0;
             const std::int32_t keys[] = {-1, 0};
             const std::int32_t keyCount = 1;
             GETSORTEDSECTIONS(&Catalogue, &Rods, keys, &keyCount, &Millimetres, &count,
                               &valueCount, &err);
             EngineAnswer answer;
             std::array<char, 64> name{};
             const std::int32_t slot = 1;
             AttemptVoid([&] {
                 GETFIRSTSECTION(&slot, name.data(), name.size(), answer.values.data(),
                                 &answer.status, &answer.err);
             });
             return Text(answer.status, name.data(), answer.values[0], answer.err);
         }),
         "1 THE-FIRST-BEAM-OF-ALL 38.1 0", "0  -1 1"},
    };
    for (const Case& c : cases)
        Exhaust(c);
}

TEST_F(MemoryTest, OfTheCatalogueObjects) {
    const auto names = [](CStringList& list, CUIntArray& ids, int result) {
        return Text(result, Joined(list), Numbers(ids));
    };
    DatabaseHandle database;
    ASSERT_EQ(DataAccessTest::Open(database, File("AISCSections.db3")), 1);
    AISCSectionDB american;
    american.SetDatabase(database.Get());
    const Case cases[] = {
        {"GetSectionNameList",
         [&] {
             CStringList list;
             CUIntArray ids;
             list.AddTail("what was there");
             const int result =
                 Attempt([&] { return american.GetSectionNameList(Rod, &list, &ids, 1, 0); });
             return names(list, ids, result);
         },
         "1 what was there, THE-FIRST-BEAM-OF-ALL 1", "0 what was there "},
        {"GetSectionTypeList",
         [&] {
             CStringList list;
             CUIntArray none;
             const int result = Attempt([&] { return american.GetSectionTypeList(&list); });
             return names(list, none, result);
         },
         "1 W Shape, Rod ", "0  "},
        {"FindSectionTable",
         [&] {
             CString table;
             const int result =
                 Attempt([&] { return american.FindSectionTable("the-first-beam-of-all", table); });
             return Text(result, table.View());
         },
         "1 W Shape", "0 "},
        {"SetDatabase",
         [&] {
             AttemptVoid([&] { american.SetDatabase(database.Get()); });
             return Text(american.OpenSectionDatabase(), american.GetSectionCount(Rod));
         },
         "1 1", "1 1"},
        {"UpdateSectionData",
         [&] {
             american.SetWorkingTable("Rod");
             SECTIONINFO rod;
             rod.PublicName = "the only rod of the standard";
             rod.VessaName = First;
             rod.Values = {1.5, 1.77, 0.25};
             american.UpdateSectionData(1, &rod);
             rod.Values[0] = 2.5;
             const int result = Attempt([&] { return american.UpdateSectionData(1, &rod); });
             RecordsetHandle rows;
             EXPECT_EQ(Query(database, rows, "Select [D] From [Rod]"), 1);
             return result == 0 ? Text(0) : Text(result, rows->GetFieldValue(0).dblVal);
         },
         "1 2.5", "0", 7},
    };
    for (const Case& c : cases)
        Exhaust(c);
}

TEST_F(MemoryTest, OfTheUnits) {
    DatabaseHandle database;
    ASSERT_EQ(DataAccessTest::Open(database, File("AISCSections.db3")), 1);
    const auto unitsOf = [&](const char* table) {
        return Taken(UNIT::GetFieldUnitList(database.Get(), table));
    };
    const auto array = [](std::initializer_list<const char*> texts) {
        CStringArray units;
        for (const char* text : texts)
            units.Add(text);
        return units;
    };
    const CStringArray fresh = array({"a table of a long name", "KIPS/INCHES^2"});
    const CStringArray changed = array({"Rod", "NUMBER", "KIPS/INCHES^2 or so"});
    const Case cases[] = {
        {"WriteFieldUnits",
         [&] {
             UNIT::DeleteFieldUnits(database.Get(), fresh[0]);
             AttemptVoid([&] { UNIT::WriteFieldUnits(database.Get(), &fresh); });
             UNIT::WriteFieldUnits(database.Get(), &fresh);
             return unitsOf(fresh[0]);
         },
         "KIPS/INCHES^2", "KIPS/INCHES^2", 7},
        {"GetFieldUnitArray",
         [&] {
             CStringArray units = changed;
             AttemptVoid([&] { UNIT::GetFieldUnitArray(database.Get(), "Rod", &units); });
             return Joined(units);
         },
         "NUMBER, TEXT, TEXT, INCHES, INCHES^2, INCHES^4", "Rod, NUMBER, KIPS/INCHES^2 or so"},
    };
    for (const Case& c : cases)
        Exhaust(c);
}

/// A catalogue that memory is too short for stays missing until the library is initialised anew;
/// the maps are whole, or empty until the next call.
TEST_F(MemoryTest, OfTheInitialisation) {
    const std::set<int> countries{0, 36};
    const std::set<int> types{0, 302};
    for (const bool onwards : {false, true})
        for (long n = 1;; n += 1 + n / 100) {
            SCOPED_TRACE(Text("allocation", n, onwards));
            Facade::UnInitSectionDBInterface();
            Facade::m_mapCountryEnums.RemoveAll();
            Facade::m_mapSectionTypeEnums.RemoveAll();
            SectionLibraryState::SetExceptionType(0);
            shownBoxes = {};
            const bool wasReached =
                FailAllocation(n, onwards, [] { Facade::InitSectionDBInterface(); });
            const int objects = Facade::m_SectionDBDrv.GetObjectCount();
            EXPECT_EQ(Facade::m_bInit, 1);
            EXPECT_TRUE(onwards || objects >= 38);
            EXPECT_TRUE(countries.contains(Facade::m_mapCountryEnums.GetCount()));
            EXPECT_TRUE(types.contains(Facade::m_mapSectionTypeEnums.GetCount()));
            EXPECT_EQ(SectionLibraryState::GetExceptionType(), wasReached ? 1 : 0);
            EXPECT_EQ(shownBoxes.size(), wasReached ? 1 : 0);
            Facade::InitSectionDBInterface();
            EXPECT_EQ(Facade::m_SectionDBDrv.GetObjectCount(), objects);
            EXPECT_EQ(Facade::m_mapCountryEnums.GetCount(), 36);
            EXPECT_EQ(Facade::m_mapSectionTypeEnums.GetCount(), 302);
            Facade::UnInitSectionDBInterface();
            EXPECT_EQ(Facade::GetSectionCount(American, WShape), 2);
            EXPECT_EQ(Facade::m_SectionDBDrv.GetObjectCount(), 39);
            if (!wasReached || HasFailure())
                break;
        }
}

/// What is missing is created by the next creation, and nothing leaks.
TEST_F(MemoryTest, OfTheDriver) {
    const auto createAt = [](long n, bool onwards) {
        SCOPED_TRACE(Text("allocation", n, onwards));
        SectionDBDriverImpl driver;
        const bool wasReached =
            FailAllocation(n, onwards, [&] { driver.CreateSectionDBObjects(); });
        EXPECT_EQ(driver.GetObjectCount() < 39, wasReached);
        EXPECT_TRUE(onwards || driver.GetObjectCount() >= 38);
        EXPECT_EQ(driver.CreateSectionDBObjects(), 1);
        EXPECT_EQ(driver.GetObjectCount(), 39);
        return wasReached && !HasFailure();
    };
    createAt(1, false);
    shownBoxes.clear(); // what was kept at first use stays
    const long livingBefore = living;
    for (const bool onwards : {false, true})
        for (long n = 1; createAt(n, onwards);)
            n += 1 + n / 100;
    shownBoxes.clear();
    EXPECT_EQ(living, livingBefore) << "leaked";
}

/// A message box of the library may call it, and is told a failure as any host is.
TEST_F(MemoryTest, OfACallFromAMessageBox) {
    static int inner = -1;
    SetMessageBoxHandler([](const char* text, const char* caption, unsigned flags) {
        if (shownBoxes.empty()) {
            RecordBoxWithMemory(text, caption, flags);
            inner = Facade::GetSectionCount(American, WShape);
            return 1;
        }
        return RecordBoxWithMemory(text, caption, flags);
    });
    Facade::CloseGblSectionDBObject(1);
    FailAllocation(1, true, [] { EXPECT_EQ(Facade::GetSectionCount(American, Rod), 0); });
    EXPECT_EQ(inner, 0);
    EXPECT_EQ(shownBoxes.size(), 2) << "one for each of the two calls";
    EXPECT_EQ(Facade::GetSectionCount(American, Rod), 1);
}

} // namespace
