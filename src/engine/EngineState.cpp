#include "engine/EngineState.h"

#include "platform/Numbers.h"
#include "units/FieldUnits.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

namespace dbsection {

std::array<EngineSlot, SlotCount> engineSlots;

EngineSlot* FindSlot(int number) {
    return number >= 0 && number < SlotCount ? &engineSlots[static_cast<std::size_t>(number)]
                                             : nullptr;
}

void EngineSlot::Close() {
    closeRecordset(&rows);
    *this = {};
}

void EngineSlot::Begin(int newCatalogue, int newType) {
    closeRecordset(&rows);
    catalogue = newCatalogue;
    type = newType;
}

/// The rows were read just now: their number is known without asking the file again.
void EngineSlot::Count() {
    count = valueCount = 0;
    RequireMemory();
    if (rows == nullptr)
        return;
    valueCount = std::max(rows->GetFieldCount() - BookkeepingColumns, 0);
    if (rows->IsEOF())
        return;
    rows->MoveLast();
    count = static_cast<int>(rows->GetRecordCount());
    rows->MoveFirst();
}

namespace {

using Factors = std::array<float, EngineSlot::Columns>;

/// What the conversion factors of a table's columns follow from.
struct Conversion {
    int catalogue;
    int type;
    int lengthUnit;
    int forceUnit;
    int first;
    int last;
    // NOLINTNEXTLINE(modernize-use-nullptr): a fault of the check
    auto operator<=>(const Conversion&) const = default;
};

/// Nothing when the units cannot be read.
std::optional<Factors> ReadFactors(const Conversion& conversion) {
    Factors factors;
    factors.fill(1);
    CStringArray units;
    const FailureWatch watch;
    const CString table =
        SectionDBInterface::GetTableFromSectionType(conversion.catalogue, conversion.type);
    if (watch.HasSeenAny())
        return std::nullopt;
    const FieldUnits found = ReadFieldUnits(gblSectionDatabase, table, units);
    if (found == FieldUnits::Unreadable)
        return std::nullopt;
    if (found == FieldUnits::Kept)
        for (int column = conversion.first; column < conversion.last; ++column)
            factors[static_cast<std::size_t>(column)] = ToSingle(UNIT::ConvertUnitTo(
                1.0, units.GetAt(column), static_cast<unsigned>(conversion.forceUnit),
                static_cast<unsigned>(conversion.lengthUnit)));
    return factors;
}

/// The factors of a table as they were when a database had that stamp; they are kept as long as
/// nothing changes, since the engine asks for one section after the other. Null when the units
/// cannot be read; valid until the next call.
const Factors* FindFactors(const Conversion& conversion, const CSectionDataStamp& stamp) {
    static std::map<Conversion, Factors> kept;
    static CSectionDataStamp keptStamp;
    if (keptStamp != stamp)
        kept.clear();
    keptStamp = stamp;
    if (const auto place = kept.find(conversion); place != kept.end())
        return &place->second;
    const auto factors = ReadFactors(conversion);
    return factors ? &kept.emplace(conversion, *factors).first->second : nullptr;
}

} // namespace

bool EngineSlot::ConvertTo(int lengthUnit, int forceUnit, int first) {
    std::fill(factors.begin() + BookkeepingColumns, factors.end(), 1.0F);
    if (!UnitId::IsLength(static_cast<unsigned int>(lengthUnit)))
        return true;
    const int counted = std::exchange(count, 0); // no row is read without its factors
    const Conversion conversion{catalogue,  type,
                                lengthUnit, forceUnit,
                                first,      std::min(BookkeepingColumns + valueCount, Columns)};
    const auto stamp = rows == nullptr ? std::nullopt : rows->GetDataStamp();
    const auto unkept = stamp ? std::nullopt : ReadFactors(conversion);
    const Factors* const columns = stamp    ? FindFactors(conversion, *stamp)
                                   : unkept ? &*unkept
                                            : nullptr;
    if (columns == nullptr)
        return false;
    std::copy(columns->begin() + BookkeepingColumns, columns->end(),
              factors.begin() + BookkeepingColumns);
    count = counted;
    return true;
}

void EngineSlot::ReadValues(float* values, int first) const {
    const int last = std::min(BookkeepingColumns + valueCount, Columns);
    std::array<double, Columns> numbers{};
    const auto size = static_cast<std::size_t>(std::max(last - first, 0));
    rows->GetFieldNumbers(first, std::span(numbers).first(size));
    for (std::size_t i = 0; i < size; ++i)
        values[i] = ToSingle(numbers[i] *
                             static_cast<double>(factors[static_cast<std::size_t>(first) + i]));
}

void EngineSlot::ReadFirst(float* values, int first) const {
    if (rows != nullptr && count > 0)
        ReadValues(values, first);
    RequireMemory();
}

CString EngineText(const char* text, std::int32_t length) {
    const bool isGiven = text != nullptr && length > 0;
    std::string_view given(text, isGiven ? static_cast<std::size_t>(length) : 0);
    given = given.substr(0, given.find('\0'));
    return CString(given.substr(0, given.find_last_not_of(' ') + 1));
}

CString EngineName(const char* text, std::int32_t length) {
    CString name = EngineText(text, length);
    return name.MakeUpper();
}

void WriteText(const CString& text, char* target, std::int32_t length) {
    const auto room = static_cast<std::size_t>(std::max<std::int32_t>(length, 0));
    const std::size_t written = std::min(text.View().size(), room);
    std::memcpy(target, text.View().data(), written);
    if (written < room)
        target[written] = '\0';
}

} // namespace dbsection
