#include "platform/FileSystem.h"

#include "platform/FileDescriptor.h"

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

bool ReadStatus(const char* path, struct stat& status) {
    if (path != nullptr)
        return ::stat(dbsection::NativePath(path).c_str(), &status) == 0;
    errno = ENOENT;
    return false;
}

} // namespace

#ifndef __AFX_H__

unsigned GetFileAttributesA(const char* path) {
    struct stat status {};
    if (!ReadStatus(path, status))
        return INVALID_FILE_ATTRIBUTES;
    const unsigned attributes = (S_ISDIR(status.st_mode) ? FILE_ATTRIBUTE_DIRECTORY : 0) |
                                ((status.st_mode & S_IWUSR) != 0 ? 0 : FILE_ATTRIBUTE_READONLY);
    return attributes == 0 ? FILE_ATTRIBUTE_NORMAL : attributes;
}

int SetFileAttributesA(const char* path, unsigned attributes) {
    struct stat status {};
    if (attributes == INVALID_FILE_ATTRIBUTES || !ReadStatus(path, status))
        return 0;
    const mode_t mode = status.st_mode & AllPermissions;
    const mode_t wanted =
        (attributes & FILE_ATTRIBUTE_READONLY) != 0 ? mode & ~AllWrite : mode | mode_t{S_IWUSR};
    // Somebody else's file that already is as wanted must not be touched.
    const bool done = wanted == mode || ::chmod(dbsection::NativePath(path).c_str(), wanted) == 0;
    return done ? 1 : 0;
}

#endif

namespace dbsection {

std::string NativePath(std::string_view path) {
    std::string native(path);
    std::ranges::replace(native, '\\', char{std::filesystem::path::preferred_separator});
    return native;
}

bool IsRegularFile(const char* path) {
    const unsigned attributes = GetFileAttributesA(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

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

std::string FollowLinks(const std::string& path) {
    std::filesystem::path target(path);
    std::error_code error;
    for (int links = 0; links < MaxLinks && std::filesystem::is_symlink(target, error); ++links)
        target = target.parent_path() / std::filesystem::read_symlink(target, error);
    return target.string();
}

std::string FolderOf(const std::string& path) {
    const std::string folder = std::filesystem::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

namespace {

/// A file beside the one to be replaced, removed again unless it took its place.
class TemporaryFile {
public:
    TemporaryFile(const std::string& folder, mode_t mode)
        : m_path(folder + "/.save-" + std::to_string(::getpid())),
          m_file(Create(mode)) {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (m_file.IsOpen() && !m_moved)
            ::unlink(m_path.c_str());
    }

    bool IsOpen() const { return m_file.IsOpen(); }

    bool Write(std::string_view content) {
        while (!content.empty()) {
            const ssize_t written = ::write(m_file.Get(), content.data(), content.size());
            if (written < 0 && errno != EINTR)
                return false;
            content.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
        }
        return true;
    }

    /// Takes over owner and permissions; only the latter can be required of an ordinary user.
    bool TakeOver(const struct stat& old) {
        struct stat own {};
        if (::fstat(m_file.Get(), &own) != 0)
            return false;
        const bool foreign = own.st_uid != old.st_uid || own.st_gid != old.st_gid;
        const bool ownerKept = !foreign || ::fchown(m_file.Get(), old.st_uid, old.st_gid) == 0;
        const mode_t kept = ownerKept ? AllPermissions : mode_t{0777};
        return ::fchmod(m_file.Get(), old.st_mode & kept) == 0;
    }

    bool MoveTo(const std::string& path) {
        m_moved = ::fsync(m_file.Get()) == 0 && ::rename(m_path.c_str(), path.c_str()) == 0;
        return m_moved;
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
    bool m_moved = false;
};

/// Why the file must not be replaced, or 0.
int Refusal(const std::string& path, const struct stat& status) {
    if (S_ISDIR(status.st_mode))
        return EISDIR;
    if (!S_ISREG(status.st_mode))
        return EINVAL;
    if ((status.st_mode & S_IWUSR) == 0)
        return EACCES;
    return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0 ? 0 : errno;
}

} // namespace

int ReplaceFile(const char* path, std::string_view content) {
    struct stat old {};
    const bool exists = ReadStatus(path, old);
    if (!exists && (errno != ENOENT || path == nullptr))
        return errno;
    const std::string target = FollowLinks(NativePath(path));
    if (const int refusal = exists ? Refusal(target, old) : 0; refusal != 0)
        return refusal;

    const std::string folder = FolderOf(target);
    TemporaryFile file(folder, exists ? old.st_mode & 0777 : 0666);
    if (!file.IsOpen() || !file.Write(content) || (exists && !file.TakeOver(old)) ||
        !file.MoveTo(target))
        return errno;
    // The file is replaced now. A folder that cannot be synced only delays it on the disk.
    const FileDescriptor entry(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    ::fsync(entry.Get());
    return 0;
}

} // namespace dbsection
