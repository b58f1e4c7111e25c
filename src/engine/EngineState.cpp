#include "engine/EngineState.h"

#include "units/UNIT.h"

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <span>

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

Factors ReadFactors(const Conversion& conversion) {
    Factors factors;
    factors.fill(1);
    const std::unique_ptr<CStringArray> units(UNIT::GetFieldUnitList(
        gblSectionDatabase,
        SectionDBInterface::GetTableFromSectionType(conversion.catalogue, conversion.type)));
    for (int column = conversion.first; units && column < conversion.last; ++column)
        factors[static_cast<std::size_t>(column)] = static_cast<float>(UNIT::ConvertUnitTo(
            1.0, units->GetAt(column), static_cast<unsigned>(conversion.forceUnit),
            static_cast<unsigned>(conversion.lengthUnit)));
    return factors;
}

/// The factors of a table as they were when a database had that stamp; they are kept as long as
/// nothing changes, since the engine asks for one section after the other.
const Factors& KeptFactors(const Conversion& conversion, const CSectionDataStamp& stamp) {
    static std::map<Conversion, Factors> kept;
    static CSectionDataStamp keptStamp;
    if (keptStamp != stamp)
        kept.clear();
    keptStamp = stamp;
    const auto place = kept.find(conversion);
    return place != kept.end() ? place->second
                               : kept.emplace(conversion, ReadFactors(conversion)).first->second;
}

} // namespace

void EngineSlot::ConvertTo(int lengthUnit, int forceUnit, int first) {
    constexpr int FirstUnit = 1001;
    constexpr int LastUnit = 1008;
    std::fill(factors.begin() + BookkeepingColumns, factors.end(), 1.0F);
    if (lengthUnit < FirstUnit || lengthUnit > LastUnit)
        return;
    const Conversion conversion{catalogue,  type,
                                lengthUnit, forceUnit,
                                first,      std::min(BookkeepingColumns + valueCount, Columns)};
    const auto stamp = rows == nullptr ? std::nullopt : rows->GetDataStamp();
    const Factors& columns = stamp ? KeptFactors(conversion, *stamp) : ReadFactors(conversion);
    std::copy(columns.begin() + BookkeepingColumns, columns.end(),
              factors.begin() + BookkeepingColumns);
}

void EngineSlot::ReadValues(float* values, int first) const {
    const int last = std::min(BookkeepingColumns + valueCount, Columns);
    std::array<double, Columns> numbers{};
    const auto size = static_cast<std::size_t>(std::max(last - first, 0));
    rows->GetFieldNumbers(first, std::span(numbers).first(size));
    for (std::size_t i = 0; i < size; ++i)
        values[i] = static_cast<float>(numbers[i]) * factors[static_cast<std::size_t>(first) + i];
}

void EngineSlot::ReadFirst(float* values, int first) {
    if (rows != nullptr && count > 0 && setRecordsetToFirst(&rows) == 1)
        ReadValues(values, first);
    RequireMemory();
}

CString EngineText(const char* text, std::int32_t length) {
    constexpr char BlankOrNul = '\xDF'; // clears the bit that a blank has and a NUL has not
    int end = text == nullptr ? 0 : std::max<std::int32_t>(length, 0);
    while (end > 0 && (text[end - 1] & BlankOrNul) == 0)
        --end;
    return {text, end};
}

CString EngineName(const char* text, std::int32_t length) {
    CString name = EngineText(text, length);
    return name.MakeUpper();
}

} // namespace dbsection
