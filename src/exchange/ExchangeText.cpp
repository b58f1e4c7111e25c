#include "exchange/ExchangeText.h"

#include "platform/Text.h"

#include <array>
#include <charconv>
#include <ostream>

namespace dbsection {
namespace {

/// The length of the UTF-8 character that a text begins with; 0 where it is none.
std::size_t CharacterAt(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = lead < 0x80   ? 1
                               : lead < 0xC2 ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF5 ? 4
                                             : 0;
    if (length > text.size())
        return 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((static_cast<unsigned char>(text[i]) & 0xC0U) != 0x80U)
            return 0;
    return length;
}

bool IsControl(std::string_view character) {
    const auto first = static_cast<unsigned char>(character.front());
    const bool isLatinControl = first == 0xC2 && static_cast<unsigned char>(character[1]) < 0xA0;
    const bool isSeparator = character == "\u2028" || character == "\u2029";
    return first < 0x20 || first == 0x7F || isLatinControl || isSeparator;
}

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

std::string IdentifierOf(std::string_view name) {
    constexpr std::string_view Times = "\u00D7";
    std::string made;
    while (!name.empty()) {
        const bool isTimes = name.starts_with(Times);
        const char first = isTimes ? 'x' : name.front();
        if (IsLetter(first) || IsDigit(first))
            made += first;
        else if (!made.empty() && made.back() != '_')
            made += '_';
        name.remove_prefix(isTimes ? Times.size() : 1);
    }
    return made.empty() || !IsLetter(made.front()) ? "S_" + made : made;
}

} // namespace

std::string ExportedNumber(double number) {
    constexpr int Digits = 12;
    if (number == 0)
        return "0."; // not "-0."
    std::array<char, 64> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                   std::chars_format::general, Digits)
                         .ptr;
    std::string text(digits.data(), end);
    if (text.find_first_of(".e") == std::string::npos)
        text += '.';
    return text;
}

std::string OneLine(std::string_view text) {
    std::string line;
    while (!text.empty()) {
        const std::size_t length = CharacterAt(text);
        if (length == 0)
            line += '?';
        else if (IsControl(text.substr(0, length)))
            line += ' ';
        else
            line += text.substr(0, length);
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return line;
}

std::string Identifiers::Make(const sections::Section& section) {
    std::string base = IdentifierOf(section.name());
    if (base.size() > m_longest)
        base = IdentifierOf(section.programName());
    base = base.substr(0, m_longest);
    std::string made = base;
    for (int i = 2; !m_used.insert(UpperCase(made)).second; ++i) {
        const std::string ending = '_' + std::to_string(i);
        made = base.substr(0, m_longest - ending.size()) + ending;
    }
    return made;
}

std::vector<std::string> HeadRemarks(const char* what, const ExchangeOptions& options) {
    const ExchangeUnits& units = ExchangeUnits::Of(options.length);
    const std::string length = units.length;
    return {what, "Units: " + length + " and " + units.force + ".",
            "Axes of the symbols below: " + std::string(AxesOf(options.symbols)) + ".",
            "Seen along the member, the outline's z axis points to the right, its y axis upwards.",
            "The moduli of elasticity are placeholders of steel: put those of your material."};
}

std::vector<std::string> Remarks(const Profile& profile, const ExchangeOptions& options) {
    constexpr std::array Columns{"AX", "IZ", "IY", "IX", "CW", "SZ", "SY",
                                 "ZZ", "ZY", "AY", "AZ", "EY", "EZ", "Perimeter"};
    const std::string standard = profile.Standard();
    std::vector<std::string> lines{OneLine(profile.Section().name() + ", " + profile.Catalogue() +
                                           ", " + profile.Section().family().name() +
                                           (standard.empty() ? "" : ", ") + standard)};
    std::string figures;
    for (const char* column : Columns)
        if (const auto figure = profile.Figure(column)) {
            const bool isComputed =
                profile.Section().source(column) == sections::FigureSource::Computed;
            figures.append(figures.empty() ? "" : ", ")
                .append(SymbolOf(column, options.symbols))
                .append(" = ")
                .append(ExportedNumber(*figure))
                .append(isComputed ? " (computed)" : "");
        }
    if (!figures.empty())
        lines.push_back(figures);
    return lines;
}

std::string Commented(const char* sign, const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        // a backslash would have Tcl take the next line for a remark, too
        text.append(sign).append(" ").append(line).append(line.ends_with('\\') ? " \n" : "\n");
    return text;
}

void WriteEach(std::span<const sections::Section> sections, const ExchangeOptions& options,
               std::ostream& file, const std::function<std::string(const Profile& profile)>& text) {
    const ExchangeUnits& units = ExchangeUnits::Of(options.length);
    for (const sections::Section& section : sections) {
        try {
            file << text(Profile(section, units));
        } catch (const sections::Error& fault) {
            if (!options.leaveOut)
                throw;
            options.leaveOut(fault);
        }
        if (options.progress)
            options.progress();
    }
}

} // namespace dbsection
