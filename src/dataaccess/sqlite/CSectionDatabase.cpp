#include "dataaccess/CSectionDatabase.h"

#include "dataaccess/NameSearch.h"
#include "dataaccess/Observation.h"
#include "dataaccess/sqlite/DatabaseReference.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"

#include <algorithm>
#include <limits>
#include <new>

using dbsection::Activity;
using dbsection::Connection;
using dbsection::DatabaseReference;
using dbsection::Fail;
using dbsection::Session;
using dbsection::SessionKeeper;
using dbsection::WithMemoryErrors;
using dbsection::Workspace;

namespace {

constexpr const char* Blanks = "; \t\r\n";

/// The password in a connect text: the value behind PWD among `key=value` parts, or the whole text
/// where it has no `=`; a text of blanks and semicolons has none.
std::string_view PasswordIn(const char* connectText) {
    std::string_view connect(connectText == nullptr ? "" : connectText);
    if (connect.find_first_not_of(Blanks) == std::string_view::npos)
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

void Describe(Connection& connection, const std::string& table, CSectionTableDefInfo& info,
              unsigned long level) {
    info = {};
    info.m_strName = CString(table);
    info.m_lAttributes = AttributesOf(table);
    info.m_bUpdatable = connection.IsReadOnly() || !info.IsUserTable() ? 0 : 1;
    if (level >= AllInformation)
        info.m_lRecordCount = connection.CountRows(table);
}

/// The engine tells of a page that the system did not hand over as of damage: "... unable to get
/// the page. error code=266".
void RequireRead(std::string_view damage, const std::string& path) {
    constexpr std::string_view Mark = "error code=";
    const std::size_t mark = damage.find(Mark);
    if (mark == std::string_view::npos)
        return;
    const int code = dbsection::LeadingNumber<int>(damage.substr(mark + Mark.size()));
    if ((code & 0xFF) == SQLITE_IOERR)
        dbsection::FailFromEngine(code, nullptr, path, Activity::Reading);
}

} // namespace

CSectionWorkspace::CSectionWorkspace()
    : m_workspace(WithMemoryErrors([] { return std::make_shared<Workspace>(); })) {}

void CSectionWorkspace::BeginTrans() {
    WithMemoryErrors([&] { m_workspace->Begin(); });
}

void CSectionWorkspace::CommitTrans() {
    WithMemoryErrors([&] { m_workspace->Commit(); });
}

void CSectionWorkspace::Rollback() { m_workspace->Rollback(); }

CSectionDatabase::CSectionDatabase(CSectionWorkspace* workspace)
    : m_reference(WithMemoryErrors([] { return std::make_shared<DatabaseReference>(); })) {
    if (workspace != nullptr)
        m_reference->workspace = workspace->m_workspace;
}

CSectionDatabase::CSectionDatabase(const CSectionDatabase& other) : CSectionDatabase() {
    *this = other;
}

CSectionDatabase& CSectionDatabase::operator=(const CSectionDatabase& other) {
    if (this == &other)
        return *this;
    WithMemoryErrors([&] { m_name = other.m_name; });
    *m_reference = *other.m_reference;
    return *this;
}

CSectionDatabase::~CSectionDatabase() = default;

void CSectionDatabase::ReferTo(const CSectionDatabase& other) {
    const bool refersToIt = m_reference->session != nullptr && m_reference->keeper == nullptr &&
                            m_reference->session == other.m_reference->session;
    if (refersToIt) // its name and workspace are the session's
        return;
    *this = other;
    m_reference->keeper.reset();
}

void CSectionDatabase::Create(const char* path, const char* descriptor, int /*options*/) {
    Begin(path, [&] { return Connection::Create(path, PasswordIn(descriptor)); });
}

void CSectionDatabase::Open(const char* path, int exclusive, int readOnly, const char* connect) {
    const Connection::Access access{.exclusive = exclusive != 0, .readOnly = readOnly != 0};
    Begin(path, [&] { return Connection::Open(path, PasswordIn(connect), access); });
}

CString CSectionDatabase::ConnectText(std::string_view password) {
    if (!password.empty() && password.find_first_not_of(Blanks) == std::string_view::npos)
        Fail(SectionError::WrongPassword,
             "A password of blanks protects nothing; choose another one.");
    const bool hasEquals = password.find('=') != std::string_view::npos;
    if (hasEquals && password.find(';') != std::string_view::npos)
        Fail(SectionError::WrongPassword,
             R"(A password cannot hold both "=" and ";"; choose another one.)");
    return CString((hasEquals ? ";PWD=" : "") + std::string(password));
}

/// Opens last what is opened, so that nothing fails when a file has been created.
template <class Opener>
void CSectionDatabase::Begin(const char* path, Opener open) {
    WithMemoryErrors([&] {
        auto session = std::make_shared<Session>(path);
        auto keeper = std::make_shared<SessionKeeper>(session);
        CString name(path);
        if (const auto workspace = m_reference->workspace.lock())
            workspace->Add(session);
        session->Begin(open());
        m_reference->session = std::move(session);
        m_reference->keeper = std::move(keeper);
        m_name = std::move(name);
    });
}

bool CSectionDatabase::IsOpen() const {
    return m_reference->session && m_reference->session->IsOpen();
}

void CSectionDatabase::Close() {
    if (m_reference->session)
        m_reference->session->Close();
}

void CSectionDatabase::DestroyDB() {
    Close();
    m_reference->session.reset();
    m_reference->keeper.reset();
}

Connection& CSectionDatabase::OpenConnection() const {
    return dbsection::SessionOf(m_reference)->Get();
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

std::vector<CString> CSectionDatabase::FindDamage() const {
    return WithMemoryErrors([&] {
        Connection& connection = OpenConnection();
        const auto lease = connection.Own("PRAGMA integrity_check");
        std::vector<CString> damage;
        while (connection.Step(lease.Get(), connection.Path(), Activity::Reading)) {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(lease.Get(), 0));
            if (text == nullptr)
                throw std::bad_alloc();
            RequireRead(text, connection.Path());
            if (std::string_view(text) != "ok")
                damage.emplace_back(text);
        }
        return damage;
    });
}

namespace dbsection {
namespace {

using FoundRows = std::optional<std::vector<NameRows>>;

/// Of what was found only the user tables.
FoundRows InUserTables(FoundRows found) {
    if (found)
        std::erase_if(*found,
                      [](const NameRows& rows) { return AttributesOf(rows.table.View()) != 0; });
    return found;
}

} // namespace

std::optional<std::vector<NameRows>> KeptNames::Find(const CSectionDatabase& database,
                                                     const QuestionFor& questionFor) {
    if (IsObserved())
        return std::nullopt;
    return WithMemoryErrors(
        [&] { return InUserTables(database.OpenConnection().FindRows(questionFor)); });
}

std::optional<std::vector<NameRows>> KeptNames::Find(const CString& fileName, const char* connect,
                                                     const NameQuestion& question) {
    std::optional<std::vector<NameRows>> found;
    if (IsObserved())
        return found;
    WithMemoryErrors([&] {
        const auto origin = Origin::Find(NativePath(fileName.View()), false);
        if (!origin)
            return;
        const auto ask = [&](Connection& connection) {
            found = InUserTables(connection.FindKeptRows(question));
        };
        ConnectionPool::Peek(*origin, PasswordIn(connect), ask);
    });
    return found;
}

} // namespace dbsection
