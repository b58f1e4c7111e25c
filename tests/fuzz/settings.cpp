// Settings texts: what a plain reading of the text finds is found; what is written is read back,
// and every other line stays as it was.
//
// The first three lines of the input are a section, a key and a value; the rest is the file.
#include "Fuzz.h"

#include "platform/PrivateProfile.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace {

using fuzz::Trimmed;
using fuzz::Upper;

std::vector<std::string> LinesOf(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty())
        lines.push_back(fuzz::TakeLine(text));
    return lines;
}

/// The first entry of the key in the first section of that name.
std::optional<std::string> Read(std::string_view text, const std::string& section,
                                const std::string& key) {
    bool isInSection = false;
    bool wasInSection = false;
    for (const std::string& whole : LinesOf(text)) {
        const std::string line = Trimmed(whole);
        if (line.empty() || line[0] == ';' || line[0] == '#')
            continue;
        if (line[0] == '[') {
            const std::size_t end = line.find(']');
            if (end == std::string::npos)
                continue;
            const bool isNamed = Upper(Trimmed(line.substr(1, end - 1))) == Upper(section);
            isInSection = isNamed && !wasInSection;
            wasInSection = wasInSection || isNamed;
            continue;
        }
        const std::size_t equals = line.find('=');
        if (!isInSection || equals == std::string::npos ||
            Upper(Trimmed(line.substr(0, equals))) != Upper(key))
            continue;
        std::string value = Trimmed(line.substr(equals + 1));
        if (value.size() >= 2 && value.front() == value.back() &&
            (value.front() == '"' || value.front() == '\''))
            value = value.substr(1, value.size() - 2);
        return value;
    }
    return std::nullopt;
}

std::string ReadByLibrary(const std::string& file, const std::string& section,
                          const std::string& key) {
    static std::array<char, 1 << 20> text;
    const DWORD length = GetPrivateProfileStringA(section.c_str(), key.c_str(), "\x01 none",
                                                  text.data(), text.size(), file.c_str());
    return {text.data(), length};
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string file = fuzz::Folder().File("settings.ini");
    std::string_view input = fuzz::AsText(data, size);
    const std::string section = Trimmed(fuzz::TakeLine(input));
    const std::string key = Trimmed(fuzz::TakeLine(input));
    const std::string value = Trimmed(fuzz::TakeLine(input));
    const std::string text(input);
    // Texts end at a NUL for the caller, not in the file; a byte order mark is no part of it.
    if ((section + key + value).find('\0') != std::string::npos ||
        text.find('\xEF') != std::string::npos || key.empty())
        return 0;
    testsupport::WriteFile(file, text);
    const std::string before = Read(text, section, key).value_or("\x01 none");
    fuzz::Require(ReadByLibrary(file, section, key) == before,
                  "[" + section + "] " + key + " is \"" + before + "\"");

    if (WritePrivateProfileStringA(section.c_str(), key.c_str(), value.c_str(), file.c_str()) !=
        1) {
        fuzz::Require(testsupport::ReadFile(file) == text, "what is refused changes nothing");
        return 0;
    }
    const std::string written = testsupport::ReadFile(file);
    fuzz::Require(ReadByLibrary(file, section, key) ==
                      Read("[s]\nk=" + value, "s", "k").value_or(""),
                  "what was written is read back: " + value);
    const std::vector<std::string> old = LinesOf(text);
    const std::vector<std::string> now = LinesOf(written);
    const auto atBegin = std::ranges::mismatch(old, now).in1 - old.begin();
    const auto atEnd =
        std::mismatch(old.rbegin(), old.rend(), now.rbegin(), now.rend()).first - old.rbegin();
    fuzz::Require(atBegin + atEnd + 1 >= std::ssize(old), "one line is changed at most");
    return 0;
}
