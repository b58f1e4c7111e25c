#include "sectiondb/OutputText.h"

#include <fmt/format.h>

namespace dbsection {

std::string JsonText(std::string_view text) {
    std::string json = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\')
            json += '\\';
        if (static_cast<unsigned char>(c) < 0x20)
            json += fmt::format("\\u{:04x}", static_cast<unsigned>(c));
        else
            json += c;
    }
    return json + '"';
}

std::string CsvText(std::string_view text) {
    if (text.find_first_of(",\"\r\n") == std::string_view::npos)
        return std::string(text);
    std::string field = "\"";
    for (const char c : text)
        field.append(c == '"' ? 2 : 1, c);
    return field + '"';
}

std::string ExactText(double number) { return fmt::format("{}", number); }

std::string FigureText(double number, bool isConverted) {
    return isConverted ? fmt::format("{:.5g}", number) : ExactText(number);
}

} // namespace dbsection
