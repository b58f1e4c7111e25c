// Lists of sections and joists, each into a slot of its own.
#include "engine/EngineState.h"
#include "engine/SectionEngine.h"

#include "platform/Numbers.h"

#include <vector>

using dbsection::EngineName;
using dbsection::EngineSlot;
using dbsection::engineSlots;
using dbsection::EngineText;
using dbsection::Enter;

namespace {

/// Sort keys that end, whatever the engine passed.
class SortKeys {
public:
    SortKeys(const std::int32_t* keys, std::int32_t count) {
        for (std::int32_t i = 0; i < count && keys[i] != End; ++i)
            m_keys.push_back({keys[i], keys[i + count]});
        m_keys.push_back({End, 0});
    }

    /// As the queries take them.
    const int (*Pairs() const)[2] { return reinterpret_cast<const int(*)[2]>(m_keys.data()); }

private:
    static constexpr int End = -1;
    std::vector<std::array<int, 2>> m_keys;
};

/// What the list queries have in common: a slot, the catalogue and type, and what comes out.
struct List {
    const char* label;
    int slot;
    const std::int32_t* catalogue;
    const std::int32_t* type;
    std::int32_t* count;
    std::int32_t* valueCount;
    std::int32_t* err;
};

/// Runs a query into the slot of a list; `prepare` sets the slot's factors when its values are
/// known.
template <class Query, class Prepare>
void Ask(const List& list, Query query, Prepare prepare) {
    *list.count = *list.valueCount = 0;
    Enter(list.label, list.err, [&] {
        EngineSlot& slot = engineSlots[static_cast<std::size_t>(list.slot)];
        slot.Begin(*list.catalogue, *list.type);
        slot.Ask(query);
        prepare(slot);
        *list.count = slot.count;
        *list.valueCount = slot.valueCount;
    });
}

template <class Query>
void AskSections(const List& list, const std::int32_t* unit, Query query) {
    Ask(list, query, [&](EngineSlot& slot) { slot.ConvertTo(*unit); });
}

/// Joists keep the factors of their slot.
template <class Query>
void AskJoists(const List& list, Query query) {
    Ask(list, query, [](EngineSlot&) {});
}

/// Whether the library-wide database is that of a catalogue, which is not so after a failed
/// opening.
bool IsOpen(int catalogue) {
    return gblSectionDatabase != nullptr && gblSectionDatabase->IsOpen() &&
           SectionDBInterface::m_nCountry == catalogue;
}

void FindLoadType(const char* label, const std::int32_t* catalogue, const std::int32_t* type,
                  const float* span, const float* depth, std::int32_t* load_type,
                  std::int32_t* err) {
    Enter(label, err, [&] {
        SectionDBInterface::FindLongSpanJoistLoadType(*catalogue, *type, *span, *depth, load_type,
                                                      &gblSectionDatabase);
    });
}

} // namespace

void GETSORTEDSECTIONS(const std::int32_t* catalogue, const std::int32_t* type,
                       const std::int32_t* keys, const std::int32_t* key_count,
                       const std::int32_t* unit, std::int32_t* count, std::int32_t* value_count,
                       std::int32_t* err) {
    AskSections({"GETSORTEDSECTIONS()", 1, catalogue, type, count, value_count, err}, unit,
                [&](CSectionDatabase** db, CSectionRecordset** rs) {
                    const SortKeys order(keys, *key_count);
                    SectionDBInterface::GetSortedSectionRecords(*catalogue, *type, order.Pairs(),
                                                                db, rs);
                });
}

void GETLIKESORTEDSECTIONS(const std::int32_t* catalogue, const std::int32_t* type,
                           const std::int32_t* keys, const std::int32_t* key_count,
                           const char* pattern, std::int32_t pattern_length,
                           const std::int32_t* unit, std::int32_t* count, std::int32_t* value_count,
                           std::int32_t* err) {
    AskSections({"GETLIKESORTEDSECTIONS()", 2, catalogue, type, count, value_count, err}, unit,
                [&](CSectionDatabase** db, CSectionRecordset** rs) {
                    const SortKeys order(keys, *key_count);
                    SectionDBInterface::GetLikeSortedSectionRecords(
                        *catalogue, *type, order.Pairs(), EngineText(pattern, pattern_length), db,
                        rs);
                });
}

void GETRANGESORTEDSECTIONS(const std::int32_t* catalogue, const std::int32_t* type,
                            const std::int32_t* keys, const std::int32_t* key_count,
                            const std::int32_t* column, float* upper, float* lower,
                            const std::int32_t* unit, std::int32_t* count,
                            std::int32_t* value_count, std::int32_t* err) {
    constexpr std::size_t Slot = 3;
    *count = *value_count = 0;
    Enter("GETRANGESORTEDSECTIONS()", err, [&] {
        GETFIELDCOUNT(catalogue, type, value_count, err);
        EngineSlot& slot = engineSlots[Slot];
        slot.Begin(*catalogue, *type);
        slot.valueCount = *value_count;
        const bool isValue = *column >= BookkeepingColumns;
        if (!IsOpen(*catalogue) || !slot.ConvertTo(*unit) || (isValue && slot.valueCount == 0))
            return; // the bounds cannot be converted
        const bool isColumn = *column >= 0 && *column < EngineSlot::Columns;
        const double factor = isColumn ? slot.factors[static_cast<std::size_t>(*column)] : 1;
        if (factor != 0) { // a text has none
            *upper = dbsection::ToSingle(static_cast<double>(*upper) / factor);
            *lower = dbsection::ToSingle(static_cast<double>(*lower) / factor);
        }
        const SortKeys order(keys, *key_count);
        const int fieldCount = slot.valueCount;
        slot.Ask([&](CSectionDatabase** db, CSectionRecordset** rs) {
            SectionDBInterface::GetRangeSortedSectionRecords(*catalogue, *type, order.Pairs(),
                                                             *column, *upper, *lower, db, rs);
        });
        slot.valueCount = fieldCount; // not that of the rows
        *count = slot.count;
    });
}

void GETASSIGNSECTIONS(const std::int32_t* catalogue, const std::int32_t* type, const char* name,
                       std::int32_t name_length, const std::int32_t* unit, std::int32_t* count,
                       std::int32_t* value_count, std::int32_t* err) {
    AskSections({"GETASSIGNSECTIONS()", 4, catalogue, type, count, value_count, err}, unit,
                [&](CSectionDatabase** db, CSectionRecordset** rs) {
                    SectionDBInterface::GetAssignSectionRecords(
                        *catalogue, *type, EngineName(name, name_length), db, rs);
                });
}

void GETKSERIESSTEELJOISTS(const std::int32_t* catalogue, const std::int32_t* type,
                           const float* span, const float* total_load, const float* live_load,
                           const std::int32_t* /*unit*/, std::int32_t* count,
                           std::int32_t* value_count, std::int32_t* err) {
    AskJoists({"GETKSERIESSTEELJOISTS()", 5, catalogue, type, count, value_count, err},
              [&](CSectionDatabase** db, CSectionRecordset** rs) {
                  SectionDBInterface::GetOWSteelJoistKSeries(*catalogue, *type, *span, *total_load,
                                                             *live_load, db, rs);
              });
}

void GETKCSSERIESSTEELJOISTS(const std::int32_t* catalogue, const std::int32_t* type,
                             const float* moment, const float* shear, const std::int32_t* /*unit*/,
                             std::int32_t* count, std::int32_t* value_count, std::int32_t* err) {
    AskJoists({"GETKCSSERIESSTEELJOISTS()", 6, catalogue, type, count, value_count, err},
              [&](CSectionDatabase** db, CSectionRecordset** rs) {
                  SectionDBInterface::GetOWSteelJoistKCSSeries(*catalogue, *type, *moment, *shear,
                                                               db, rs);
              });
}

void FINDLHSERIESLOADTYPE(const std::int32_t* catalogue, const std::int32_t* type,
                          const float* span, const float* depth, std::int32_t* load_type,
                          std::int32_t* err) {
    FindLoadType("FINDLHSERIESLOADTYPE()", catalogue, type, span, depth, load_type, err);
}

void FINDDLHSERIESLOADTYPE(const std::int32_t* catalogue, const std::int32_t* type,
                           const float* span, const float* depth, std::int32_t* load_type,
                           std::int32_t* err) {
    FindLoadType("FINDDLHSERIESLOADTYPE()", catalogue, type, span, depth, load_type, err);
}

namespace {

void AskLongSpan(const List& list, const std::int32_t* load_type, const float* span,
                 const float* depth, const float* load1, const float* load2) {
    AskJoists(list, [&](CSectionDatabase** db, CSectionRecordset** rs) {
        SectionDBInterface::GetLongSpanJoistSeries(*list.catalogue, *list.type, *load_type, *span,
                                                   *depth, *load1, *load2, db, rs);
    });
}

} // namespace

void GETLHSERIESSTEELJOISTS(const std::int32_t* catalogue, const std::int32_t* type,
                            const std::int32_t* load_type, const float* span, const float* depth,
                            const float* load1, const float* load2, const std::int32_t* /*unit*/,
                            std::int32_t* count, std::int32_t* value_count, std::int32_t* err) {
    AskLongSpan({"GETLHSERIESSTEELJOISTS()", 7, catalogue, type, count, value_count, err},
                load_type, span, depth, load1, load2);
}

void GETDLHSERIESSTEELJOISTS(const std::int32_t* catalogue, const std::int32_t* type,
                             const std::int32_t* load_type, const float* span, const float* depth,
                             const float* load1, const float* load2, const std::int32_t* /*unit*/,
                             std::int32_t* count, std::int32_t* value_count, std::int32_t* err) {
    AskLongSpan({"GETDLHSERIESSTEELJOISTS()", 7, catalogue, type, count, value_count, err},
                load_type, span, depth, load1, load2);
}

void GETJOISTGIRDERS(const std::int32_t* catalogue, const std::int32_t* type, const float* span,
                     const std::int32_t* joists, const float* panel_load, const float* depth,
                     const std::int32_t* /*unit*/, std::int32_t* count, std::int32_t* value_count,
                     std::int32_t* err) {
    AskJoists({"GETJOISTGIRDERS()", 8, catalogue, type, count, value_count, err},
              [&](CSectionDatabase** db, CSectionRecordset** rs) {
                  SectionDBInterface::GetJoistGirders(*catalogue, *type, *span, *joists,
                                                      *panel_load, *depth, db, rs);
              });
}
