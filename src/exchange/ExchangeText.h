// Numbers, names and remarks of exported files.
#pragma once

#include "exchange/Profile.h"

#include <functional>
#include <iosfwd>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace dbsection {

/// With at most 12 digits, for any reader: always with a decimal point or an exponent.
std::string ExportedNumber(double number);

/// A text in one line of UTF-8: what controls a terminal becomes a blank, what is not UTF-8 "?".
std::string OneLine(std::string_view text);

/// Names of letters, digits and "_" that begin with a letter, each once whatever its letter case.
class Identifiers {
public:
    explicit Identifiers(std::size_t longest) : m_longest(longest) {}

    /// By the section's name or, where that is too long, the program's.
    std::string Make(const sections::Section& section);

private:
    std::size_t m_longest;
    std::set<std::string> m_used;
};

/// What a file says at its head: what it is, its units and its axes.
std::vector<std::string> HeadRemarks(const char* what, const ExchangeOptions& options);

/// What is said of a section: its name, where it comes from, and its figures by their symbols.
std::vector<std::string> Remarks(const Profile& profile, const ExchangeOptions& options);

/// Writes the text of each section. A text that throws sections::Error is left out as a whole.
void WriteEach(std::span<const sections::Section> sections, const ExchangeOptions& options,
               std::ostream& file, const std::function<std::string(const Profile& profile)>& text);

/// The lines, each behind the sign of a remark.
std::string Commented(const char* sign, const std::vector<std::string>& lines);

} // namespace dbsection
