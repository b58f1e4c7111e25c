// The folders of sources that a person names.
#pragma once

#include "sources/SourceFamilies.h"

#include <filesystem>
#include <map>
#include <vector>

namespace dbsection {

/// The folders of catalogues among those that were named, in their order. A folder that holds
/// catalogues and the families that they draw on stands for all of its catalogues; the folder of
/// families itself is passed over.
std::vector<std::filesystem::path>
CatalogueFolders(const std::vector<std::filesystem::path>& named);

/// Keeps what was read of families, so that catalogues which share some read them once.
class SourceLibrary {
public:
    /// Those in the folder beside that of a catalogue. Throws SourceError.
    SourceFamilies& FamiliesBeside(const std::filesystem::path& catalogue);

private:
    std::map<std::filesystem::path, SourceFamilies> m_families;
};

} // namespace dbsection
