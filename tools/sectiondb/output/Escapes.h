// Texts of files as the commands may write them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace dbsection {

/// Whether a text is UTF-8 throughout.
bool IsUtf8(std::string_view text);

/// A text as a terminal may get it. Names come from files that may hold anything: what controls a
/// terminal or turns the direction of writing is written as \u001b, what is not UTF-8 as U+FFFD.
std::string PlainText(std::string_view text);

/// Number of characters of a UTF-8 text.
std::size_t WidthOf(std::string_view text);

/// A JSON string, its quotes included, of the same characters.
std::string JsonText(std::string_view text);

/// A field of comma-separated text, in quotes where it needs them (RFC 4180).
std::string CsvText(std::string_view text);

} // namespace dbsection
