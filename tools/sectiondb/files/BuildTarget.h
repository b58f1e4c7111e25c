// The name under which a finished file appears.
#pragma once

#include <filesystem>
#include <string>

namespace dbsection {

/// What becomes of a file that has the name already.
enum class Existing { Replace, Refuse };

/// A file that is made or replaced, and the one beside it that is written in its place, and removed
/// again unless it is kept. A link stays a link: what it leads to is replaced.
class BuildTarget {
public:
    /// Throws CommandError where the file must not be replaced.
    BuildTarget(const std::filesystem::path& path, Existing existing);
    BuildTarget(const BuildTarget&) = delete;
    BuildTarget& operator=(const BuildTarget&) = delete;
    ~BuildTarget();

    const std::filesystem::path& Temporary() const { return m_temporary; }

    /// Gives the temporary file, once there is one, the permissions of the file that it replaces:
    /// nobody may read in it who may not read in that.
    void TakeOverPermissions() const;

    /// Gives the finished file its name. `connect` carries the password of what it replaces. Throws
    /// CommandError; then nothing has changed.
    void Keep(const std::string& connect) const;

private:
    [[noreturn]] void Fail(const std::string& fault) const;
    void RemoveLeftovers(const std::string& connect) const;
    void Recover(const std::string& connect) const;
    void RemoveTemporary() const;

    std::filesystem::path m_path; ///< as it was given
    std::filesystem::path m_file; ///< that it leads to
    std::filesystem::path m_temporary;
    Existing m_existing;
    bool m_exists = false;
};

} // namespace dbsection
