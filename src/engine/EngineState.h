// The state of the engine's interface, and how its entry points read and write arguments.
#pragma once

#include "dataaccess/DataAccess.h"
#include "dataaccess/Guard.h"
#include "interface/PublicCall.h"
#include "interface/SectionDBInterface.h"
#include "units/UnitId.h"

#include <array>
#include <cstdint>

namespace dbsection {

/// Rows of a query, where the cursor reads them.
struct EngineSlot {
    static constexpr int Columns = 20;
    static constexpr int MostValues = Columns - BookkeepingColumns;

    int catalogue = 0;
    int type = 0;
    CSectionRecordset* rows = nullptr;
    int count = 0;
    int valueCount = 0;                   ///< of each row
    std::array<float, Columns> factors{}; ///< by column, the bookkeeping columns included

    /// Closes the rows and sets everything else to 0, factors included.
    void Close();

    /// Begins a query of a section type: the rows of the one before, which may be of a database
    /// that is closed by now, are given up, but not its counts.
    void Begin(int newCatalogue, int newType);

    /// Runs a query into the slot and counts its rows and values. A query that does nothing leaves
    /// no rows of an earlier one behind.
    template <class Query>
    void Ask(Query query) {
        closeRecordset(&rows);
        query(&gblSectionDatabase, &rows);
        Count();
    }

    void SetFactors(float factor) { factors.fill(factor); }

    /// Sets the factors of the values from `first` on, by the units of the slot's table: forces are
    /// converted to `forceUnit`, lengths to `lengthUnit`; 1.0 where that is none, or where the
    /// table keeps no units. False when the units cannot be read: the slot then has no rows.
    bool ConvertTo(int lengthUnit, int forceUnit = UnitId::Kip, int first = BookkeepingColumns);

    /// Reads the values of the current row from a column on.
    void ReadValues(float* values, int first = BookkeepingColumns) const;

    /// Reads the values of the first row, if any, which is current since the query was run.
    void ReadFirst(float* values, int first = BookkeepingColumns) const;

private:
    void Count();
};

inline constexpr int SlotCount = 10;

/// The slots by number.
extern std::array<EngineSlot, SlotCount> engineSlots;

/// The slot of a number, or null.
EngineSlot* FindSlot(int number);

/// An incoming text up to a NUL, without the blanks at its end; in capitals on request.
CString EngineText(const char* text, std::int32_t length);
CString EngineName(const char* text, std::int32_t length);

/// Writes a text up to the length of the caller's, with a NUL behind it where there is room.
void WriteText(const CString& text, char* target, std::int32_t length);

/// What an entry point tells that was refused since another thread is inside the library.
inline constexpr std::int32_t RefusedThread = 7;

/// Runs the body of an entry point and tells the kind of the last failure. An exception never
/// leaves it for the engine's code.
template <class Body>
void Enter(const char* label, std::int32_t* err, Body body) {
    const Admission admission;
    if (admission) {
        Completes({label, "The request of the analysis engine failed."}, [&] {
            body();
            RequireMemory();
        });
        *err = SectionDBInterface::GetExceptionType();
    } else {
        ShowRefusal(label);
        *err = RefusedThread;
    }
}

} // namespace dbsection
