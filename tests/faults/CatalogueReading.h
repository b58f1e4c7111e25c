// Everything that can be read of a catalogue: through the data-access functions and the façade.
#pragma once

#include <span>
#include <string>
#include <vector>

namespace faults {

/// Reads the American catalogue in the current folder: the rows of tables, and of families the
/// names, one section by its name, and its summary. Each answer is a text; an empty one tells a
/// failure with its kind.
std::vector<std::string> ReadCatalogue(const char* connect, std::span<const char* const> tables,
                                       std::span<const int> families);

} // namespace faults
