// What is told of names that were typed.
#pragma once

#include "sections/NameIndex.h"

#include <string>
#include <vector>

namespace dbsection {

/// "exact", "alias", "superseded" or "near".
const char* TextOf(sections::Match match);

/// The display name of the catalogue that a section is from.
std::string CatalogueOf(const sections::Section& section);

/// The end of a message that a name was not found: the names that are most like it, or how to list
/// names.
std::string Suggestion(const std::vector<sections::Hit>& near);

} // namespace dbsection
