// Catalogues as the library's values: for the search by typed names, and for drawings.
#pragma once

#include <dbSectionInterface.h>
#include <sections/NameIndex.h>

#include <vector>

namespace browser {

/// Gives the library the password of protected files.
void UsePassword(const char* password);

/// The catalogue as its file is now. Throws Refusal.
sections::Catalogue ReadCatalogue(int catalogue);

/// All catalogues that have a file and can be read; what is wrong with the others is added to
/// `faults`.
std::vector<sections::Catalogue> ReadCatalogues(std::vector<CString>& faults);

} // namespace browser
