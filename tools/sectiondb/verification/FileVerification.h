// A catalogue file held against everything that it promises.
#pragma once

#include "sections/Catalogue.h"
#include "verification/RowVerification.h"

#include <functional>
#include <string>
#include <vector>

namespace dbsection {

struct TableVerdict {
    std::string table;
    std::size_t sections = 0;
    RowsVerdict rows;
};

/// Verifies the tables of a catalogue: the stored checksums, where the file has any; names; units;
/// and each section. `advance` is called after each family. Throws sections::Error where the file
/// cannot be read to its end.
std::vector<TableVerdict> VerifyCatalogue(const sections::Catalogue& catalogue,
                                          const std::string& password,
                                          const std::function<void()>& advance);

} // namespace dbsection
