// The analysis engine's entry points.
#include "EngineCalls.h"
#include "EngineWork.h"
#include "Measure.h"

#include <algorithm>
#include <array>
#include <memory>
#include <sys/stat.h>

namespace sectionbench {
namespace {

constexpr std::int32_t AsStored = 0; // no unit

/// The names of all W shapes in turn.
class NamesInTurn {
public:
    explicit NamesInTurn(const Catalogues& catalogues) : m_names(catalogues.Names()) {}

    const std::string& Next() { return m_names[m_next++ % m_names.size()]; }

private:
    const std::vector<std::string>& m_names;
    std::size_t m_next = 0;
};

/// Bounds of the area between which 14 W shapes lie, others each time.
class RangesInTurn {
public:
    explicit RangesInTurn(const Catalogues& catalogues) {
        constexpr std::size_t Rows = 14;
        std::vector<double> areas = catalogues.Areas();
        std::ranges::sort(areas);
        const auto isGap = [&](std::size_t i) { return areas[i] - areas[i - 1] > 0.01; };
        for (std::size_t i = 1; i + Rows < areas.size(); ++i)
            if (isGap(i) && isGap(i + Rows))
                m_ranges.push_back(
                    {static_cast<float>((areas[i - 1] + areas[i]) / 2),
                     static_cast<float>((areas[i + Rows - 1] + areas[i + Rows]) / 2)});
        Require(!m_ranges.empty(), "find ranges");
    }

    struct Range {
        float lower;
        float upper;
    };
    Range Next() { return m_ranges[m_next++ % m_ranges.size()]; }

private:
    std::vector<Range> m_ranges;
    std::size_t m_next = 0;
};

// Our side.

template <bool IsProtected>
void Open(const Catalogues& catalogues) {
    OpenEngine(IsProtected ? catalogues.ProtectedFolder() : catalogues.PlainFolder(),
               IsProtected ? Catalogues::Password : "");
}

template <bool IsProtected>
Action LookUp(const Catalogues& catalogues) {
    Open<IsProtected>(catalogues);
    return [names = NamesInTurn(catalogues)]() mutable { GetSection(names.Next()); };
}

template <bool IsProtected>
Action ListSorted(const Catalogues& catalogues) {
    Open<IsProtected>(catalogues);
    return [expected = catalogues.Names().size()] {
        Require(WalkSorted() == expected, "walk all sections");
    };
}

template <bool IsProtected>
Action WalkRange(const Catalogues& catalogues) {
    Open<IsProtected>(catalogues);
    return [ranges = RangesInTurn(catalogues)]() mutable {
        auto [lower, upper] = ranges.Next();
        std::int32_t count = 0;
        std::int32_t valueCount = 0;
        std::int32_t err = 0;
        GETRANGESORTEDSECTIONS(&American, &WShape, ByArea.data(), &KeyCount, &FirstValue, &upper,
                               &lower, &AsStored, &count, &valueCount, &err);
        Require(Walk(3) == 14, "walk a range");
    };
}

template <bool IsProtected>
Action Count(const Catalogues& catalogues) {
    Open<IsProtected>(catalogues);
    return [expected = static_cast<std::int32_t>(catalogues.Names().size())] {
        std::int32_t count = 0;
        std::int32_t err = 0;
        GETSECTIONCOUNT(&American, &WShape, &count, &err);
        Require(count == expected, "count the sections");
    };
}

template <bool IsProtected>
Action CountFields(const Catalogues& catalogues) {
    Open<IsProtected>(catalogues);
    return [] {
        std::int32_t count = 0;
        std::int32_t err = 0;
        GETFIELDCOUNT(&American, &WShape, &count, &err);
        Require(count == ValueCount, "count the fields");
    };
}

// The engine's side.

template <bool IsProtected>
std::shared_ptr<EngineDatabase> OpenRaw(const Catalogues& catalogues) {
    return IsProtected ? std::make_shared<EngineDatabase>(catalogues.Protected(),
                                                          catalogues.KeyStatement().c_str())
                       : std::make_shared<EngineDatabase>(catalogues.Plain(), nullptr);
}

/// A statement kept ready.
template <bool IsProtected>
class Ready {
public:
    Ready(const Catalogues& catalogues, const char* sql)
        : m_database(OpenRaw<IsProtected>(catalogues)),
          m_statement(std::make_shared<EngineStatement>(*m_database, sql)) {}

    const EngineDatabase& Database() const { return *m_database; }
    sqlite3_stmt* Get() const { return m_statement->Get(); }

private:
    std::shared_ptr<EngineDatabase> m_database;
    std::shared_ptr<EngineStatement> m_statement;
};

/// Served by the index. One that holds a reading transaction need not lock the file each time.
template <bool IsProtected, bool HoldsFile = false>
Action SearchBound(const Catalogues& catalogues) {
    const Ready<IsProtected> search(catalogues, SearchByName);
    if (HoldsFile)
        search.Database().Execute("BEGIN; SELECT count(*) FROM sqlite_master");
    return [search, names = NamesInTurn(catalogues)]() mutable {
        GetSectionRaw(search.Get(), names.Next());
    };
}

/// What a plain client does: it selects the table and compares the names itself, up to the end,
/// since a second section of the name would count.
Action Scan(const Catalogues& catalogues) {
    const Ready<true> rows(catalogues, "SELECT * FROM [W Shape]");
    return [rows, names = NamesInTurn(catalogues)]() mutable {
        Values values{};
        const std::string& wanted = names.Next();
        int count = 0;
        while (sqlite3_step(rows.Get()) == SQLITE_ROW) {
            const auto* name =
                reinterpret_cast<const char*>(sqlite3_column_text(rows.Get(), NameColumn));
            if (sqlite3_stricmp(name, wanted.c_str()) != 0)
                continue;
            ReadValues(rows.Get(), values);
            ++count;
        }
        sqlite3_reset(rows.Get());
        Require(count == 1, "find a section");
    };
}

/// A look at each of the files that a section depends on.
Action LookThrice(const Catalogues& catalogues) {
    const std::string folder = catalogues.PlainFolder();
    return [paths = std::array{folder + "/Custom.Ini", catalogues.Plain(), folder + "/index.dbi"}] {
        for (const std::string& path : paths) {
            struct stat status {};
            Keep(::stat(path.c_str(), &status));
        }
    };
}

template <bool IsProtected>
Action WalkSortedRaw(const Catalogues& catalogues) {
    const Ready<IsProtected> rows(catalogues, SortedByArea);
    return [rows, expected = catalogues.Names().size()] {
        Require(WalkRaw(rows.Get()) == expected, "walk all sections");
    };
}

template <bool IsProtected>
Action WalkRangeRaw(const Catalogues& catalogues) {
    const Ready<IsProtected> rows(
        catalogues, "SELECT * FROM [W Shape] WHERE [AX] >= ? AND [AX] <= ? ORDER BY [AX] ASC");
    return [rows, ranges = RangesInTurn(catalogues)]() mutable {
        const auto [lower, upper] = ranges.Next();
        sqlite3_bind_double(rows.Get(), 1, static_cast<double>(lower));
        sqlite3_bind_double(rows.Get(), 2, static_cast<double>(upper));
        Require(WalkRaw(rows.Get()) == 14, "walk a range");
    };
}

template <bool IsProtected>
Action CountRaw(const Catalogues& catalogues) {
    const Ready<IsProtected> rows(catalogues, "SELECT count(*) FROM [W Shape]");
    return [rows, expected = static_cast<int>(catalogues.Names().size())] {
        Require(sqlite3_step(rows.Get()) == SQLITE_ROW &&
                    sqlite3_column_int(rows.Get(), 0) == expected,
                "count the sections");
        sqlite3_reset(rows.Get());
    };
}

} // namespace

std::vector<Measure> EngineMeasures() {
    return {
        {"GETSECTION, plain; beyond three looks", LookUp<false>, LookThrice, {.beyond = 1}},
        {"GETSECTION, plain; a bound, indexed search",
         LookUp<false>,
         SearchBound<false>,
         {.ratio = 0.9}},
        {"GETSECTION; a bound, indexed search", LookUp<true>, SearchBound<true>, {.ratio = 0.9}},
        {"GETSECTION, plain; the file held", LookUp<false>, SearchBound<false, true>, {}},
        {"GETSECTION; scanning the table", LookUp<true>, Scan, {.ratio = 0.2}},
        {"sorted list and walk, plain", ListSorted<false>, WalkSortedRaw<false>, {.ratio = 0.5}},
        {"sorted list and walk of all W shapes",
         ListSorted<true>,
         WalkSortedRaw<true>,
         {.ratio = 0.5}},
        {"ranged list of 14 and walk, plain",
         WalkRange<false>,
         WalkRangeRaw<false>,
         {.ratio = 1.5}},
        {"ranged list of 14 and walk", WalkRange<true>, WalkRangeRaw<true>, {.ratio = 1.5}},
        {"count the W shapes, plain", Count<false>, CountRaw<false>, {.ratio = 0.5}},
        {"count the W shapes", Count<true>, CountRaw<true>, {.ratio = 0.5}},
        {"count the fields; counting the rows", CountFields<true>, CountRaw<true>, {.ratio = 0.5}},
    };
}

} // namespace sectionbench
