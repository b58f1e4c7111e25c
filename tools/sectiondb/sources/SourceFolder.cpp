#include "sources/SourceFolder.h"

#include "files/Sha256.h"
#include "sources/SourceText.h"

namespace dbsection {

CsvTable SourceFolder::Read(const std::string& name) {
    const std::string path = File(name);
    const std::string text = ReadSourceText(path);
    Sha256 hash;
    hash.Add(text);
    m_hashes[name] = hash.Hex();
    return {path, text};
}

void SourceFolder::RequireAllRead(const std::string& reason) const {
    for (const auto& entry : std::filesystem::directory_iterator(m_path))
        if (entry.path().extension() == ".csv" &&
            !m_hashes.contains(entry.path().filename().string()))
            throw SourceError({entry.path().string(), 0, "", ""}, reason);
}

} // namespace dbsection
