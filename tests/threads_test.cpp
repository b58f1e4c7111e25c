// Calls from a second thread while one is inside the library: refused, and nothing else happens.
#include "EngineSupport.h"
#include "faults/Injector.h"

#include <atomic>
#include <functional>
#include <mutex>
#include <thread>

using namespace testsupport;

namespace {

constexpr int American = 1;
constexpr int WShape = 1;

std::mutex boxesMutex;
std::vector<Box> boxes;

int KeepBox(const char* text, const char* caption, unsigned /*flags*/) {
    const std::lock_guard lock(boxesMutex);
    boxes.push_back({text, caption});
    return 1;
}

std::vector<Box> TakeBoxes() {
    const std::lock_guard lock(boxesMutex);
    return std::exchange(boxes, {});
}

/// Runs a function in a thread of its own, to its end.
void InAnotherThread(const std::function<void()>& call) { std::thread(call).join(); }

std::function<void(const char*)> duringStatement;

class ThreadsTest : public EngineCallTest {
protected:
    ThreadsTest() {
        MakeCatalogue(File("AISCSections.db3"), 3);
        SetMessageBoxHandler(KeepBox);
        TakeBoxes();
    }
    ~ThreadsTest() override { SetStatementObserver(nullptr); }

    /// Calls `call` in another thread while this one is inside the library, in the middle of a
    /// count, which must not suffer from it.
    static void WhileInside(const std::function<void()>& call) {
        std::size_t statements = 0;
        duringStatement = [&](const char*) {
            if (statements++ == 0)
                InAnotherThread(call);
        };
        SetStatementObserver([](const char* sql, int) { duringStatement(sql); });
        EXPECT_EQ(Facade::GetSectionCount(American, WShape), 3);
        EXPECT_GT(statements, 0U);
        SetStatementObserver(nullptr);
    }
};

TEST_F(ThreadsTest, ASecondThreadIsRefused) {
    constexpr const char* Text = "The call was refused: another thread is inside the library. Call "
                                 "it from one thread at a time.";
    CDWordArray selection;
    CSectionDatabase* none = nullptr;
    CSectionRecordset* rows = nullptr;
    double angle = 7;
    const auto done = [](auto call) {
        return [=] {
            call();
            return true;
        };
    };
    const struct {
        const char* label;
        std::function<bool()> givesFailure;
    } cases[] = {
        {"GetSectionCount()", [] { return Facade::GetSectionCount(American, WShape) == 0; }},
        {"GetDatabasePtr()", [] { return Facade::GetDatabasePtr(American) == nullptr; }},
        {"OpenSectionDatabase()",
         [&] { return Facade::OpenSectionDatabase(American, &none) == 0; }},
        {"GetSectionTypeFromTable()",
         [] { return Facade::GetSectionTypeFromTable(American, "W Shape") == -1; }},
        {"GetCountryID()", [] { return Facade::GetCountryID("American") == 38; }},
        {"GetSectionNameList()",
         [] { return Facade::GetSectionNameList(American, WShape, 0) == nullptr; }},
        {"GetSectionData()",
         [] {
             int type = 0;
             return Facade::GetSectionData(American, "W12X26", type, "") == nullptr && type == 0;
         }},
        {"GetSectionPrincipalAngle()",
         [&] {
             return Facade::GetSectionPrincipalAngle(American, "W12X26", &angle) == 0 && angle == 7;
         }},
        {"GetUserSelectedSections()",
         [&] {
             Facade::GetUserSelectedSections(American, WShape, selection);
             return selection.IsEmpty();
         }},
        {"GetSectionRecord()",
         [&] {
             Facade::GetSectionRecord(American, WShape, "W12X26", &gblSectionDatabase, &rows);
             return rows == nullptr;
         }},
        {"BeginTransaction()", [] { return Facade::BeginTransaction(American) == 0; }},
        {"CommitTransaction()", [] { return Facade::CommitTransaction() == 0; }},
        {"RollbackTransaction()", [] { return Facade::RollbackTransaction() == 0; }},
        {"SetProfileDBFolder()", done([] { Facade::SetProfileDBFolder("/elsewhere"); })},
        {"GetProfileDBFolder()", [] { return Facade::GetProfileDBFolder().IsEmpty(); }},
        {"ExitSectionDBInterface()", done([] { Facade::ExitSectionDBInterface(); })},
        {"SETPROFILEDBFOLDER()", done([] { SETPROFILEDBFOLDER("/elsewhere", 10); })},
        {"TERMINATEDAOSESSION()", done(TERMINATEDAOSESSION)},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.label);
        SectionLibraryState::SetExceptionType(5);
        bool isFailure = false;
        WhileInside([&] { isFailure = c.givesFailure(); });
        EXPECT_TRUE(isFailure);
        EXPECT_EQ(TakeBoxes(), (std::vector<Box>{{Text, std::string("Error - ") + c.label}}));
        EXPECT_EQ(SectionLibraryState::GetExceptionType(), 5);
    }
    EXPECT_EQ(Facade::GetProfileDBFolder(), (m_folder.Path() + "\\").c_str());
}

TEST_F(ThreadsTest, ASecondThreadOfTheEngineIsTold) {
    ASSERT_EQ(Open(American), 0);
    const struct {
        const char* label;
        std::function<void(EngineAnswer&)> call;
        std::int32_t count;
        std::int32_t status = -7;
    } cases[] = {
        {"OPENSECTIONDATABASE()", [](EngineAnswer& answer) { answer.err = Open(American); }, -7},
        {"GETSECTION()", [](EngineAnswer& answer) { answer = Get(American, WShape, "W12X26"); }, 0},
        {"GETSECTIONCOUNT()",
         [](EngineAnswer& answer) {
             Enter(GETSECTIONCOUNT, American, WShape, &answer.count, &answer.err);
         },
         0},
        {"GETSECTIONTYPEFROMVESSANAME()",
         [](EngineAnswer& answer) {
             answer = FindType(GETSECTIONTYPEFROMVESSANAME, American, -7, "W12X26", AsStored);
         },
         0},
        {"GETFIRSTSECTION()", [](EngineAnswer& answer) { answer = Move(GETFIRSTSECTION, 0); }, -7,
         0},
        {"CLOSESECTIONDATABASE()", [](EngineAnswer& answer) { CLOSESECTIONDATABASE(&answer.err); },
         -7},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.label);
        EngineAnswer answer;
        WhileInside([&] { c.call(answer); });
        EXPECT_EQ(answer.err, 7);
        EXPECT_EQ(answer.count, c.count);
        EXPECT_EQ(answer.status, c.status);
        EXPECT_EQ(answer.values, EngineAnswer().values);
        const std::vector<Box> shown = TakeBoxes();
        ASSERT_EQ(shown.size(), 1U);
        EXPECT_EQ(shown[0].caption, std::string("Error - ") + c.label);
        EXPECT_EQ(Facade::IsEngineMode(), 1) << "the mode of the call that is inside";
        EXPECT_EQ(Facade::GetExceptionType(), 0);
    }
    EXPECT_EQ(Get(American, WShape, "W12X26").err, 0);
}

TEST_F(ThreadsTest, TheThreadThatIsInsideMayCallAgain) {
    static int inner = 0;
    SetMessageBoxHandler([](const char*, const char*, unsigned) {
        inner = Facade::GetCountryID("American");
        return 1;
    });
    CSectionDatabase* none = nullptr;
    EXPECT_EQ(Facade::GetSectionCount(American, WShape, &none), 0); // "Database not open"
    EXPECT_EQ(inner, 1);
}

/// The inner call is the host's own: what fails in it is told, too.
TEST_F(ThreadsTest, ACallFromAMessageBoxFailsLikeAnyOther) {
    static int inner = -1;
    SetMessageBoxHandler([](const char* text, const char* caption, unsigned flags) {
        if (std::exchange(inner, 0) == -1)
            inner = Facade::GetSectionCount(American, WShape);
        const faults::Unarmed unarmed;
        return KeepBox(text, caption, flags);
    });
    Facade::CloseGblSectionDBObject(1);
    faults::Expect({faults::Failure::Memory, 1, true});
    EXPECT_EQ(faults::Under([] { return Facade::GetSectionCount(American, WShape); }), 0);
    EXPECT_EQ(inner, 0);
    EXPECT_EQ(TakeBoxes().size(), 2) << "one for each of the two calls";
    EXPECT_EQ(Facade::GetSectionCount(American, WShape), 3);
}

TEST_F(ThreadsTest, ThreadsTakeTurns) {
    InAnotherThread([] { EXPECT_EQ(Facade::GetSectionCount(American, WShape), 3); });
    EXPECT_EQ(Facade::GetSectionCount(American, WShape), 3);
    InAnotherThread([] { Facade::ExitSectionDBInterface(); });
    EXPECT_EQ(Open(American), 0);
    EXPECT_TRUE(TakeBoxes().empty());
}

/// Two threads that do not agree on turns: each call is answered or refused.
TEST_F(ThreadsTest, ContentionIsMetWithoutACrash) {
    constexpr int Calls = 2000;
    std::atomic<int> answered = 0;
    std::atomic<int> wrong = 0;
    const auto work = [&](int salt) {
        for (int i = 0; i < Calls; ++i) {
            if ((i + salt) % 100 == 0)
                Facade::ExitSectionDBInterface();
            const int count = Facade::GetSectionCount(American, WShape);
            answered += count == 3 ? 1 : 0;
            wrong += count != 3 && count != 0 ? 1 : 0;
        }
    };
    std::thread first(work, 0);
    std::thread second(work, 50);
    first.join();
    second.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_GT(answered, 0);
    EXPECT_GE(TakeBoxes().size() + static_cast<std::size_t>(answered), std::size_t{2} * Calls);
    EXPECT_EQ(Facade::GetSectionCount(American, WShape), 3);
}

} // namespace
