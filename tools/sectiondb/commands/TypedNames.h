// What is told of names that were typed.
#pragma once

#include "files/CatalogueFolder.h"
#include "sections/NameIndex.h"

#include <string>
#include <vector>

namespace dbsection {

/// The display name of the catalogue that a section is from.
std::string CatalogueOf(const sections::Section& section);

/// The sections of a catalogue that have the name as it is typed, or else in whatever spelling, or
/// else as an alias: one at least, since a name may stand in several families. Throws CommandError,
/// suggesting the nearest names, where there is none.
std::vector<sections::Section> SectionsNamed(const sections::Catalogue& catalogue,
                                             const std::string& typed);

/// The same of the catalogue that is named, of which no more is read than it needs.
std::vector<sections::Section> SectionsNamed(const CatalogueFolder& folder,
                                             const std::string& catalogue,
                                             const std::string& typed);

/// The one section of that name, of a family where it is named; `familyArgument` is how a person
/// names the family. Throws CommandError where there is none, or families to choose from.
sections::Section SectionNamed(const CatalogueFolder& folder, const std::string& catalogue,
                               const std::string& typed, const std::string& family,
                               const char* familyArgument = "--family");

/// The end of a message that a name was not found: the names that are most like it, or how to list
/// names.
std::string Suggestion(const std::vector<sections::Hit>& near);

} // namespace dbsection
