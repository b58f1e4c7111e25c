// Calls under test whose allocations fail one after the other: each gives its failure value or the
// right result, tells about it once, and the next call works.
#pragma once

#include "EngineSupport.h"
#include "FailingMemory.h"
#include "JoistFixture.h"
#include "dataaccess/CCrack.h"

#include <functional>
#include <memory>
#include <optional>
#include <sstream>

namespace testsupport {

constexpr int American = 1;
constexpr int British = 3;
constexpr int Joists = 21;
constexpr int WShape = 1;
constexpr int Rod = 15;

/// The allocation that fails in the call under test.
inline long failing = 0;
inline bool failingOnwards = false;
inline bool hasFailed = false;

/// Makes the call under test; its result is to be taken to pieces afterwards, with memory enough.
template <class Call>
auto Attempt(Call call) {
    std::optional<std::invoke_result_t<Call>> result;
    hasFailed = FailAllocation(failing, failingOnwards, [&] { result.emplace(call()); });
    return std::move(*result);
}

template <class Call>
void AttemptVoid(Call call) {
    hasFailed = FailAllocation(failing, failingOnwards, call);
}

template <class... Values>
std::string Text(const Values&... values) {
    std::ostringstream text;
    const char* separator = "";
    ((text << std::exchange(separator, " ") << values), ...);
    return text.str();
}

template <class Range>
std::string Joined(const Range& texts) {
    std::string joined;
    for (const auto& text : texts)
        joined += (joined.empty() ? "" : ", ") + std::string(text.View());
    return joined;
}

/// The texts of a new list or array, which is deleted.
template <class List>
std::string Taken(List* list) {
    const std::unique_ptr<List> owned(list);
    return owned ? Joined(*owned) : "null";
}

inline std::string Numbers(const CUIntArray& array) {
    std::string text;
    for (const unsigned number : array)
        text += (text.empty() ? "" : ",") + std::to_string(number);
    return text;
}

inline std::string Names(RecordsetHandle& rows) {
    if (rows.Get() == nullptr)
        return "null";
    std::string names;
    for (; !rows->IsEOF(); rows->MoveNext())
        names += (names.empty() ? "" : ", ") +
                 std::string(CCrack::strVARIANT(rows->GetFieldValue(2)).View());
    return names;
}

/// A query into a recordset that holds the rows of an earlier one.
template <class Query>
std::string Asked(int catalogue, Query query) {
    CSectionDatabase* database = Facade::GetDatabasePtr(catalogue);
    RecordsetHandle rows;
    openRecordset(&database, rows.Address(), "Select 1, 2, 'stale'", 4, 1);
    AttemptVoid([&] { query(&database, rows.Address()); });
    return Names(rows);
}

struct Case {
    const char* name;
    std::function<std::string()> call;
    const char* right;
    const char* failed = "0";
    long step =
        1; ///< from one allocation that fails to the next; a call that writes takes its time
};

inline const char* const First = "THE-FIRST-BEAM-OF-ALL";
inline const char* const Second = "THE-SECOND-BEAM-OF-ALL";

class MemoryTest : public EngineCallTest {
protected:
    MemoryTest() {
        SetMessageBoxHandler(RecordBoxWithMemory);
        MakeAmerican();
        MakeJoistCatalogue(File("AISCSteelJoists.db3"));
        MakeBritish("BritishSections.db3", 1);
        MakeBritish("ReplacementSections.db3", 3);
        WriteFile(File("custom.ini"), "[CustomDBFlags]\nBritishSections=1\n[CustomDBNames]\n"
                                      "BritishSections=ReplacementSections\n");
        WriteFile(File("user.dbi"), "[AISCSections]\nW Shape=2\n");
        Facade::SetINIFileName(File("custom.ini").c_str());
        Facade::SetDBIFileName(File("user.dbi").c_str());
        LetSettle();
    }

    void MakeBritish(const char* name, std::size_t count) const {
        CatalogueFile(File(name))
            .AddTable("UB Shape", LayoutId::IShape, std::vector<Section>(count, W12X26));
    }

    void MakeAmerican() const {
        CatalogueFile file(File("AISCSections.db3"));
        file.AddTable("W Shape", LayoutId::IShape,
                      {{"the first beam of the standard", First, W12X26.properties},
                       {"the second beam of the standard", Second, {3.83, 4.16}}});
        file.AddTable("Rod", LayoutId::RoundBar,
                      {{"the only rod of the standard", First, {1.5, 1.77, 0.25}}});
    }

    /// Runs a case with each of its allocations failing, beyond 100 a sample of them, alone and
    /// with all that follow.
    void Exhaust(const Case& c) const {
        SCOPED_TRACE(c.name);
        ExpectRight(c);
        FailAll(c);
        const long livingBefore = living; // with all that the library keeps
        FailAll(c);
        EXPECT_EQ(living, livingBefore) << "leaked";
    }

    void FailAll(const Case& c) const {
        for (const bool onwards : {false, true})
            for (long n = 1; FailOne(c, n, onwards); n += c.step + n / 100)
                continue;
    }

    /// False when the call needed fewer allocations.
    bool FailOne(const Case& c, long n, bool onwards) const {
        SCOPED_TRACE(Text("allocation", n, onwards ? "and all that follow" : ""));
        failing = n;
        failingOnwards = onwards;
        {
            const std::string result = Run(c);
            const bool isTold = SectionLibraryState::GetExceptionType() == 1;
            EXPECT_EQ(result, isTold ? c.failed : c.right);
            EXPECT_LE(shownBoxes.size(), isTold ? 1 : 0);
            EXPECT_TRUE(!isTold || m_maybeSilent || !shownBoxes.empty());
            shownBoxes = {};
        }
        const bool wasReached = hasFailed;
        ExpectRight(c);
        return wasReached && !HasFailure();
    }

    static void ExpectRight(const Case& c) {
        failing = 0;
        EXPECT_EQ(Run(c), c.right);
    }

    /// The file of each catalogue is opened in the call.
    static std::string Run(const Case& c) {
        Facade::CloseGblSectionDBObject(1);
        SectionLibraryState::SetExceptionType(0);
        return c.call();
    }

    bool m_maybeSilent = false; ///< in engine mode
};

} // namespace testsupport
