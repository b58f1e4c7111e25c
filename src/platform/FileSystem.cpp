#include "platform/FileSystem.h"

#include "platform/CallState.h"
#include "platform/FileDescriptor.h"
#include "platform/FileLook.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>

namespace {

constexpr std::string_view Separators = "\\/";
constexpr mode_t AllPermissions = 07777;
constexpr mode_t AllWrite = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr int MaxLinks = 40;

/// A path that is null leads nowhere.
const dbsection::FileLook& LookAt(const char* path) {
    return dbsection::LookAt(path == nullptr ? "" : path);
}

} // namespace

#ifndef __AFX_H__

unsigned GetFileAttributesA(const char* path) {
    const auto& [error, status] = LookAt(path);
    if (error != 0)
        return INVALID_FILE_ATTRIBUTES;
    const unsigned attributes = (S_ISDIR(status.st_mode) ? FILE_ATTRIBUTE_DIRECTORY : 0) |
                                ((status.st_mode & S_IWUSR) != 0 ? 0 : FILE_ATTRIBUTE_READONLY);
    return attributes == 0 ? FILE_ATTRIBUTE_NORMAL : attributes;
}

int SetFileAttributesA(const char* path, unsigned attributes) {
    const auto& [error, status] = LookAt(path);
    if (attributes == INVALID_FILE_ATTRIBUTES || error != 0)
        return 0;
    const mode_t mode = status.st_mode & AllPermissions;
    const mode_t wanted =
        (attributes & FILE_ATTRIBUTE_READONLY) != 0 ? mode & ~AllWrite : mode | mode_t{S_IWUSR};
    if (wanted == mode) // somebody else's file that already is so must not be touched
        return 1;
    dbsection::ForgetLooks();
    return ::chmod(dbsection::NativePath(path).c_str(), wanted) == 0 ? 1 : 0;
}

#endif

namespace dbsection {

std::string NativePath(std::string_view path) {
    constexpr char Preferred = std::filesystem::path::preferred_separator;
    std::string native(path);
    std::ranges::replace(native, '\\', Preferred);
    return native;
}

int LookForFile(const char* path) {
    const auto& [error, status] = ::LookAt(path);
    const bool isNone =
        error == 0 ? S_ISDIR(status.st_mode) : error == ENOTDIR || error == ENAMETOOLONG;
    return isNone ? ENOENT : error;
}

bool IsRegularFile(const char* path) { return LookForFile(path) == 0; }

PathParts SplitPath(const char* path) {
    std::string_view rest(path == nullptr ? "" : path);
    if (rest.size() > MaxPathLength)
        return {};
    const auto takeFirst = [&rest](std::size_t count) {
        CString part(rest.substr(0, count));
        rest.remove_prefix(std::min(count, rest.size()));
        return part;
    };
    PathParts parts;
    if (rest.size() >= 2 && rest[1] == ':')
        parts.drive = takeFirst(2);
    parts.folder = takeFirst(rest.find_last_of(Separators) + 1);
    parts.name = takeFirst(rest.rfind('.'));
    parts.extension = CString(rest);
    return parts;
}

CString ComposePath(const PathParts& parts) {
    std::string path(parts.drive);
    path += parts.folder.View();
    if (!parts.folder.IsEmpty() && Separators.find(path.back()) == std::string_view::npos)
        path += '\\';
    path += parts.name.View();
    if (!parts.extension.IsEmpty() && parts.extension.GetAt(0) != '.')
        path += '.';
    path += parts.extension.View();
    return path.size() > MaxPathLength ? CString() : CString(std::move(path));
}

int FollowLinks(std::string& path) {
    std::filesystem::path target(path);
    for (int links = 0; links < MaxLinks; ++links) {
        std::error_code error;
        const auto type = std::filesystem::symlink_status(target, error).type();
        if (error && type != std::filesystem::file_type::not_found)
            return error.value();
        if (type != std::filesystem::file_type::symlink) {
            path = target.string();
            return 0;
        }
        const auto next = std::filesystem::read_symlink(target, error);
        if (error)
            return error.value();
        target = target.parent_path() / next;
    }
    return ELOOP;
}

std::string FolderOf(const std::string& path) {
    const std::string folder = std::filesystem::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

namespace {

/// A file beside the one to be replaced, removed again unless it was moved away.
class TemporaryFile {
public:
    TemporaryFile(const std::string& folder, mode_t mode)
        : m_path(folder + "/.save-" + std::to_string(::getpid())),
          m_file(Create(mode)) {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (m_file.IsOpen())
            ::unlink(m_path.c_str());
    }

    bool IsOpen() const { return m_file.IsOpen(); }
    const std::string& Path() const { return m_path; }

    bool Write(std::string_view content) {
        while (!content.empty()) {
            const ssize_t written = ::write(m_file.Get(), content.data(), content.size());
            if (written < 0 && errno != EINTR)
                return false;
            content.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
        }
        return true;
    }

private:
    /// A process that was killed may have left a file of this name, so the name grows until new.
    int Create(mode_t mode) {
        int descriptor = -1;
        do {
            m_path += '~';
            descriptor = ::open(m_path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        } while (descriptor < 0 && errno == EEXIST);
        return descriptor;
    }

    std::string m_path;
    FileDescriptor m_file;
};

/// A file that may be replaced: where it stands, and what it is when there is one.
struct Target {
    std::string path{};
    bool exists = false;
    struct stat status {};
};

/// Why the file must not be replaced, or 0.
int Refusal(const Target& target) {
    if (S_ISDIR(target.status.st_mode))
        return EISDIR;
    if (!S_ISREG(target.status.st_mode))
        return EINVAL;
    if ((target.status.st_mode & S_IWUSR) == 0)
        return EACCES;
    return ::faccessat(AT_FDCWD, target.path.c_str(), W_OK, AT_EACCESS) == 0 ? 0 : errno;
}

/// Finds what `path` leads to. Returns 0 or why it cannot be replaced.
int FindTarget(const char* path, Target& target) {
    ForgetLooks();
    const auto& [error, status] = ::LookAt(path);
    if (error != 0 && (error != ENOENT || path == nullptr))
        return error;
    target.exists = error == 0;
    target.status = status;
    target.path = NativePath(path);
    if (const int fault = FollowLinks(target.path); fault != 0)
        return fault;
    return target.exists ? Refusal(target) : 0;
}

/// Takes over owner and permissions; only the latter can be required of an ordinary user.
bool TakeOver(int file, const struct stat& old) {
    struct stat own {};
    if (::fstat(file, &own) != 0)
        return false;
    const bool foreign = own.st_uid != old.st_uid || own.st_gid != old.st_gid;
    const bool ownerKept = !foreign || ::fchown(file, old.st_uid, old.st_gid) == 0;
    const mode_t kept = ownerKept ? AllPermissions : mode_t{0777};
    return ::fchmod(file, old.st_mode & kept) == 0;
}

int MoveTo(const Target& target, const std::string& finished) {
    const std::string folderPath = FolderOf(target.path); // memory may run out before, not after
    const FileDescriptor file(::open(finished.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file.IsOpen() || (target.exists && !TakeOver(file.Get(), target.status)) ||
        ::fsync(file.Get()) != 0 || ::rename(finished.c_str(), target.path.c_str()) != 0)
        return errno;
    ForgetLooks();
    // The file is replaced now. A folder that cannot be synced only delays it on the disk.
    const FileDescriptor folder(::open(folderPath.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    ::fsync(folder.Get());
    return 0;
}

} // namespace

int ReplaceFile(const char* path, std::string_view content) {
    Target target;
    if (const int error = FindTarget(path, target); error != 0)
        return error;
    const mode_t mode = target.exists ? (target.status.st_mode & 0777) | S_IRUSR : 0666;
    TemporaryFile file(FolderOf(target.path), mode);
    if (!file.IsOpen() || !file.Write(content))
        return errno;
    return MoveTo(target, file.Path());
}

int MoveOver(const char* finished, const char* path) {
    Target target;
    const int error = FindTarget(path, target);
    return error != 0 ? error : MoveTo(target, NativePath(finished));
}

} // namespace dbsection
