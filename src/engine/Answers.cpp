// What C, Fortran and their like may set and ask besides: the password, the file of user tables,
// what is open, columns, and failures.
#include "engine/EngineState.h"
#include "engine/SectionEngine.h"

#include "dataaccess/CSectionDatabase.h"
#include "dataaccess/CSectionTableDef.h"
#include "dataaccess/LastFailure.h"
#include "units/FieldUnits.h"
#include "units/UnitText.h"

#include <algorithm>
#include <optional>

using dbsection::EngineText;
using dbsection::Enter;
using dbsection::WriteText;

namespace {

/// Opens the catalogue and gives `ask` the table of a section type and the column of a value that
/// it has, counted from 0. Its answer is written, and the status 1; where it has none, 0.
template <class Ask>
void DescribeValue(const char* label, const std::int32_t* catalogue, const std::int32_t* type,
                   const std::int32_t* value_index, char* text, std::int32_t text_length,
                   std::int32_t* status, std::int32_t* err, Ask ask) {
    *status = 0;
    Enter(label, err, [&] {
        if (SectionDBInterface::OpenSectionDatabase(*catalogue, &gblSectionDatabase) != 1)
            return;
        const CString name = SectionDBInterface::GetTableFromSectionType(*catalogue, *type);
        if (name.IsEmpty())
            return;
        CSectionTableDef table(gblSectionDatabase);
        table.Open(name);
        const int values = table.GetFieldCount() - BookkeepingColumns;
        if (*value_index < 0 || *value_index >= values)
            return;
        const std::optional<CString> answer = ask(table, name, *value_index + BookkeepingColumns);
        dbsection::RequireMemory();
        if (!answer)
            return;
        WriteText(*answer, text, text_length);
        *status = 1;
    });
}

} // namespace

void SETSECTIONPASSWORD(const char* password, std::int32_t password_length, std::int32_t* err) {
    Enter("SETSECTIONPASSWORD()", err, [&] {
        const CString text = EngineText(password, password_length);
        SectionDBInterface::SetSectionDBPassword(CSectionDatabase::ConnectText(text.View()));
    });
}

void SETUSERSECTIONFILENAME(const char* file, std::int32_t file_length) {
    dbsection::PublicCall("SETUSERSECTIONFILENAME()", [&] {
        SectionDBInterface::m_szUserTableFileName = EngineText(file, file_length);
    });
}

void GETOPENCATALOGUE(std::int32_t* catalogue, std::int32_t* err) {
    *catalogue = 0;
    Enter("GETOPENCATALOGUE()", err, [&] {
        if (gblSectionDatabase != nullptr && gblSectionDatabase->IsOpen())
            *catalogue = SectionDBInterface::m_nCountry;
    });
}

void GETSLOTVALUECOUNT(const std::int32_t* slot, std::int32_t* value_count, std::int32_t* err) {
    *value_count = 0;
    Enter("GETSLOTVALUECOUNT()", err, [&] {
        if (const dbsection::EngineSlot* found = dbsection::FindSlot(*slot))
            *value_count = std::min(found->valueCount, dbsection::EngineSlot::MostValues);
    });
}

void GETVALUENAME(const std::int32_t* catalogue, const std::int32_t* type,
                  const std::int32_t* value_index, char* name, std::int32_t name_length,
                  std::int32_t* status, std::int32_t* err) {
    DescribeValue("GETVALUENAME()", catalogue, type, value_index, name, name_length, status, err,
                  [](const CSectionTableDef& table, const CString&, int column) {
                      CSectionFieldInfo field;
                      table.GetFieldInfo(column, field);
                      return std::optional(field.m_strName);
                  });
}

void GETVALUEUNIT(const std::int32_t* catalogue, const std::int32_t* type,
                  const std::int32_t* value_index, const std::int32_t* unit, char* label,
                  std::int32_t label_length, std::int32_t* status, std::int32_t* err) {
    const auto length = static_cast<unsigned int>(*unit);
    const dbsection::UnitChoice choice = dbsection::UnitId::IsLength(length)
                                             ? dbsection::UnitChoice{length, UNIT::Kip}
                                             : dbsection::UnitChoice{};
    DescribeValue("GETVALUEUNIT()", catalogue, type, value_index, label, label_length, status, err,
                  [&](const CSectionTableDef&, const CString& table, int column) {
                      CStringArray units;
                      std::optional<CString> answer;
                      if (dbsection::ReadFieldUnits(gblSectionDatabase, table, units) !=
                          dbsection::FieldUnits::Unreadable)
                          answer = CString(
                              dbsection::LabelOf(dbsection::UnitOf(units, column).View(), choice));
                      return answer;
                  });
}

void GETSECTIONSTATUS(std::int32_t* err) {
    Enter("GETSECTIONSTATUS()", err, [] {});
}

void RESETSECTIONSTATUS(std::int32_t* err) {
    Enter("RESETSECTIONSTATUS()", err, [] {
        SectionDBInterface::SetExceptionType(0);
        dbsection::ForgetFailure();
    });
}

void GETSECTIONMESSAGE(char* text, std::int32_t text_length, std::int32_t* full_length,
                       std::int32_t* err) {
    *full_length = 0;
    Enter("GETSECTIONMESSAGE()", err, [&] {
        const CString message(dbsection::LastFailureText());
        WriteText(message, text, text_length);
        *full_length = message.GetLength();
    });
}
