#include "dataaccess/CSectionRecordset.h"

#include "dataaccess/CSectionDatabase.h"
#include "dataaccess/sqlite/DatabaseReference.h"
#include "dataaccess/sqlite/FieldTypes.h"
#include "dataaccess/sqlite/RecordsetState.h"

#include <cstdint>
#include <utility>

using dbsection::Connection;
using dbsection::Editing;
using dbsection::Fail;
using dbsection::RecordsetState;
using dbsection::WithMemoryErrors;

namespace {

/// The statement, or the one that reads the table of that name.
std::string StatementOf(Connection& connection, std::string text) {
    if (dbsection::IsReading(text))
        return text;
    const auto table = connection.FindTable(text);
    if (table)
        text = "SELECT * FROM " + dbsection::Quoted(*table);
    return text;
}

Editing EditingOf(int openType) {
    return openType == CSectionRecordset::Snapshot ? Editing::No : Editing::IfPossible;
}

[[noreturn]] void FailClosed() {
    Fail(SectionError::ObjectClosed, "The recordset is closed; open it first.");
}

RecordsetState& OpenState(const std::unique_ptr<RecordsetState>& state) {
    if (!state || !state->IsOpen())
        FailClosed();
    return *state;
}

} // namespace

CSectionRecordset::CSectionRecordset(CSectionDatabase* database) {
    if (database != nullptr)
        m_database = database->m_reference;
}

CSectionRecordset::~CSectionRecordset() = default;

void CSectionRecordset::Open(int openType, const char* sql, int /*options*/) {
    WithMemoryErrors([&] {
        Close();
        auto session = dbsection::SessionOf(m_database);
        std::string statement = StatementOf(session->Get(), sql);
        m_state = std::make_unique<RecordsetState>(std::move(session), std::move(statement),
                                                   EditingOf(openType));
    });
}

void CSectionRecordset::Open(int openType, const dbsection::RowsOfName& rows) {
    WithMemoryErrors([&] {
        Close();
        m_state = std::make_unique<RecordsetState>(dbsection::SessionOf(m_database), rows,
                                                   EditingOf(openType));
    });
}

void CSectionRecordset::Close() { m_state.reset(); }

bool CSectionRecordset::IsOpen() const { return m_state && m_state->IsOpen(); }

void CSectionRecordset::Requery() {
    WithMemoryErrors([&] { OpenState(m_state).Requery(); });
}

void CSectionRecordset::MoveFirst() {
    WithMemoryErrors([&] { OpenState(m_state).MoveToFirst(); });
}

void CSectionRecordset::MoveLast() {
    WithMemoryErrors([&] { OpenState(m_state).MoveToLast(); });
}

void CSectionRecordset::MoveNext() {
    WithMemoryErrors([&] { OpenState(m_state).MoveBy(1); });
}

void CSectionRecordset::MovePrev() {
    WithMemoryErrors([&] { OpenState(m_state).MoveBy(-1); });
}

bool CSectionRecordset::IsBOF() const {
    return WithMemoryErrors([&] { return OpenState(m_state).IsBof(); });
}

bool CSectionRecordset::IsEOF() const {
    return WithMemoryErrors([&] { return OpenState(m_state).IsEof(); });
}

long CSectionRecordset::GetAbsolutePosition() const {
    return WithMemoryErrors([&] { return OpenState(m_state).Position(); });
}

void CSectionRecordset::SetAbsolutePosition(long position) {
    const int row = std::in_range<int>(position) ? static_cast<int>(position) : -1;
    WithMemoryErrors([&] { OpenState(m_state).MoveTo(row); });
}

std::optional<CSectionDataStamp> CSectionRecordset::GetDataStamp() const {
    return WithMemoryErrors([&] { return OpenState(m_state).Stamp(); });
}

long CSectionRecordset::GetRecordCount() const {
    return WithMemoryErrors([&] { return OpenState(m_state).Visited(); });
}

int CSectionRecordset::Find(long findType, const char* criteria) {
    return WithMemoryErrors([&] {
        RecordsetState& state = OpenState(m_state);
        // Modes are 32-bit codes; a caller's long may have come with or without sign.
        const auto mode = static_cast<std::int32_t>(static_cast<std::uint32_t>(findType));
        const bool relative = mode == FindNext || mode == FindPrevious;
        const bool backwards = mode == FindPrevious || mode == FindLast;
        return state.Find(relative, backwards ? -1 : 1, criteria) ? 1 : 0;
    });
}

void CSectionRecordset::AddNew() {
    WithMemoryErrors([&] { OpenState(m_state).BeginNew(); });
}

void CSectionRecordset::Edit() {
    WithMemoryErrors([&] { OpenState(m_state).BeginEdit(); });
}

void CSectionRecordset::Update() {
    WithMemoryErrors([&] { OpenState(m_state).Update(); });
}

void CSectionRecordset::Delete() {
    WithMemoryErrors([&] { OpenState(m_state).Delete(); });
}

int CSectionRecordset::DeleteAll() {
    return WithMemoryErrors([&] { return OpenState(m_state).DeleteAll(); });
}

void CSectionRecordset::SetFieldNull(void* field, int /*isNull*/) {
    WithMemoryErrors([&] {
        if (field == nullptr)
            OpenState(m_state).SetAllNull();
    });
}

COleVariant CSectionRecordset::GetFieldValue(int index) const {
    return WithMemoryErrors([&] { return OpenState(m_state).Value(index); });
}

std::optional<std::string> CSectionRecordset::GetFieldText(int index) const {
    return WithMemoryErrors([&] { return OpenState(m_state).ReadText(index); });
}

std::optional<double> CSectionRecordset::GetFieldNumber(int index) const {
    return WithMemoryErrors([&] { return OpenState(m_state).ReadNumber(index); });
}

void CSectionRecordset::GetFieldNumbers(int first, std::span<double> numbers) const {
    WithMemoryErrors([&] { OpenState(m_state).ReadNumbers(first, numbers); });
}

void CSectionRecordset::SetFieldValue(int index, const COleVariant& value) {
    WithMemoryErrors([&] { OpenState(m_state).Set(index, value); });
}

void CSectionRecordset::SetFieldValue(int index, const char* value) {
    WithMemoryErrors([&] { SetFieldValue(index, COleVariant(value)); });
}

int CSectionRecordset::GetFieldCount() const {
    return static_cast<int>(OpenState(m_state).Shape().columns.size());
}

void CSectionRecordset::GetFieldInfo(int index, CSectionFieldInfo& field,
                                     unsigned long /*level*/) const {
    WithMemoryErrors([&] {
        const auto& columns = OpenState(m_state).Shape().columns;
        if (index < 0 || static_cast<std::size_t>(index) >= columns.size())
            Fail(SectionError::NoSuchItem,
                 "There is no column number " + std::to_string(index) + " in the recordset.");
        const dbsection::ResultColumn& column = columns[static_cast<std::size_t>(index)];
        field = {};
        field.m_strName = CString(column.name);
        field.m_nType = column.type;
        field.m_lSize = column.size;
        field.m_lAttributes = column.isRecordId ? SectionField::AutoIncrement : 0;
        field.m_nOrdinalPosition = static_cast<std::int16_t>(index);
        field.m_bRequired = column.required ? 1 : 0;
        field.m_strSourceField = CString(column.origin);
        field.m_strSourceTable = CString(column.table);
    });
}
