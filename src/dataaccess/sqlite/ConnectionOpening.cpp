// How a file is opened or created: what is made sure of before anything in it is used.
#include "dataaccess/sqlite/Connection.h"

#include "dataaccess/sqlite/ConnectionPool.h"
#include "dataaccess/sqlite/EngineEnd.h"
#include "dataaccess/sqlite/NewFile.h"
#include "dataaccess/sqlite/WholeFiles.h"
#include "platform/CallState.h"
#include "platform/FileSystem.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace dbsection {
namespace {

/// Status of an engine that cannot work at all: an unspecified failure.
constexpr auto EngineWithoutEncryption = static_cast<std::int32_t>(0x80004005);

/// Major version of the engine's cipher. An engine without cipher, as when another copy of the
/// engine was loaded into the process first, cannot open protected files.
int CipherMajorVersion(sqlite3* database) {
    static std::atomic<int> known = 0;
    if (known != 0)
        return known;
    sqlite3_stmt* statement = nullptr;
    int code = sqlite3_prepare_v2(database, "PRAGMA cipher_version", -1, &statement, nullptr);
    const StatementPtr owned(statement);
    if (owned)
        code = sqlite3_step(statement);
    const auto* version = reinterpret_cast<const char*>(
        code == SQLITE_ROW ? sqlite3_column_text(statement, 0) : nullptr);
    if (code == SQLITE_NOMEM || (code == SQLITE_ROW && version == nullptr))
        throw CMemoryException::Instance();
    if (version == nullptr)
        throw new CSectionException(EngineWithoutEncryption);
    known = std::atoi(version);
    return known;
}

/// The form in which the engine protects new files.
FileForm OwnForm(sqlite3* database) {
    return CipherMajorVersion(database) < 4 ? FileForm::Third : FileForm::Fourth;
}

/// The password for a protected file.
std::string_view SecretOf(std::string_view password) {
    const char* fallback = password.empty() ? std::getenv("SECTIONDB_PASSWORD") : nullptr;
    return fallback == nullptr ? password : fallback;
}

[[noreturn]] void FailToReach(const std::string& path, int error) {
    if (error == ENOENT || error == ENOTDIR)
        Fail(SectionError::FileNotFound,
             path + ": there is no such file; check the folder and the name.");
    Fail(SectionError::Io, path + ": the file cannot be reached (" +
                               std::generic_category().message(error) +
                               "); check its name, and the permissions of its folders.");
}

/// A path that the engine takes for a file in every case: others can name a database in memory.
std::string EnginePath(const std::string& path) {
    return path.starts_with('/') ? path : "./" + path;
}

} // namespace

bool Connection::CanServe(const Origin& origin, std::string_view password) const {
    return m_origin == origin &&
           (!m_key || FindKey(m_key->salt, SecretOf(password), m_key->form) == m_key->number);
}

bool Connection::IsOutdatedBy(const Origin& origin) const {
    return m_origin->path == origin.path && m_origin->version != origin.version;
}

std::optional<Origin> Origin::Find(const std::string& path, bool readOnly) {
    const auto version = FileVersion::Look(path);
    if (!version)
        return std::nullopt;
    return Origin{path, readOnly, *version, LookAtUser()};
}

ConnectionPtr Connection::Open(const std::string& path, std::string_view password, Access access) {
    auto origin = Origin::Find(NativePath(path), access.readOnly);
    if (!origin)
        FailToReach(path, errno);
    if (!origin->version.IsRegularFile())
        Fail(SectionError::NotADatabase, path + ": this is not a file; name a catalogue file.");
    if (access.exclusive)
        return OpenAnew(origin->path, password, access);

    if (auto rested = ConnectionPool::Take(*origin, password)) {
        rested->SchemaVersion(); // fails where another program has the file for itself
        return rested;
    }
    // A look before the file is opened: a change meanwhile is a change since.
    const auto now = std::chrono::system_clock::now();
    ForgetLooks();
    origin = Origin::Find(origin->path, access.readOnly);
    if (!origin)
        FailToReach(path, errno);
    auto connection = OpenAnew(origin->path, password, access);
    if (origin->version.IsSettled(now) && !connection->HasWriteAheadLog())
        connection->m_origin = origin;
    return connection;
}

ConnectionPtr Connection::OpenAnew(const std::string& path, std::string_view password,
                                   Access access) {
    ConnectionPtr connection(new Connection(path));
    connection->m_readOnly = access.readOnly;
    connection->RequireNoInheritedLock();
    connection->OpenFile();
    connection->LimitTrust();
    connection->Key(password);
    if (access.exclusive)
        connection->LockExclusively();
    if (!connection->m_key)
        connection->RequireWhole();
    return connection;
}

ConnectionPtr Connection::Create(const std::string& path, std::string_view password) {
    const std::string native = NativePath(path);
    NewFile file(native);
    file.RemoveOldJournals();
    {
        const ConnectionPtr first(new Connection(native));
        first->OpenFile();
        first->LimitTrust();
        if (!password.empty())
            first->UseKey(SaltForNewFile(password), password, OwnForm(first->m_database));
        constexpr const char* FirstPage = "PRAGMA application_id = 0x53656374"; // "Sect"
        first->Execute(FirstPage, Activity::Writing);
    }
    // As anybody would open it. Short of memory, the engine may have taken another key, or none.
    auto connection = OpenAnew(native, password, {});
    if (connection->m_key.has_value() == password.empty())
        throw CMemoryException::Instance();
    file.Keep();
    return connection;
}

/// In a forked process the engine takes the locks of the other process for its own, and would read
/// without any.
void Connection::RequireNoInheritedLock() const {
    std::error_code ignored;
    LivingConnections& living = Living();
    const std::lock_guard lock(living.guard);
    for (const Connection* other : living.all)
        if (!other->IsOurs() && (other->m_exclusive || other->IsInTransaction()) &&
            std::filesystem::equivalent(m_path, other->m_path, ignored))
            Fail(SectionError::InUse, m_path + ": this process was forked while the file was "
                                               "locked; open it in a new process.");
}

void Connection::OpenFile() {
    const auto before = FileVersion::Find(m_path.c_str());
    // For writing even where only reading is wanted: what a killed writer left half is undone
    // first.
    const int code = sqlite3_open_v2(EnginePath(m_path).c_str(), &m_database,
                                     SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    if (code != SQLITE_OK)
        FailFromEngine(code, m_database, m_path, Activity::Reading);
    constexpr int PatienceMilliseconds = 250; // another program's single write takes far less
    sqlite3_busy_timeout(m_database, PatienceMilliseconds);
    const auto after = FileVersion::Find(m_path.c_str());
    const bool isThatFile = before && after && after->IsOfSameFile(*before);
    if (isThatFile && KeptFiles::HasTrustedTimes(m_path))
        m_file = after;
}

/// As if it had not been opened before.
void Connection::OpenFileAgain() {
    m_kept.Clear();
    sqlite3_close(m_database);
    m_database = nullptr;
    OpenFile();
    LimitTrust();
}

/// A catalogue file may come from anywhere: nothing in it is run, and nothing in it may take more
/// than a section table needs.
void Connection::LimitTrust() {
    struct Limit {
        int id;
        int value;
    };
    static constexpr std::array Limits{
        Limit{SQLITE_LIMIT_LENGTH, 16'000'000},   Limit{SQLITE_LIMIT_SQL_LENGTH, 1'000'000},
        Limit{SQLITE_LIMIT_COLUMN, 255},          Limit{SQLITE_LIMIT_EXPR_DEPTH, 1000},
        Limit{SQLITE_LIMIT_COMPOUND_SELECT, 20},  Limit{SQLITE_LIMIT_FUNCTION_ARG, 20},
        Limit{SQLITE_LIMIT_ATTACHED, 0},          Limit{SQLITE_LIMIT_LIKE_PATTERN_LENGTH, 20'000},
        Limit{SQLITE_LIMIT_VARIABLE_NUMBER, 999}, Limit{SQLITE_LIMIT_TRIGGER_DEPTH, 1},
        Limit{SQLITE_LIMIT_WORKER_THREADS, 0},
    };
    for (const Limit& limit : Limits)
        sqlite3_limit(m_database, limit.id, limit.value);
    sqlite3_db_config(m_database, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
#ifdef SQLITE_DBCONFIG_ENABLE_VIEW
    sqlite3_db_config(m_database, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
#endif
#ifdef SQLITE_DBCONFIG_DEFENSIVE
    sqlite3_db_config(m_database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
#endif
    sqlite3_set_authorizer(m_database, &Connection::Authorize, this);
    m_work.Install(m_database);
}

void Connection::Key(std::string_view password) {
    sqlite3_file* file = nullptr;
    sqlite3_file_control(m_database, "main", SQLITE_FCNTL_FILE_POINTER, static_cast<void*>(&file));
    std::array<unsigned char, FourthFormPage> firstBytes{};
    sqlite3_int64 size = 0;
    int code = file->pMethods->xFileSize(file, &size);
    const auto count = std::min(static_cast<std::size_t>(size), firstBytes.size());
    if (code == SQLITE_OK && count > 0)
        code = file->pMethods->xRead(file, firstBytes.data(), static_cast<int>(count), 0);
    if (code != SQLITE_OK)
        FailFromEngine(code, nullptr, m_path, Activity::Reading);

    const auto firstPage = std::span(firstBytes).first(count);
    const FileKind kind = ClassifyFile(firstPage.first(std::min(count, ClassifiedBytes)));
    if (kind == FileKind::NotADatabase)
        Fail(SectionError::NotADatabase,
             m_path + ": this is not a catalogue file; name another file.");
    const bool isProtected = kind == FileKind::Protected;
    const bool isRead = isProtected && KeyProtectedFile(firstPage, password);
    // Must follow the key: these read the file.
    Execute("PRAGMA cell_size_check = ON; PRAGMA trusted_schema = OFF", Activity::Reading);
    if (!isRead)
        CheckReadable(isProtected);
    if (m_key)
        ConfirmKey(m_key->number);
}

/// Whether the file could be read at once; where not, CheckReadable tells why, if anything.
bool Connection::KeyProtectedFile(std::span<const unsigned char> firstPage,
                                  std::string_view password) {
    const std::string_view secret = SecretOf(password);
    if (secret.empty())
        Fail(SectionError::WrongPassword,
             m_path + ": the file is protected and no password was given; give its password.");
    FileSalt salt;
    std::ranges::copy(firstPage.first(salt.size()), salt.begin());
    const FileForm own = OwnForm(m_database);
    const bool wasThird = FindKey(salt, secret, FileForm::Third) != 0;
    UseKey(salt, secret, wasThird ? FileForm::Third : own);
    if (const int code = TryToRead(); code != SQLITE_NOTADB)
        return code == SQLITE_OK;
    if (own == FileForm::Fourth) {
        OpenFileAgain();
        UseKey(salt, secret, wasThird ? FileForm::Fourth : FileForm::Third);
    } else if (IsOfFourthForm(firstPage, secret)) {
        Fail(SectionError::WrongPassword,
             m_path + ": the file is protected in the form of SQLCipher 4, and this computer has "
                      "SQLCipher 3; export it in the form of 3, or install a library with 4.");
    }
    return false;
}

void Connection::UseKey(const FileSalt& salt, std::string_view secret, FileForm form) {
    const SecretText statement = KeyStatement(salt, secret, form);
    const bool isEngineFourth = OwnForm(m_database) == FileForm::Fourth;
    m_key = KeyUse{salt, form, isEngineFourth, FindKey(salt, secret, form)};
    RequireCipherMemory();
    if (isEngineFourth) {
        WatchEngineEnd();
        Execute("PRAGMA cipher_log_level = NONE", Activity::Reading); // else it prints on stderr
    }
    Execute(statement.Get(), Activity::Reading);
    if (isEngineFourth && form == FileForm::Third)
        Execute("PRAGMA cipher_compatibility = 3", Activity::Reading);
}

/// The engine's code; where the key is the wrong one, the file is not a database.
int Connection::TryToRead() {
    return sqlite3_exec(m_database, "SELECT 1 FROM sqlite_master LIMIT 1", nullptr, nullptr,
                        nullptr);
}

void Connection::CheckReadable(bool isProtected) {
    const int code = TryToRead();
    if (code == SQLITE_ERROR) // a header of an unknown format
        FailFromEngine(SQLITE_CORRUPT, nullptr, m_path, Activity::Reading);
    if (isProtected && code == SQLITE_NOTADB)
        Fail(SectionError::WrongPassword,
             m_path + ": the password is wrong, or the beginning of the file is damaged; check the "
                      "password.");
    if (code != SQLITE_OK)
        FailFromEngine(code, m_database, m_path, Activity::Reading);
}

/// A connection that only reads still takes the lock, so that nobody writes meanwhile. That is all
/// that can be had of a file that one may not write: others can read it then.
void Connection::LockExclusively() {
    m_exclusive = true;
    Execute("PRAGMA locking_mode = EXCLUSIVE", Activity::Reading);
    const bool mayWrite = sqlite3_db_readonly(m_database, "main") == 0;
    Execute(mayWrite ? "BEGIN EXCLUSIVE; COMMIT" : "SELECT 1 FROM sqlite_master LIMIT 1",
            Activity::Reading);
}

/// Damage that the engine would stumble over is found before anything of a plain file is used; the
/// pages of a protected file carry a checksum each.
void Connection::RequireWhole() {
    constexpr off_t LargestChecked = off_t{128} << 20; // a tenth of a second
    const auto now = std::chrono::system_clock::now();
    const auto version = FileVersion::Find(m_path.c_str());
    if (!version || version->Size() > LargestChecked)
        return;
    if (!WholeFiles::Contains(*version)) {
        if (!CheckPages() || HasWriteAheadLog())
            return;
        if (version->IsSettled(now))
            WholeFiles::Add(*version);
    }
    m_wholeVersion = version;
}

/// False where the engine cannot check the pages because it does not know what the tables use.
bool Connection::CheckPages() {
    bool isDamaged = false;
    const auto look = [](void* found, int /*columns*/, char** values, char** /*names*/) {
        // What the pages hold is told without this mark, as a value that is missing in a row.
        *static_cast<bool*>(found) = std::string_view(values[0]).starts_with("***");
        return 0;
    };
    const int code = sqlite3_exec(m_database, "PRAGMA quick_check(1)", look, &isDamaged, nullptr);
    if (isDamaged)
        FailFromEngine(SQLITE_CORRUPT, nullptr, m_path, Activity::Reading);
    if (code != SQLITE_OK && code != SQLITE_ERROR)
        FailFromEngine(code, m_database, m_path, Activity::Reading);
    return code == SQLITE_OK;
}

/// Files with one are shared by way of memory, which a connection holds until it is closed.
bool Connection::HasWriteAheadLog() {
    const StatementLease lease = Own("PRAGMA journal_mode");
    Step(lease.Get(), m_path, Activity::Reading);
    const auto* mode = reinterpret_cast<const char*>(sqlite3_column_text(lease.Get(), 0));
    return mode == nullptr || EqualNoCase(mode, "wal");
}

} // namespace dbsection
