#include "platform/PrivateProfile.h"

#include "platform/CallState.h"
#include "platform/FileDescriptor.h"
#include "platform/FileLook.h"
#include "platform/FileSystem.h"
#include "platform/FileVersion.h"
#include "platform/ProfileRevision.h"
#include "platform/ProfileText.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <list>
#include <new>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>

namespace {

using dbsection::FileVersion;
using dbsection::ProfileIndex;

constexpr std::size_t MaxFileSize = std::size_t{16} << 20;
constexpr std::size_t MaxKeptFiles = 16;

// Of each thread: the functions may be called from several.

thread_local int lastError = 0;

constexpr std::uint64_t NoFile = 1;
thread_local std::uint64_t lastRevision = NoFile;

struct KeptFile {
    KeptFile(std::string_view givenPath, const FileVersion& fileVersion, bool isTrusted,
             std::string text)
        : path(givenPath),
          version(fileVersion),
          trusted(isTrusted),
          index(std::move(text)) {}

    const std::uint64_t revision = ++lastRevision;
    std::string path;
    FileVersion version;
    bool trusted; ///< whether any later change shows in the version
    ProfileIndex index;
};

/// Reads a whole file of modest size. Returns an error number; only regular files are opened, for
/// others may block.
int ReadText(const std::string& path, std::string& text, struct stat& status) {
    const dbsection::FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.IsOpen() || ::fstat(file.Get(), &status) != 0)
        return errno;
    if (!S_ISREG(status.st_mode))
        return S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
    std::array<char, 1 << 16> block;
    for (;;) {
        const ssize_t count = ::read(file.Get(), block.data(), block.size());
        if (count == 0)
            return 0;
        if (count < 0 && errno != EINTR)
            return errno;
        text.append(block.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        if (text.size() > MaxFileSize)
            return EFBIG;
    }
}

/// The entries of a file, read again only when the file has changed. Null on error.
const KeptFile* Load(const char* file) {
    static thread_local std::list<KeptFile> keptFiles;
    const std::string_view given(file == nullptr ? "" : file);
    const auto place = std::ranges::find_if(keptFiles, [given](const KeptFile& kept) {
        return dbsection::IsSamePath(kept.path, given);
    });
    const dbsection::FileLook& look = dbsection::LookAt(given);
    lastError = look.error;
    if (place != keptFiles.end()) {
        if (lastError == 0 && place->trusted && place->version == FileVersion(look.status))
            return &*place;
        keptFiles.erase(place);
    }
    if (lastError != 0)
        return nullptr;

    const auto now = std::chrono::system_clock::now();
    std::string text;
    struct stat status {};
    lastError = ReadText(dbsection::NativePath(given), text, status);
    if (lastError != 0)
        return nullptr;
    if (keptFiles.size() == MaxKeptFiles)
        keptFiles.clear();
    const FileVersion version(status);
    return &keptFiles.emplace_back(given, version, version.IsSettled(now), std::move(text));
}

std::optional<std::string_view> Find(const char* section, const char* key, const char* file) {
    try {
        const KeptFile* kept = Load(file);
        if (kept == nullptr || section == nullptr || key == nullptr)
            return std::nullopt;
        return kept->index.Find(section, key);
    } catch (const std::bad_alloc&) {
        dbsection::NoteMemoryRanOut();
        lastError = ENOMEM;
        return std::nullopt;
    }
}

/// Keeps other writers out of a folder's settings files. The lock is on the folder itself: a file
/// may not exist yet and is another one after each write. File systems without locks go without.
class WriteLock {
public:
    explicit WriteLock(const std::string& folder)
        : m_folder(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)),
          m_error(m_folder.IsOpen() ? Wait() : errno) {}

    /// Why nothing may be written, or 0.
    int Error() const { return m_error; }

private:
    int Wait() const {
        using Clock = std::chrono::steady_clock;
        constexpr std::chrono::seconds Patience(5); // a write takes milliseconds
        constexpr std::chrono::milliseconds Pause(2);
        const auto end = Clock::now() + Patience;
        while (::flock(m_folder.Get(), LOCK_EX | LOCK_NB) != 0) {
            if (errno == EINTR)
                continue;
            if (errno != EWOULDBLOCK)
                return 0;
            if (Clock::now() >= end)
                return EWOULDBLOCK;
            std::this_thread::sleep_for(Pause);
        }
        return 0;
    }

    dbsection::FileDescriptor m_folder;
    int m_error;
};

enum class Purpose { Change, Create };

/// Makes the changes; to create means to leave a file alone that there is by then.
int Write(std::span<const ProfileEntry> entries, const char* file, Purpose purpose) {
    if (!std::ranges::all_of(entries, dbsection::IsWritable))
        return EINVAL;
    std::string path = dbsection::NativePath(file == nullptr ? "" : file);
    if (const int error = dbsection::FollowLinks(path); error != 0)
        return error;
    const WriteLock lock(dbsection::FolderOf(path));
    if (lock.Error() != 0)
        return lock.Error();
    std::string text;
    struct stat status {};
    const int error = ReadText(path, text, status);
    if (error != 0 && error != ENOENT)
        return error;
    if (error == 0 && purpose == Purpose::Create)
        return 0;
    const std::string changed = dbsection::ChangeProfileText(text, entries);
    if (changed.size() > MaxFileSize)
        return EFBIG;
    if (changed == text && purpose == Purpose::Change)
        return 0;
    return dbsection::ReplaceFile(path.c_str(), changed);
}

int WriteOrTell(std::span<const ProfileEntry> entries, const char* file, Purpose purpose) {
    try {
        lastError = Write(entries, file, purpose);
    } catch (const std::bad_alloc&) {
        dbsection::NoteMemoryRanOut();
        lastError = ENOMEM;
    }
    return lastError == 0 ? 1 : 0;
}

} // namespace

#ifndef __AFX_H__

unsigned GetPrivateProfileIntA(const char* section, const char* key, int defaultValue,
                               const char* file) {
    const std::optional<std::string_view> value = Find(section, key, file);
    if (!value)
        return static_cast<unsigned>(defaultValue);
    return static_cast<unsigned>(dbsection::LeadingInteger(*value));
}

DWORD GetPrivateProfileStringA(const char* section, const char* key, const char* defaultValue,
                               char* buffer, DWORD size, const char* file) {
    const std::string_view fallback = defaultValue == nullptr ? "" : defaultValue;
    const std::string_view value = Find(section, key, file).value_or(fallback);
    if (buffer == nullptr || size == 0)
        return 0;
    const std::size_t count = std::min<std::size_t>(value.size(), size - 1);
    std::memcpy(buffer, value.data(), count);
    buffer[count] = '\0';
    return static_cast<DWORD>(count);
}

int WritePrivateProfileStringA(const char* section, const char* key, const char* value,
                               const char* file) {
    const ProfileEntry entry{section, key, value};
    return WritePrivateProfileEntries({&entry, 1}, file);
}

#endif

int WritePrivateProfileEntries(std::span<const ProfileEntry> entries, const char* file) {
    return WriteOrTell(entries, file, Purpose::Change);
}

int CreatePrivateProfile(std::span<const ProfileEntry> entries, const char* file) {
    return WriteOrTell(entries, file, Purpose::Create);
}

int GetLastProfileError() { return lastError; }

std::uint64_t dbsection::ProfileRevision(const char* file) {
    try {
        const KeptFile* kept = Load(file);
        if (kept != nullptr)
            return kept->trusted ? kept->revision : 0;
    } catch (const std::bad_alloc&) {
        NoteMemoryRanOut();
        lastError = ENOMEM;
    }
    return lastError == ENOENT ? NoFile : 0;
}
