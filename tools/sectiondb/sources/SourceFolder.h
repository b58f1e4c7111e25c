// A folder of text sources, of which each text is read once.
#pragma once

#include "sources/CsvTable.h"

#include <filesystem>
#include <map>
#include <string>

namespace dbsection {

class SourceFolder {
public:
    explicit SourceFolder(std::filesystem::path path) : m_path(std::move(path)) {}

    const std::filesystem::path& Path() const { return m_path; }
    std::string File(const std::string& name) const { return (m_path / name).string(); }
    bool Has(const std::string& name) const { return std::filesystem::exists(m_path / name); }

    /// Throws SourceError.
    CsvTable Read(const std::string& name);

    /// Throws SourceError where the folder has texts that were not read; `reason` says why that is
    /// a fault.
    void RequireAllRead(const std::string& reason) const;

    /// SHA-256 of a text that was read, as lower-case hexadecimal digits.
    const std::string& HashOf(const std::string& name) const { return m_hashes.at(name); }

    /// The hashes of all that was read, by name.
    const std::map<std::string, std::string>& Hashes() const { return m_hashes; }

private:
    std::filesystem::path m_path;
    std::map<std::string, std::string> m_hashes;
};

} // namespace dbsection
