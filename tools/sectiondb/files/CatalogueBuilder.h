// Writes a catalogue file from its checked sources.
#pragma once

#include "files/BuildTarget.h"
#include "sources/CatalogueSource.h"

#include <filesystem>
#include <functional>
#include <string>

namespace dbsection {

/// Writes `source` to `path`, protected when a password is given. The file appears under its name
/// only when it is whole, with the permissions of one that it replaces. `advance` is called after
/// each section. Throws CommandError.
void BuildCatalogue(const CatalogueSource& source, const std::filesystem::path& path,
                    const std::string& password, const std::function<void()>& advance,
                    Existing existing = Existing::Replace);

} // namespace dbsection
