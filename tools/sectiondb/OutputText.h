// How the commands write texts and numbers.
#pragma once

#include <string>
#include <string_view>

namespace dbsection {

/// A JSON string, its quotes included.
std::string JsonText(std::string_view text);

/// A field of comma-separated text, in quotes where it needs them (RFC 4180).
std::string CsvText(std::string_view text);

/// The shortest text that reads back to the same number.
std::string ExactText(double number);

/// A number to be read by a person: a published figure as it stands, a converted one to the digits
/// that it can carry.
std::string FigureText(double number, bool isConverted);

} // namespace dbsection
