// What tells one state of a file from another.
#pragma once

#include "platform/FileLook.h"

#include <cerrno>
#include <chrono>
#include <optional>
#include <sys/stat.h>

namespace dbsection {

/// Identity, kind, size and times of a file. Any change of the file shows in it, whether of its
/// content, its permissions or the file itself, but for one that follows too fast (IsSettled).
class FileVersion {
public:
    /// As the call of the host that is under way has seen the file; nothing where it cannot be
    /// reached, and errno then says why.
    static std::optional<FileVersion> Look(std::string_view path) {
        const FileLook& look = LookAt(path);
        errno = look.error;
        return look.error == 0 ? std::optional(FileVersion(look.status)) : std::nullopt;
    }

    /// The same by a look of its own.
    static std::optional<FileVersion> Find(const char* path) {
        struct stat status {};
        return ::stat(path, &status) == 0 ? std::optional(FileVersion(status)) : std::nullopt;
    }

    explicit FileVersion(const struct stat& status)
        : m_device(status.st_dev),
          m_inode(status.st_ino),
          m_mode(status.st_mode),
          m_size(status.st_size),
          m_modified(Nanoseconds(status.st_mtim)),
          m_changed(Nanoseconds(status.st_ctim)) {}

    bool operator==(const FileVersion&) const = default;

    bool IsRegularFile() const { return S_ISREG(m_mode); }

    off_t Size() const { return m_size; }

    /// Whether both are versions of one file.
    bool IsOfSameFile(const FileVersion& other) const {
        return m_device == other.m_device && m_inode == other.m_inode;
    }

    /// Whether every change later than `now`, when the file was looked at, shows in the version.
    /// Two changes in quick succession may carry the same time stamp.
    bool IsSettled(std::chrono::system_clock::time_point now) const {
        constexpr std::chrono::nanoseconds ClockGrain = std::chrono::milliseconds(20);
        const auto moment = now.time_since_epoch();
        return std::chrono::abs(moment - m_modified) > ClockGrain &&
               std::chrono::abs(moment - m_changed) > ClockGrain;
    }

private:
    static std::chrono::nanoseconds Nanoseconds(const timespec& time) {
        return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
    }

    dev_t m_device;
    ino_t m_inode;
    mode_t m_mode;
    off_t m_size;
    std::chrono::nanoseconds m_modified;
    std::chrono::nanoseconds m_changed;
};

} // namespace dbsection
