// Units that cannot be read for a while, or at all: no value is given unconverted, and nothing is
// remembered of the failure.
#include "EngineSupport.h"
#include "ProgramSupport.h"

#include "units/UNIT.h"

#include <functional>
#include <memory>

using namespace testsupport;

namespace {

constexpr std::int32_t American = 1;
constexpr std::int32_t WShape = 1;
constexpr std::int32_t Millimetre = 1004;
constexpr float Depth = 309.88F; // 12.2 in
constexpr float NotGiven = 0;

/// Called, once, when what holds the text is about to be read.
std::function<void()> beforeReading;
constexpr std::string_view Units = "[Field Units]";
std::string_view watched = Units;

void WatchStatements(const char* sql, int /*openType*/) {
    if (beforeReading && std::string_view(sql).find(watched) != std::string_view::npos)
        std::exchange(beforeReading, nullptr)();
}

// The depth of the W12X26 in mm as each call gives it.

struct Out {
    std::int32_t count = 0, valueCount = 0, err = 0;
};

template <class Call>
float FirstOf(std::int32_t slot, Call call) {
    Out out;
    call(&out.count, &out.valueCount, &out.err);
    EXPECT_EQ(out.count == 0, out.err != 0);
    std::array<char, 64> name{};
    std::array<float, 17> values{};
    std::int32_t status = 0;
    GETFIRSTSECTION(&slot, name.data(), 64, values.data(), &status, &out.err);
    EXPECT_EQ(status, out.count);
    return values[1];
}

float FromSection(const std::string& name) {
    std::array<float, 17> values{};
    Out out;
    GETSECTION(&American, &WShape, name.data(), static_cast<std::int32_t>(name.size()), &Millimetre,
               values.data(), &out.count, &out.valueCount, &out.err);
    EXPECT_EQ(out.count == 0, out.err != 0);
    return values[1];
}

float FromType() {
    std::array<float, 17> values{};
    std::int32_t type = 0;
    Out out;
    GETSECTIONTYPEFROMVESSANAME(&American, &type, "W12X26", 6, &Millimetre, values.data(),
                                &out.count, &out.valueCount, &out.err);
    return values[1];
}

float FromRange() {
    float upper = 400;
    float lower = 300;
    return FirstOf(3, [&](auto... out) {
        const std::int32_t end[] = {-1, 0}, one = 1, column = 4;
        GETRANGESORTEDSECTIONS(&American, &WShape, end, &one, &column, &upper, &lower, &Millimetre,
                               out...);
    });
}

float FromList() {
    return FirstOf(1, [](auto... out) {
        const std::int32_t end[] = {-1, 0}, one = 1;
        GETSORTEDSECTIONS(&American, &WShape, end, &one, &Millimetre, out...);
    });
}

float FromDisplay() {
    std::array<float, 16> values{};
    CString name;
    const int result = Facade::GetSectionDataForGUI(American, WShape, 1, &name, values.data(), "",
                                                    Millimetre, 2007);
    EXPECT_EQ(result != 0, values[1] != 0);
    return values[1];
}

float FromDisplayByName() {
    std::array<float, 16> values{};
    int shape = 0;
    Facade::GetSectionDataForGUI(American, "W12X26", &shape, values.data(), "", Millimetre, 2007);
    return values[1];
}

float FromDisplayOfAll() {
    CStringArray names;
    float values[1][16] = {};
    Facade::GetAllSectionDataForGUI(American, WShape, &names, values, "", Millimetre, 2007);
    EXPECT_EQ(names.GetSize() != 0, values[0][1] != 0);
    return values[0][1];
}

float FromSummary() { // the modulus is 2 I / D
    const auto info = SummaryOf(American, "W12X26", Millimetre, 2007);
    return info ? static_cast<float>(2 * info->MajorInertia / info->MajorModulus) : NotGiven;
}

struct {
    const char* name;
    float (*depth)();
} const calls[] = {
    {"GETSECTION", [] { return FromSection("W12X26"); }},
    {"GETSECTION of two", [] { return FromSection("W12X26+W12X26"); }},
    {"GETSECTIONTYPEFROMVESSANAME", FromType},
    {"GETSORTEDSECTIONS", FromList},
    {"GETRANGESORTEDSECTIONS", FromRange},
    {"GetSectionDataForGUI by record", FromDisplay},
    {"GetSectionDataForGUI by name", FromDisplayByName},
    {"GetAllSectionDataForGUI", FromDisplayOfAll},
    {"GetSectionStructProperty", FromSummary},
};

class UnreadableUnits : public EngineCallTest {
protected:
    UnreadableUnits() {
        MakeCatalogue(m_path, 1, ";PWD=secret");
        Facade::SetSectionDBPassword(";PWD=secret");
        SetStatementObserver(WatchStatements);
    }
    ~UnreadableUnits() override {
        beforeReading = nullptr;
        SetStatementObserver(nullptr);
    }

    /// Another process takes the file when the library is about to read what holds the text.
    void HoldBeforeReading(std::string_view text) {
        watched = text;
        beforeReading = [this] {
            StartHolder([this] {
                static DatabaseHandle held;
                EXPECT_EQ(DataAccessTest::Open(held, m_path, ";PWD=secret", 0, 1), 1);
            });
        };
    }

    const std::string m_path = File("AISCSections.db3");
};

TEST_F(UnreadableUnits, GiveNoValuesWhileAnotherProcessHoldsTheFile) {
    Open(American);
    for (const auto& [name, depth] : calls) {
        SCOPED_TRACE(name);
        UNIT::UpdateFieldUnit(gblSectionDatabase, "W Shape", 0, "NUMBER"); // to be read again
        SectionLibraryState::SetExceptionType(0);
        HoldBeforeReading(Units);
        EXPECT_EQ(depth(), NotGiven);
        EXPECT_FALSE(beforeReading) << "the units were not read";
        EXPECT_EQ(SectionLibraryState::GetExceptionType(), 4);
        StopHolder();
        SectionLibraryState::SetExceptionType(0);
        EXPECT_FLOAT_EQ(depth(), Depth);
    }
}

/// Whether there is one cannot be told then.
TEST_F(UnreadableUnits, NorIsTheFirstOfTwoSectionsGivenWhereTheSecondCannotBeRead) {
    Open(American);
    EXPECT_FLOAT_EQ(FromSection("W12X26+NONE"), Depth);
    UNIT::UpdateFieldUnit(gblSectionDatabase, "W Shape", 0, "NUMBER"); // to be read again
    HoldBeforeReading("'NONE'");
    EXPECT_EQ(FromSection("W12X26+NONE"), NotGiven);
    EXPECT_FALSE(beforeReading);
}

TEST_F(UnreadableUnits, OfADamagedPageGiveNoValues) {
    constexpr std::size_t PageSize = 1024;
    const std::string whole = ReadFile(m_path);
    int withoutUnits = 0;
    for (std::size_t at = PageSize; at < whole.size(); at += PageSize) {
        std::string damaged = whole;
        damaged.replace(at, PageSize, PageSize, 'x');
        Facade::ExitSectionDBInterface();
        WriteFile(m_path, damaged);
        Open(American);
        for (const auto& [name, depth] : calls) {
            SectionLibraryState::SetExceptionType(0);
            const float given = depth();
            if (given != NotGiven) {
                EXPECT_FLOAT_EQ(given, Depth) << name << ", page " << at / PageSize;
            }
        }
        Facade::ExitSectionDBInterface(); // an engine may refuse all of a file that has failed it
        Open(American);
        const bool isReadable = Get(American, WShape, "W12X26", AsStored).count == 1;
        if (!isReadable || FromSection("W12X26") != NotGiven)
            continue;
        ++withoutUnits;
        for (const char* command : {"show American W12X26", "select American 'W Shape'"}) {
            const Outcome outcome =
                Program(command + (" --length mm --password secret --folder " + m_folder.Path()));
            EXPECT_EQ(outcome.status, 1) << outcome.output;
            EXPECT_FALSE(Holds(outcome, "12.2"));
        }
    }
    EXPECT_GT(withoutUnits, 0);
}

TEST_F(UnreadableUnits, AreNotMissingUnits) {
    {
        DatabaseHandle db;
        ASSERT_EQ(DataAccessTest::Open(db, m_path, ";PWD=secret"), 1);
        ASSERT_EQ(deleteTable(db.Get(), "Field Units"), 1);
    }
    Open(American);
    EXPECT_EQ(FromDisplay(), 12.2F); // missing ones convert nothing
    EXPECT_EQ(Get(American, WShape, "W12X26", Millimetre).values[1], 12.2F);
}

} // namespace
