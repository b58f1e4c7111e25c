#include "files/BuildTarget.h"

#include "dataaccess/CSectionDatabase.h"
#include "dataaccess/CSectionException.h"
#include "output/Messages.h"
#include "platform/FileSystem.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <system_error>
#include <unistd.h>

namespace dbsection {
namespace {

/// What a killed program may leave beside a file.
constexpr std::array Leftovers{"-journal", "-wal", "-shm"};

std::filesystem::path Beside(const std::filesystem::path& file, const char* ending) {
    return file.string() + ending;
}

std::string CannotTakeName(const std::string& reason) {
    return fmt::format("the finished file cannot take this name: {}; choose another one", reason);
}

} // namespace

BuildTarget::BuildTarget(const std::filesystem::path& path, Existing existing)
    : m_path(path),
      m_existing(existing) {
    std::string file = path.string();
    if (const int error = FollowLinks(file); error != 0)
        Fail(std::generic_category().message(error));
    m_file = file;
    m_temporary =
        m_file.parent_path() / fmt::format(".{}.{}~", m_file.filename().string(), getpid());
    const unsigned attributes = GetFileAttributesA(file.c_str());
    m_exists = attributes != INVALID_FILE_ATTRIBUTES;
    if (m_exists && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
        Fail("the file is read-only; make it writable, or name another one");
    RemoveTemporary();
}

BuildTarget::~BuildTarget() { RemoveTemporary(); }

void BuildTarget::Fail(const std::string& fault) const {
    throw CommandError(fmt::format("{}: {}.", m_path.string(), fault));
}

void BuildTarget::TakeOverPermissions() const {
    if (m_exists)
        std::filesystem::permissions(m_temporary, std::filesystem::status(m_file).permissions());
}

void BuildTarget::Keep(const std::string& connect) const {
    if (m_existing == Existing::Replace || !m_exists)
        RemoveLeftovers(connect);
    if (m_existing == Existing::Replace) {
        if (const int error = MoveOver(m_temporary.c_str(), m_path.c_str()); error != 0)
            Fail(CannotTakeName(std::generic_category().message(error)));
        return;
    }
    std::error_code error; // unlike moving, linking fails where there is a file by now
    std::filesystem::create_hard_link(m_temporary, m_path, error);
    if (error)
        Fail(CannotTakeName(error.message()));
}

/// With another file under the name, the pages that a journal keeps would be written into that one.
void BuildTarget::RemoveLeftovers(const std::string& connect) const {
    const auto isThere = [&](const char* ending) {
        return std::filesystem::exists(Beside(m_file, ending));
    };
    if (std::ranges::none_of(Leftovers, isThere))
        return;
    if (m_exists)
        Recover(connect);
    for (const char* ending : Leftovers)
        std::filesystem::remove(Beside(m_file, ending));
}

/// Undoes what was left half, so that the old file is whole until it is replaced, unless it cannot
/// be opened at all. A program that is still at work on it keeps it.
void BuildTarget::Recover(const std::string& connect) const {
    try {
        CSectionDatabase old;
        old.Open(m_file.c_str(), 1, 0, connect.c_str());
    } catch (CSectionException* e) {
        const int number = e->GetErrorNumber();
        const std::string message(e->GetMessage().View());
        e->Delete();
        if (number == SectionError::InUse || number == SectionError::LockedWhileWriting)
            throw CommandError(message);
    }
}

void BuildTarget::RemoveTemporary() const {
    std::error_code ignored;
    std::filesystem::remove(m_temporary, ignored);
    std::filesystem::remove(Beside(m_temporary, "-journal"), ignored);
}

} // namespace dbsection
