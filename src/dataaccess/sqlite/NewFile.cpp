#include "dataaccess/sqlite/NewFile.h"

#include "dataaccess/sqlite/EngineError.h"
#include "platform/FileDescriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <utility>

namespace dbsection {
namespace {

std::string Reason(int error) { return " (" + std::generic_category().message(error) + ")"; }

} // namespace

NewFile::NewFile(std::string path) : m_path(std::move(path)) {
    constexpr mode_t Permissions = 0644;
    const FileDescriptor file(
        ::open(m_path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, Permissions));
    const int error = errno;
    if (file.IsOpen())
        return;
    if (error == EEXIST)
        Fail(SectionError::DatabaseExists,
             m_path + ": a file of this name exists; choose another name, or remove it first.");
    Fail(SectionError::Io, m_path + ": the file cannot be created" + Reason(error) +
                               "; check the folder and its permissions.");
}

NewFile::~NewFile() {
    if (!m_kept)
        ::unlink(m_path.c_str());
}

void NewFile::RemoveOldJournals() const {
    for (const char* suffix : {"-journal", "-wal", "-shm"}) {
        const std::string journal = m_path + suffix;
        if (::unlink(journal.c_str()) == 0 || errno == ENOENT)
            continue;
        const int error = errno;
        Fail(SectionError::Io, journal + ": this file of an earlier database cannot be removed" +
                                   Reason(error) + "; remove it.");
    }
}

} // namespace dbsection
