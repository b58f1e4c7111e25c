// The name of a database file that is being created.
#pragma once

#include <string>

namespace dbsection {

/// Claims the name of a new file. Removes the file again unless it is kept.
class NewFile {
public:
    /// `path` is a native one. A file that exists is error 3204.
    explicit NewFile(std::string path);
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile();

    /// Removes the journals of an earlier database of that name. The engine would put what they
    /// hold into the new file.
    void RemoveOldJournals() const;

    void Keep() { m_kept = true; }

private:
    std::string m_path;
    bool m_kept = false;
};

} // namespace dbsection
