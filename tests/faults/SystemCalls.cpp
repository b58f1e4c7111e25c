// System calls that fail on demand. These definitions stand before those of the C library for the
// program and all the libraries it has loaded, and call them in the end.
#include "faults/Injector.h"

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using faults::Failure;
using faults::IsDue;

enum class Access { Reading, Writing };

/// Makes the C library's own call.
template <class Result, class... Arguments>
Result Make(const char* name, Arguments... arguments) {
    using Function = Result(Arguments...);
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name))(arguments...);
}

/// Fails the call with its error number, or makes it.
template <class Result, class... Arguments>
Result Call(Access access, const char* name, Arguments... arguments) {
    if (IsDue(Failure::Death))
        ::kill(::getpid(), SIGKILL);
    if (IsDue(Failure::InputOutput)) {
        errno = EIO;
        return -1;
    }
    if (access == Access::Writing && IsDue(Failure::DiskFull)) {
        errno = ENOSPC;
        return -1;
    }
    return Make<Result>(name, arguments...);
}

std::size_t Transferred(std::size_t size) {
    return IsDue(Failure::ShortTransfer) ? (size + 1) / 2 : size;
}

Access OpeningAccess(int flags) {
    return (flags & O_CREAT) != 0 ? Access::Writing : Access::Reading;
}

mode_t ModeOf(int flags, std::va_list arguments) {
    return (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
}

} // namespace

// NOLINTBEGIN(cert-dcl50-cpp,readability-inconsistent-declaration-parameter-name)

extern "C" {

int open(const char* path, int flags, ...) {
    std::va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = ModeOf(flags, arguments);
    va_end(arguments);
    return Call<int>(OpeningAccess(flags), "open", path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    std::va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = ModeOf(flags, arguments);
    va_end(arguments);
    return Call<int>(OpeningAccess(flags), "open64", path, flags, mode);
}

ssize_t read(int file, void* data, std::size_t size) {
    return Call<ssize_t>(Access::Reading, "read", file, data, Transferred(size));
}

ssize_t pread64(int file, void* data, std::size_t size, off64_t offset) {
    return Call<ssize_t>(Access::Reading, "pread64", file, data, Transferred(size), offset);
}

ssize_t write(int file, const void* data, std::size_t size) {
    return Call<ssize_t>(Access::Writing, "write", file, data, Transferred(size));
}

ssize_t pwrite64(int file, const void* data, std::size_t size, off64_t offset) {
    return Call<ssize_t>(Access::Writing, "pwrite64", file, data, Transferred(size), offset);
}

int fsync(int file) { return Call<int>(Access::Writing, "fsync", file); }

int fdatasync(int file) { return Call<int>(Access::Writing, "fdatasync", file); }

int ftruncate64(int file, off64_t size) noexcept {
    return Call<int>(Access::Writing, "ftruncate64", file, size);
}

int fcntl64(int file, int command, ...) {
    std::va_list arguments;
    va_start(arguments, command);
    void* argument = va_arg(arguments, void*);
    va_end(arguments);
    return Call<int>(Access::Reading, "fcntl64", file, command, argument);
}

int flock(int file, int operation) noexcept {
    return Call<int>(Access::Reading, "flock", file, operation);
}

int stat(const char* path, struct stat* status) noexcept {
    return Call<int>(Access::Reading, "stat", path, status);
}

int stat64(const char* path, struct stat64* status) noexcept {
    return Call<int>(Access::Reading, "stat64", path, status);
}

int fstat(int file, struct stat* status) noexcept {
    return Call<int>(Access::Reading, "fstat", file, status);
}

int fstat64(int file, struct stat64* status) noexcept {
    return Call<int>(Access::Reading, "fstat64", file, status);
}

int lstat(const char* path, struct stat* status) noexcept {
    return Call<int>(Access::Reading, "lstat", path, status);
}

int access(const char* path, int mode) noexcept {
    return Call<int>(Access::Reading, "access", path, mode);
}

int faccessat(int folder, const char* path, int mode, int flags) noexcept {
    return Call<int>(Access::Reading, "faccessat", folder, path, mode, flags);
}

int rename(const char* from, const char* to) noexcept {
    return Call<int>(Access::Writing, "rename", from, to);
}

int unlink(const char* path) noexcept {
    return faults::IsLasting() ? Make<int>("unlink", path)
                               : Call<int>(Access::Reading, "unlink", path);
}

int chmod(const char* path, mode_t mode) noexcept {
    return Call<int>(Access::Reading, "chmod", path, mode);
}

int fchmod(int file, mode_t mode) noexcept {
    return Call<int>(Access::Reading, "fchmod", file, mode);
}
}

// NOLINTEND(cert-dcl50-cpp,readability-inconsistent-declaration-parameter-name)
