// What the fuzz targets share. A target is a file that defines LLVMFuzzerTestOneInput: it feeds the
// input to the library and requires what must hold whatever the input is.
#pragma once

#include "TestSupport.h"
#include "platform/MessageBox.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzz {

/// Ends the program where a promise is broken, so that the input is kept.
inline void Require(bool holds, const std::string& promise) {
    if (holds)
        return;
    std::fprintf(stderr, "Broken: %s\n", promise.c_str());
    std::abort();
}

inline std::string_view AsText(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// Takes the first line off a text, without its end.
inline std::string TakeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string line(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

// Text as the library reads it, written once more: these do not compare it with itself.

inline std::string Trimmed(std::string text) {
    const auto isBlank = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
    while (!text.empty() && isBlank(text.back()))
        text.pop_back();
    while (!text.empty() && isBlank(text.front()))
        text.erase(0, 1);
    return text;
}

inline std::string Upper(std::string text) {
    for (char& c : text)
        c = static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
    return text;
}

/// The input as a caller passes a text: it ends at a NUL.
inline std::string AsArgument(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = AsText(data, size);
    return std::string(text.substr(0, text.find('\0')));
}

/// A folder for the files of the target, in memory where there is one; message boxes are silent.
inline const testsupport::TempFolder& Folder() {
    static const testsupport::TempFolder folder = [] {
        if (::access("/dev/shm", W_OK) == 0)
            ::setenv("TMPDIR", "/dev/shm", 0);
        SetMessageBoxHandler([](const char*, const char*, unsigned) { return 1; });
        return testsupport::TempFolder();
    }();
    return folder;
}

} // namespace fuzz
