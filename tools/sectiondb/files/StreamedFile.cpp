#include "files/StreamedFile.h"

#include "files/WholeFile.h"
#include "platform/FileSystem.h"

#include <cerrno>
#include <filesystem>
#include <fmt/format.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace dbsection {

StreamedFile::StreamedFile(std::string path, std::string content)
    : m_path(std::move(path)),
      m_content(std::move(content)) {
    std::string file = m_path;
    if (const int error = FollowLinks(file); error != 0)
        FailToWrite(m_path, m_content, error);
    const std::filesystem::path target = file;
    m_temporary =
        target.parent_path() / fmt::format(".{}.{}~", target.filename().string(), getpid());
    m_stream.open(m_temporary, std::ios::binary | std::ios::trunc);
    if (!m_stream)
        FailToWrite(m_path, m_content, errno);
}

StreamedFile::~StreamedFile() {
    std::error_code ignored;
    std::filesystem::remove(m_temporary, ignored);
}

void StreamedFile::Finish() {
    m_stream.close();
    if (!m_stream)
        FailToWrite(m_path, m_content, errno);
    if (const int error = MoveOver(m_temporary.c_str(), m_path.c_str()); error != 0)
        FailToWrite(m_path, m_content, error);
}

} // namespace dbsection
