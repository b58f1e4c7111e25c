#include "engine/EngineState.h"

#include "units/UNIT.h"

#include <algorithm>
#include <charconv>
#include <memory>

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
    catalogue = newCatalogue;
    type = newType;
}

void EngineSlot::Count() {
    count = rows == nullptr ? 0 : getRecordCount(&rows);
    const int fields = rows == nullptr ? 0 : getFieldCount(&rows);
    valueCount = std::max(fields - BookkeepingColumns, 0);
}

void EngineSlot::ConvertTo(int lengthUnit, int forceUnit, int first) {
    constexpr int FirstUnit = 1001;
    constexpr int LastUnit = 1008;
    const int last = std::min(BookkeepingColumns + valueCount, Columns);
    std::fill(factors.begin() + BookkeepingColumns, factors.end(), 1.0F);
    if (lengthUnit < FirstUnit || lengthUnit > LastUnit)
        return;
    const std::unique_ptr<CStringArray> units(UNIT::GetFieldUnitList(
        gblSectionDatabase, SectionDBInterface::GetTableFromSectionType(catalogue, type)));
    for (int column = first; units && column < last; ++column)
        factors[static_cast<std::size_t>(column)] = static_cast<float>(
            UNIT::ConvertUnitTo(1.0, units->GetAt(column), static_cast<unsigned>(forceUnit),
                                static_cast<unsigned>(lengthUnit)));
}

double EngineNumber(const COleVariant& value) {
    if (value.vt != VT_BSTR)
        return NumberIn(value).value_or(0);
    double number = 0; // as far as the text is one
    std::from_chars(value.strVal.View().begin(), value.strVal.View().end(), number);
    return number;
}

void EngineSlot::ReadValues(float* values, int first) const {
    const int last = std::min(BookkeepingColumns + valueCount, Columns);
    for (int column = first; column < last; ++column)
        *values++ = static_cast<float>(EngineNumber(rows->GetFieldValue(column))) *
                    factors[static_cast<std::size_t>(column)];
}

void EngineSlot::ReadFirst(float* values, int first) {
    if (rows != nullptr && count > 0 && setRecordsetToFirst(&rows) == 1)
        ReadValues(values, first);
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
