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

} // namespace

// NOLINTBEGIN(cert-dcl50-cpp,readability-inconsistent-declaration-parameter-name)
// NOLINTBEGIN(bugprone-macro-parentheses)

#define FAILING_CALL(access, result, name, parameters, ...)                                        \
    result name parameters { return Call<result>(Access::access, #name, __VA_ARGS__); }

#define FAILING_OPEN(name)                                                                         \
    int name(const char* path, int flags, ...) {                                                   \
        std::va_list arguments;                                                                    \
        va_start(arguments, flags);                                                                \
        const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;                \
        va_end(arguments);                                                                         \
        return Call<int>(OpeningAccess(flags), #name, path, flags, mode);                          \
    }

extern "C" {

FAILING_OPEN(open)
FAILING_OPEN(open64)

FAILING_CALL(Reading, ssize_t, read, (int file, void* data, std::size_t size), file, data,
             Transferred(size))
FAILING_CALL(Reading, ssize_t, pread64, (int file, void* data, std::size_t size, off64_t offset),
             file, data, Transferred(size), offset)
FAILING_CALL(Writing, ssize_t, write, (int file, const void* data, std::size_t size), file, data,
             Transferred(size))
FAILING_CALL(Writing, ssize_t, pwrite64,
             (int file, const void* data, std::size_t size, off64_t offset), file, data,
             Transferred(size), offset)
FAILING_CALL(Writing, int, fsync, (int file), file)
FAILING_CALL(Writing, int, fdatasync, (int file), file)
FAILING_CALL(Writing, int, ftruncate64, (int file, off64_t size) noexcept, file, size)
FAILING_CALL(Reading, int, flock, (int file, int operation) noexcept, file, operation)
FAILING_CALL(Reading, int, stat, (const char* path, struct stat* status) noexcept, path, status)
FAILING_CALL(Reading, int, stat64, (const char* path, struct stat64* status) noexcept, path, status)
FAILING_CALL(Reading, int, fstat, (int file, struct stat* status) noexcept, file, status)
FAILING_CALL(Reading, int, fstat64, (int file, struct stat64* status) noexcept, file, status)
FAILING_CALL(Reading, int, lstat, (const char* path, struct stat* status) noexcept, path, status)
FAILING_CALL(Reading, int, access, (const char* path, int mode) noexcept, path, mode)
FAILING_CALL(Reading, int, faccessat, (int folder, const char* path, int mode, int flags) noexcept,
             folder, path, mode, flags)
FAILING_CALL(Writing, int, rename, (const char* from, const char* to) noexcept, from, to)
FAILING_CALL(Reading, int, chmod, (const char* path, mode_t mode) noexcept, path, mode)
FAILING_CALL(Reading, int, fchmod, (int file, mode_t mode) noexcept, file, mode)

int fcntl64(int file, int command, ...) {
    std::va_list arguments;
    va_start(arguments, command);
    void* argument = va_arg(arguments, void*);
    va_end(arguments);
    return Call<int>(Access::Reading, "fcntl64", file, command, argument);
}

int unlink(const char* path) noexcept {
    return faults::IsLasting() ? Make<int>("unlink", path)
                               : Call<int>(Access::Reading, "unlink", path);
}
}

// NOLINTEND(bugprone-macro-parentheses)
// NOLINTEND(cert-dcl50-cpp,readability-inconsistent-declaration-parameter-name)
