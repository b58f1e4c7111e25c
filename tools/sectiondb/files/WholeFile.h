// Files that a command writes: whole or not at all.
#pragma once

#include <string>
#include <string_view>

namespace dbsection {

/// Throws UsageError where the name of a file has another ending: it may be a catalogue, which a
/// slip must not replace. `kind` is what the file is to be, e.g. "a page".
void RequireEnding(const std::string& path, std::string_view ending, std::string_view kind);

/// Makes or replaces a file. Throws CommandError. `content` is what it holds, e.g. "the page".
void WriteWholeFile(const std::string& path, std::string_view text, std::string_view content);

/// Throws the CommandError of a file that cannot be written; `error` is an errno.
[[noreturn]] void FailToWrite(const std::string& path, std::string_view content, int error);

} // namespace dbsection
