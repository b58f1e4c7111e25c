// Single sections, into slot 0.
#include "engine/EngineState.h"
#include "engine/SectionEngine.h"

#include "dataaccess/CCrack.h"

using dbsection::EngineName;
using dbsection::EngineSlot;
using dbsection::engineSlots;
using dbsection::Enter;

namespace {

constexpr int LongSpanSlot = 7;
constexpr int JoinedValue = 3; ///< the value that sections joined by "+" add

EngineSlot& Lookup() { return engineSlots[0]; }

/// Runs a query into slot 0 and counts its rows and values.
template <class Query>
void Ask(Query query, std::int32_t* count, std::int32_t* valueCount) {
    EngineSlot& slot = Lookup();
    slot.Ask(query);
    *count = slot.count;
    *valueCount = slot.valueCount;
}

/// Reads the section of a name, of the slot's catalogue and type, and its converted values.
void Read(const CString& name, int unit, float* values, std::int32_t* count,
          std::int32_t* valueCount) {
    EngineSlot& slot = Lookup();
    Ask(
        [&](CSectionDatabase** db, CSectionRecordset** rs) {
            SectionDBInterface::GetSectionRecord(slot.catalogue, slot.type, name, db, rs);
        },
        count, valueCount);
    slot.ConvertTo(unit);
    slot.ReadFirst(values);
}

/// Reads "first+second": the values of the first, one of them increased by that of the second.
void ReadJoined(const CString& first, const CString& second, int unit, float* values,
                std::int32_t* count, std::int32_t* valueCount) {
    Read(first, unit, values, count, valueCount);
    std::array<float, EngineSlot::Columns> others{};
    std::int32_t ignoredCount = 0;
    std::int32_t ignoredValueCount = 0;
    Read(second, unit, others.data(), &ignoredCount, &ignoredValueCount);
    if (*count > 0 && ignoredCount > 0 && ignoredValueCount > JoinedValue)
        values[JoinedValue] += others[JoinedValue];
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
void ReadStored(const std::int32_t* catalogue, const std::int32_t* type, float* values,
                std::int32_t* count, std::int32_t* valueCount, Query query) {
    EngineSlot& slot = Lookup();
    slot.Begin(*catalogue, *type);
    Ask(query, count, valueCount);
    slot.SetFactors(1);
    slot.ReadFirst(values);
}

} // namespace

void GETSECTION(const std::int32_t* catalogue, const std::int32_t* type, const char* name,
                std::int32_t name_length, const std::int32_t* unit, float* values,
                std::int32_t* count, std::int32_t* value_count, std::int32_t* err) {
    *count = *value_count = 0;
    Enter("GETSECTION()", err, [&] {
        Lookup().Begin(*catalogue, *type);
        const CString text = EngineName(name, name_length);
        const int plus = text.Find('+');
        if (plus < 0)
            Read(text, *unit, values, count, value_count);
        else
            ReadJoined(text.Left(plus), text.Mid(plus + 1), *unit, values, count, value_count);
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
        Read(text, *unit, values, count, value_count);
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
        Read(beam, *unit, values, count, value_count);
    });
}

void GETSTEELJOIST(const std::int32_t* catalogue, const std::int32_t* type, const char* name,
                   std::int32_t name_length, const std::int32_t* /*unit*/, float* values,
                   std::int32_t* count, std::int32_t* value_count, std::int32_t* err) {
    *count = *value_count = 0;
    Enter("GETSTEELJOIST()", err, [&] {
        const CString text = EngineName(name, name_length);
        ReadStored(catalogue, type, values, count, value_count,
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
        ReadStored(catalogue, type, values, count, value_count,
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
        EngineSlot& slot = Lookup();
        slot.Begin(*catalogue, *type);
        Ask(
            [&](CSectionDatabase** db, CSectionRecordset** rs) {
                SectionDBInterface::GetAluminiumMaterialProperty(
                    *catalogue, *type, EngineName(name, name_length), natural(product),
                    natural(alclad), natural(welded), *thickness, db, rs);
            },
            count, value_count);
        slot.ConvertTo(*unit, *source_unit, FirstValue);
        slot.ReadFirst(values, FirstValue);
    });
}
