// The analysis engine's entry points.
#include "EngineCalls.h"
#include "Measure.h"

#include "engine/SectionEngine.h"
#include "interface/SectionDBInterface.h"
#include "units/UnitId.h"

#include <array>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>

namespace sectionbench {
namespace {

constexpr std::int32_t American = AmericanIndex;
constexpr std::int32_t WShape = 1;
constexpr std::int32_t Millimetre = dbsection::UnitId::Millimetre;
constexpr int NameColumn = 2;
constexpr int FirstValue = 3;
constexpr int ValueCount = 11;
constexpr double Inch = 25.4;
constexpr const char* Name = "W12X26";
constexpr float AreaInMillimetres = 4935.474F;

using Values = std::array<float, 17>;

void Require(bool success, const char* what) {
    if (!success)
        throw std::runtime_error(std::string("a measure failed to ") + what);
}

// Our side.

void OpenEngine(const Catalogues& catalogues) {
    SectionDBInterface::ExitSectionDBInterface();
    SectionDBInterface::SetProfileDBFolder(catalogues.ProtectedFolder().c_str());
    SectionDBInterface::SetSectionDBPassword(Catalogues::Password);
    std::int32_t err = 0;
    OPENSECTIONDATABASE(&American, &err);
}

Action GetSection(const Catalogues& catalogues) {
    OpenEngine(catalogues);
    return [] {
        Values values{};
        std::int32_t count = 0;
        std::int32_t valueCount = 0;
        std::int32_t err = 0;
        GETSECTION(&American, &WShape, Name, static_cast<std::int32_t>(std::strlen(Name)),
                   &Millimetre, values.data(), &count, &valueCount, &err);
        Require(count == 1 && std::abs(values[0] - AreaInMillimetres) < 1, "get a section");
    };
}

Action WalkSorted(const Catalogues& catalogues) {
    OpenEngine(catalogues);
    const std::size_t expected = catalogues.StatementsByName().size();
    return [expected] {
        constexpr std::array<std::int32_t, 4> byArea{FirstValue, -1, 0, 0};
        constexpr std::int32_t keyCount = 2;
        constexpr std::int32_t slot = 1;
        std::array<char, 32> name{};
        Values values{};
        std::int32_t count = 0;
        std::int32_t valueCount = 0;
        std::int32_t err = 0;
        std::int32_t status = 0;
        GETSORTEDSECTIONS(&American, &WShape, byArea.data(), &keyCount, &Millimetre, &count,
                          &valueCount, &err);
        std::size_t rows = 0;
        for (GETFIRSTSECTION(&slot, name.data(), 32, values.data(), &status, &err); status != 0;
             GETNEXTSECTION(&slot, name.data(), 32, values.data(), &status, &err))
            ++rows;
        Require(rows == expected, "walk all sections");
    };
}

// The engine's side.

std::shared_ptr<EngineDatabase> OpenRaw(const Catalogues& catalogues) {
    return std::make_shared<EngineDatabase>(catalogues.Protected(),
                                            catalogues.KeyStatement().c_str());
}

void ReadValues(sqlite3_stmt* row, Values& values) {
    for (int i = 0; i < ValueCount; ++i)
        values[static_cast<std::size_t>(i)] =
            static_cast<float>(sqlite3_column_double(row, FirstValue + i) * Inch);
    Keep(values);
}

/// A statement that is prepared once, bound to the name and served by the index.
Action SearchBound(const Catalogues& catalogues) {
    auto database = OpenRaw(catalogues);
    auto search = std::make_shared<EngineStatement>(
        *database, "SELECT * FROM [W Shape] WHERE UPPER([VessaName]) = UPPER(?)");
    return [database, search] {
        Values values{};
        sqlite3_stmt* row = search->Get();
        sqlite3_bind_text(row, 1, Name, -1, SQLITE_STATIC);
        Require(sqlite3_step(row) == SQLITE_ROW, "find a section");
        ReadValues(row, values);
        sqlite3_reset(row);
    };
}

/// What a plain client does: it selects the table and compares the names itself, up to the end,
/// since a second section of the name would count.
Action PrepareAndScan(const Catalogues& catalogues) {
    return [database = OpenRaw(catalogues)] {
        Values values{};
        const EngineStatement rows(*database, "SELECT * FROM [W Shape]");
        int count = 0;
        while (sqlite3_step(rows.Get()) == SQLITE_ROW) {
            const auto* name =
                reinterpret_cast<const char*>(sqlite3_column_text(rows.Get(), NameColumn));
            if (sqlite3_stricmp(name, Name) != 0)
                continue;
            ReadValues(rows.Get(), values);
            ++count;
        }
        Require(count == 1, "find a section");
    };
}

Action WalkSortedRaw(const Catalogues& catalogues) {
    const std::size_t expected = catalogues.StatementsByName().size();
    return [database = OpenRaw(catalogues), expected] {
        const EngineStatement rows(*database, "SELECT * FROM [W Shape] ORDER BY [AX] ASC");
        Values values{};
        std::array<char, 32> name{};
        std::size_t count = 0;
        for (; sqlite3_step(rows.Get()) == SQLITE_ROW; ++count) {
            std::strncpy(name.data(),
                         reinterpret_cast<const char*>(sqlite3_column_text(rows.Get(), NameColumn)),
                         name.size() - 1);
            Keep(name);
            ReadValues(rows.Get(), values);
        }
        Require(count == expected, "walk all sections");
    };
}

} // namespace

std::vector<Measure> EngineMeasures() {
    return {
        {"GETSECTION; a bound, indexed search", GetSection, SearchBound, {.ratio = 3.0}},
        {"GETSECTION; preparing and scanning", GetSection, PrepareAndScan, {.ratio = 0.2}},
        {"sorted list and walk of all W shapes", WalkSorted, WalkSortedRaw, {.ratio = 1.5}},
    };
}

} // namespace sectionbench
