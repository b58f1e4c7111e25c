// Helpers shared by the tests: temporary folders, whole files, and children that may be killed.
#pragma once

#include "platform/Exceptions.h"

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sched.h>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace testsupport {

/// A new empty folder, removed with all it holds.
class TempFolder {
public:
    TempFolder() : m_path(std::filesystem::temp_directory_path() / "sectiondb-test-XXXXXX") {
        if (::mkdtemp(m_path.data()) == nullptr)
            throw std::runtime_error("no temporary folder can be created at " + m_path);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    const std::string& Path() const { return m_path; }
    std::string File(const std::string& name) const { return m_path + "/" + name; }

    /// Number of files in the folder.
    std::ptrdiff_t Count() const {
        return std::distance(std::filesystem::directory_iterator(m_path), {});
    }

private:
    std::string m_path;
};

inline std::string ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void WriteFile(const std::string& path, std::string_view content) {
    std::ofstream(path, std::ios::binary) << content;
}

/// Whether a text holds a part; shows the text where a check of it fails.
inline testing::AssertionResult Holds(std::string_view text, std::string_view part) {
    return (text.find(part) != std::string_view::npos ? testing::AssertionSuccess()
                                                      : testing::AssertionFailure())
           << "\"" << part << "\" in \"" << text << "\"";
}

/// Whether a call refuses its arguments by the exception for that.
template <class Body>
bool IsRefused(Body body) {
    try {
        body();
    } catch (CInvalidArgException* e) {
        e->Delete();
        return true;
    }
    return false;
}

/// Starts a child that runs `body` and exits with the int it returns (99 on an exception). It does
/// not outlive this process.
template <class Body>
pid_t StartChild(Body body) {
    const pid_t child = ::fork();
    if (child < 0)
        throw std::runtime_error("no process can be started");
    if (child > 0)
        return child;
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    try {
        ::_exit(body());
    } catch (...) {
        ::_exit(99);
    }
}

/// The exit code of a child, or 128 plus the signal that ended it.
inline int WaitForChild(pid_t child) {
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

template <class Body>
int RunInChild(Body body) {
    return WaitForChild(StartChild(body));
}

/// Whether `body` returns true in a child.
template <class Body>
testing::AssertionResult IsTrueInChild(Body body) {
    const int status = RunInChild([&] { return body() ? 0 : 1; });
    return (status == 0 ? testing::AssertionSuccess() : testing::AssertionFailure())
           << "the child ended with " << status;
}

/// In a child: gives up the rights that let root write everywhere.
inline bool BecomeOrdinaryUser() { return ::geteuid() != 0 || ::seteuid(65534) == 0; }

/// In a child: leaves no more than `bytes` for new data in `folder`, which then is an empty disk of
/// its own where the system allows it; elsewhere no file can grow beyond `bytes`.
inline void LimitDisk(const std::string& folder, std::size_t bytes) {
    const std::string size = "size=" + std::to_string(bytes);
    if (::unshare(CLONE_NEWNS) == 0 &&
        ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
        ::mount("tmpfs", folder.c_str(), "tmpfs", 0, size.c_str()) == 0)
        return;
    const rlimit limit{bytes, bytes};
    std::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

} // namespace testsupport
