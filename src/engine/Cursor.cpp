// The cursor over the rows of a slot.
#include "engine/EngineState.h"
#include "engine/SectionEngine.h"

#include "dataaccess/CCrack.h"
#include "platform/Numbers.h"
#include "records/GirderDesignation.h"

#include <algorithm>
#include <array>

using dbsection::EngineSlot;
using dbsection::engineSlots;
using dbsection::WholeNumber;

namespace {

constexpr int GirderSlot = 8;

/// The designation of the girder in the current row of slot 8, which has its span, depth, number of
/// joists and panel load in the columns 3, 7, 4 and 6.
CString GirderName(const CSectionRecordset& row) {
    std::array<double, 8> column{};
    row.GetFieldNumbers(0, column);
    const GirderDesignation girder{WholeNumber<int>(column[3]), WholeNumber<int>(column[7]),
                                   WholeNumber<int>(column[4]), column[6]};
    return girder.Text();
}

CString RowName(int slot, const EngineSlot& rows) {
    if (slot != GirderSlot)
        return CCrack::strVARIANT(rows.rows->GetFieldValue(VessaNameColumn));
    // Part of the interface: the engine's girders leave the single sections unconverted.
    std::fill_n(engineSlots[0].factors.begin(), std::min(rows.valueCount, EngineSlot::Columns),
                1.0F);
    return GirderName(*rows.rows);
}

void Step(const char* label, const std::int32_t* slot, int (*move)(CSectionRecordset**), char* name,
          std::int32_t name_length, float* values, std::int32_t* status, std::int32_t* err) {
    *status = 0;
    dbsection::Enter(label, err, [&] {
        EngineSlot* rows = dbsection::FindSlot(*slot);
        if (rows == nullptr || rows->rows == nullptr || rows->count < 1)
            return;
        if (move(&rows->rows) != 1 || rows->rows->GetAbsolutePosition() < 0)
            return;
        const CString text = RowName(*slot, *rows);
        rows->ReadValues(values);
        dbsection::WriteText(text, name, name_length);
        *status = 1;
    });
}

} // namespace

void GETFIRSTSECTION(const std::int32_t* slot, char* name, std::int32_t name_length, float* values,
                     std::int32_t* status, std::int32_t* err) {
    Step("GETFIRSTSECTION()", slot, setRecordsetToFirst, name, name_length, values, status, err);
}

void GETNEXTSECTION(const std::int32_t* slot, char* name, std::int32_t name_length, float* values,
                    std::int32_t* status, std::int32_t* err) {
    Step("GETNEXTSECTION()", slot, setRecordsetToNext, name, name_length, values, status, err);
}

void GETPREVSECTION(const std::int32_t* slot, char* name, std::int32_t name_length, float* values,
                    std::int32_t* status, std::int32_t* err) {
    Step("GETPREVSECTION()", slot, setRecordsetToPrevious, name, name_length, values, status, err);
}

void GETLASTSECTION(const std::int32_t* slot, char* name, std::int32_t name_length, float* values,
                    std::int32_t* status, std::int32_t* err) {
    Step("GETLASTSECTION()", slot, setRecordsetToLast, name, name_length, values, status, err);
}
