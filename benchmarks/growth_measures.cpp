// What work costs as a table grows.
#include "EngineCalls.h"
#include "EngineWork.h"
#include "LongTable.h"
#include "Measure.h"

#include <fstream>
#include <malloc.h>
#include <memory>
#include <stdexcept>

namespace sectionbench {
namespace {

/// Other names each time, from all parts of the table.
class Places {
public:
    explicit Places(const LongTable& table) : m_count(table.Count()) {}

    std::string Next() {
        constexpr std::int64_t Stride = 7919;
        m_last = (m_last + Stride) % m_count;
        return LongTable::NameOf(static_cast<int>(m_last) + 1);
    }

private:
    std::int64_t m_count;
    std::int64_t m_last = 0;
};

// Our side.

Action LookUp(const LongTable& table) {
    OpenEngine(table.Folder(), "");
    return [places = Places(table)]() mutable { GetSection(places.Next()); };
}

Action Count(const LongTable& table) {
    OpenEngine(table.Folder(), "");
    return [expected = table.Count()] {
        std::int32_t count = 0;
        std::int32_t err = 0;
        GETSECTIONCOUNT(&American, &WShape, &count, &err);
        Require(count == expected, "count the sections");
    };
}

Action WalkAll(const LongTable& table) {
    OpenEngine(table.Folder(), "");
    return [expected = static_cast<std::size_t>(table.Count())] {
        Require(WalkSorted() == expected, "walk all sections");
    };
}

Action Add(const LongTable& table) {
    OpenEngine(table.Folder(), "");
    return [] { AddSections(); };
}

// The engine's side.

/// A statement kept ready; it lives as long as the copies of it.
class Ready {
public:
    Ready(const LongTable& table, const char* sql)
        : m_database(std::make_shared<EngineDatabase>(table.Path(), nullptr)),
          m_statement(std::make_shared<EngineStatement>(*m_database, sql)) {}

    sqlite3_stmt* Get() const { return m_statement->Get(); }

private:
    std::shared_ptr<EngineDatabase> m_database;
    std::shared_ptr<EngineStatement> m_statement;
};

Action LookUpRaw(const LongTable& table) {
    return [search = Ready(table, SearchByName), places = Places(table)]() mutable {
        GetSectionRaw(search.Get(), places.Next());
    };
}

Action CountRaw(const LongTable& table) {
    return [rows = Ready(table, "SELECT count(*) FROM [W Shape]"), expected = table.Count()] {
        Require(sqlite3_step(rows.Get()) == SQLITE_ROW &&
                    sqlite3_column_int(rows.Get(), 0) == expected,
                "count the sections");
        sqlite3_reset(rows.Get());
    };
}

Action WalkAllRaw(const LongTable& table) {
    return [rows = Ready(table, SortedByArea), expected = static_cast<std::size_t>(table.Count())] {
        Require(WalkRaw(rows.Get()) == expected, "walk all sections");
    };
}

Action AddRaw(const LongTable& table) {
    return [database = std::make_shared<EngineDatabase>(table.Path(), nullptr)] {
        AddSectionsRaw(*database);
    };
}

/// A line of what the system tells of this process, in MiB.
double MemoryOf(const std::string& line) {
    std::ifstream status("/proc/self/status");
    constexpr double KibibytesPerMebibyte = 1024;
    for (std::string word; status >> word;)
        if (double kibibytes = 0; word == line && status >> kibibytes)
            return kibibytes / KibibytesPerMebibyte;
    throw std::runtime_error("the system does not tell of memory");
}

} // namespace

double CountPeakMebibytes(const LongTable& table) {
    const Action count = Count(table);
    ::malloc_trim(0);
    std::ofstream("/proc/self/clear_refs") << "5"; // the most so far is what there is now
    const double before = MemoryOf("VmRSS:");
    count();
    return MemoryOf("VmHWM:") - before;
}

std::vector<GrowthMeasure> GrowthMeasures() {
    return {
        {"look up a name", LookUp, LookUpRaw, {.ratio = 3}},
        {"count the rows", Count, CountRaw, {.ratio = 1.2}},
        {"sorted list and walk", WalkAll, WalkAllRaw, {.ratio = 1.5}},
        {"add 200 rows in one transaction", Add, AddRaw, {.ratio = 3}},
    };
}

} // namespace sectionbench
