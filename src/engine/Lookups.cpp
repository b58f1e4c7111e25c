// Single sections, into slot 0.
#include "engine/EngineState.h"
#include "engine/SectionEngine.h"

#include "dataaccess/CCrack.h"
#include "platform/Text.h"

#include <algorithm>
#include <string_view>

using dbsection::EngineName;
using dbsection::EngineSlot;
using dbsection::engineSlots;
using dbsection::Enter;

namespace {

constexpr int LongSpanSlot = 7;
constexpr int JoinedValue = 3; ///< the value that sections joined by "+" add

EngineSlot& Lookup() { return engineSlots[0]; }

/// What a lookup hands back.
struct Answer {
    float* values;
    std::int32_t* count;
    std::int32_t* valueCount;
};

/// Runs a query into slot 0 and reads the first row; `prepare` sets the slot's factors, or tells
/// that it cannot. False when it is unknown whether there is a row.
template <class Query, class Prepare>
bool Read(const Answer& answer, Query query, Prepare prepare, int firstValue = BookkeepingColumns) {
    EngineSlot& slot = Lookup();
    slot.Ask(query);
    const bool isKnown = prepare(slot) && slot.rows != nullptr;
    slot.ReadFirst(answer.values, firstValue);
    *answer.count = slot.count;
    *answer.valueCount = slot.valueCount;
    return isKnown;
}

/// Reads the section of a name, of the slot's catalogue and type, and its converted values.
bool ReadSection(const Answer& answer, const CString& name, int unit) {
    const EngineSlot& slot = Lookup();
    return Read(
        answer,
        [&](CSectionDatabase** db, CSectionRecordset** rs) {
            SectionDBInterface::GetSectionRecord(slot.catalogue, slot.type, name, db, rs);
        },
        [&](EngineSlot& read) { return read.ConvertTo(unit); });
}

/// Reads "first+second": the values of the first, one of them increased by that of the second. The
/// first alone does when there is no second, but not when that cannot be found out.
void ReadJoined(const Answer& answer, const CString& first, const CString& second, int unit) {
    std::array<float, EngineSlot::Columns> sum{};
    std::array<float, EngineSlot::Columns> others{};
    std::int32_t count = 0;
    std::int32_t valueCount = 0;
    std::int32_t othersCount = 0;
    std::int32_t othersValueCount = 0;
    ReadSection({sum.data(), &count, &valueCount}, first, unit);
    if (!ReadSection({others.data(), &othersCount, &othersValueCount}, second, unit))
        return;
    if (othersCount > 0 && othersValueCount > JoinedValue)
        sum[JoinedValue] += others[JoinedValue];
    if (count > 0)
        std::copy_n(sum.begin(), std::min(valueCount, EngineSlot::MostValues), answer.values);
    *answer.count = count;
    *answer.valueCount = valueCount;
}

/// Reads a section, or two that are joined by "+", whose names may be padded with blanks.
void ReadOneOrTwo(const Answer& answer, const CString& name, int unit) {
    const std::string_view text = name.View();
    const std::size_t plus = text.find('+');
    if (plus == std::string_view::npos) {
        ReadSection(answer, name, unit);
        return;
    }
    const auto trimmed = [](std::string_view part) { return CString(dbsection::Trim(part)); };
    ReadJoined(answer, trimmed(text.substr(0, plus)), trimmed(text.substr(plus + 1)), unit);
}

/// The beam that the castellated beam in the slot was cut from. The slot's count is that of the
/// query before.
CString RootBeam() {
    const EngineSlot& slot = Lookup();
    if (slot.rows == nullptr || slot.count <= 0 || slot.rows->GetAbsolutePosition() < 0)
        return {};
    return CCrack::strVARIANT(slot.rows->GetFieldValue(BookkeepingColumns));
}

/// A lookup of values that are handed back as stored.
template <class Query>
void ReadStored(const std::int32_t* catalogue, const std::int32_t* type, const Answer& answer,
                Query query) {
    Lookup().Begin(*catalogue, *type);
    Read(answer, query, [](EngineSlot& slot) {
        slot.SetFactors(1);
        return true;
    });
}

} // namespace

void GETSECTION(const std::int32_t* catalogue, const std::int32_t* type, const char* name,
                std::int32_t name_length, const std::int32_t* unit, float* values,
                std::int32_t* count, std::int32_t* value_count, std::int32_t* err) {
    *count = *value_count = 0;
    Enter("GETSECTION()", err, [&] {
        Lookup().Begin(*catalogue, *type);
        ReadOneOrTwo({values, count, value_count}, EngineName(name, name_length), *unit);
    });
}

void GETSECTIONTYPEFROMVESSANAME(const std::int32_t* catalogue, std::int32_t* type,
                                 const char* name, std::int32_t name_length,
                                 const std::int32_t* unit, float* values, std::int32_t* count,
                                 std::int32_t* value_count, std::int32_t* err) {
    *count = *value_count = 0;
    std::int32_t kind = 0;
    bool isUnknown = false; ///< the section; a failure does not tell
    Enter("GETSECTIONTYPEFROMVESSANAME()", &kind, [&] {
        Lookup().catalogue = *catalogue;
        const CString text = EngineName(name, name_length);
        CUIntArray types;
        isUnknown = SectionDBInterface::GetSectionTypeFromVessaName(*catalogue, text, types) != 1;
        if (isUnknown)
            return;
        *type = static_cast<std::int32_t>(types[0]);
        if (values == nullptr)
            return;
        Lookup().type = *type;
        ReadSection({values, count, value_count}, text, *unit);
    });
    if (!isUnknown)
        *err = kind;
}

void GETCASTELLATEDROOTBEAMSECTION(const std::int32_t* catalogue, std::int32_t* type,
                                   const char* name, std::int32_t name_length,
                                   const std::int32_t* unit, float* values, std::int32_t* count,
                                   std::int32_t* value_count, std::int32_t* err) {
    constexpr int WShape = 1;
    *count = *value_count = 0;
    Enter("GETCASTELLATEDROOTBEAMSECTION()", err, [&] {
        EngineSlot& slot = Lookup();
        slot.Begin(*catalogue, *type);
        SectionDBInterface::GetSectionRecord(*catalogue, *type, EngineName(name, name_length),
                                             &gblSectionDatabase, &slot.rows);
        const CString beam = RootBeam();
        if (beam.IsEmpty())
            return;
        *type = WShape;
        slot.type = WShape;
        ReadSection({values, count, value_count}, beam, *unit);
    });
}

void GETSTEELJOIST(const std::int32_t* catalogue, const std::int32_t* type, const char* name,
                   std::int32_t name_length, const std::int32_t* /*unit*/, float* values,
                   std::int32_t* count, std::int32_t* value_count, std::int32_t* err) {
    *count = *value_count = 0;
    Enter("GETSTEELJOIST()", err, [&] {
        const CString text = EngineName(name, name_length);
        ReadStored(catalogue, type, {values, count, value_count},
                   [&](CSectionDatabase** db, CSectionRecordset** rs) {
                       SectionDBInterface::GetSteelJoist(*catalogue, *type, text, db, rs);
                   });
        // Part of the interface: the count is that of the list of long-span joists.
        *count = engineSlots[LongSpanSlot].count;
    });
}

void GETJOISTGIRDER(const std::int32_t* catalogue, const std::int32_t* type, const char* name,
                    std::int32_t name_length, const std::int32_t* /*unit*/, float* values,
                    std::int32_t* count, std::int32_t* value_count, std::int32_t* err) {
    *count = *value_count = 0;
    Enter("GETJOISTGIRDER()", err, [&] {
        const CString text = EngineName(name, name_length);
        ReadStored(catalogue, type, {values, count, value_count},
                   [&](CSectionDatabase** db, CSectionRecordset** rs) {
                       SectionDBInterface::GetJoistGirder(*catalogue, *type, text, db, rs);
                   });
    });
}

void GETALUMINIUMMATERIALPROPERTY(const std::int32_t* catalogue, const std::int32_t* type,
                                  const char* name, std::int32_t name_length,
                                  const std::int32_t* product, const std::int32_t* alclad,
                                  const std::int32_t* welded, const float* thickness,
                                  const std::int32_t* unit, const std::int32_t* source_unit,
                                  float* values, std::int32_t* count, std::int32_t* value_count,
                                  std::int32_t* err) {
    constexpr int FirstValue = BookkeepingColumns + 1; // behind the product
    const auto natural = [](const std::int32_t* number) { return static_cast<unsigned>(*number); };
    *count = *value_count = 0;
    Enter("GETALUMINIUMMATERIALPROPERTY()", err, [&] {
        Lookup().Begin(*catalogue, *type);
        Read(
            {values, count, value_count},
            [&](CSectionDatabase** db, CSectionRecordset** rs) {
                SectionDBInterface::GetAluminiumMaterialProperty(
                    *catalogue, *type, EngineName(name, name_length), natural(product),
                    natural(alclad), natural(welded), *thickness, db, rs);
            },
            [&](EngineSlot& slot) { return slot.ConvertTo(*unit, *source_unit, FirstValue); },
            FirstValue);
    });
}
