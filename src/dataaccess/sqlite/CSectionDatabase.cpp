#include "dataaccess/CSectionDatabase.h"

#include "dataaccess/sqlite/Session.h"
#include "platform/Text.h"

#include <algorithm>
#include <limits>

using dbsection::Activity;
using dbsection::Connection;
using dbsection::Fail;
using dbsection::Session;
using dbsection::WithMemoryErrors;

namespace {

/// The password in a connect text: the value behind PWD among `key=value` parts, or the whole text
/// where it has no `=`; a text of blanks and semicolons has none.
std::string_view PasswordIn(const char* connectText) {
    std::string_view connect(connectText == nullptr ? "" : connectText);
    if (connect.find_first_not_of("; \t\r\n") == std::string_view::npos)
        return {};
    if (connect.find('=') == std::string_view::npos)
        return connect;
    while (!connect.empty()) {
        const std::string_view part = connect.substr(0, connect.find(';'));
        connect.remove_prefix(std::min(connect.size(), part.size() + 1));
        const std::size_t equals = part.find('=');
        if (equals != std::string_view::npos &&
            dbsection::EqualNoCase(dbsection::Trim(part.substr(0, equals)), "PWD"))
            return part.substr(equals + 1);
    }
    return {};
}

std::int32_t AttributesOf(std::string_view table) {
    if (dbsection::EqualNoCase(table.substr(0, 7), "sqlite_") ||
        dbsection::EqualNoCase(table.substr(0, 4), "MSys"))
        return SystemTableBits;
    return table.starts_with('~') ? HiddenTableBit : 0;
}

std::int32_t CountRows(Connection& connection, const std::string& table) {
    const auto lease = connection.Own("SELECT count(*) FROM " + dbsection::Quoted(table));
    connection.Step(lease.Get(), table, Activity::Reading);
    return sqlite3_column_int(lease.Get(), 0);
}

void Describe(Connection& connection, const std::string& table, CSectionTableDefInfo& info,
              unsigned long level) {
    info = {};
    info.m_strName = CString(table);
    info.m_lAttributes = AttributesOf(table);
    info.m_bUpdatable = connection.IsReadOnly() || !info.IsUserTable() ? 0 : 1;
    if (level >= AllInformation)
        info.m_lRecordCount = CountRows(connection, table);
}

} // namespace

void CSectionWorkspace::BeginTrans() {
    WithMemoryErrors([&] {
        std::vector<std::shared_ptr<Session>> begun;
        begun.reserve(m_sessions.size());
        try {
            for (const auto& weak : m_sessions)
                if (auto session = weak.lock(); session && session->IsOpen()) {
                    session->Get().Execute("BEGIN IMMEDIATE", Activity::Writing);
                    begun.push_back(session);
                }
            m_inTransaction.insert(m_inTransaction.end(), begun.begin(), begun.end());
        } catch (...) {
            for (const auto& session : begun)
                session->Get().ForgetChanges();
            throw;
        }
    });
}

void CSectionWorkspace::CommitTrans() {
    for (const auto& session : m_inTransaction)
        session->Get().Execute("COMMIT", Activity::Writing);
    m_inTransaction.clear();
}

void CSectionWorkspace::Rollback() {
    for (const auto& session : m_inTransaction)
        if (session->IsOpen())
            session->Get().ForgetChanges();
    m_inTransaction.clear();
}

void CSectionDatabase::Create(const char* path, const char* descriptor, int /*options*/) {
    Begin(path, [&] { return Connection::Create(path, PasswordIn(descriptor)); });
}

void CSectionDatabase::Open(const char* path, int exclusive, int readOnly, const char* connect) {
    const Connection::Access access{.exclusive = exclusive != 0, .readOnly = readOnly != 0};
    Begin(path, [&] { return Connection::Open(path, PasswordIn(connect), access); });
}

/// Opens last what is opened, so that nothing fails when a file has been created.
template <class Opener>
void CSectionDatabase::Begin(const char* path, Opener open) {
    WithMemoryErrors([&] {
        auto session = std::make_shared<Session>(path);
        CString name(path);
        if (m_workspace != nullptr) {
            std::erase_if(m_workspace->m_sessions, [](const auto& weak) { return weak.expired(); });
            m_workspace->m_sessions.push_back(session);
        }
        session->Begin(open());
        m_session = std::move(session);
        m_name = std::move(name);
    });
}

bool CSectionDatabase::IsOpen() const { return m_session && m_session->IsOpen(); }

void CSectionDatabase::Close() {
    if (m_session)
        m_session->Close();
}

void CSectionDatabase::DestroyDB() {
    Close();
    m_session.reset();
}

Connection& CSectionDatabase::OpenConnection() const {
    if (!m_session)
        Fail(SectionError::ObjectClosed, "The database was not opened; open it first.");
    return m_session->Get();
}

short CSectionDatabase::GetTableDefCount() const {
    return WithMemoryErrors([&] {
        constexpr std::size_t Most = std::numeric_limits<short>::max();
        return static_cast<short>(std::min(OpenConnection().Tables().size(), Most));
    });
}

void CSectionDatabase::GetTableDefInfo(int index, CSectionTableDefInfo& info,
                                       unsigned long level) const {
    WithMemoryErrors([&] {
        Connection& connection = OpenConnection();
        const auto& tables = connection.Tables();
        if (index < 0 || static_cast<std::size_t>(index) >= tables.size())
            Fail(SectionError::NoSuchItem,
                 connection.Path() + ": there is no table number " + std::to_string(index) + ".");
        Describe(connection, tables[static_cast<std::size_t>(index)], info, level);
    });
}

void CSectionDatabase::GetTableDefInfo(const char* name, CSectionTableDefInfo& info,
                                       unsigned long level) const {
    WithMemoryErrors([&] {
        Connection& connection = OpenConnection();
        const std::string table = connection.RequireTable(name);
        Describe(connection, table, info, level);
    });
}

void CSectionDatabase::DeleteTableDef(const char* name) {
    WithMemoryErrors([&] {
        Connection& connection = OpenConnection();
        connection.RequireWritable();
        const std::string table = connection.RequireTable(name);
        connection.ChangeSchema("DROP TABLE " + dbsection::Quoted(table));
    });
}

std::vector<CString> CSectionDatabase::GetUserTableNames() const {
    return WithMemoryErrors([&] {
        std::vector<CString> names;
        for (const std::string& table : OpenConnection().Tables())
            if (AttributesOf(table) == 0)
                names.emplace_back(table);
        return names;
    });
}
