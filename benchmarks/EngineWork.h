// Work that several measures share: what the entry points are asked for the W shapes of a folder's
// American catalogue, and the same by plain calls of the engine.
#pragma once

#include "EngineCalls.h"

#include "engine/SectionEngine.h"
#include "interface/SectionDBInterface.h"
#include "units/UnitId.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace sectionbench {

inline constexpr std::int32_t American = AmericanIndex;
inline constexpr std::int32_t WShape = 1;
inline constexpr std::int32_t Millimetre = dbsection::UnitId::Millimetre;
inline constexpr int NameColumn = 2;
inline constexpr int FirstValue = 3;
inline constexpr int ValueCount = 11;
inline constexpr std::array<std::int32_t, 4> ByArea{FirstValue, -1, 0, 0};
inline constexpr std::int32_t KeyCount = 2;

using Values = std::array<float, 17>;
using Name = std::array<char, 32>;

// Our side.

void OpenEngine(const std::string& folder, const char* password);
void GetSection(const std::string& name);

/// Lists the W shapes by their areas, walks them and returns their number.
std::size_t WalkSorted();

/// Walks the rows of a slot and returns their number.
std::size_t Walk(std::int32_t slot);

/// Adds sections in one transaction, which is then undone: the file stays what it was.
void AddSections();

/// Deletes sections by their names in one transaction, which is then undone.
void DeleteSections(const std::vector<std::string>& names);

// The engine's side.

inline constexpr const char* SearchByName =
    "SELECT * FROM [W Shape] WHERE UPPER([VessaName]) = UPPER(?)";
inline constexpr const char* SortedByArea = "SELECT * FROM [W Shape] ORDER BY [AX] ASC";

void ReadValues(sqlite3_stmt* row, Values& values);

/// Runs a statement bound to a name that finds one row, and reads its values.
void GetSectionRaw(sqlite3_stmt* search, const std::string& name);

/// Reads the names and values of all rows and returns their number.
std::size_t WalkRaw(sqlite3_stmt* rows);

void AddSectionsRaw(const EngineDatabase& database);
void DeleteSectionsRaw(const EngineDatabase& database, const std::vector<std::string>& names);

} // namespace sectionbench
