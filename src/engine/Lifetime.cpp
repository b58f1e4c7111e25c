// Settings, opening and closing, counting.
#include "engine/EngineState.h"
#include "engine/SectionEngine.h"

#include "dataaccess/LastFailure.h"
#include "platform/Numbers.h"
#include "units/UNIT.h"

#include <memory>

using dbsection::EngineSlot;
using dbsection::engineSlots;
using dbsection::EngineText;
using dbsection::Enter;
using dbsection::PublicCall;

namespace {

int engineSessionOpen = 0;

/// Opens a catalogue in engine mode, which ends with the call, and asks it for a number. One that
/// cannot be opened has 0 of everything, whatever stays open in its place.
template <class Ask>
void AskCatalogue(const char* label, const std::int32_t* catalogue, std::int32_t* number,
                  std::int32_t* err, Ask ask) {
    *number = 0;
    Enter(label, err, [&] {
        SectionDBInterface::SetEngineMode(1);
        dbsection::Completes({label, "The catalogue could not be asked."}, [&] {
            if (SectionDBInterface::OpenSectionDatabase(*catalogue, &gblSectionDatabase) != 1)
                return;
            const int answer = ask();
            dbsection::RequireMemory();
            *number = answer;
        });
        SectionDBInterface::SetEngineMode(0);
    });
}

/// That a catalogue has no file is no failure, but a host may ask why it is not open.
void KeepMissing(int catalogue) {
    CString reason;
    reason.Format("Catalogue %d has no file in the folder", catalogue);
    dbsection::KeepFailure(reason, SectionDBInterface::GetDatabaseDirectoryName());
}

} // namespace

void SETUSERTABLEFILENAME(const char* name, std::int32_t name_length) {
    PublicCall("SETUSERTABLEFILENAME()",
               [&] { SectionDBInterface::SetUserTableFileName(EngineText(name, name_length)); });
}

void SETPROFILEDBFOLDER(const char* folder, std::int32_t folder_length) {
    PublicCall("SETPROFILEDBFOLDER()",
               [&] { SectionDBInterface::SetProfileDBFolder(EngineText(folder, folder_length)); });
}

void SETINIFILENAME(const char* file, std::int32_t file_length) {
    PublicCall("SETINIFILENAME()",
               [&] { SectionDBInterface::SetINIFileName(EngineText(file, file_length)); });
}

void SETDBIFILENAME(const char* /*file*/, std::int32_t /*file_length*/) {}

void OPENSECTIONDATABASE(const std::int32_t* catalogue, std::int32_t* err) {
    Enter("OPENSECTIONDATABASE()", err, [&] {
        SectionDBInterface::SetEngineMode(1);
        engineSessionOpen = 1;
        for (EngineSlot& slot : engineSlots) {
            slot.Close();
            slot.SetFactors(1);
        }
        const dbsection::FailureWatch watch;
        if (SectionDBInterface::OpenSectionDatabase(*catalogue, &gblSectionDatabase) != 1 &&
            !watch.HasSeenAny())
            KeepMissing(*catalogue);
    });
}

void CLOSESECTIONDATABASE(std::int32_t* err) {
    Enter("CLOSESECTIONDATABASE()", err, [] {
        SectionDBInterface::UnInitSectionDBInterface();
        for (EngineSlot& slot : engineSlots)
            slot.Close();
        SectionDBInterface::CloseSectionDatabase(&gblSectionDatabase);
        SectionDBInterface::SetEngineMode(0);
    });
}

void CLOSESECTIONRECORDSET(const std::int32_t* slot, std::int32_t* err) {
    Enter("CLOSESECTIONRECORDSET()", err, [&] {
        if (EngineSlot* found = dbsection::FindSlot(*slot))
            found->Close();
    });
}

void ISSECTIONDATABASECUSTOMIZED(const std::int32_t* catalogue, std::int32_t* result,
                                 std::int32_t* err) {
    *result = 0;
    Enter("ISSECTIONDATABASECUSTOMIZED()", err,
          [&] { *result = SectionDBInterface::IsCustomized(*catalogue) != 0 ? 1 : 0; });
}

void TERMINATEDAOSESSION() {
    PublicCall("TERMINATEDAOSESSION()", [] {
        if (engineSessionOpen != 0)
            terminateDAOEngine();
        engineSessionOpen = 0;
    });
}

void GETSECTIONCOUNT(const std::int32_t* catalogue, const std::int32_t* type, std::int32_t* count,
                     std::int32_t* err) {
    AskCatalogue("GETSECTIONCOUNT()", catalogue, count, err, [&] {
        return SectionDBInterface::GetSectionCount(*catalogue, *type, &gblSectionDatabase);
    });
}

void GETFIELDCOUNT(const std::int32_t* catalogue, const std::int32_t* type,
                   std::int32_t* field_count, std::int32_t* err) {
    AskCatalogue("GETFIELDCOUNT()", catalogue, field_count, err, [&] {
        return SectionDBInterface::GetSectionFieldCount(*catalogue, *type, &gblSectionDatabase);
    });
}

void GETUNITFORFIELDANDCONVFACT(const std::int32_t* catalogue, const std::int32_t* type,
                                const std::int32_t* value_index, const std::int32_t* unit,
                                std::int32_t* unit_id, float* factor, std::int32_t* err) {
    Enter("GETUNITFORFIELDANDCONVFACT()", err, [&] {
        // First: it may open another catalogue.
        const CString table = SectionDBInterface::GetTableFromSectionType(*catalogue, *type);
        const std::unique_ptr<CStringArray> units(
            UNIT::GetFieldUnitList(gblSectionDatabase, table));
        if (!units)
            return;
        // Unsigned, as the largest index would overflow; it comes out negative, which is refused.
        const auto column = static_cast<unsigned>(*value_index) + BookkeepingColumns;
        const CString& text = units->GetAt(static_cast<int>(column));
        *unit_id = static_cast<std::int32_t>(UNIT::StringToId(text));
        *factor = dbsection::ToSingle(
            UNIT::ConvertUnitTo(1.0, text, UNIT::Kip, static_cast<unsigned int>(*unit)));
    });
}
