// Files that commands write at a person's wish.
#pragma once

#include <string>
#include <string_view>

namespace dbsection {

/// Throws a UsageError where the name has another ending: such a file may be a catalogue, which a
/// slip must not replace. `what` is what the file is to be, e.g. "page".
void RequireEnding(const std::string& path, std::string_view ending, const char* what);

/// Writes a file whole, or leaves what was there. Throws CommandError.
void WriteWhole(const std::string& path, std::string_view content, const char* what);

} // namespace dbsection
